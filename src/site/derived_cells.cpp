#include "site/derived_cells.h"

#include <algorithm>
#include <iterator>

namespace
{

bool isBlank(std::wstring_view text)
{
    return text.find_first_not_of(L" \t\u00a0") == std::wstring_view::npos;
}

constexpr int derivedOfTests[] = {30, 31, 32};

std::wstring computedText(const SampleResult& result, int property)
{
    switch (property) {
    case 30:
        return numberText(result.swelling.pressure, 3);
    case 31:
        return numberText(result.swelling.free, 3);
    case 32:
        return numberText(result.shrinkage.limit, 3);
    default:
        return numberText(
            derivedProperties(result.physical)[static_cast<std::size_t>(property - firstDerivedProperty)],
            derivedDecimals(property));
    }
}

class Filling
{
public:
    Filling(LabSample& sample, const SampleResult& result, Fill fill)
        : sample_(sample)
        , result_(result)
        , fill_(fill)
    {
    }

    bool run(const SoilNaming& soil)
    {
        for (int property = firstDerivedProperty; property <= lastDerivedProperty; ++property)
            putProperty(property, computedText(result_, property));
        for (const int property : derivedOfTests)
            putProperty(property, computedText(result_, property));
        fillSwelling();
        fillShrinkage();
        nameSoil(soil);
        return hasChanged_;
    }

private:
    void put(std::wstring& cell, const std::wstring& text)
    {
        if (text.empty() || cell == text || (fill_ == Fill::Empty && !isBlank(cell)))
            return;
        cell = text;
        hasChanged_ = true;
    }

    void putProperty(int property, const std::wstring& text)
    {
        if (text.empty())
            return;
        auto cell = std::find_if(sample_.physical.begin(),
            sample_.physical.end(),
            [&](const PropertyCell& each) { return each.id == property; });
        if (cell == sample_.physical.end()) {
            cell = std::find_if(sample_.physical.begin(),
                sample_.physical.end(),
                [&](const PropertyCell& each) { return each.id > property; });
            PropertyCell made;
            made.id = property;
            made.enabled = true;
            cell = sample_.physical.insert(cell, made);
        }
        put(cell->value, text);
    }

    // Rows of the result stand by load, cells as typed; a repeated load has no result to take from.
    void fillSwelling()
    {
        for (SwellingCell& cell : sample_.swelling) {
            const auto row = std::find_if(result_.swelling.rows.begin(),
                result_.swelling.rows.end(),
                [&](const SwellingRow& each) { return each.row == cell.id && !each.isRepeated; });
            if (row == result_.swelling.rows.end())
                continue;
            put(cell.textB, numberText(row->absolute, 3));
            put(cell.textC, numberText(row->relative, 4));
        }
    }

    void fillShrinkage()
    {
        for (ShrinkageRow& row : sample_.shrinkage) {
            const auto& points = result_.shrinkage.points;
            const auto point = std::find_if(points.begin(), points.end(), [&](const ShrinkagePoint& each) {
                return each.row == row.stage;
            });
            if (point == points.end())
                continue;
            put(row.cells[4], numberText(point->volume, 1));
            // The moisture of the first stage is an input.
            if (point != points.begin())
                put(row.cells[5], numberText(point->moisture, 3));
        }
    }

    void nameSoil(const SoilNaming& soil)
    {
        if (soil.text.empty())
            return;
        const bool isTyped = sample_.soilKind.code == 0 && !isBlank(sample_.soilKind.text);
        if (isTyped && fill_ == Fill::Empty)
            return;
        if (sample_.soilKind.text == soil.text && sample_.soilKind.code == soil.group)
            return;
        sample_.soilKind = {soil.group, soil.text};
        hasChanged_ = true;
    }

    LabSample& sample_;
    const SampleResult& result_;
    Fill fill_;
    bool hasChanged_ = false;
};

} // namespace

bool fillDerivedCells(LabSample& sample, const SampleResult& result, const SoilNaming& soil, Fill fill)
{
    return Filling(sample, result, fill).run(soil);
}

bool isComputedText(const SampleResult& result, int property, std::wstring_view text)
{
    const bool isDerived = (property >= firstDerivedProperty && property <= lastDerivedProperty)
        || std::find(std::begin(derivedOfTests), std::end(derivedOfTests), property)
            != std::end(derivedOfTests);
    return isDerived && (isBlank(text) || text == computedText(result, property));
}
