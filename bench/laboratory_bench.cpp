#include "benchmarks.h"
#include "element_site.h"
#include "site/laboratory.h"

#include <benchmark/benchmark.h>

#include <vector>

// A hundred thousand laboratory samples with every common test: from the texts of the cells to all results.

namespace
{

void laboratorySamples(benchmark::State& state)
{
    constexpr std::size_t count = 100'000;
    std::mt19937 random(16);
    std::vector<LabSample> samples;
    for (std::size_t i = 0; i < 1000; ++i)
        samples.push_back(sampleWithTests(random));
    for (auto _ : state)
        for (std::size_t i = 0; i < count; ++i)
            benchmark::DoNotOptimize(sampleResult(samples[i % samples.size()], {}, GrainScale::Above200, 0));
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(count));
}

} // namespace

void addLaboratoryBenchmarks()
{
    benchmark::RegisterBenchmark("laboratory: 100,000 samples", laboratorySamples)
        ->Unit(benchmark::kMillisecond);
}
