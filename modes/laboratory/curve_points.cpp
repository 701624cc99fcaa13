#include "laboratory/curve_points.h"

#include "calc/grading.h"
#include "dictionaries/fractions.h"
#include "plots/laboratory_curves.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <vector>

namespace
{

constexpr int millimetreDecimals = 3;
constexpr int stressDecimals = 3;
constexpr int centimetreDecimals = 3;

template <class Cells>
auto* cellWith(Cells& cells, int id)
{
    const auto place =
        std::find_if(cells.begin(), cells.end(), [id](const auto& cell) { return cell.id == id; });
    return place == cells.end() ? nullptr : &*place;
}

bool isBlank(const std::wstring& text)
{
    return text.find_first_not_of(L" \t\u00a0") == std::wstring::npos;
}

// The new number in the place of the old one: what stands around it stays.
void putNumber(std::wstring& text, double value, int decimals)
{
    const std::size_t at = text.find(L'@');
    const std::wstring head = text.substr(0, at);
    const std::size_t first = head.find_first_of(L"0123456789.,+-");
    const std::size_t last = head.find_last_of(L"0123456789.,");
    const std::wstring number = numberText(value, decimals);
    if (first == std::wstring::npos || last == std::wstring::npos || last < first)
        text = number + (at == std::wstring::npos ? std::wstring() : text.substr(at));
    else
        text.replace(first, last - first + 1, number);
}

// The texts whose values make the point.
std::vector<std::wstring*> textsOf(LabSample& sample, const TestChoice& choice, std::int64_t id)
{
    const auto method = static_cast<std::uint8_t>(choice.method);
    const int number = cellOfPoint(sample, choice, id);
    switch (choice.test) {
    case LabTest::Compression:
        if (const auto group = sample.compression.find(method); group != sample.compression.end())
            if (CompressionCell* cell = cellWith(group->second.cells, number))
                return {id > soakedPoint ? &cell->textB : &cell->textA};
        break;
    case LabTest::Shear:
        if (const auto cells = sample.shear.find(method);
            cells != sample.shear.end() && id >= 1 && id <= static_cast<std::int64_t>(cells->second.size()))
            return {&cells->second[static_cast<std::size_t>(id - 1)].value};
        break;
    case LabTest::Swelling:
        if (SwellingCell* cell = cellWith(sample.swelling, number))
            return {&cell->textA, &cell->textB, &cell->textC};
        break;
    case LabTest::Shrinkage:
        for (ShrinkageRow& row : sample.shrinkage)
            if (row.stage + 1 == id)
                return {&row.cells[isBlank(row.cells[2]) ? 4 : 2]};
        break;
    case LabTest::Physical:
    case LabTest::Grading:
        break;
    }
    return {};
}

bool moveStage(
    LabSample& sample, const SampleResult& result, const TestChoice& choice, std::int64_t id, double strain)
{
    const std::vector<std::wstring*> texts = textsOf(sample, choice, id);
    for (const CompressionInput& input : result.input.compression) {
        const OedometerInput& test = input.oedometer;
        if (test.test != choice.method || texts.empty())
            continue;
        const bool isSecond = id > soakedPoint && test.test == 23 && test.secondHeight;
        const Number height = isSecond ? test.secondHeight : test.height;
        if (!height)
            return false;
        double correction = 0;
        for (const OedometerStage& stage : test.stages)
            if (stage.row == cellOfPoint(sample, choice, id))
                correction = stage.correction.value_or(0);
        putNumber(*texts.front(), strain * *height + correction, millimetreDecimals);
        return true;
    }
    return false;
}

// What was measured follows the point, what is computed from it follows at the next calculation.
bool moveSwell(
    LabSample& sample, const SampleResult& result, const TestChoice& choice, std::int64_t id, double relative)
{
    SwellingCell* cell = cellWith(sample.swelling, cellOfPoint(sample, choice, id));
    if (!cell)
        return false;
    const Number height = result.input.swellingHeight;
    const bool hasSizes = !isBlank(cell->textA) || !isBlank(cell->textB);
    if (hasSizes && !height)
        return false;
    if (!isBlank(cell->textA))
        putNumber(cell->textA, *height * (1 + relative), centimetreDecimals);
    if (!isBlank(cell->textB))
        putNumber(cell->textB, *height * relative, centimetreDecimals);
    if (!hasSizes || !isBlank(cell->textC))
        putNumber(cell->textC, relative, 4);
    return true;
}

bool moveVolume(LabSample& sample, std::int64_t id, double volume)
{
    for (ShrinkageRow& row : sample.shrinkage) {
        if (row.stage + 1 != id || !(volume > 0))
            continue;
        const Number diameter = readCellNumber(row.cells[1]).value;
        const Number height = readCellNumber(row.cells[2]).value;
        if (diameter && height && *diameter > 0)
            putNumber(
                row.cells[2], 4 * volume / (std::numbers::pi * *diameter * *diameter), centimetreDecimals);
        if (!isBlank(row.cells[4]) || !diameter || !height)
            putNumber(row.cells[4], volume, 1);
        return true;
    }
    return false;
}

// The point lies between two fractions: what one loses the other gains.
bool moveBound(LabSample& sample, const SampleResult& result, std::int64_t id, double finer)
{
    const auto place = static_cast<std::size_t>(id - 1);
    const std::vector<GrainPoint>& curve = result.grading.curve;
    if (id < 1 || place >= curve.size() || !curve[place].isReal)
        return false;
    std::wstring* above = nullptr;
    std::wstring* below = nullptr;
    for (auto& [number, text] : sample.grading) {
        const Number share = readNumber(text);
        if (!share)
            continue;
        for (const GrainScale scale : {GrainScale::Above200, GrainScale::Above800}) {
            const double bound = fractionBound(number, scale);
            if (bound <= 0)
                continue;
            if (std::abs(bound - curve[place].diameter) < 1e-9)
                above = &text;
            if (place + 1 < curve.size() && std::abs(bound - curve[place + 1].diameter) < 1e-9)
                below = &text;
        }
    }
    if (!above || !below)
        return false;
    const double coarse = *readNumber(*above);
    const double fine = *readNumber(*below);
    const double lost = roundedTo(std::clamp(finer - curve[place].finer, -fine, coarse), 1);
    const double moved = std::clamp(lost, -fine, coarse);
    putNumber(*above, coarse - moved, 1);
    putNumber(*below, fine + moved, 1);
    return true;
}

} // namespace

int cellOfPoint(const LabSample& sample, const TestChoice& choice, std::int64_t id)
{
    if (id < 1 || choice.test == LabTest::Grading)
        return -1;
    const std::int64_t place = (id - 1) % soakedPoint;
    if (choice.test != LabTest::Shear)
        return static_cast<int>(place);
    const auto cells = sample.shear.find(static_cast<std::uint8_t>(choice.method));
    return cells != sample.shear.end() && place < static_cast<std::int64_t>(cells->second.size())
        ? cells->second[static_cast<std::size_t>(place)].id
        : -1;
}

bool movePoint(
    LabSample& sample, const SampleResult& result, const TestChoice& choice, std::int64_t id, double ordinate)
{
    switch (choice.test) {
    case LabTest::Grading:
        return moveBound(sample, result, id, ordinate);
    case LabTest::Compression:
        return moveStage(sample, result, choice, id, ordinate);
    case LabTest::Shear:
        for (std::wstring* text : textsOf(sample, choice, id)) {
            putNumber(*text, ordinate, stressDecimals);
            return true;
        }
        return false;
    case LabTest::Swelling:
        return moveSwell(sample, result, choice, id, ordinate);
    case LabTest::Shrinkage:
        return moveVolume(sample, id, ordinate);
    case LabTest::Physical:
        break;
    }
    return false;
}

bool canLeaveOut(const TestChoice& choice)
{
    return choice.test == LabTest::Compression || choice.test == LabTest::Shear
        || choice.test == LabTest::Swelling || choice.test == LabTest::Shrinkage;
}

bool isLeftOut(const LabSample& sample, const TestChoice& choice, std::int64_t id)
{
    LabSample copy = sample;
    for (const std::wstring* text : textsOf(copy, choice, id))
        if (readLoadCell(*text).number.isLeftOut)
            return true;
    return false;
}

void leaveOut(LabSample& sample, const TestChoice& choice, std::int64_t id, bool isOut)
{
    for (std::wstring* text : textsOf(sample, choice, id)) {
        const LoadCell cell = readLoadCell(*text);
        if (!cell.number.value || cell.number.isLeftOut == isOut)
            continue;
        if (isOut) {
            *text = L"(" + *text + L")";
        } else {
            std::erase(*text, L'(');
            std::erase(*text, L')');
        }
    }
}
