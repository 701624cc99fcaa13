#include "benchmarks.h"
#include "element_site.h"
#include "site/element_edits.h"
#include "site/element_summary.h"

#include <benchmark/benchmark.h>

// Ten thousand samples of five hundred points in forty elements: all statistics, the summary, and one value
// that goes out.

namespace
{

void statisticsOfAll(benchmark::State& state)
{
    const auto project = siteOfElements();
    for (auto _ : state)
        benchmark::DoNotOptimize(SiteLaboratory(*project, 0));
}

void summaryOfAll(benchmark::State& state)
{
    const auto project = siteOfElements();
    const SiteLaboratory laboratory(*project, 0);
    for (auto _ : state)
        benchmark::DoNotOptimize(summariesOf(*project, laboratory, true));
}

void oneValueGoesOut(benchmark::State& state)
{
    const auto project = siteOfElements();
    SiteLaboratory laboratory(*project, 0);
    PropertyCell& cell = project->getLabSamples().begin()->second.physical[1];
    for (auto _ : state) {
        cell.enabled = !cell.enabled;
        laboratory.recompute(*project, 0, 0);
    }
}

void oneElementIsRenamed(benchmark::State& state)
{
    const auto project = siteOfElements();
    for (auto _ : state) {
        ElementsState after = elementsOf(*project);
        renameElements(after, *project, {{L"1", L"99"}});
        const ElementsState before = replacedBy(*project, after);
        putElements(*project, after);
        putElements(*project, before);
    }
}

} // namespace

void addElementBenchmarks()
{
    const auto add = [](const char* name, void (*run)(benchmark::State&)) {
        benchmark::RegisterBenchmark(name, run)->Unit(benchmark::kMillisecond);
    };
    add("elements: 10,000 samples, all statistics", statisticsOfAll);
    add("elements: summary of 40", summaryOfAll);
    add("elements: one value goes out", oneValueGoesOut);
    add("elements: one is renamed and back", oneElementIsRenamed);
}
