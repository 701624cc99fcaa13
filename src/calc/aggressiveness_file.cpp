#include "calc/aggressiveness.h"
#include "calc/table_text.h"

#include <algorithm>

// The file of limits: rows of ten fields parted by semicolons, "#" begins a remark.

namespace
{

constexpr std::size_t fieldCount = 10;

struct AttackedWord {
    std::wstring_view word;
    Attacked attacked;
};
constexpr AttackedWord attackedWords[] = {
    {L"бетон", Attacked::Concrete},
    {L"арматура", Attacked::Reinforcement},
    {L"сталь", Attacked::Steel},
    {L"свинец", Attacked::Lead},
    {L"алюминий", Attacked::Aluminium},
};

struct SignWord {
    std::wstring_view word;
    Limit::Sign sign;
};
// Two characters before one.
constexpr SignWord signWords[] = {
    {L">=", Limit::NotBelow},
    {L"<=", Limit::NotAbove},
    {L">", Limit::Above},
    {L"<", Limit::Below},
};

std::wstring_view orEmpty(std::wstring_view field)
{
    return field == L"-" ? std::wstring_view() : field;
}

// Names of indexes and grades are plain ASCII; anything else becomes a mark that no row has.
std::string narrow(std::wstring_view text)
{
    std::string narrowed;
    for (const wchar_t c : text)
        narrowed += c > 0x20 && c < 0x7F ? static_cast<char>(c) : '?';
    return narrowed;
}

// False where the field is neither "-" nor a sign with a number.
bool readLimit(std::wstring_view field, std::optional<Limit>& limit)
{
    if (field == L"-")
        return true;
    for (const SignWord& word : signWords) {
        if (!field.starts_with(word.word))
            continue;
        const Number value = readNumber(field.substr(word.word.size()));
        if (!value)
            return false;
        limit = Limit{word.sign, *value};
        return true;
    }
    return false;
}

// Each worse class must lie further in the same direction.
bool areLimitsInOrder(const LimitRow& row)
{
    const Limit* before = nullptr;
    for (const std::optional<Limit>& limit : row.limits) {
        if (!limit)
            continue;
        const bool isUp = limit->sign == Limit::Above || limit->sign == Limit::NotBelow;
        if (before) {
            const bool wasUp = before->sign == Limit::Above || before->sign == Limit::NotBelow;
            if (isUp != wasUp || (isUp ? limit->value < before->value : limit->value > before->value))
                return false;
        }
        before = &*limit;
    }
    return before != nullptr;
}

// The row of a line, or what is wrong with it.
std::wstring readRow(std::wstring_view line, LimitRow& row)
{
    const std::vector<std::wstring_view> fields = partedFields(line, L';');
    if (fields.size() != fieldCount)
        return L"в строке должно быть десять полей, разделенных точкой с запятой";
    const auto* attacked =
        std::ranges::find_if(attackedWords, [&](const AttackedWord& word) { return word.word == fields[0]; });
    if (attacked == std::end(attackedWords))
        return L"неизвестный объект «" + std::wstring(fields[0]) + L"»";
    row.attacked = attacked->attacked;
    if (fields[1] != L"вода" && fields[1] != L"грунт")
        return L"среда должна быть «вода» или «грунт»";
    row.isWater = fields[1] == L"вода";
    row.index = narrow(fields[2]);
    row.grade = narrow(orEmpty(fields[3]));
    row.cement = orEmpty(fields[4]);
    row.condition = orEmpty(fields[5]);
    for (std::size_t i = 0; i < 3; ++i)
        if (!readLimit(fields[6 + i], row.limits[i]))
            return L"предел «" + std::wstring(fields[6 + i]) + L"» не читается: нужен знак и число или «-»";
    if (!areLimitsInOrder(row))
        return L"пределы стоят не по порядку или их нет";
    row.source = orEmpty(fields[9]);
    return row.source.empty() ? L"не назван источник" : L"";
}

// pH has a row a side.
bool standsTwice(const LimitRow& one, const LimitRow& other)
{
    return one.isSameCase(other) && other.index != "pH";
}

std::vector<LimitRow> readRows(std::string_view text, std::vector<TableMistake>& mistakes)
{
    return readTableRows<LimitRow>(text, readRow, standsTwice, mistakes);
}

} // namespace

bool LimitRow::isSameCase(const LimitRow& other) const
{
    return attacked == other.attacked && isWater == other.isWater && index == other.index
        && grade == other.grade && cement == other.cement && condition == other.condition;
}

const AggressivenessLimits& AggressivenessLimits::ofProgram()
{
    static const AggressivenessLimits limits = [] {
        AggressivenessLimits own;
        std::vector<TableMistake> mistakes;
        own.rows_ = readRows(programText(), mistakes);
        return own;
    }();
    return limits;
}

AggressivenessLimits AggressivenessLimits::read(std::string_view text, std::vector<TableMistake>& mistakes)
{
    AggressivenessLimits limits;
    limits.rows_ = readRows(text, mistakes);
    if (!mistakes.empty())
        return limits;
    for (const LimitRow& row : ofProgram().rows())
        if (std::ranges::none_of(limits.rows_, [&](const LimitRow& own) { return own.isSameCase(row); })) {
            std::wstring missing = L"нет строки: показатель ";
            missing.append(row.index.begin(), row.index.end());
            missing += L' ';
            missing.append(row.grade.begin(), row.grade.end());
            missing += L' ' + row.cement + L' ' + row.condition;
            mistakes.push_back({0, std::move(missing)});
        }
    return limits;
}
