#include "benchmarks.h"
#include "core/base/reference.h"
#include "db/db_project.h"
#include "ground/grading.h"
#include "ground/ground_controller.h"
#include "site/plain_settings.h"

#include <benchmark/benchmark.h>

#include <array>
#include <random>
#include <vector>

// Soils classified whole, up to a million of them.

namespace
{

// What is known of one soil, as typed; some of it may be missing.
struct Soil {
    std::array<std::wstring, 2> cohesive;
    std::array<std::wstring, 7> rock;
    std::array<std::wstring, 7> frozen;
    GroundController::Fractions fractions;
};

class Ground : public GroundController
{
public:
    Ground(ISettings& settings, IDBProject& project)
        : GroundController(&settings, &project)
    {
    }
    virtual ~Ground() = default;
};

// Values spread over all rungs of their ladders, in hundredths, with a gap in twenty.
std::vector<Soil> soils()
{
    constexpr std::array<int, 7> rockRange = {300, 4000, 15000, 130, 150, 1500, 400};
    constexpr std::array<int, 7> frozenRange = {250, 100, 200, 400, 20, 100, 20};
    constexpr std::array<const wchar_t*, 6> thaws = {L"0", L"-0.1", L"-0.3", L"-0.6", L"-1.0", L"-1.5"};
    std::mt19937 random(11);
    const auto below = [&random](
                           int bound) { return static_cast<int>(random() % static_cast<unsigned>(bound)); };
    const auto value = [&](int range, int from = 0) {
        if (below(20) == 0)
            return std::wstring();
        const int hundredths = below(range) + from;
        return std::to_wstring(hundredths / 100.0).substr(0, hundredths < 0 ? 5 : 4);
    };
    std::vector<Soil> made(4096);
    for (Soil& soil : made) {
        if (below(2) == 0)
            soil.cohesive = {value(2500), value(150, -20)};
        for (std::size_t i = 0; i < soil.rock.size(); ++i) {
            soil.rock[i] = value(rockRange[i]);
            soil.frozen[i] = value(frozenRange[i]);
        }
        soil.frozen[2] = thaws[static_cast<std::size_t>(below(6))];
        soil.frozen[3] = value(400, -400);
        for (const int number : {4, 5, 6, 7, 9, 10, 11, 13, 15, 16, 17, 18, 19, 20, 21, 23})
            soil.fractions.emplace(static_cast<std::uint8_t>(number), value(1000));
    }
    return made;
}

void classify(Ground& ground, const Soil& soil)
{
    const auto& r = soil.rock;
    const auto& f = soil.frozen;
    ground.determineCohesive(soil.cohesive[0], soil.cohesive[1]);
    ground.determineRockGrades(r[0], r[1], r[2], r[3], r[4], r[5], r[6]);
    ground.determineGroup(soil.fractions);
    ground.determineFrozenGrades(f[0], f[1], f[2], f[3], f[4], f[5], f[6]);
}

void classifyAll(benchmark::State& state)
{
    PlainSettings settings;
    const auto project = makeReference<DBProject>();
    project->setGranGost(gradingScale200);
    Ground ground(settings, *project);
    const std::vector<Soil> made = soils();
    const auto determinations = static_cast<std::size_t>(state.range(0));
    while (state.KeepRunning())
        for (std::size_t i = 0; i < determinations; ++i)
            classify(ground, made[i % made.size()]);
    state.SetItemsProcessed(state.range(0) * static_cast<std::int64_t>(state.iterations()));
}

} // namespace

void addClassificationBenchmarks()
{
    benchmark::RegisterBenchmark("classification/tellurix", classifyAll)
        ->RangeMultiplier(10)
        ->Range(1000, 1000000)
        ->Iterations(1)
        ->Unit(benchmark::kMillisecond);
}
