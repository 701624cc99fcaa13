#include "core/base/mexception.h"
#include "core/base/typed_number.h"
#include "drawing/hatch.h"
#include "plots/column.h"
#include "plots/column_group.h"
#include "plots/column_pages.h"
#include "plots/plot_checks.h"

#include <cmath>
#include <limits>
#include <optional>
#include <random>

static ColumnLayer layerOf(double top, double bottom, std::wstring description = L"Суглинок")
{
    ColumnLayer layer;
    layer.top = top;
    layer.bottom = bottom;
    layer.bottomText = numberText(bottom, 2);
    layer.thickness = numberText(bottom - top, 2);
    layer.mark = L"147.75";
    layer.index = L"aQ_III^2";
    layer.element = L"2а";
    layer.hatch = 6;
    layer.description = std::move(description);
    return layer;
}

static ColumnData columnOfLayers(std::vector<ColumnLayer> layers)
{
    ColumnData data;
    data.point = L"Скв-1";
    data.kind = L"Скважина";
    data.mouthMark = L"152.35";
    data.layers = std::move(layers);
    for (std::size_t layer = 0; layer < data.layers.size(); ++layer)
        data.layers[layer].id = static_cast<std::int64_t>(layer) + 1;
    data.depth = data.layers.empty() ? 0 : data.layers.back().bottom;
    return data;
}

static std::wstring wordsOf(std::mt19937& random, std::size_t length)
{
    const wchar_t* const words[] = {L"суглинок",
        L"тугопластичный",
        L"с",
        L"прослоями",
        L"песка",
        L"желто-бурый",
        L"№2",
        L"слаботрещиноватыйвыветрелыйдолеритовыйсланец"};
    std::wstring text;
    while (text.size() < length)
        text += std::wstring(text.empty() ? L"" : L" ") + words[random() % std::size(words)];
    return text.substr(0, length);
}

static ColumnData randomColumn(std::mt19937& random)
{
    std::vector<ColumnLayer> layers;
    double depth = 0;
    for (auto count = random() % 40; count > 0; --count) {
        const double thickness = static_cast<double>(random() % 300 + 1) / (random() % 2 ? 100 : 1000);
        layers.push_back(layerOf(depth, depth + thickness, wordsOf(random, random() % 300)));
        depth += thickness;
    }
    ColumnData data = columnOfLayers(std::move(layers));
    const auto anyDepth = [&] { return depth * static_cast<double>(random() % 101) / 100; };
    for (auto count = random() % 30; count > 0; --count)
        data.samples.push_back(
            {anyDepth(), L"12.35", static_cast<ColumnSample::Kind>(random() % 3), wordsOf(random, 7)});
    for (auto count = random() % 6; count > 0; --count)
        data.waters.push_back(
            {anyDepth(), L"4.60", L"147.75", L"07.08.2019", random() % 2 > 0, random() % 2 > 0});
    std::sort(data.samples.begin(), data.samples.end(), [](auto& a, auto& b) { return a.depth < b.depth; });
    std::sort(data.waters.begin(), data.waters.end(), [](auto& a, auto& b) { return a.depth < b.depth; });
    for (double at = 0; at < depth; at += 0.2)
        data.sounding.rows.push_back({at, 1.0 + static_cast<double>(random() % 90) / 10, std::nullopt});
    return data;
}

static std::wstring withoutBlanks(std::wstring text)
{
    std::erase(text, L' ');
    return text;
}

TEST(Column, NoTextStandsOnAnotherOne)
{
    std::mt19937 random(20191);
    for (int round = 0; round < 60; ++round) {
        const ColumnData data = randomColumn(random);
        ColumnLook look;
        look.hasSampleNumbers = round % 2 == 0;
        look.scale = round % 3 == 0 ? 0 : columnScales()[random() % 13];
        look.sheet = sheetOf(sheetFormats()[static_cast<std::size_t>(round % 4)], round % 5 == 0);
        look.language = round % 2;
        for (const Drawing& page : columnOf(data, look))
            ASSERT_TRUE(textsAreApart(page)) << "round " << round;
    }
}

TEST(Column, EveryDescriptionIsWholeOverItsSheets)
{
    std::mt19937 random(7);
    for (const std::size_t length : {0U, 100U, 2000U, 9000U}) {
        const ColumnData data = columnOfLayers({layerOf(0, 0.3, wordsOf(random, length)),
            layerOf(0.3, 0.6, wordsOf(random, length)),
            layerOf(0.6, 12.4, wordsOf(random, 40))});
        ColumnMeasures measures;
        std::vector<std::wstring> texts(3);
        double depth = 0;
        for (const ColumnPage& page : planColumn(data, measures)) {
            EXPECT_NEAR(page.top, depth, 1e-9);
            depth = page.bottom;
            double above = 0;
            for (const ColumnRow& row : page.rows) {
                EXPECT_GE(row.place - above, row.needed - 1e-6);
                EXPECT_LE(row.place, page.height + 1e-6);
                above = row.place;
                for (const std::wstring& line : row.lines)
                    texts[static_cast<std::size_t>(row.layer->id - 1)] += line;
            }
        }
        EXPECT_NEAR(depth, 12.4, 1e-9);
        for (std::size_t layer = 0; layer < texts.size(); ++layer)
            EXPECT_EQ(withoutBlanks(texts[layer]), withoutBlanks(data.layers[layer].description));
    }
}

// Three layers of 0.3 m with texts of three lines: the rows stand below one another, the layers are to scale.
TEST(Column, RowsGiveWayToTheirTexts)
{
    const std::wstring text = L"ааа\nббб\nввв";
    const ColumnData data =
        columnOfLayers({layerOf(0, 0.3, text), layerOf(0.3, 0.6, text), layerOf(0.6, 0.9, text)});
    const std::vector<ColumnPage> pages = planColumn(data, {});
    ASSERT_EQ(pages.size(), 1U);
    const double row = pages[0].rows[0].place;
    EXPECT_GT(row, 3 * descriptionHeight);
    EXPECT_NEAR(pages[0].rows[1].place, 2 * row, 1e-9);
    EXPECT_NEAR(pages[0].rows[2].place, 3 * row, 1e-9);
}

TEST(Column, StripIsToScaleAndEveryLayerClosed)
{
    const ColumnData data = columnOfLayers({layerOf(0, 1.2), layerOf(1.2, 4.6), layerOf(4.6, 12.4)});
    for (const int scale : {100, 200}) {
        ColumnLook look;
        look.scale = scale;
        const std::vector<Drawing> pages = columnOf(data, look);
        ASSERT_EQ(pages.size(), 1U);
        double height = 0;
        int areas = 0;
        for (const Item& item : pages[0].items)
            if (const auto* area = std::get_if<Area>(&item.shape); area && item.id != 0) {
                const Extent extent = *extentOf(item);
                height += extent.bottom - extent.top;
                ++areas;
                EXPECT_EQ(area->rings.front().size(), 4U);
            }
        EXPECT_EQ(areas, 3);
        EXPECT_NEAR(height, 12400.0 / scale, 1e-6);
        for (const wchar_t* text : {L"12.40", L"147.75", L"Скважина №: Скв-1", L"7.80*"})
            EXPECT_TRUE(hasText(pages[0], text)) << ::testing::PrintToString(text);
    }
}

TEST(Column, HatchIsAsDenseAtEveryScale)
{
    const std::string tile = "a\n24 24\nline 0 12 24 12\n";
    const Hatches hatches = readHatches({{6, {tile.begin(), tile.end()}}});
    double density[2] = {};
    const int scales[] = {50, 500};
    for (int turn = 0; turn < 2; ++turn) {
        ColumnLook look;
        look.scale = scales[turn];
        double length = 0;
        double ground = 0;
        for (const Drawing& page : columnOf(columnOfLayers({layerOf(0, 20)}), look))
            for (const Item& item : page.items)
                if (const auto* area = std::get_if<Area>(&item.shape); area && item.id != 0) {
                    const Extent extent = *extentOf(item);
                    ground += (extent.right - extent.left) * (extent.bottom - extent.top);
                    for (const HatchStrokes::Segment& line : hatchStrokes(*area, hatches).lines)
                        length += std::hypot(line.to.x - line.from.x, line.to.y - line.from.y);
                }
        density[turn] = length / ground;
    }
    EXPECT_NEAR(density[0], 1 / (24 * 0.15), 0.01);
    EXPECT_NEAR(density[1], density[0], 0.02);
}

static ColumnData columnOfManyLayers(double thickness)
{
    constexpr int count = 200;
    ColumnData many = columnOfLayers({});
    for (int layer = 0; layer < count; ++layer)
        many.layers.push_back(layerOf(layer * thickness, (layer + 1) * thickness));
    many.depth = count * thickness;
    return many;
}

TEST(Column, HardCasesComeOutReadable)
{
    std::mt19937 random(3);
    const ColumnData many = columnOfManyLayers(0.05);
    ColumnData named = columnOfLayers({layerOf(0, 5, wordsOf(random, 2000))});
    named.point = std::wstring(60, L'Ж');
    ColumnData empty = columnOfLayers({});
    ColumnData wet = empty;
    wet.waters.push_back({3, L"3", L"", L"", true, false});
    for (const ColumnData& data : {many, named, empty, wet}) {
        std::size_t seen = 0;
        for (const Drawing& page : columnOf(data, {})) {
            EXPECT_TRUE(textsAreApart(page));
            for (const PlacedText& text : placedTexts(page))
                seen += text.text->text == L"2а";
        }
        EXPECT_GE(seen, data.layers.size());
    }
    EXPECT_TRUE(hasText(columnOf(empty, {}).front(), L"Слои не описаны"));
    ColumnData flat = columnOfLayers({layerOf(0, 5)});
    flat.leftOut = {L"1 (0 м) Песок", L"3 (-2 м) Глина"};
    EXPECT_TRUE(hasText(columnOf(flat, {}).front(),
        L"* — вскрытая мощность. Без мощности, не показаны: 1 (0 м) Песок, 3 (-2 м) Глина"));
    flat.layers.clear();
    flat.leftOut.assign(30, L"1 (0 м) Суглинок тугопластичный");
    EXPECT_TRUE(textsAreApart(columnOf(flat, {}).front()));
    EXPECT_FALSE(hasText(columnOf(flat, {}).front(), L"Слои не описаны"));
    ColumnLook look;
    look.scale = 10;
    EXPECT_THROW(columnOf(columnOfLayers({layerOf(0, 5000)}), look), MException);
    EXPECT_FALSE(columnOf(columnOfLayers({layerOf(0, 5000)}), {}).empty());
}

// Where texts need several sheets at any scale, fitting takes no more of them and the largest scale they
// bear.
TEST(Column, FittingUsesTheSheetsThatTextsNeed)
{
    std::mt19937 random(5);
    const ColumnData many = columnOfManyLayers(0.1);
    const ColumnData wordy = columnOfLayers({layerOf(0, 1, wordsOf(random, 3000)), layerOf(1, 9)});
    const ColumnData deep = columnOfLayers({layerOf(0, 130), layerOf(130, 260)});
    for (const ColumnData& data : {many, wordy, deep}) {
        std::size_t fewest = 0;
        int largest = 0;
        for (const int scale : columnScales()) {
            ColumnLook look;
            look.scale = scale;
            const std::size_t sheets = columnOf(data, look).size();
            if (fewest == 0 || sheets < fewest) {
                fewest = sheets;
                largest = scale;
            }
        }
        const std::vector<Drawing> fitted = columnOf(data, {});
        ASSERT_GT(fewest, 1U);
        EXPECT_EQ(fitted.size(), fewest);
        EXPECT_TRUE(hasText(fitted.front(), L"Масштаб верт.: 1:" + std::to_wstring(largest))) << largest;
    }
}

// Settings and presets are typed by hand or damaged: the sheet stays one that can be drawn.
TEST(Column, LooksThatMakeNoSense)
{
    constexpr int largest = std::numeric_limits<int>::max();
    constexpr int smallest = std::numeric_limits<int>::min();
    constexpr double infinite = std::numeric_limits<double>::infinity();
    const struct {
        int hatchScale;
        double laneWidth;
        double least; // mm of paper that a unit of a tile is
        double most;
    } rows[] = {{15, 0, 0.15, 0.15},
        {0, std::nan(""), 0.01, 1},
        {1, 1e-300, 0.01, 1},
        {smallest, -infinite, 0.01, 1},
        {largest, infinite, 1, 10},
        {largest, 1e30, 1, 10}};
    const ColumnData data = columnOfLayers({layerOf(0, 4), layerOf(4, 12.4)});
    for (const auto& row : rows) {
        SCOPED_TRACE(std::to_string(row.hatchScale) + ", " + std::to_string(row.laneWidth));
        ColumnLook look;
        look.hatchScale = row.hatchScale;
        look.lanes = usualLanes();
        look.lanes.front().width = row.laneWidth;
        const std::vector<Drawing> pages = columnOf(data, look);
        ASSERT_EQ(pages.size(), 1U);
        EXPECT_TRUE(textsAreApart(pages[0]));
        for (const Item& item : pages[0].items) {
            if (const std::optional<Extent> extent = extentOf(item)) {
                ASSERT_TRUE(extent->left >= 0 && extent->right <= pages[0].width);
                ASSERT_TRUE(extent->top >= 0 && extent->bottom <= pages[0].height);
            }
            const auto* area = std::get_if<Area>(&item.shape);
            if (area && area->hatch != 0) {
                EXPECT_GE(area->hatchUnit, row.least);
                EXPECT_LE(area->hatchUnit, row.most);
            }
        }
    }
}

TEST(Column, SheetsAreCountedAndHeadsContinued)
{
    ColumnLook look;
    look.scale = 50;
    const std::vector<Drawing> pages = columnOf(columnOfLayers({layerOf(0, 30)}), look);
    ASSERT_GT(pages.size(), 2U);
    EXPECT_TRUE(hasText(pages[1], L"Скважина №: Скв-1 (продолжение)"));
    EXPECT_TRUE(hasText(pages[1], L"Геоиндекс"));
    EXPECT_TRUE(hasText(pages[0], std::to_wstring(pages.size())));
}

TEST(ColumnGroup, ColumnsStandBesideEachOtherAtOneScale)
{
    std::mt19937 random(7);
    std::vector<ColumnData> columns;
    for (int number = 0; number < 7; ++number) {
        columns.push_back(randomColumn(random));
        columns.back().point = L"С-" + std::to_wstring(number + 1);
    }
    ColumnLook look;
    look.sheet = sheetOf(sheetFormat(L"A3"), true);
    look.texts.designation = L"2026-17";
    look.hasSideStrip = true;
    const int count = columnsOnSheet(look, 5);
    EXPECT_GE(count, 2);
    EXPECT_EQ(columnsOnSheet(look, 1), 1);
    ColumnLook narrow = look;
    narrow.sheet = sheetOf(sheetFormat(L"A4"), false);
    EXPECT_EQ(columnsOnSheet(narrow, 50), 1); // all ten lanes are not to be read in half of an A4
    const std::vector<Drawing> sheets = columnsSideBySide(columns, look, 5);
    ASSERT_GE(sheets.size(), 7U / static_cast<unsigned>(count));
    std::size_t heads = 0;
    for (std::size_t sheet = 0; sheet < sheets.size(); ++sheet) {
        EXPECT_TRUE(textsAreApart(sheets[sheet])) << sheet;
        EXPECT_TRUE(hasText(sheets[sheet], L"2026-17")) << sheet;
        EXPECT_TRUE(hasText(sheets[sheet], std::to_wstring(sheet + 1))) << sheet;
        for (const ColumnData& column : columns)
            heads += hasText(sheets[sheet], L"Скважина №: " + column.point) ? 1U : 0U;
        const double stamp = titleBlockHeight(TitleBlock::Following);
        for (const Item& item : sheets[sheet].items) {
            EXPECT_EQ(item.id, 0);
            const Extent extent = *extentOf(item);
            EXPECT_LE(extent.right, 415 + 0.3);
            if (item.layer == Layer::Hatch) {
                EXPECT_GE(extent.left, 20);
                EXPECT_LE(extent.bottom, 292 - stamp);
            }
        }
    }
    EXPECT_EQ(heads, columns.size());
    EXPECT_TRUE(columnsSideBySide({}, look, 5).empty());
}

TEST(SpreadApart, KeepsOrderAndPlaces)
{
    using Places = std::vector<double>;
    EXPECT_EQ(spreadApart({2, 10, 20}, {2, 2, 2}, 30), (Places{2, 10, 20}));
    EXPECT_EQ(spreadApart({3, 6, 9}, {12, 12, 12}, 100), (Places{12, 24, 36}));
    EXPECT_EQ(spreadApart({28, 29, 30}, {5, 5, 5}, 30), (Places{20, 25, 30}));
}
