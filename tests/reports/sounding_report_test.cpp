#include "dictionaries/dictionary.h"
#include "platform/utf8.h"
#include "reports/sounding_report.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace
{

// Every way in which a pile cannot be computed.
std::vector<PileResistance> refused()
{
    PileByProbe pile;
    pile.section = {PileSection::Square, 0.3};
    std::vector<PileReading> readings;
    for (int i = 1; i <= 40; ++i)
        readings.push_back({0.2 * i, 3.0, std::nullopt, std::nullopt});
    const std::vector<ShaftLayer> known{{0, 8, PileSoil::Clay}};
    const std::vector<ShaftLayer> unknown{{0, 8, PileSoil::Unknown}};
    const std::vector<ShaftLayer> shortened{{0, 2, PileSoil::Clay}};
    std::vector<PileReading> withSleeve = readings;
    for (PileReading& reading : withSleeve)
        reading.fsKPa = 50;
    std::vector<PileReading> withoutCone = withSleeve;
    for (std::size_t i = 10; i + 1 < withoutCone.size(); ++i)
        withoutCone[i].qcMPa.reset();
    PileByProbe byRods = pile;
    byRods.probeType = 1;
    BoredPile bored{pile.section};
    const std::vector<BoredLayer> untyped{{8, std::nullopt, std::nullopt, PileSoil::Clay}};
    return {pileResistance({}, readings, known, 4),
        pileResistance(pile, readings, known, 0),
        pileResistance(pile, readings, known, 7.9),
        pileResistance(pile, readings, known, 4),
        pileResistance(pile, withoutCone, known, 5),
        pileResistance(pile, withSleeve, unknown, 4),
        pileResistance(pile, withSleeve, shortened, 4),
        pileResistance(byRods, readings, known, 4),
        boredPileResistance({}, untyped, 4),
        boredPileResistance(bored, untyped, 4)};
}

std::vector<std::wstring> notesOf(const std::vector<PileResistance>& results, int language)
{
    PileRow row;
    row.tipDepth = 4;
    for (const PileResistance& result : results)
        row.points.push_back({L"1", result});
    std::vector<std::wstring> notes;
    for (const Block& block : pileReport({row}, {}, false, language).blocks)
        if (const auto* line = std::get_if<Paragraph>(&block);
            line && line->runs.front().text.starts_with(L"1, "))
            notes.push_back(line->runs.front().text);
    return notes;
}

} // namespace

TEST(PileReport, WhatCannotBeComputedIsSaidInTheDocumentsLanguage)
{
    const std::vector<PileResistance> results = refused();
    const auto russian = notesOf(results, languageRussian);
    const auto ukrainian = notesOf(results, languageUkrainian);
    EXPECT_GE(russian.size(), results.size());
    ASSERT_EQ(russian.size(), ukrainian.size());
    for (std::size_t i = 0; i < russian.size(); ++i) {
        EXPECT_NE(russian[i], ukrainian[i]) << toUtf8(russian[i]);
        EXPECT_EQ(ukrainian[i].find_first_of(L"ыэъё"), std::wstring::npos) << toUtf8(ukrainian[i]);
    }
    EXPECT_NE(
        std::find(russian.begin(), russian.end(), L"1, 4.00 м: Вдоль ствола нет отсчетов fs"), russian.end());
}
