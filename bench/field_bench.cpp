#include "benchmarks.h"
#include "core/base/reference.h"
#include "core/base/typed_number.h"
#include "db/db_project.h"
#include "site/chemistry.h"
#include "site/pile_task.h"

#include <benchmark/benchmark.h>

// Field work: analyses of water with their aggressiveness, and piles by soundings of one reading a
// centimetre.

namespace
{

Reference<DBProject> waters(std::size_t count)
{
    auto project = makeReference<DBProject>();
    for (std::size_t i = 0; i < count; ++i) {
        ChemistryRecord record;
        const auto vary = [&](int value) { return std::to_wstring(value + static_cast<int>(i * 7919 % 97)); };
        record.cells[CellSO4] = vary(180);
        record.cells[CellCl] = vary(80);
        record.cells[CellHCO3] = vary(360);
        record.cells[CellPH] = L"7.2";
        record.cells[CellCa] = vary(100);
        record.cells[CellMg] = vary(30);
        record.cells[CellNaK] = vary(70);
        record.cells[CellNO3] = L"< 5";
        record.cells[CellAggressiveCO2] = vary(0);
        project->addChemistry({std::to_wstring(i / 4 + 1), std::to_wstring(i % 4 + 1)}, record);
    }
    return project;
}

// From the texts to composition, formula, name and every verdict.
void chemistry(benchmark::State& state)
{
    const auto project = waters(5000);
    const AggressivenessLimits& limits = AggressivenessLimits::ofProgram();
    for (auto _ : state)
        for (const SiteAnalysis& site : siteAnalyses(*project)) {
            const WaterChemistry water = waterChemistry(site.analysis);
            benchmark::DoNotOptimize(kurlov(water));
            benchmark::DoNotOptimize(waterName(water));
            for (const char* grade : {"W4", "W6", "W8", "W10-W14", "W16-W20"})
                benchmark::DoNotOptimize(concreteVerdict(limits, site.analysis, water, {}, grade));
            benchmark::DoNotOptimize(reinforcementVerdict(limits, site.analysis, {}));
            benchmark::DoNotOptimize(steelVerdict(limits, site.analysis, {}));
        }
}

Reference<DBProject> soundings(int count, int rowCount)
{
    auto project = makeReference<DBProject>();
    PointRow place;
    place.absoluteMark = L"110";
    place.text0 = place.text1 = L"0";
    project->addPointRegisterEntry({L"Скв-1", 1}, {place});
    int layer = 0;
    for (const wchar_t* depth : {L"3", L"6", L"9", L"16"}) {
        project->addLithology({L"Скв-1", depth}, {L"", L""});
        ++layer;
        project->addNumberedLink(L"Скв-1:" + std::to_wstring(layer), std::to_wstring(layer));
        StrataElement element;
        element.code = layer % 2 == 0 ? 1 : 3;
        project->addStrataElement(std::to_wstring(layer), element);
    }
    for (int i = 0; i < count; ++i) {
        place.text0 = std::to_wstring(i * 10 + 10);
        const std::wstring name = L"ТСЗ-" + std::to_wstring(i + 1);
        project->addPointRegisterEntry({name, 3}, {place});
        std::vector<SoundingRow> rows;
        for (int row = 1; row <= rowCount; ++row)
            rows.push_back({numberText(row * 0.01, 2),
                {numberText(2.0 + (row * 13 + i) % 50 * 0.1, 2), numberText(40.0 + row % 30, 1), L"", L""}});
        project->addSounding({name, 3, L"", L""}, rows);
    }
    project->setSoundingValueB(2);
    project->setSoundingValueD(1);
    project->addSoundingTriple(1, {300, 0, 100});
    project->addSoundingTriple(2, {11000, 400, 1300});
    return project;
}

// From the texts of the journals to the capacity at ten depths.
void piles(benchmark::State& state)
{
    const auto project = soundings(100, 1500);
    for (auto _ : state) {
        const SiteSoundings site(*project);
        const std::vector<PileRow> rows = pileRows(*project, site, pileTask(*project));
        if (rows.size() != 10 || rows.back().group.n != 100)
            state.SkipWithError("not every pile was calculated");
    }
}

} // namespace

void addFieldBenchmarks()
{
    benchmark::RegisterBenchmark("chemistry: 5,000 analyses", chemistry)->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark("piles: 100 soundings of 1,500 rows, ten depths", piles)
        ->Unit(benchmark::kMillisecond);
}
