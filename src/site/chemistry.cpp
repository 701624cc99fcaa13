#include "site/chemistry.h"

#include "calc/table_text.h"
#include "modules/idbproject.h"
#include "site/table_beside.h"

#include <algorithm>
#include <unordered_map>

namespace
{

constexpr std::wstring_view choiceKey = L"Коррозия:0";
constexpr std::wstring_view weakFiltration = L"Кф до 0.1";
constexpr std::wstring_view oldEdition = L"СНиП 2.03.11-85";
constexpr std::int32_t cathodeCurrentProperty = 56;

// Cathode currents by point, with their depths.
using Currents = std::unordered_map<std::wstring_view, std::vector<std::pair<double, double>>>;

Currents cathodeCurrents(IDBProject& project)
{
    Currents currents;
    for (const auto& [key, sample] : project.getLabSamples())
        for (const PropertyCell& cell : sample.physical)
            if (cell.id == cathodeCurrentProperty) {
                const Number depth = readNumber(key.depth);
                const CellNumber current = readCellNumber(cell.value);
                if (depth && current.value && !current.isLeftOut)
                    currents[key.pointName].emplace_back(*depth, *current.value);
            }
    return currents;
}

const TablesInUse<AggressivenessLimits>& inUse()
{
    static const TablesInUse<AggressivenessLimits> read(limitsFileName);
    return read;
}

} // namespace

SiteAnalysis siteAnalysis(const PointDepthKey& key, const ChemistryRecord& record)
{
    SiteAnalysis made{key.pointName, key.depth, analysisOf(record.cells), {}, {}};
    for (std::size_t i = 0; i < CellKind; ++i)
        if (!made.analysis.cells[i].value && !trimmedField(record.cells[i]).empty())
            made.remarks.push_back(
                {Remark::Impossible, "chemistry/" + std::to_string(i), L"Не число: значение не учитывается"});
    return made;
}

std::vector<SiteAnalysis> siteAnalyses(IDBProject& project)
{
    const Currents currents = cathodeCurrents(project);
    std::vector<SiteAnalysis> analyses;
    analyses.reserve(project.getChemistry().size());
    for (const auto& [key, record] : project.getChemistry()) {
        analyses.push_back(siteAnalysis(key, record));
        const auto found = currents.find(key.pointName);
        const Number depth = readNumber(key.depth);
        if (found == currents.end() || !depth)
            continue;
        for (const auto& [sampleDepth, current] : found->second)
            if (sampleDepth == *depth)
                analyses.back().cathodeCurrent = current;
    }
    return analyses;
}

ProtectionChoice protectionChoice(IDBProject& project)
{
    ProtectionChoice choice;
    for (const auto& [key, value] : project.getNumberedLinks()) {
        if (key != choiceKey)
            continue;
        std::vector<std::wstring_view> parts = partedFields(value, L';');
        parts.resize(4);
        if (!parts[0].empty())
            choice.cement = parts[0];
        if (const Number cover = readNumber(parts[1]); cover && *cover > 0.0 && *cover < 1000.0)
            choice.coverMm = static_cast<int>(*cover);
        choice.isFiltering = parts[2] != weakFiltration;
        choice.isOldEdition = parts[3] == oldEdition;
    }
    return choice;
}

std::wstring protectionText(const ProtectionChoice& choice)
{
    const ProtectionChoice usual;
    std::wstring text = choice.cement == usual.cement ? L"" : choice.cement;
    text += L';';
    if (choice.coverMm != usual.coverMm)
        text += std::to_wstring(choice.coverMm);
    text += L';';
    if (!choice.isFiltering)
        text += weakFiltration;
    text += L';';
    if (choice.isOldEdition)
        text += oldEdition;
    return text;
}

NumberedLinks withProtectionChoice(const NumberedLinks& links, const ProtectionChoice& choice)
{
    NumberedLinks chosen;
    for (const auto& [key, value] : links)
        if (key != choiceKey)
            chosen.insert({key, value});
    chosen.insert({std::wstring(choiceKey), protectionText(choice)});
    return chosen;
}

void setProtectionChoice(IDBProject& project, const ProtectionChoice& choice)
{
    project.setNumberedLinks(withProtectionChoice(project.getNumberedLinks(), choice));
}

std::vector<std::wstring> knownCements(const AggressivenessLimits& limits)
{
    std::vector<std::wstring> cements;
    for (const LimitRow& row : limits.rows())
        if (!row.cement.empty() && std::ranges::find(cements, row.cement) == cements.end())
            cements.push_back(row.cement);
    return cements;
}

std::vector<int> knownCovers(const AggressivenessLimits& limits, bool isWater)
{
    constexpr std::wstring_view word = L"слой ";
    std::vector<int> covers;
    for (const LimitRow& row : limits.rows()) {
        const std::wstring_view condition = row.condition;
        if (row.isWater != isWater || !condition.starts_with(word))
            continue;
        const Number cover = readNumber(condition.substr(word.size(), condition.find(L',') - word.size()));
        if (cover && std::ranges::find(covers, static_cast<int>(*cover)) == covers.end())
            covers.push_back(static_cast<int>(*cover));
    }
    std::ranges::sort(covers);
    return covers;
}

AggressivenessLimits limitsBeside(const std::wstring& folder, std::vector<TableMistake>& mistakes)
{
    return tablesBeside<AggressivenessLimits>(folder, limitsFileName, mistakes);
}

const AggressivenessLimits& limitsInUse()
{
    return inUse().tables;
}

const std::vector<TableMistake>& limitMistakes()
{
    return inUse().mistakes;
}

std::wstring limitsMessage(const std::vector<TableMistake>& mistakes)
{
    if (mistakes.empty())
        return {};
    constexpr std::size_t shown = 5;
    std::wstring message = L"Файл " + std::wstring(limitsFileName)
        + L" рядом с программой не принят, действуют встроенные пределы агрессивности.\n";
    for (std::size_t i = 0; i < std::min(shown, mistakes.size()); ++i) {
        const TableMistake& mistake = mistakes[i];
        message += L'\n';
        if (mistake.line > 0)
            message += L"Строка " + std::to_wstring(mistake.line) + L": ";
        message += mistake.text + L'.';
    }
    if (mistakes.size() > shown)
        message += L"\nИ еще ошибок: " + std::to_wstring(mistakes.size() - shown) + L'.';
    return message;
}
