#include "persistence/section_marks.h"

#include "core/base/text_number.h"

#include <stdexcept>

bool isMarkMissing(float mark)
{
    return mark < 1e-5F;
}

// By the ordering alone, which ignores the kind: 01 finds 1, and a sounding is as good as a borehole.
static PointRegister::const_iterator findPoint(PointRegister& pointRegister, const std::wstring& pointName)
{
    try {
        return pointRegister.find(PointKey{pointName, 1});
    } catch (const std::logic_error&) {
        // A name that the ordering cannot read is nobody's name.
        return pointRegister.end();
    }
}

const PointRow* rowOfMark(PointRegister& pointRegister, const std::wstring& pointName, bool lastRow)
{
    const auto point = findPoint(pointRegister, pointName);
    if (point == pointRegister.end() || point->second.empty())
        return nullptr;
    return lastRow ? &point->second.back() : &point->second.front();
}

static void completeMark(
    float& mark, PointRegister& pointRegister, const std::wstring& pointName, bool lastRow)
{
    if (!isMarkMissing(mark) || pointName.empty())
        return;
    const PointRow* row = rowOfMark(pointRegister, pointName, lastRow);
    mark = row ? textToFloat(row->absoluteMark) : 0;
}

void completeSectionMarks(SectionPointMap& points, SectionLineMap& lines, PointRegister& pointRegister)
{
    for (auto& [section, ends] : points) {
        if (ends.textA.empty() || ends.textB.empty()) {
            const auto line = lines.find(section);
            if (line != lines.end() && !line->second.empty()) {
                if (ends.textA.empty())
                    ends.textA = line->second.front().name;
                if (ends.textB.empty())
                    ends.textB = line->second.back().name;
            }
        }
        completeMark(ends.markA, pointRegister, ends.textA, false);
        completeMark(ends.markB, pointRegister, ends.textB, true);
    }
}
