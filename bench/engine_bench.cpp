#include "generated_site.h"
#include "persistence/project_codec.h"
#include "persistence/project_file.h"

#include <benchmark/benchmark.h>

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <map>
#include <string>
#include <sys/resource.h>
#include <unistd.h>

// Opening and saving a whole project through its file, against nothing but themselves yet: MB/s of file size,
// and the highest memory of the process so far. Run the sizes from small to large, as they are registered.

namespace
{

constexpr double megabyte = 1e6;

double peakMegabytes()
{
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return static_cast<double>(usage.ru_maxrss) * 1024 / megabyte;
}

// One file a size, made once and removed at the end.
class Files
{
public:
    ~Files()
    {
        for (const auto& [points, path] : paths_)
            std::remove(path.c_str());
    }

    const std::string& withPoints(std::size_t points)
    {
        std::string& path = paths_[points];
        if (path.empty()) {
            const char* folder = std::getenv("TMPDIR");
            path = std::string(folder ? folder : "/tmp") + "/tellurix_bench_" + std::to_string(getpid()) + "_"
                + std::to_string(points) + ".TLX";
            const auto project = generatedSite(points);
            const auto bytes = encodeProject(*project);
            std::ofstream(path, std::ios::binary)
                .write(
                    reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
        }
        return path;
    }

private:
    std::map<std::size_t, std::string> paths_;
};

Files files;

std::wstring wide(const std::string& ascii)
{
    return std::wstring(ascii.begin(), ascii.end());
}

Reference<DBProject> open(const std::wstring& path, std::size_t& size)
{
    std::vector<std::uint8_t> bytes;
    if (lookAtProjectFile(path, bytes) != ProjectFileState::current)
        return {};
    size = bytes.size();
    ReadReport report;
    return readProject(path, bytes, report);
}

void report(benchmark::State& state, std::size_t size)
{
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations()) * static_cast<std::int64_t>(size));
    state.counters["file_MB"] = static_cast<double>(size) / megabyte;
    state.counters["peak_MB"] = peakMegabytes();
}

void openProject(benchmark::State& state)
{
    const std::wstring path = wide(files.withPoints(static_cast<std::size_t>(state.range(0))));
    std::size_t size = 0;
    while (state.KeepRunning()) {
        const auto project = open(path, size);
        if (!project)
            state.SkipWithError("the generated file does not open");
        state.PauseTiming();
        benchmark::DoNotOptimize(project.get());
        state.ResumeTiming();
    }
    report(state, size);
}

void saveProject(benchmark::State& state)
{
    const std::string& path = files.withPoints(static_cast<std::size_t>(state.range(0)));
    std::size_t size = 0;
    const auto project = open(wide(path), size);
    if (!project) {
        state.SkipWithError("the generated file does not open");
        return;
    }
    const std::wstring target = wide(path + ".saved.TLX");
    while (state.KeepRunning())
        if (!writeProjectFile(target, *project))
            state.SkipWithError("the project could not be written");
    std::remove((path + ".saved.TLX").c_str());
    report(state, size);
}

// 230, 2,300 and 23,000 points make about 1, 10 and 100 MB.
void sizes(benchmark::internal::Benchmark* one)
{
    one->Arg(230)->Arg(2300)->Arg(23000)->Unit(benchmark::kMillisecond);
}

BENCHMARK(openProject)->Apply(sizes);
BENCHMARK(saveProject)->Apply(sizes);

} // namespace

BENCHMARK_MAIN();
