#include "core/base/reference.h"
#include "db/db_project.h"
#include "site/pile_task.h"

#include <gtest/gtest.h>

namespace
{

class SoundingsTest : public testing::Test
{
protected:
    void point(const wchar_t* name, int kind, const wchar_t* x, const wchar_t* y, const wchar_t* mark)
    {
        PointRow row;
        row.text0 = x;
        row.text1 = y;
        row.absoluteMark = mark;
        project->addPointRegisterEntry({name, static_cast<std::uint8_t>(kind)}, {row});
    }

    // A layer with its element.
    void layer(const wchar_t* name, const wchar_t* bottom, int number, const wchar_t* element)
    {
        project->addLithology({name, bottom}, {L"", L""});
        project->addNumberedLink(std::wstring(name) + L':' + std::to_wstring(number), element);
    }

    void element(const wchar_t* name, int code, const wchar_t* soil, const wchar_t* index)
    {
        StrataElement made;
        made.code = code;
        made.texts[0] = index;
        project->addStrataElement(name, made);
        project->addNumberedLink(std::wstring(L"ИГЭ ") + name + L":0", soil);
    }

    // Readings every 20 cm down to a depth, all alike.
    static std::vector<SoundingRow> alike(int count, const wchar_t* qc, const wchar_t* fs)
    {
        std::vector<SoundingRow> rows;
        for (int i = 1; i <= count; ++i)
            rows.push_back({numberText(i * 0.2, 1), {qc, fs, L"", L""}});
        return rows;
    }

    void site()
    {
        point(L"Скв-1", 1, L"0", L"0", L"113.00");
        point(L"Скв-2", 1, L"100", L"0", L"112.00");
        point(L"ТСЗ-1", 3, L"90", L"10", L"112.50");
        point(L"Ш-1", 2, L"91", L"10", L"112.50");
        layer(L"Ш-1", L"3", 1, L"4");
        layer(L"Скв-1", L"9", 1, L"1");
        layer(L"Скв-2", L"2.0", 1, L"2");
        layer(L"Скв-2", L"3.5", 2, L"3");
        layer(L"Скв-2", L"12", 3, L"4");
        element(L"2", 4, L"Глина полутвердая", L"");
        element(L"3", 3, L"Суглинок тугопластичный", L"");
        element(L"4", 1, L"Песок мелкий", L"aQ_III");
        project->addSounding({L"ТСЗ-1", 3, L"", L""}, alike(40, L"6", L"30"));
    }

    Reference<DBProject> project = makeReference<DBProject>();
};

} // namespace

TEST_F(SoundingsTest, LayersComeFromTheNearestBoreholeByMark)
{
    site();
    const SiteSoundings soundings(*project);
    const SiteSounding* sounding = soundings.find(L"ТСЗ-1");
    ASSERT_NE(sounding, nullptr);
    EXPECT_EQ(sounding->borehole, L"Скв-2"); // and not the pit beside it
    ASSERT_EQ(sounding->layers.size(), 3u);
    // The mouth is half a metre higher than the borehole's.
    EXPECT_DOUBLE_EQ(sounding->layers[0].from, 0.0);
    EXPECT_DOUBLE_EQ(sounding->layers[0].to, 2.5);
    EXPECT_EQ(sounding->layers[0].last, 12u); // 0.2 to 2.4
    EXPECT_DOUBLE_EQ(sounding->layers[1].to, 4.0);
    EXPECT_EQ(sounding->layers[1].last, 20u); // 4.0 belongs to the layer that ends there
    EXPECT_EQ(sounding->layers[2].element, L"4");
    EXPECT_EQ(sounding->layers[2].last, 40u);

    const SoundingLayerResult sand = layerResult(*project, *sounding, sounding->layers[2]);
    EXPECT_EQ(sand.tip.n, 20u);
    EXPECT_NEAR(*sand.properties.modulusMPa, 22.0, 1e-9); // alluvial
    EXPECT_EQ(sand.properties.density, SandDensity::Medium);
    const SoundingLayerResult clay = layerResult(*project, *sounding, sounding->layers[0]);
    EXPECT_NEAR(*clay.properties.cohesionKPa, 43.0, 1e-9);
    EXPECT_FALSE(clay.properties.density);
}

TEST_F(SoundingsTest, OneAloneIsAsItIsAmongAll)
{
    site();
    project->addSounding({L"Скв-1", 1, L"", L""}, alike(5, L"6", L"30"));
    const SiteSoundings beside(*project, L"ТСЗ-1");
    ASSERT_EQ(beside.all().size(), 1u);
    EXPECT_EQ(beside.all()[0].borehole, L"Скв-2");
    EXPECT_EQ(beside.all()[0].layers.size(), 3u);
    EXPECT_DOUBLE_EQ(beside.shaft(beside.all()[0])[0].to, 2.5);
    const SiteSoundings own(*project, L"Скв-1");
    ASSERT_EQ(own.all().size(), 1u);
    EXPECT_EQ(own.all()[0].borehole, L"Скв-1");
    EXPECT_EQ(own.all()[0].layers[0].element, L"1");
    EXPECT_TRUE(SiteSoundings(*project, L"ТСЗ").all().empty());
}

TEST_F(SoundingsTest, WithoutAMarkBoundariesGoByDepth)
{
    site();
    PointRegister points = project->getPointRegister();
    for (auto& [key, rows] : points)
        if (key.pointName == L"ТСЗ-1")
            rows[0].absoluteMark.clear();
    project->setPointRegister(points);
    const SiteSoundings soundings(*project);
    EXPECT_DOUBLE_EQ(soundings.all()[0].layers[0].to, 2.0);
}

TEST_F(SoundingsTest, AnElementInTheJournalRules)
{
    site();
    std::vector<SoundingRow> rows = alike(40, L"6", L"30");
    for (std::size_t i = 4; i < 8; ++i) // 1.0 to 1.6
        rows[i].cells[3] = L"4";
    project->setSoundings({{{L"ТСЗ-1", 3, L"", L""}, rows}});
    const SiteSoundings soundings(*project);
    const std::vector<SoundingLayer>& layers = soundings.all()[0].layers;
    ASSERT_EQ(layers.size(), 5u);
    EXPECT_DOUBLE_EQ(layers[0].to, 0.8);
    EXPECT_EQ(layers[1].element, L"4");
    EXPECT_DOUBLE_EQ(layers[1].to, 1.6);
    EXPECT_EQ(layers[1].last - layers[1].first, 4u);
    EXPECT_EQ(layers[2].element, L"2");
    EXPECT_DOUBLE_EQ(layers[2].from, 1.6);
}

TEST_F(SoundingsTest, JournalsWithFaults)
{
    Remarks remarks;
    const std::vector<SoundingRow> rows = {
        {L"0.4", {L"2,5", L"", L"", L""}},
        {L"0.2", {L"500", L"30", L"", L" "}}, // falls, and is typed in kPa
        {L"0.2", {L"-1", L"abc", L"", L""}},
        {L"x", {L"1", L"1", L"", L""}},
        {L"-3", {L"1", L"1", L"", L""}},
        {L"0,6", {L"(3.5)", L"40", L"7", L"2"}},
    };
    const std::vector<SoundingReading> readings = soundingReadings(rows, remarks);
    ASSERT_EQ(readings.size(), 4u);
    EXPECT_DOUBLE_EQ(readings[0].depth, 0.2);
    EXPECT_EQ(readings[0].row, 1u);
    EXPECT_TRUE(readings[0].element.empty());
    EXPECT_FALSE(readings[1].tip);
    EXPECT_EQ(readings[2].tip, 2.5);
    EXPECT_FALSE(readings[3].tip); // in brackets
    EXPECT_EQ(readings[3].side, 7.0);
    EXPECT_EQ(remarks.size(), 7u);
    EXPECT_EQ(remarks[0].cell, "sounding/1/0");
}

TEST_F(SoundingsTest, NoBoreholeNoLayersNoFailure)
{
    project->addSounding({L"ТСЗ-9", 3, L"", L""}, alike(10, L"6", L"30"));
    project->addSounding({L"ТСЗ-10", 3, L"", L""}, {});
    const SiteSoundings soundings(*project);
    ASSERT_EQ(soundings.all().size(), 2u);
    for (const SiteSounding& sounding : soundings.all())
        EXPECT_TRUE(sounding.layers.empty());
    EXPECT_TRUE(pileRows(*project, soundings, pileTask(*project)).empty());
}

TEST_F(SoundingsTest, SoilsByKindAndName)
{
    struct Row {
        int kind;
        const wchar_t* name;
        SoundedSoil expected;
    };
    using S = SoundedSoil;
    const Row rows[] = {
        {0, L"Суглинок тугопластичный", {S::Loam, {}, {}, S::StiffPlastic, false}},
        {4, L"полутвёрдая", {S::Clay, {}, {}, S::SemiHard, false}},
        {0, L"Супесь твердая", {S::SandyLoam, {}, {}, S::Hard, false}},
        {0, L"Песок пылеватый, насыщенный водой", {S::Sand, S::Silty, S::Saturated, {}, false}},
        {0, L"Песок средней крупности маловлажный", {S::Sand, S::Medium, S::NotSaturated, {}, false}},
        {1, L"", {S::Sand, {}, {}, {}, false}},
        {0, L"Глина мягкопластичная", {S::Clay, {}, {}, S::SofterState, false}},
        {8, L"Насыпной суглинок твердый", {S::OtherKind, {}, {}, S::Hard, false}},
        {0, L"Пісок дрібний", {S::Sand, S::Fine, {}, {}, false}},
        {0, L"Почва", {}},
    };
    for (const Row& row : rows) {
        const SoundedSoil soil = soundedSoilNamed(row.kind, row.name);
        EXPECT_EQ(soil.kind, row.expected.kind) << row.kind;
        EXPECT_EQ(soil.grain, row.expected.grain);
        EXPECT_EQ(soil.wetness, row.expected.wetness);
        EXPECT_EQ(soil.state, row.expected.state);
    }
}

TEST_F(SoundingsTest, PilesOfTheSite)
{
    site();
    project->setSoundingValueD(1);
    project->addSoundingTriple(1, {300, 0, 50});
    project->addSoundingTriple(2, {11347, 500, 700});
    project->addSoundingTriple(3, {100, 100, 110});
    project->addSoundingFlag(L"3", 4);
    const PileTask task = pileTask(*project);
    ASSERT_EQ(task.tipDepths, (std::vector<double>{5.0, 5.5, 6.0, 6.5, 7.0}));
    const SiteSoundings soundings(*project);
    const std::vector<PileRow> rows = pileRows(*project, soundings, task);
    ASSERT_EQ(rows.size(), 5u);
    EXPECT_NEAR(*rows[2].tipMark, 107.47, 1e-9);
    // qs 6000, b1 0.61; clay to 4 m, then sand: 30 kPa with 0.875 and 0.675.
    EXPECT_NEAR(*rows[2].points[0].resistance.tipKN, 0.61 * 6000 * 0.09, 1e-9);
    EXPECT_NEAR(*rows[2].points[0].resistance.sideKN, 1.2 * 30 * (0.875 * 4 + 0.675 * 2), 1e-9);
    EXPECT_EQ(rows[2].group.n, 1u);
    EXPECT_NEAR(*rows[2].group.loadKN, *rows[2].group.capacityKN / 1.1 / 1.25, 1e-9);
    // 7 m and four widths are 8.2 m: below the last reading.
    EXPECT_EQ(rows[4].group.n, 0u);
    EXPECT_FALSE(rows[4].group.capacityKN);

    // An element without a kind.
    project->clearStrataElements();
    project->clearSoundingFlags();
    project->clearNumberedLinks();
    project->addNumberedLink(L"Скв-2:1", L"2");
    EXPECT_FALSE(pileRows(*project, SiteSoundings(*project), task)[2].points[0].resistance.sideKN);
}

TEST_F(SoundingsTest, BoredPileByTypedLayers)
{
    site();
    project->setSoundingValueC(3);
    project->addSoundingTriple(1, {500, 0, 0});
    project->addSoundingTriple(2, {0, 0, 500});
    project->addSoundingTriple(11, {0, 35, 250});
    project->addSoundingTriple(12, {1500, 48, 900});
    const std::vector<PileRow> rows = pileRows(*project, SiteSoundings(*project), pileTask(*project));
    ASSERT_EQ(rows.size(), 1u);
    // Clay above, sand below: 0.6 and 0.7.
    EXPECT_NEAR(*rows[0].points[0].resistance.tipKN, 294.524, 1e-3);
    EXPECT_NEAR(*rows[0].points[0].resistance.sideKN, 1.570796 * (0.6 * 35 * 2.5 + 0.7 * 48 * 2.5), 1e-3);
}
