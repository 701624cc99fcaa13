#include "benchmarks.h"
#include "site/laboratory.h"

#include <benchmark/benchmark.h>

#include <random>
#include <vector>

// A hundred thousand laboratory samples with every common test: from the texts of the cells to all results.

namespace
{

LabSample sampleOf(std::mt19937& random)
{
    const auto vary = [&](int value) { return std::to_wstring(value + static_cast<int>(random() % 20)); };
    LabSample sample;
    sample.physical = {{0, true, L"0." + vary(200)},
        {1, true, L"1." + vary(90)},
        {2, true, L"2.70"},
        {3, true, L"0." + vary(300)},
        {4, true, L"0." + vary(180)}};
    sample.grading = {
        {16, L"2"}, {17, L"8"}, {18, L"20"}, {19, L"25"}, {20, L"20"}, {21, L"15"}, {23, L"10"}};
    sample.shear[3] = {{7, L"0.0" + vary(60)}, {15, L"0." + vary(100)}, {19, L"0." + vary(130)}};
    CompressionGroup& group = sample.compression[21];
    int deformation = 0;
    for (const int load : {0, 4, 8, 16, 20, 24}) {
        group.cells.push_back({load, L"0." + std::to_wstring(100 + deformation), L"", L"", 0, L""});
        deformation += 100 + static_cast<int>(random() % 40);
    }
    return sample;
}

void laboratorySamples(benchmark::State& state)
{
    constexpr std::size_t count = 100'000;
    std::mt19937 random(16);
    std::vector<LabSample> samples;
    for (std::size_t i = 0; i < 1000; ++i)
        samples.push_back(sampleOf(random));
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
