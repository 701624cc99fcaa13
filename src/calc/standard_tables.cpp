#include "calc/standard_tables.h"

#include <cmath>
#include <iterator>
#include <sstream>

namespace
{

// SNiP 2.02.01-83, annex 1, kept by SP 22.13330 (second-hand: to be compared with the printed standard). A
// line: quantity, soil, liquidity index from, to, first void ratio, then values every 0.1 ("-": none). The
// first range of a soil takes in harder states too.
constexpr const char* carriedText = R"(# величина грунт IL_от IL_до e_первый значения через 0.1
c песок_крупный 0 0 0.45 2 1 0 -
c песок_средний 0 0 0.45 3 2 1 -
c песок_мелкий 0 0 0.45 6 4 2 0
c песок_пылеватый 0 0 0.45 8 6 4 2
фи песок_крупный 0 0 0.45 43 40 38 -
фи песок_средний 0 0 0.45 40 38 35 -
фи песок_мелкий 0 0 0.45 38 36 32 28
фи песок_пылеватый 0 0 0.45 36 34 30 26
E песок_крупный 0 0 0.45 50 40 30 -
E песок_средний 0 0 0.45 50 40 30 -
E песок_мелкий 0 0 0.45 48 38 28 18
E песок_пылеватый 0 0 0.45 39 28 18 11
c супесь 0 0.25 0.45 21 17 15 13
c супесь 0.25 0.75 0.45 19 15 13 11 9
c суглинок 0 0.25 0.45 47 37 31 25 22 19
c суглинок 0.25 0.5 0.45 39 34 28 23 18 15
c суглинок 0.5 0.75 0.65 25 20 16 14 12
c глина 0 0.25 0.55 81 68 54 47 41 36
c глина 0.25 0.5 0.65 57 50 43 37 32
c глина 0.5 0.75 0.65 45 41 36 33 29
фи супесь 0 0.25 0.45 30 29 27 24
фи супесь 0.25 0.75 0.45 28 26 24 21 18
фи суглинок 0 0.25 0.45 26 25 24 23 22 20
фи суглинок 0.25 0.5 0.45 24 23 22 21 19 17
фи суглинок 0.5 0.75 0.65 19 18 16 14 12
фи глина 0 0.25 0.55 21 20 19 18 16 14
фи глина 0.25 0.5 0.65 18 17 16 14 11
фи глина 0.5 0.75 0.65 15 14 12 10 7
E супесь 0 0.75 0.45 32 24 16 10 7
E суглинок 0 0.25 0.45 34 27 22 17 14 11
E суглинок 0.25 0.5 0.45 32 25 19 14 11 8
E суглинок 0.5 0.75 0.65 17 12 8 6 5
E глина 0 0.25 0.55 28 24 21 18 15 12
E глина 0.25 0.5 0.65 21 18 15 12 9
E глина 0.5 0.75 0.75 15 12 9 7
)";

struct QuantityWord {
    std::string_view word;
    TableQuantity quantity;
};
constexpr QuantityWord quantityWords[] = {
    {"c", TableQuantity::Cohesion},
    {"фи", TableQuantity::Friction},
    {"E", TableQuantity::Modulus},
};

struct SoilWord {
    std::string_view word;
    TableSoil soil;
};
constexpr SoilWord soilWords[] = {
    {"песок_крупный", TableSoil::GravellySand},
    {"песок_средний", TableSoil::MediumSand},
    {"песок_мелкий", TableSoil::FineSand},
    {"песок_пылеватый", TableSoil::SiltySand},
    {"супесь", TableSoil::SandyLoam},
    {"суглинок", TableSoil::Loam},
    {"глина", TableSoil::Clay},
};

template <class Words>
auto findWord(const Words& words, const std::string& word) -> decltype(&words[0])
{
    for (const auto& each : words)
        if (each.word == word)
            return &each;
    return nullptr;
}

Number numberIn(const std::string& word)
{
    return readNumber(std::wstring(word.begin(), word.end()));
}

bool readLine(const std::string& line, TableRow& row)
{
    std::istringstream words(line);
    std::string quantity;
    std::string soil;
    std::string bounds[3];
    if (!(words >> quantity >> soil >> bounds[0] >> bounds[1] >> bounds[2]))
        return false;
    const auto* quantityFound = findWord(quantityWords, quantity);
    const auto* soilFound = findWord(soilWords, soil);
    const Number from = numberIn(bounds[0]);
    const Number to = numberIn(bounds[1]);
    const Number first = numberIn(bounds[2]);
    if (!quantityFound || !soilFound || !from || !to || !first || *to < *from)
        return false;
    row = {quantityFound->quantity, soilFound->soil, *from, *to, *first, {}};
    for (std::string value; words >> value;) {
        const Number number = numberIn(value);
        if (!number && value != "-")
            return false;
        row.values.push_back(number);
    }
    return !row.values.empty();
}

bool isSand(TableSoil soil)
{
    return soil <= TableSoil::SiltySand;
}

// Harder than the first range is as its hard end; ranges include their upper bound.
bool covers(const TableRow& row, const Number& liquidity)
{
    if (isSand(row.soil))
        return true;
    if (!liquidity)
        return false;
    const double index = roundedTo(*liquidity, 6);
    return index <= row.liquidityTo && (index > row.liquidityFrom || row.liquidityFrom == 0);
}

Number valueAt(const TableRow& row, double voidRatio)
{
    const double place = roundedTo((voidRatio - row.firstVoidRatio) / 0.1, 6);
    if (place < 0 || place > static_cast<double>(row.values.size() - 1))
        return {};
    const auto below = static_cast<std::size_t>(place);
    const double share = place - static_cast<double>(below);
    if (share == 0)
        return row.values[below];
    const Number& a = row.values[below];
    const Number& b = row.values[below + 1];
    return a && b ? Number(*a + share * (*b - *a)) : Number();
}

} // namespace

std::vector<TableRow> readStandardTables(std::string_view text, std::vector<std::string>& faults)
{
    std::vector<TableRow> tables;
    std::istringstream lines{std::string(text)};
    int number = 0;
    for (std::string line; std::getline(lines, line);) {
        ++number;
        if (!line.empty() && line.back() == '\r')
            line.pop_back();
        if (line.find_first_not_of(" \t") == std::string::npos || line.front() == '#')
            continue;
        TableRow row;
        if (readLine(line, row))
            tables.push_back(std::move(row));
        else
            faults.push_back("строка " + std::to_string(number) + " не понята: " + line);
    }
    return tables;
}

const std::vector<TableRow>& standardTables()
{
    static const std::vector<TableRow> tables = [] {
        std::vector<std::string> faults;
        return readStandardTables(carriedText, faults);
    }();
    return tables;
}

Number tableValue(const std::vector<TableRow>& tables,
    TableQuantity quantity,
    TableSoil soil,
    const Number& voidRatio,
    const Number& liquidity)
{
    if (!voidRatio)
        return {};
    for (const TableRow& row : tables)
        if (row.quantity == quantity && row.soil == soil && covers(row, liquidity))
            return valueAt(row, *voidRatio);
    return {};
}

double tableFactor(TableQuantity quantity, TableSoil soil)
{
    // SP 22.13330 (second-hand).
    switch (quantity) {
    case TableQuantity::Cohesion:
        return 1.5;
    case TableQuantity::Friction:
        return isSand(soil) ? 1.1 : 1.15;
    case TableQuantity::Modulus:
        break;
    }
    return 1;
}
