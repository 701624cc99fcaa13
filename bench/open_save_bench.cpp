#include "benchmarks.h"
#include "peer.h"
#include "persistence/project_codec.h"
#include "probe.h"
#include "project_files.h"

#include <benchmark/benchmark.h>

#include <chrono>
#include <sstream>

#ifdef TELLURIX_MIMALLOC
#include <mimalloc.h>
#endif

// Opening and saving whole projects beside peers, from and into the same records. Only the operation itself
// is timed, not the dropping of what it made. Memory and allocations are measured once, in a process of its
// own.

namespace
{

using Clock = std::chrono::steady_clock;

double secondsSince(Clock::time_point start)
{
    return std::chrono::duration<double>(Clock::now() - start).count();
}

// Hands free memory back, so that every operation begins as in a program just started.
void forgetMemory()
{
#ifdef TELLURIX_MIMALLOC
    mi_collect(true);
#endif
}

void report(benchmark::State& state, const ProjectFile& file, const HeapUse& use)
{
    constexpr double megabyte = 1e6;
    const auto size = static_cast<double>(file.size());
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations()) * static_cast<std::int64_t>(size));
    state.counters["file_MB"] = size / megabyte;
    state.counters["peak_MB"] = use.peakBytes / megabyte;
    state.counters["own_MB"] = file.ownSize() / megabyte;
    state.counters["allocations"] = use.allocations;
}

std::string words(const char* operation, const Peer& peer, const std::string& path)
{
    return std::string(operation) + ' ' + peer.name + ' ' + path;
}

void openProject(benchmark::State& state, const Peer* peer, SiteNames names)
{
    const ProjectFile& file = projectFile(static_cast<std::size_t>(state.range(0)), names);
    const std::string& path = file.pathFor(*peer);
    while (state.KeepRunning()) {
        forgetMemory();
        const auto start = Clock::now();
        const auto opened = peer->open(path);
        state.SetIterationTime(secondsSince(start));
        benchmark::DoNotOptimize(opened.get());
    }
    report(state, file, file.measured(words("open", *peer, path)));
}

void saveProject(benchmark::State& state, const Peer* peer, SiteNames names)
{
    const ProjectFile& file = projectFile(static_cast<std::size_t>(state.range(0)), names);
    const SavedProject& saved = projectToSave(file);
    const std::string target = file.pathFor(*peer) + ".saved";
    while (state.KeepRunning()) {
        forgetMemory();
        const auto start = Clock::now();
        peer->save(target, *saved.project, saved.bytes);
        state.SetIterationTime(secondsSince(start));
    }
    std::remove(target.c_str());
    report(state, file, file.measured(words("save", *peer, file.path())));
}

// What of our saving goes before the first byte is written.
void encodeAlone(benchmark::State& state)
{
    const ProjectFile& file = projectFile(static_cast<std::size_t>(state.range(0)), SiteNames::numeric);
    const SavedProject& saved = projectToSave(file);
    while (state.KeepRunning()) {
        forgetMemory();
        const auto start = Clock::now();
        const ByteBlocks bytes = encodeProjectInBlocks(*saved.project);
        state.SetIterationTime(secondsSince(start));
    }
}

// 230, 2,300 and 23,000 points make about 1, 10 and 100 MB.
constexpr std::int64_t sizes[] = {230, 770, 2300, 7700, 23000};

void overSizes(benchmark::internal::Benchmark* one)
{
    for (const std::int64_t points : sizes)
        one->Arg(points);
    one->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(1);
}

void add(const std::string& name, void (*run)(benchmark::State&, const Peer*, SiteNames), SiteNames names)
{
    for (const Peer* peer : allPeers()) {
        overSizes(benchmark::RegisterBenchmark((name + '/' + peer->name).c_str(), run, peer, names));
        // How the points are called makes a difference to the engine alone.
        if (names != SiteNames::numeric)
            break;
    }
}

} // namespace

void addOpenSaveBenchmarks()
{
    add("open", openProject, SiteNames::numeric);
    add("open_lettered", openProject, SiteNames::lettered);
    add("open_mixed", openProject, SiteNames::mixed);
    add("save", saveProject, SiteNames::numeric);
    overSizes(benchmark::RegisterBenchmark("encode/tellurix", encodeAlone));
}

// In the process that measures one operation: "open" or "save", the peer, the file.
int measure(const std::string& operation, const std::string& peerName, const std::string& path)
{
    for (const Peer* peer : allPeers()) {
        if (peerName != peer->name)
            continue;
        if (operation == "open") {
            beginProbe();
            const auto opened = peer->open(path);
            endProbe();
        } else {
            const auto project = enginePeer().openProject(path);
            const auto bytes = encodeProject(*project);
            forgetMemory();
            beginProbe();
            peer->save(path + ".measured", *project, bytes);
            endProbe();
            std::remove((path + ".measured").c_str());
        }
        return 0;
    }
    return 1;
}
