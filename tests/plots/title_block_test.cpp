#include "plots/plot_checks.h"
#include "plots/sheet.h"
#include "plots/title_block.h"

TEST(Sheet, FieldLeavesTheEdgesFree)
{
    const Sheet sheet = sheetOf(sheetFormat(L"A3"), true);
    EXPECT_EQ(sheet.width, 420);
    EXPECT_EQ(sheet.height, 297);
    EXPECT_EQ(sheet.field(), (Extent{20, 5, 415, 292}));
    EXPECT_EQ(sheetFormat(L"нет").shortSide, 210);
}

TEST(TitleBlock, FormsHaveTheirSizesAndTextsTheirCells)
{
    TitleBlockTexts texts;
    texts.designation = L"ИГИ-27/19";
    texts.object = std::wstring(200, L'о') + L" длинное наименование объекта";
    texts.title = L"Инженерно-геологическая колонка скважины с именем из шестидесяти букв";
    texts.company = L"ООО «Изыскатель»";
    texts.people = {{L"Разработал", L"Иванов-Петровский"}, {L"Проверил", L"Сидоров"}};
    texts.date = L"07.08.2019";
    texts.sheets = 12;
    for (const auto& [block, height] : {std::pair{TitleBlock::Drawing, 55.0},
             std::pair{TitleBlock::Text, 40.0},
             std::pair{TitleBlock::Following, 15.0}}) {
        Drawing drawing;
        Sketch sketch(drawing);
        addTitleBlock(sketch, block, {205, 292}, texts);
        EXPECT_EQ(titleBlockHeight(block), height);
        EXPECT_TRUE(textsAreApart(drawing));
        EXPECT_TRUE(hasText(drawing, L"ИГИ-27/19"));
        for (const Item& item : drawing.items) {
            const Extent extent = *extentOf(item);
            EXPECT_GE(extent.left, 20 - 1e-9);
            EXPECT_LE(extent.right, 205 + 1e-9);
            EXPECT_GE(extent.top, 292 - height - 1e-9);
            EXPECT_LE(extent.bottom, 292 + 1e-9);
        }
    }
}

TEST(TitleBlock, SpeaksUkrainian)
{
    Drawing drawing;
    Sketch sketch(drawing);
    TitleBlockTexts texts;
    texts.language = languageUkrainian;
    addTitleBlock(sketch, TitleBlock::Drawing, {205, 292}, texts);
    addSideStrip(sketch, {20, 292}, languageUkrainian);
    for (const wchar_t* text : {L"Зм.", L"Кільк.", L"Арк.", L"Аркушів", L"Дата", L"Зам. інв. №"})
        EXPECT_TRUE(hasText(drawing, text)) << ::testing::PrintToString(text);
}

TEST(TitleBlock, AgreedFieldStandsAboveTheStrip)
{
    Drawing drawing;
    drawing.height = 297;
    Sketch sketch(drawing);
    TitleBlockTexts texts;
    texts.agreed = {{L"Главный инженер проекта", L"Савин-Константиновский"}, {L"Заказчик", L"Ли"}};
    addSideStrip(sketch, {20, 292}, languageRussian);
    addAgreedField(sketch, {20, 292}, texts);
    EXPECT_TRUE(textsAreApart(drawing));
    EXPECT_TRUE(hasText(drawing, L"СОГЛАСОВАНО"));
    EXPECT_TRUE(hasText(drawing, L"Заказчик"));
    for (const Item& item : drawing.items) {
        const Extent extent = *extentOf(item);
        EXPECT_GE(extent.left, 5 - 1e-9);
        EXPECT_LE(extent.right, 20 + 1e-9);
        EXPECT_GE(extent.top, 292 - 85 - 65 - 1e-9);
    }
}
