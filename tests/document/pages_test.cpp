#include "document/column_widths.h"
#include "document/pages.h"
#include "document/sample_document.h"
#include "document/set_lines.h"
#include "drawing/text_layout.h"
#include "platform/utf8.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

namespace
{

struct Box {
    double left, top, right, bottom;
    std::wstring text;
};

std::vector<Box> textsOf(const Drawing& page)
{
    std::vector<Box> boxes;
    for (const Item& item : page.items)
        if (const auto* text = std::get_if<Text>(&item.shape);
            text && text->align == Align::Left && text->angle == 0)
            boxes.push_back({text->at.x,
                text->at.y - text->height,
                text->at.x + textWidth(text->text, text->font, text->height),
                text->at.y,
                text->text});
    return boxes;
}

bool hasText(const Drawing& page, const std::wstring& wanted)
{
    const std::vector<Box> boxes = textsOf(page);
    return std::any_of(boxes.begin(), boxes.end(), [&](const Box& box) {
        return box.text.find(wanted) != std::wstring::npos;
    });
}

void expectInside(const std::vector<Drawing>& pages)
{
    for (std::size_t i = 0; i < pages.size(); ++i) {
        const std::vector<Box> boxes = textsOf(pages[i]);
        for (std::size_t a = 0; a < boxes.size(); ++a) {
            const Box& box = boxes[a];
            ASSERT_TRUE(
                box.left >= 0 && box.top >= 0 && box.right <= pages[i].width && box.bottom <= pages[i].height)
                << "page " << i + 1;
            for (std::size_t b = 0; b < a; ++b) {
                const Box& other = boxes[b];
                const double wide = std::min(box.right, other.right) - std::max(box.left, other.left);
                const double high = std::min(box.bottom, other.bottom) - std::max(box.top, other.top);
                // Raised and lowered pieces may touch their neighbours.
                ASSERT_FALSE(wide > 0.1 && high > 0.1) << "page " << i + 1;
            }
        }
    }
}

TEST(Pages, RepeatHeadsAndKeepFormats)
{
    const std::vector<Drawing> pages = pagesOf(sampleDocument());
    ASSERT_GE(pages.size(), 6U);
    for (std::size_t i = 0; i < 3; ++i)
        EXPECT_TRUE(hasText(pages[i], L"Скважина")) << i;
    const auto wide =
        std::find_if(pages.begin(), pages.end(), [](const Drawing& page) { return page.width == 420; });
    ASSERT_NE(wide, pages.end());
    EXPECT_TRUE(hasText(*wide, L"2 Ведомость"));
    EXPECT_TRUE(hasText(pages.back(), L"Последняя страница"));
    EXPECT_TRUE(hasText(pages[pages.size() - 2], L"1."));
    EXPECT_TRUE(hasText(pages.back(), L"ООО «Грунт» & Ко"));
    // Each of the 40,000 letters of the long cell, over several pages.
    std::ptrdiff_t letters = 0;
    for (const Drawing& page : pages)
        for (const Box& box : textsOf(page))
            if (box.text.size() > 20)
                letters += std::count(box.text.begin(), box.text.end(), L'я')
                        == static_cast<std::ptrdiff_t>(box.text.size())
                    ? static_cast<std::ptrdiff_t>(box.text.size())
                    : 0;
    EXPECT_GT(letters, 39900);
    expectInside(pages);
}

TEST(Pages, FrameKnowsAllPages)
{
    const std::vector<Drawing> pages = pagesOf(sampleDocument(true));
    for (std::size_t i = 0; i < pages.size(); ++i) {
        const std::wstring wanted = std::to_wstring(i + 1) + L" из " + std::to_wstring(pages.size());
        EXPECT_TRUE(std::any_of(pages[i].items.begin(), pages[i].items.end(), [&](const Item& item) {
            const auto* text = std::get_if<Text>(&item.shape);
            return text && text->text == wanted;
        })) << i;
    }
}

TEST(Pages, EveryRowOfALongTableStandsOnce)
{
    const std::vector<Drawing> pages = pagesOf(largeRegister(300));
    std::size_t rows = 0;
    for (const Drawing& page : pages) {
        EXPECT_TRUE(hasText(page, L"12")) << "the head";
        for (const Box& box : textsOf(page))
            rows += box.text.starts_with(L"Скв-") ? 1U : 0U;
    }
    EXPECT_EQ(rows, 300U);
    EXPECT_TRUE(pagesOf(largeRegister(300), [](std::size_t done) { return done < 2; }).empty());
}

TEST(Pages, NothingOverlapsInRandomTables)
{
    std::mt19937 random(7);
    const auto upTo = [&](unsigned limit) { return static_cast<unsigned>(random() % limit); };
    for (int round = 0; round < 20; ++round) {
        TableBlock table;
        table.title = L"Таблица";
        const std::size_t columns = 1 + upTo(14);
        for (std::size_t row = 0; row < 40; ++row) {
            std::vector<TableCell> cells;
            for (std::size_t column = 0; column < columns; ++column) {
                TableCell cell;
                std::wstring text;
                for (unsigned words = upTo(6); words-- > 0;)
                    text += std::wstring(1 + upTo(12), static_cast<wchar_t>(L'а' + upTo(30)))
                        + (upTo(9) == 0 ? L"\n" : L" ");
                cell.runs = {{text}};
                cell.columns = upTo(10) == 0 ? 2 : 1;
                cell.rows = upTo(15) == 0 ? 2 : 1;
                cell.align = static_cast<Align>(upTo(3));
                cells.push_back(cell);
            }
            (row < 2 ? table.head : table.rows).push_back(cells);
        }
        Document document;
        document.blocks = {table};
        const std::vector<double> widths = columnWidths(table, 180);
        double all = 0;
        for (const double width : widths)
            all += width;
        EXPECT_LE(all, 180.01);
        expectInside(pagesOf(document));
    }
}

TEST(SetLines, KeepEveryLetterInOrder)
{
    const Runs runs = {{L"Плотность ρ"},
        {L"d", false, false, false, Run::Lowered},
        {L" сухого ", true},
        {L"грунта, г/см"},
        {L"3", false, false, false, Run::Raised},
        {L"; очень-очень-длинноесловокотороенигденекончается"}};
    for (const double width : {5.0, 12.0, 30.0, 200.0}) {
        std::wstring together;
        for (const SetLine& line : setLines(runs, 2.3, width)) {
            EXPECT_LE(line.width, width + 2.5); // one letter always goes in
            for (const SetPiece& piece : line.pieces)
                together += piece.text;
        }
        std::erase(together, L' ');
        std::erase(together, L'-'); // of its own, and of parted words
        EXPECT_EQ(together, L"Плотностьρdсухогогрунта,г/см3;оченьоченьдлинноесловокотороенигденекончается")
            << width;
    }
    EXPECT_EQ(setLines({}, 2.3, 50).size(), 1U);
}

TEST(SetLines, PartWordsBySyllables)
{
    const struct {
        const wchar_t* word;
        double width;
        const wchar_t* lines;
    } rows[] = {
        {L"Предельное", 15, L"Предель-|ное"},
        {L"сопротивление", 18, L"сопротив-|ление"},
        {L"Количество", 15, L"Количес-|тво"},
        {L"Объект", 8, L"Объ-|ект"},
        {L"Коэффициент", 15, L"Коэффи-|циент"},
        {L"Найден", 8, L"Най-|ден"},
        {L"12345678901234", 15, L"12345678|901234"}, // no letters: where they end
        {L"Взвод", 7, L"Взв|од"}, // one syllable: where the room ends
    };
    for (const auto& row : rows) {
        std::wstring together;
        for (const SetLine& line : setLines({{row.word}}, 2.3, row.width)) {
            together += together.empty() ? L"" : L"|";
            for (const SetPiece& piece : line.pieces)
                together += piece.text;
            EXPECT_LE(line.width, row.width + 1e-6) << toUtf8(row.word);
        }
        EXPECT_EQ(toUtf8(together), toUtf8(row.lines));
    }
}

} // namespace
