#include "core/base/reference.h"
#include "db/db_project.h"
#include "exchange/sounding_file.h"
#include "platform/files.h"
#include "platform/utf8.h"
#include "site/pile_task.h"
#include "site/sounding_layers.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

// An electric sounding of a reading a centimetre, from its file to the capacity of a pile. The file is made
// up, since none could be had with its licence: layers of a river terrace, noise that goes on from reading to
// reading, boundaries that the cone feels before they come, voids behind each new rod.

namespace
{

class ElectricSounding : public ::testing::Test
{
protected:
    void SetUp() override
    {
        std::vector<std::uint8_t> bytes;
        ASSERT_TRUE(readFile(*fromUtf8(TELLURIX_TEST_DATA "/cpt_1cm.gef"), bytes));
        table = readSoundingFile(bytes);
        readings = importedReadings(table, table.columns);
        PointRow place;
        place.absoluteMark = L"113.30";
        place.text0 = L"10";
        place.text1 = L"10";
        project->addPointRegisterEntry({table.point, 3}, {place});
        place.text0 = L"14";
        project->addPointRegisterEntry({L"Скв-1", 1}, {place});
        const std::pair<const wchar_t*, int> layers[] = {
            {L"0.8", 8}, {L"3.4", 3}, {L"6.0", 3}, {L"7.1", 2}, {L"10.8", 1}, {L"13.2", 1}, {L"18.0", 4}};
        int number = 0;
        for (const auto& [depth, kind] : layers) {
            ++number;
            project->addLithology({L"Скв-1", depth}, {L"", L""});
            project->addNumberedLink(L"Скв-1:" + std::to_wstring(number), std::to_wstring(number));
            StrataElement element;
            element.code = kind;
            project->addStrataElement(std::to_wstring(number), element);
        }
        std::vector<SoundingRow> rows;
        for (const ImportedReading& reading : readings)
            rows.push_back({numberText(reading.depth, 2),
                {numberText(reading.tip, 3), numberText(reading.sleeve, 1), L"", L""}});
        project->addSounding({table.point, 3, L"", table.date}, rows);
        project->addSoundingFlag(L"1", 3); // the fill counts as loam
        project->setSoundingValueB(2);
        project->setSoundingValueD(1);
        project->addSoundingTriple(1, {300, 0, 100});
        project->addSoundingTriple(2, {11330, 800, 800});
    }

    SoundingTable table;
    std::vector<ImportedReading> readings;
    Reference<DBProject> project = makeReference<DBProject>();
};

} // namespace

TEST_F(ElectricSounding, FileBecomesAJournal)
{
    EXPECT_EQ(table.point, L"ТСЗ-К1");
    EXPECT_EQ(table.date, L"26.11.2019");
    ASSERT_EQ(readings.size(), 1499U);
    EXPECT_NEAR(readings.front().depth, 0.02, 1e-12);
    EXPECT_NEAR(readings.back().depth, 15.0, 1e-12);
    // Sleeve in kPa; two voids behind each of fourteen rods.
    EXPECT_EQ(std::ranges::count_if(readings, [](const ImportedReading& one) { return !one.sleeve; }), 28);
    EXPECT_TRUE(std::ranges::all_of(
        readings, [](const ImportedReading& one) { return one.tip && *one.tip > 0.04 && *one.tip < 40; }));
    const SiteSoundings soundings(*project);
    EXPECT_TRUE(soundings.all().front().remarks.empty());
    EXPECT_EQ(soundings.all().front().layers.size(), 7U);
}

TEST_F(ElectricSounding, ReadingsProposeItsLayers)
{
    const SiteSoundings soundings(*project);
    const SiteSounding& sounding = soundings.all().front();
    const std::vector<JournalLayer> layers =
        proposedJournalLayers(*project, sounding, soundings.shaft(sounding));
    // The great steps must be found, whatever is made of the small ones.
    for (const double boundary : {7.1, 10.8, 13.2})
        EXPECT_TRUE(std::ranges::any_of(layers, [&](const JournalLayer& layer) {
            return std::abs(layer.to - boundary) < 0.3;
        })) << boundary;
    EXPECT_LE(layers.size(), 16U);
    EXPECT_EQ(layers.back().element, L"7");
    const auto at = [&](double depth) {
        return std::ranges::find_if(
            layers, [&](const JournalLayer& layer) { return layer.from < depth && depth <= layer.to; });
    };
    EXPECT_EQ(at(12.0)->element, L"6");
    EXPECT_EQ(at(9.0)->element, L"5");

    // A boundary moved by hand goes into the journal, and the layers of the site are read from it.
    std::vector<JournalLayer> edited{{0, 7.5, L"3"}, {7.5, 13, L"5"}, {13, 15, L"7"}};
    auto map = project->getSoundings();
    map.begin()->second = rowsWithLayers(map.begin()->second, edited);
    project->setSoundings(map);
    const SiteSoundings anew(*project);
    const std::vector<JournalLayer> back = journalLayers(anew.all().front());
    ASSERT_EQ(back.size(), 3U);
    for (std::size_t i = 0; i < 3; ++i) {
        EXPECT_NEAR(back[i].from, edited[i].from, 1e-9);
        EXPECT_NEAR(back[i].to, edited[i].to, 1e-9);
        EXPECT_EQ(back[i].element, edited[i].element);
    }
    const SoundingLayerResult result = layerResult(*project, anew.all().front(), back[1]);
    EXPECT_EQ(result.tip.n, 550U);
}

TEST_F(ElectricSounding, PileStandsInIt)
{
    const SiteSoundings soundings(*project);
    const std::vector<PileRow> rows = pileRows(*project, soundings, pileTask(*project));
    ASSERT_EQ(rows.size(), 1U);
    // The mean of 7.7 to 9.2 m, by hand over the readings of the file.
    double sum = 0;
    int count = 0;
    for (const ImportedReading& reading : readings)
        if (reading.depth > 7.6999 && reading.depth < 9.2001) {
            sum += *reading.tip;
            ++count;
        }
    EXPECT_EQ(count, 151);
    const double qs = 1000 * sum / count;
    ASSERT_GT(qs, 7500);
    ASSERT_LT(qs, 10000);
    const double beta = 0.55 - 0.10 * (qs - 7500) / 2500;
    const PileResistance& resistance = rows[0].points[0].resistance;
    EXPECT_NEAR(*resistance.tipKN, beta * qs * 0.09, 0.5); // the journal has three decimals
    ASSERT_TRUE(resistance.sideKN);
    EXPECT_GT(*resistance.sideKN, 100);
    EXPECT_LT(*resistance.sideKN, 700);
    EXPECT_EQ(rows[0].group.n, 1U);
}

TEST(JournalLayers, AreEditedByHand)
{
    std::vector<JournalLayer> layers{{0, 3, L"1"}, {3, 6, L"2"}, {6, 8, L"3"}};
    EXPECT_TRUE(moveBoundary(layers, 0, 3.456));
    EXPECT_EQ(layers[0].to, 3.46);
    EXPECT_EQ(layers[1].from, 3.46);
    // Never past the neighbour, and not the bottom of all.
    EXPECT_TRUE(moveBoundary(layers, 0, 70));
    EXPECT_NEAR(layers[0].to, 5.95, 1e-9);
    EXPECT_FALSE(moveBoundary(layers, 0, 80));
    EXPECT_FALSE(moveBoundary(layers, 2, 7));
    EXPECT_FALSE(splitLayer(layers, 1)); // five centimetres are left of it
    EXPECT_TRUE(splitLayer(layers, 2));
    ASSERT_EQ(layers.size(), 4U);
    EXPECT_EQ(layers[2].to, 7.0);
    EXPECT_EQ(layers[3].element, L"3");
    EXPECT_TRUE(joinLayer(layers, 1));
    EXPECT_EQ(layers[1].element, L"2");
    EXPECT_EQ(layers[1].to, 7.0);
    EXPECT_FALSE(joinLayer(layers, 2));
}
