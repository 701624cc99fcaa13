#include "calc/standard_tables.h"
#include "calc/table_text.h"

#include <algorithm>
#include <functional>

// The file of tables: rows of five fields parted by semicolons, "#" begins a remark.

namespace
{

constexpr std::size_t fieldCount = 5;
constexpr std::wstring_view liquidityMark = L"IL ";

struct QuantityWord {
    std::wstring_view word;
    TableQuantity quantity;
};
// Those of one letter also in the letter of the other alphabet.
constexpr QuantityWord quantityWords[] = {
    {L"c", TableQuantity::Cohesion},
    {L"с", TableQuantity::Cohesion},
    {L"фи", TableQuantity::Friction},
    {L"E", TableQuantity::Modulus},
    {L"Е", TableQuantity::Modulus},
    {L"гамма c", TableQuantity::CohesionFactor},
    {L"гамма с", TableQuantity::CohesionFactor},
    {L"гамма фи", TableQuantity::FrictionFactor},
    {L"гамма E", TableQuantity::ModulusFactor},
    {L"гамма Е", TableQuantity::ModulusFactor},
    {L"бета", TableQuantity::LateralExpansion},
    {L"m_k", TableQuantity::FieldFactor},
    {L"m_oed", TableQuantity::OedometerFactor},
    {L"R0", TableQuantity::Resistance},
};

struct SoilWord {
    std::wstring_view word;
    TableSoil soil;
};
constexpr SoilWord soilWords[] = {
    {L"песок", TableSoil::AnySand},
    {L"песок крупный", TableSoil::CoarseSand},
    {L"песок средней крупности", TableSoil::MediumSand},
    {L"песок мелкий", TableSoil::FineSand},
    {L"песок пылеватый", TableSoil::SiltySand},
    {L"супесь", TableSoil::SandyLoam},
    {L"суглинок", TableSoil::Loam},
    {L"глина", TableSoil::Clay},
    {L"галечник", TableSoil::Pebbles},
    {L"гравий", TableSoil::Gravel},
};

template <class Words>
auto findWord(const Words& words, std::wstring_view word) -> decltype(&words[0])
{
    const auto* found = std::ranges::find_if(words, [&](const auto& each) { return each.word == word; });
    return found == std::end(words) ? nullptr : found;
}

// "-", "IL 0..0.25", "IL 1", or words. False where the numbers cannot be read.
bool readState(std::wstring_view field, StandardRow& row)
{
    if (!field.starts_with(liquidityMark)) {
        row.condition = field == L"-" ? std::wstring_view() : field;
        return true;
    }
    const std::wstring_view range = field.substr(liquidityMark.size());
    const std::size_t dots = range.find(L"..");
    row.liquidityFrom = readNumber(range.substr(0, dots));
    row.liquidityTo =
        dots == std::wstring_view::npos ? row.liquidityFrom : readNumber(range.substr(dots + 2));
    return row.liquidityFrom && row.liquidityTo && *row.liquidityFrom <= *row.liquidityTo;
}

// One number, or pairs of rising void ratios and their values.
bool readValues(std::wstring_view field, StandardRow& row)
{
    for (const std::wstring_view word : partedFields(field, L' ')) {
        if (word.empty())
            continue;
        const std::size_t colon = word.find(L':');
        const bool isPair = colon != std::wstring_view::npos;
        const Number at = isPair ? readNumber(word.substr(0, colon)) : Number(0);
        const Number value = readNumber(isPair ? word.substr(colon + 1) : word);
        if (!at || !value || *value < 0)
            return false;
        if (!row.values.empty() && (row.isSingle || !isPair || *at <= row.values.back().first))
            return false;
        row.isSingle = !isPair;
        row.values.emplace_back(*at, *value);
    }
    return !row.values.empty();
}

bool isDivisor(TableQuantity quantity)
{
    return quantity == TableQuantity::CohesionFactor || quantity == TableQuantity::FrictionFactor
        || quantity == TableQuantity::ModulusFactor;
}

// The row of a line, or what is wrong with it.
std::wstring readRow(std::wstring_view line, StandardRow& row)
{
    const std::vector<std::wstring_view> fields = partedFields(line, L';');
    if (fields.size() != fieldCount)
        return L"в строке должно быть пять полей, разделенных точкой с запятой";
    const auto* quantity = findWord(quantityWords, fields[0]);
    if (!quantity)
        return L"неизвестная величина «" + std::wstring(fields[0]) + L"»";
    row.quantity = quantity->quantity;
    const auto* soil = findWord(soilWords, fields[1]);
    if (!soil)
        return L"неизвестный грунт «" + std::wstring(fields[1]) + L"»";
    row.soil = soil->soil;
    if (!readState(fields[2], row))
        return L"состояние «" + std::wstring(fields[2]) + L"» не читается";
    if (!readValues(fields[3], row))
        return L"значения не читаются: нужно число или пары «e:значение» по возрастанию e";
    if (isDivisor(row.quantity) && row.values.front().second < 1)
        return L"делитель не может быть меньше 1";
    row.source = fields[4];
    return row.source.empty() ? L"не назван источник" : L"";
}

std::vector<StandardRow> readRows(std::string_view text, std::vector<TableMistake>& mistakes)
{
    return readTableRows<StandardRow>(text, readRow, std::mem_fn(&StandardRow::isSameCase), mistakes);
}

template <class Words, class Value>
std::wstring wordOf(const Words& words, Value value)
{
    for (const auto& [word, each] : words)
        if (each == value)
            return std::wstring(word);
    return {};
}

} // namespace

bool StandardRow::isSameCase(const StandardRow& other) const
{
    return quantity == other.quantity && soil == other.soil && liquidityFrom == other.liquidityFrom
        && liquidityTo == other.liquidityTo && condition == other.condition;
}

const StandardTables& StandardTables::ofProgram()
{
    static const StandardTables tables = [] {
        StandardTables own;
        std::vector<TableMistake> mistakes;
        own.rows_ = readRows(programText(), mistakes);
        return own;
    }();
    return tables;
}

StandardTables StandardTables::read(std::string_view text, std::vector<TableMistake>& mistakes)
{
    StandardTables tables;
    tables.rows_ = readRows(text, mistakes);
    if (!mistakes.empty())
        return tables;
    for (const StandardRow& row : ofProgram().rows()) {
        const auto isThere = [&](const StandardRow& own) { return own.isSameCase(row); };
        if (std::ranges::any_of(tables.rows_, isThere))
            continue;
        std::wstring state = row.condition;
        if (row.liquidityFrom)
            state = std::wstring(liquidityMark) + numberText(row.liquidityFrom, 2) + L".."
                + numberText(row.liquidityTo, 2);
        mistakes.push_back({0,
            L"нет строки: " + wordOf(quantityWords, row.quantity) + L", " + wordOf(soilWords, row.soil)
                + (state.empty() ? L"" : L", " + state)});
    }
    return tables;
}
