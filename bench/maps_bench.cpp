#include "benchmarks.h"
#include "core/base/reference.h"
#include "counted_heap.h"
#include "db/db_project.h"
#include "db/exact_key.h"
#include "db/project_controller.h"
#include "db/walk_order.h"
#include "persistence/project_codec.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <iomanip>
#include <random>
#include <sstream>

// The registers' maps from a thousand to a million rows: what a row costs to put in, to find, to walk over
// and to take out again, in each ordering.

namespace
{

std::wstring padded(std::size_t number, int width)
{
    std::wostringstream text;
    text << std::setw(width) << std::setfill(L'0') << number;
    return text.str();
}

// The depth of a row among eight of its point: "1.50" and so on.
std::wstring depthOf(std::size_t row)
{
    return padded(row % 8 * 15 / 10, 1) + L'.' + padded(row % 8 * 15 % 10, 1) + L'0';
}

// One ordering: how its map is called, and the keys in walk order.
struct Points {
    using Map = PointRegister;
    static PointKey key(std::size_t row) { return {std::to_wstring(row + 1), 1}; }
};
struct Layers {
    using Map = LithologyRegister;
    static PointDepthKey key(std::size_t row) { return {std::to_wstring(row / 8 + 1), depthOf(row)}; }
};
struct LetteredLayers {
    using Map = LithologyRegister;
    static PointDepthKey key(std::size_t row) { return {L"Скв-" + padded(row / 8 + 1, 6), depthOf(row)}; }
};
struct Flags {
    using Map = SoundingFlags;
    static std::wstring key(std::size_t row) { return std::to_wstring(row + 1); }
};
struct Sections {
    using Map = SectionLineMap;
    static std::wstring key(std::size_t row)
    {
        const std::wstring number = std::to_wstring(row + 1);
        return std::wstring(L"Разрез ").append(number).append(L"-").append(number).append(L"'");
    }
};
struct Links {
    using Map = NumberedLinks;
    static std::wstring key(std::size_t row) { return L"ссылка:" + std::to_wstring(row + 1); }
};
struct Curves {
    using Map = SectionCurveMap;
    static CurveKey key(std::size_t row) { return {padded(row / 8, 6), padded(row % 8, 1)}; }
};

// Nanoseconds of an action for each of so many rows.
template <class Action>
double nanosecondsEach(std::size_t rows, Action&& action)
{
    const auto start = std::chrono::steady_clock::now();
    action();
    const std::chrono::duration<double, std::nano> time = std::chrono::steady_clock::now() - start;
    return time.count() / static_cast<double>(rows);
}

// The layers of a point go with it, in one walk over the register; in other registers a row goes by its key.
void erasePoint(DBProject& project, const PointDepthKey& key)
{
    project.removeLithologyOfPoint(key.pointName);
}

template <class Ordering>
void measureErasing(benchmark::State& state,
    typename Ordering::Map& map,
    const std::vector<typename Ordering::Map::key_type>& keys)
{
    const std::size_t count = std::min<std::size_t>(keys.size() / 10, 10);
    if constexpr (std::same_as<typename Ordering::Map, LithologyRegister>) {
        const auto project = makeReference<DBProject>();
        project->getLithology().swap(map);
        state.counters["erase_ns"] = nanosecondsEach(count, [&] {
            for (std::size_t i = 0; i < count; ++i)
                erasePoint(*project, keys[i]);
        });
    } else {
        state.counters["erase_ns"] = nanosecondsEach(count, [&] {
            for (std::size_t i = 0; i < count; ++i)
                if (!eraseExact(map, keys[i]))
                    state.SkipWithError("a row is not there");
        });
    }
}

template <class Ordering>
void map(benchmark::State& state)
{
    using Map = typename Ordering::Map;
    using Row = std::pair<typename Map::key_type, typename Map::mapped_type>;
    const auto rows = static_cast<std::size_t>(state.range(0));
    std::vector<typename Map::key_type> keys(rows);
    for (std::size_t i = 0; i < rows; ++i)
        keys[i] = Ordering::key(i);

    while (state.KeepRunning()) {
        Map map;
        state.counters["in_order_ns"] = nanosecondsEach(rows, [&] {
            RowByRow register_(map);
            for (const auto& key : keys)
                register_.insert(Row(key, {}));
        });
        std::shuffle(keys.begin(), keys.end(), std::mt19937(7));
        Map other;
        state.counters["at_random_ns"] = nanosecondsEach(rows, [&] {
            for (const auto& key : keys)
                other.insert(Row(key, {}));
        });
        if (map.size() != rows || other.size() != rows)
            state.SkipWithError("rows were refused");
        std::size_t found = 0;
        std::size_t taken = 0;
        state.counters["find_ns"] = nanosecondsEach(rows, [&] {
            taken = heapAllocations();
            for (const auto& key : keys)
                found += map.find(key) != map.end() ? 1U : 0U;
            taken = heapAllocations() - taken;
        });
        if (taken != 0)
            state.SkipWithError("a comparison took memory from the heap");
        state.counters["walk_ns"] = nanosecondsEach(rows, [&] {
            for (const auto& row : map)
                benchmark::DoNotOptimize(&row);
        });
        if (found != rows)
            state.SkipWithError("a row was not found");
        measureErasing<Ordering>(state, map, keys);
    }
}

// Cells of as many points, five each, set one by one and read from a file with the names of the rows.
void subsidence(benchmark::State& state)
{
    const auto points = static_cast<std::size_t>(state.range(0));
    while (state.KeepRunning()) {
        const auto project = makeReference<DBProject>();
        DBProjectController controller(project.get());
        state.counters["set_cell_ns"] = nanosecondsEach(points * 5, [&] {
            for (std::size_t i = 0; i < points * 5; ++i)
                controller.setSubsidenceCell(
                    std::to_wstring(i / 5 + 1), {static_cast<int>(i % 5), L"0.15", L"Осадка"});
        });
        for (std::size_t i = 0; i < points; ++i)
            project->getSubsidenceNames().insert({std::to_wstring(i + 1), {L"Осадка"}});
        const auto bytes = encodeProject(*project);
        const auto again = makeReference<DBProject>();
        ReadReport report;
        state.counters["read_row_ns"] =
            nanosecondsEach(points, [&] { decodeProject(bytes, *again, report); });
        if (again->getSubsidence().size() != points || again->getSubsidenceNames().size() != points)
            state.SkipWithError("rows were lost");
    }
}

// The largest take seconds: once is enough.
void add(const char* name, void (*run)(benchmark::State&), std::int64_t largest = 1000000)
{
    for (std::int64_t rows = 1000; rows <= largest; rows *= 10)
        benchmark::RegisterBenchmark((std::string("maps/") + name).c_str(), run)
            ->Arg(rows)
            ->Iterations(1)
            ->Repetitions(rows < 1000000 ? 3 : 1)
            ->Unit(benchmark::kMillisecond);
}

} // namespace

void addMapBenchmarks()
{
    add("points", map<Points>);
    add("layers", map<Layers>);
    add("layers_lettered", map<LetteredLayers>);
    add("flags", map<Flags>);
    add("sections", map<Sections>);
    add("links", map<Links>);
    add("curves", map<Curves>);
    add("subsidence", subsidence, 100000);
}
