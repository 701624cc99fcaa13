#include "tlxtool/text_table.h"

#include <algorithm>
#include <numeric>

static bool beginsCharacter(char byte)
{
    return (static_cast<unsigned char>(byte) & 0xC0U) != 0x80U;
}

std::size_t widthOf(std::string_view text)
{
    return static_cast<std::size_t>(std::count_if(text.begin(), text.end(), beginsCharacter));
}

std::string cutToWidth(std::string_view text, std::size_t width)
{
    if (widthOf(text) <= width)
        return std::string(text);
    std::size_t kept = 0;
    std::size_t end = 0;
    for (; end < text.size(); ++end)
        if (beginsCharacter(text[end]) && ++kept == std::max<std::size_t>(width, 1))
            break;
    return std::string(text.substr(0, end)) + "…";
}

static std::string cutBegin(std::string_view text, std::size_t width)
{
    for (std::size_t tooWide = widthOf(text) + 1; tooWide > width; --tooWide)
        do
            text.remove_prefix(1);
        while (!text.empty() && !beginsCharacter(text.front()));
    return "…" + std::string(text);
}

static std::string fitCell(const std::string& cell, std::size_t width, Cut cut)
{
    if (widthOf(cell) <= width)
        return cell;
    return cut == Cut::begin ? cutBegin(cell, width) : cutToWidth(cell, width);
}

// Takes from the columns that may be cut, the widest first, until the line fits or nothing is left to take.
static void narrow(
    const std::vector<TextColumn>& columns, std::vector<std::size_t>& widths, std::size_t lineWidth)
{
    constexpr std::size_t narrowest = 8;
    std::size_t width = std::accumulate(widths.begin(), widths.end(), 2 * (widths.size() - 1));
    for (; width > lineWidth; --width) {
        std::size_t* widest = nullptr;
        for (std::size_t i = 0; i < widths.size(); ++i)
            if (columns[i].cut != Cut::nothing && widths[i] > narrowest && (!widest || widths[i] > *widest))
                widest = &widths[i];
        if (!widest)
            return;
        --*widest;
    }
}

static std::string formatLine(const std::vector<TextColumn>& columns,
    const std::vector<std::string>& cells,
    const std::vector<std::size_t>& widths)
{
    std::string line;
    for (std::size_t i = 0; i < cells.size(); ++i) {
        const std::string cell = fitCell(cells[i], widths[i], columns[i].cut);
        const std::string padding(widths[i] - widthOf(cell), ' ');
        line += i == 0 ? "" : "  ";
        line += columns[i].alignRight ? padding + cell : cell + padding;
    }
    return line.erase(line.find_last_not_of(' ') + 1) + "\n";
}

std::string formatTable(const std::vector<TextColumn>& columns,
    std::vector<std::vector<std::string>> rows,
    std::size_t lineWidth)
{
    std::vector<std::string> titles;
    titles.reserve(columns.size());
    for (const TextColumn& column : columns)
        titles.push_back(column.title);
    rows.insert(rows.begin(), titles);
    std::vector<std::size_t> widths(columns.size());
    for (const auto& row : rows)
        for (std::size_t i = 0; i < row.size(); ++i)
            widths[i] = std::max(widths[i], widthOf(row[i]));
    if (lineWidth != 0)
        narrow(columns, widths, lineWidth);
    std::string text;
    for (const auto& row : rows)
        text += formatLine(columns, row, widths);
    return text;
}
