#include "exchange/sounding_file.h"

#include "core/base/calendar_date.h"
#include "core/base/mexception.h"
#include "platform/code_page.h"
#include "platform/utf8.h"

#include <algorithm>
#include <charconv>
#include <cmath>

namespace
{

constexpr std::size_t greatestRows = 200000;
constexpr std::size_t greatestColumns = 64;
// More than any cone meets; a column that says more is in kPa.
constexpr double greatestTipMPa = 130.0;

using Cells = std::vector<std::wstring>;

std::wstring_view trimmed(std::wstring_view text)
{
    const auto isBlank = [](wchar_t c) {
        return c == L' ' || c == L'\t' || c == L'\r' || c == L'\uFEFF' || c == L'"';
    };
    while (!text.empty() && isBlank(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && isBlank(text.back()))
        text.remove_suffix(1);
    return text;
}

// Numbers of other programs have exponents too: "1.200e+001".
Number fileNumber(std::wstring_view text)
{
    text = trimmed(text);
    if (const Number plain = readNumber(text))
        return plain;
    std::string narrow;
    for (const wchar_t c : text) {
        if (c <= 0x20 || c >= 0x7F || narrow.size() > 40)
            return std::nullopt;
        narrow += c == L',' ? '.' : static_cast<char>(c);
    }
    if (narrow.find_first_not_of("0123456789+-.eE") != std::string::npos)
        return std::nullopt;
    const char* begin = narrow.c_str() + (narrow.starts_with('+') ? 1 : 0);
    double value = 0.0;
    const auto [end, error] = std::from_chars(begin, narrow.c_str() + narrow.size(), value);
    if (error != std::errc() || end != narrow.c_str() + narrow.size() || !std::isfinite(value))
        return std::nullopt;
    return value;
}

std::vector<std::wstring_view> linesOf(std::wstring_view text)
{
    std::vector<std::wstring_view> lines;
    while (!text.empty()) {
        const std::size_t end = text.find(L'\n');
        lines.push_back(text.substr(0, end));
        text.remove_prefix(end == std::wstring_view::npos ? text.size() : end + 1);
    }
    return lines;
}

// Blank as a separator: any run of blanks is one.
Cells cellsOf(std::wstring_view line, wchar_t separator)
{
    Cells cells;
    line = trimmed(line);
    while (!line.empty() && cells.size() < greatestColumns) {
        const std::size_t end = separator == L' ' ? line.find_first_of(L" \t") : line.find(separator);
        cells.emplace_back(trimmed(line.substr(0, end)));
        line.remove_prefix(end == std::wstring_view::npos ? line.size() : end + 1);
        if (separator == L' ')
            line = trimmed(line);
    }
    return cells;
}

std::size_t numbersIn(const Cells& cells)
{
    return static_cast<std::size_t>(
        std::ranges::count_if(cells, [](const std::wstring& cell) { return fileNumber(cell).has_value(); }));
}

// The separator that gives most lines of at least two numbers; a comma only where none else does, since it
// is a decimal mark as well.
wchar_t separatorOf(const std::vector<std::wstring_view>& lines)
{
    wchar_t best = L';';
    std::size_t most = 0;
    for (const wchar_t separator : {L';', L'\t', L' ', L','}) {
        std::size_t good = 0;
        for (std::size_t i = 0; i < lines.size() && i < 500; ++i)
            if (numbersIn(cellsOf(lines[i], separator)) >= 2)
                ++good;
        if (good > most) {
            most = good;
            best = separator;
        }
    }
    return best;
}

std::wstring lowered(std::wstring_view text)
{
    std::wstring small;
    for (wchar_t c : text) {
        if ((c >= L'A' && c <= L'Z') || (c >= L'А' && c <= L'Я'))
            c = static_cast<wchar_t>(c + 0x20);
        small += c;
    }
    return small;
}

// What the word above a column means.
SoundingColumn columnOfTitle(std::wstring_view title)
{
    const std::wstring word = lowered(title);
    const auto has = [&](std::wstring_view part) { return word.find(part) != std::wstring::npos; };
    const bool isKPa = has(L"кпа") || has(L"kpa");
    const bool isMPa = has(L"мпа") || has(L"mpa");
    if (has(L"глуб") || has(L"depth") || has(L"глиб"))
        return SoundingColumn::DepthM;
    if (has(L"qc") || has(L"лоб") || has(L"конус"))
        return isKPa ? SoundingColumn::TipKPa : SoundingColumn::TipMPa;
    if (has(L"qs") || has(L"общ"))
        return SoundingColumn::SideKN;
    if (has(L"fs") || has(L"бок") || has(L"муфт"))
        return isMPa ? SoundingColumn::SleeveMPa : SoundingColumn::SleeveKPa;
    return SoundingColumn::Ignored;
}

double greatestOf(const SoundingTable& table, std::size_t column)
{
    double greatest = 0.0;
    for (const Cells& row : table.rows)
        if (column < row.size())
            greatest = std::max(greatest, fileNumber(row[column]).value_or(0.0));
    return greatest;
}

void proposeColumns(SoundingTable& table, wchar_t separator)
{
    std::size_t width = 0;
    for (const Cells& row : table.rows)
        width = std::max(width, row.size());
    table.columns.assign(width, SoundingColumn::Ignored);
    bool isNamed = false;
    for (const std::wstring& line : table.head) {
        const Cells titles = cellsOf(line, separator);
        for (std::size_t i = 0; i < titles.size() && i < width; ++i)
            if (const SoundingColumn column = columnOfTitle(titles[i]); column != SoundingColumn::Ignored) {
                table.columns[i] = column;
                isNamed = true;
            }
    }
    if (!isNamed) {
        constexpr SoundingColumn usual[] = {
            SoundingColumn::DepthM, SoundingColumn::TipMPa, SoundingColumn::SleeveKPa};
        for (std::size_t i = 0; i < std::size(usual) && i < width; ++i)
            table.columns[i] = usual[i];
    }
    for (std::size_t i = 0; i < width; ++i)
        if (table.columns[i] == SoundingColumn::TipMPa && greatestOf(table, i) > greatestTipMPa) {
            table.columns[i] = SoundingColumn::TipKPa;
            table.remarks.emplace_back(L"Значения qc больше 130 МПа: предложены килопаскали");
        }
}

SoundingTable readTable(const std::vector<std::wstring_view>& lines)
{
    SoundingTable table;
    const wchar_t separator = separatorOf(lines);
    for (const std::wstring_view line : lines) {
        Cells cells = cellsOf(line, separator);
        if (numbersIn(cells) >= 2 && table.rows.size() < greatestRows)
            table.rows.push_back(std::move(cells));
        else if (table.rows.empty() && !trimmed(line).empty() && table.head.size() < 200)
            table.head.emplace_back(trimmed(line));
    }
    proposeColumns(table, separator);
    return table;
}

// A head line of a GEF file: "#NAME= value, value".
struct GefLine {
    std::wstring_view name;
    Cells values;
};

GefLine gefLine(std::wstring_view line)
{
    GefLine made;
    line.remove_prefix(1);
    const std::size_t end = line.find(L'=');
    made.name = trimmed(line.substr(0, end));
    if (end != std::wstring_view::npos)
        made.values = cellsOf(line.substr(end + 1), L',');
    return made;
}

// Numbers of quantities in a column's head: 1 length of penetration, 2 cone, 3 sleeve, 11 corrected depth.
SoundingColumn gefColumn(int quantity, std::wstring_view unit)
{
    const std::wstring small = lowered(unit);
    switch (quantity) {
    case 1:
    case 11:
        return SoundingColumn::DepthM;
    case 2:
        return small == L"kpa" ? SoundingColumn::TipKPa : SoundingColumn::TipMPa;
    case 3:
        return small == L"kpa" ? SoundingColumn::SleeveKPa : SoundingColumn::SleeveMPa;
    default:
        return SoundingColumn::Ignored;
    }
}

// A whole number from 1 on, as columns are counted; 0 where it is none.
std::size_t counted(const Cells& values, std::size_t place)
{
    if (place >= values.size())
        return 0;
    const Number number = fileNumber(values[place]);
    return number && *number >= 1.0 && *number <= static_cast<double>(greatestColumns)
        ? static_cast<std::size_t>(*number)
        : 0;
}

class GefReader
{
public:
    SoundingTable read(const std::vector<std::wstring_view>& lines)
    {
        table_.isGef = true;
        std::size_t i = 0;
        for (; i < lines.size(); ++i) {
            const std::wstring_view line = trimmed(lines[i]);
            if (line.empty() || line.front() != L'#')
                continue;
            const GefLine head = gefLine(line);
            if (head.name == L"EOH") {
                ++i;
                break;
            }
            takeHead(head, line);
        }
        for (; i < lines.size() && table_.rows.size() < greatestRows; ++i)
            takeRow(lines[i]);
        // The corrected depth is better than the length of the rods.
        if (corrected_ > 0 && length_ > 0)
            table_.columns[length_ - 1] = SoundingColumn::Ignored;
        return std::move(table_);
    }

private:
    void takeHead(const GefLine& head, std::wstring_view line)
    {
        const Cells& values = head.values;
        if (head.name == L"COLUMNINFO") {
            takeColumn(values);
        } else if (head.name == L"COLUMNVOID") {
            if (const std::size_t column = counted(values, 0); column > 0 && values.size() > 1) {
                voids_.resize(std::max(voids_.size(), column));
                voids_[column - 1] = fileNumber(values[1]);
            }
        } else if (head.name == L"COLUMNSEPARATOR") {
            const std::wstring_view mark = line.substr(line.find(L'=') + 1);
            separator_ = trimmed(mark).empty() ? L' ' : trimmed(mark).front();
        } else if (head.name == L"RECORDSEPARATOR") {
            if (const std::wstring_view mark = trimmed(line.substr(line.find(L'=') + 1)); !mark.empty())
                record_ = mark.front();
        } else if (head.name == L"TESTID" && !values.empty()) {
            table_.point = values[0];
        } else if (head.name == L"STARTDATE" && values.size() >= 3) {
            if (const auto date = readDate(values[2] + L'.' + values[1] + L'.' + values[0]))
                table_.date = dateText(*date);
        }
    }

    void takeColumn(const Cells& values)
    {
        const std::size_t column = counted(values, 0);
        const std::size_t quantity = counted(values, 3);
        if (column == 0 || values.size() < 4)
            return;
        table_.columns.resize(std::max(table_.columns.size(), column));
        table_.columns[column - 1] = gefColumn(static_cast<int>(quantity), values[1]);
        if (quantity == 1)
            length_ = column;
        if (quantity == 11)
            corrected_ = column;
    }

    void takeRow(std::wstring_view line)
    {
        line = trimmed(line);
        if (record_ != L'\0' && line.ends_with(record_))
            line.remove_suffix(1);
        Cells cells = cellsOf(line, separator_);
        if (numbersIn(cells) < 2)
            return;
        for (std::size_t i = 0; i < cells.size() && i < voids_.size(); ++i)
            if (voids_[i] && fileNumber(cells[i]) == voids_[i])
                cells[i].clear();
        table_.rows.push_back(std::move(cells));
    }

    SoundingTable table_;
    std::vector<Number> voids_;
    wchar_t separator_ = L' ';
    wchar_t record_ = L'\0';
    std::size_t length_ = 0;
    std::size_t corrected_ = 0;
};

std::wstring textOf(std::span<const std::uint8_t> bytes)
{
    if (std::ranges::find(bytes, std::uint8_t{0}) != bytes.end())
        throw MException(L"Это не текстовый файл");
    const std::string narrow(bytes.begin(), bytes.end());
    if (std::optional<std::wstring> wide = fromUtf8(narrow))
        return std::move(*wide);
    return fromCodePage(std::string_view(narrow));
}

} // namespace

std::wstring_view soundingColumnName(SoundingColumn column)
{
    constexpr std::wstring_view names[] = {
        L"не брать", L"глубина, м", L"qc, МПа", L"qc, кПа", L"fs, кПа", L"fs, МПа", L"Qs, кН"};
    return names[static_cast<std::size_t>(column)];
}

SoundingTable readSoundingFile(std::span<const std::uint8_t> bytes)
{
    const std::wstring text = textOf(bytes);
    const std::vector<std::wstring_view> lines = linesOf(text);
    const bool isGef = std::ranges::any_of(lines, [](std::wstring_view line) {
        line = trimmed(line);
        return line.starts_with(L"#GEFID") || line.starts_with(L"#EOH");
    });
    SoundingTable table = isGef ? GefReader().read(lines) : readTable(lines);
    if (table.rows.empty())
        throw MException(L"В файле нет строк с числами");
    return table;
}

std::vector<ImportedReading> importedReadings(
    const SoundingTable& table, std::span<const SoundingColumn> columns)
{
    std::vector<ImportedReading> readings;
    for (const Cells& row : table.rows) {
        ImportedReading reading;
        Number depth;
        for (std::size_t i = 0; i < row.size() && i < columns.size(); ++i) {
            const Number value = fileNumber(row[i]);
            if (!value)
                continue;
            switch (columns[i]) {
            case SoundingColumn::DepthM:
                depth = value;
                break;
            case SoundingColumn::TipMPa:
                reading.tip = value;
                break;
            case SoundingColumn::TipKPa:
                reading.tip = *value / 1000.0;
                break;
            case SoundingColumn::SleeveKPa:
                reading.sleeve = value;
                break;
            case SoundingColumn::SleeveMPa:
                reading.sleeve = *value * 1000.0;
                break;
            case SoundingColumn::SideKN:
                reading.side = value;
                break;
            case SoundingColumn::Ignored:
                break;
            }
        }
        if (!depth)
            continue;
        reading.depth = *depth;
        readings.push_back(reading);
    }
    return readings;
}
