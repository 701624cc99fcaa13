#include "ige/value_exclusion.h"

#include "db/exact_key.h"
#include "modules/idbproject.h"
#include "site/cells.h"
#include "site/element_summary.h"

#include <algorithm>

void putSample(IDBProject& project, const ExcludedSample& state)
{
    const auto found = findExact(project.getLabSamples(), state.key);
    if (found != project.getLabSamples().end())
        found->second = state.sample;
}

static void toggleProperty(LabSample& sample, int property, ExcludedBy excluded)
{
    for (PropertyCell& cell : sample.physical) {
        if (cell.id != property || cell.value.empty())
            continue;
        if (excluded == ExcludedBy::Rule) {
            cell.value += L'!';
        } else if (excluded == ExcludedBy::Nobody) {
            cell.enabled = false;
        } else {
            cell.enabled = true;
            // A value in brackets is out as well.
            if (cell.value.front() == L'(' && cell.value.back() == L')')
                cell.value = cell.value.substr(1, cell.value.size() - 2);
        }
        return;
    }
}

static void toggleShear(std::vector<ShearCell>& cells, ExcludedBy excluded)
{
    std::erase_if(cells, [](const ShearCell& cell) { return cell.id == shearTestNote; });
    if (excluded == ExcludedBy::Nobody)
        cells.push_back({shearTestNote, std::wstring(shearKeptOut)});
    else if (excluded == ExcludedBy::Rule)
        cells.push_back({shearTestNote, std::wstring(shearKeptIn)});
}

static void toggleCompression(CompressionGroup& group, ExcludedBy excluded)
{
    group.flags[compression_flag::KeptOut] = excluded == ExcludedBy::Nobody ? 1 : 0;
    group.flags[compression_flag::KeptIn] = excluded == ExcludedBy::Rule ? 1 : 0;
}

void toggleExclusion(LabSample& sample, int property, int shearMethod, ExcludedBy excluded)
{
    if (property == modulusProperty) {
        for (auto& [test, group] : sample.compression)
            toggleCompression(group, excluded);
    } else if (property == frictionProperty || property == cohesionProperty) {
        if (const auto cells = sample.shear.find(static_cast<std::uint8_t>(shearMethod));
            cells != sample.shear.end())
            toggleShear(cells->second, excluded);
    } else {
        toggleProperty(sample, property, excluded);
    }
}
