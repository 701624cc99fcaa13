#include "common/clipboard_text.h"

#include <gtest/gtest.h>

#include <vector>

static QString text(const char* utf8)
{
    return QString::fromUtf8(utf8);
}

static CellBlock block(const std::vector<std::vector<const char*>>& rows)
{
    CellBlock made;
    for (const auto& row : rows) {
        QVector<QString> cells;
        for (const char* cell : row)
            cells.append(text(cell));
        made.append(cells);
    }
    return made;
}

TEST(Clipboard, ReadsWhatSpreadsheetsWrite)
{
    const struct {
        const char* name;
        const char* clipboard;
        CellBlock cells;
    } cases[] = {
        {"nothing", "", {}},
        {"one cell", "5,5", block({{"5,5"}})},
        {"last new line", "1\t2\n3\t4\n", block({{"1", "2"}, {"3", "4"}})},
        {"carriage returns", "1\r\n2\r\n", block({{"1"}, {"2"}})},
        {"empty cells", "\t\n\t7\n", block({{"", ""}, {"", "7"}})},
        {"an empty row in the middle", "1\n\n2", block({{"1"}, {""}, {"2"}})},
        {"rows of different lengths", "1\n2\t3", block({{"1"}, {"2", "3"}})},
        {"lines in a cell", "\"две\nстроки\"\tб", block({{"две\nстроки", "б"}})},
        {"quotes in a quoted cell", "\"он \"\"там\"\"\"\n", block({{"он \"там\""}})},
        {"inches", "3\" труба\t4\"", block({{"3\" труба", "4\""}})},
        {"a quote that nothing closes", "\"труба\nб", block({{"\"труба"}, {"б"}})},
    };
    for (const auto& [name, clipboard, cells] : cases)
        EXPECT_EQ(cellsOfClipboard(text(clipboard)), cells) << name;
}

TEST(Clipboard, GivesBackEveryCellAsItWas)
{
    const CellBlock cells = block({{"", " 1 ", "а\tб"}, {"\"", "а\nб", "\"а\""}, {"a\"b", "\"\"", "3,5"}});
    EXPECT_EQ(cellsOfClipboard(clipboardText(cells)), cells);
}
