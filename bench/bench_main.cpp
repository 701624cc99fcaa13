#include "benchmarks.h"

#include <benchmark/benchmark.h>

#include <cstdio>
#include <exception>
#include <string_view>

int main(int argumentCount, char** arguments)
{
    try {
        if (argumentCount == 5 && std::string_view(arguments[1]) == "--probe")
            return measure(arguments[2], arguments[3], arguments[4]);
        addOpenSaveBenchmarks();
        addMapBenchmarks();
        addClassificationBenchmarks();
        addLaboratoryBenchmarks();
        addElementBenchmarks();
        addFieldBenchmarks();
        benchmark::Initialize(&argumentCount, arguments);
        if (benchmark::ReportUnrecognizedArguments(argumentCount, arguments))
            return 1;
        benchmark::RunSpecifiedBenchmarks();
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "%s\n", failure.what());
        return 1;
    }
    return 0;
}
