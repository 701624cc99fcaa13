// Turns a run of the benchmarks into pictures and tables: draw_curves RESULTS.json FOLDER.
#include "picture.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iomanip>
#include <sstream>
#include <stdexcept>

namespace
{

// The figures of one benchmark at one size: medians over its repetitions.
class Figures
{
public:
    void add(const std::string& figure, double value) { values_[figure].push_back(value); }
    double median(const std::string& figure) const
    {
        const auto found = values_.find(figure);
        if (found == values_.end())
            throw std::runtime_error("the run has no figure " + figure);
        std::vector<double> values = found->second;
        const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
        std::nth_element(values.begin(), middle, values.end());
        return *middle;
    }

private:
    std::map<std::string, std::vector<double>> values_;
};

// Topic, then who or what, then size.
using Sizes = std::map<int, Figures>;
using Run = std::map<std::string, std::map<std::string, Sizes>>;

Run readRun(const nlohmann::json& results)
{
    Run run;
    for (const auto& one : results.at("benchmarks")) {
        if (one.value("run_type", "") != "iteration")
            continue;
        std::istringstream name(one.at("run_name").get<std::string>());
        std::string topic;
        std::string who;
        int size = 0;
        std::getline(name, topic, '/');
        std::getline(name, who, '/');
        if (one.value("error_occurred", false) || !(name >> size))
            throw std::runtime_error("a benchmark failed: " + name.str());
        for (const auto& [figure, value] : one.items())
            if (value.is_number())
                run[topic][who][size].add(figure, value.get<double>());
    }
    return run;
}

const Sizes& sizesOf(const Run& run, const std::string& topic, const std::string& who)
{
    return run.at(topic).at(who);
}

using Points = std::vector<std::pair<double, double>>;

// A figure over another one or, without a name, over the size.
Points curve(const Sizes& sizes, const std::string& x, const std::string& y)
{
    Points points;
    for (const auto& [size, figures] : sizes)
        points.emplace_back(x.empty() ? size : figures.median(x), figures.median(y));
    return points;
}

Panel panelOf(const Run& run,
    const std::string& topic,
    const std::string& figure,
    const std::string& title,
    const std::string& yAxis)
{
    Panel panel{title, "file, MB", yAxis, {}};
    for (const auto& [who, sizes] : run.at(topic))
        panel.curves[who] = curve(sizes, "file_MB", figure);
    return panel;
}

constexpr std::pair<const char*, const char*> mapFigures[] = {
    {"in_order_ns", "insert in walk order"},
    {"at_random_ns", "insert at random"},
    {"find_ns", "look up at random"},
    {"walk_ns", "walk"},
    {"erase_ns", "erase a row (of layers: all of a point)"},
};

std::vector<Panel> mapPanels(const Run& run)
{
    std::vector<Panel> panels;
    for (const auto& [figure, title] : mapFigures) {
        Panel panel{title, "rows", "ns a row", {}};
        for (const auto& [who, sizes] : run.at("maps"))
            if (who != "subsidence")
                panel.curves[who] = curve(sizes, "", figure);
        panels.push_back(std::move(panel));
    }
    Panel panel{"subsidence", "points", "ns", {}};
    const Sizes& sizes = sizesOf(run, "maps", "subsidence");
    panel.curves["set one cell"] = curve(sizes, "", "set_cell_ns");
    panel.curves["read one row"] = curve(sizes, "", "read_row_ns");
    panels.push_back(std::move(panel));
    return panels;
}

std::string rounded(double value)
{
    std::ostringstream text;
    text << std::fixed << std::setprecision(value < 10 ? 2 : value < 100 ? 1 : 0) << value;
    return text.str();
}

void row(std::ostream& out, const std::vector<std::string>& cells)
{
    for (const std::string& cell : cells)
        out << "| " << cell << ' ';
    out << "|\n";
}

void head(std::ostream& out, const std::vector<std::string>& cells)
{
    out << '\n';
    row(out, cells);
    row(out, std::vector<std::string>(cells.size(), "---"));
}

void fileTable(std::ostream& out, const Run& run, const std::string& topic)
{
    head(out,
        {topic,
            "file, MB",
            "ms",
            "MB/s",
            "peak memory, MB",
            "peak / records",
            "allocations",
            "time / tellurix"});
    for (const auto& [who, sizes] : run.at(topic))
        for (const auto& [size, f] : sizes) {
            const double file = f.median("file_MB");
            const double time = f.median("real_time");
            const double ours = sizesOf(run, topic, "tellurix").at(size).median("real_time");
            row(out,
                {who,
                    rounded(file),
                    rounded(time),
                    rounded(file / time * 1000),
                    rounded(f.median("peak_MB")),
                    rounded(f.median("peak_MB") / f.median("own_MB")),
                    rounded(f.median("allocations")),
                    rounded(time / ours)});
        }
}

void namesTable(std::ostream& out, const Run& run)
{
    head(out, {"open, names", "file, MB", "ms", "MB/s"});
    for (const std::string names : {"open", "open_lettered", "open_mixed"})
        for (const auto& [size, f] : sizesOf(run, names, "tellurix"))
            row(out,
                {names == "open" ? "numeric" : names.substr(5),
                    rounded(f.median("file_MB")),
                    rounded(f.median("real_time")),
                    rounded(f.median("file_MB") / f.median("real_time") * 1000)});
}

void mapTable(std::ostream& out, const Run& run)
{
    head(out, {"maps, ns a row", "rows", "in order", "at random", "look up", "walk", "erase"});
    for (const auto& [who, sizes] : run.at("maps"))
        for (const auto& [size, f] : sizes) {
            if (who == "subsidence")
                continue;
            std::vector<std::string> cells = {who, std::to_string(size)};
            for (const auto& [figure, title] : mapFigures)
                cells.push_back(rounded(f.median(figure)));
            row(out, cells);
        }
    head(out, {"subsidence, points", "set one cell, ns", "read one row, ns"});
    for (const auto& [size, f] : sizesOf(run, "maps", "subsidence"))
        row(out, {std::to_string(size), rounded(f.median("set_cell_ns")), rounded(f.median("read_row_ns"))});
}

void classificationTable(std::ostream& out, const Run& run)
{
    head(out, {"classification, soils", "ms"});
    for (const auto& [size, f] : sizesOf(run, "classification", "tellurix"))
        row(out, {std::to_string(size), rounded(f.median("real_time"))});
}

// The targets, against the largest file.
void targetTable(std::ostream& out, const Run& run)
{
    const auto largest = [&run](const std::string& topic, const std::string& who, const std::string& figure) {
        return sizesOf(run, topic, who).rbegin()->second.median(figure);
    };
    const auto time = [&](const std::string& topic, const std::string& who) {
        return largest(topic, who, "real_time");
    };
    head(out, {"What", "Measured", "Target"});
    row(out,
        {"open: time of SQLite / ours",
            rounded(time("open", "sqlite") / time("open", "tellurix")),
            "at least 3.5"});
    row(out,
        {"open: our time / bare loop",
            rounded(time("open", "tellurix") / time("open", "bare")),
            "at most 3"});
    row(out,
        {"save: our time / plain write and flush",
            rounded(time("save", "tellurix") / time("save", "bare")),
            "at most 1.6"});
    row(out,
        {"save: encoding alone / plain write and flush",
            rounded(time("encode", "tellurix") / time("save", "bare")),
            ""});
    row(out,
        {"peak memory of opening / the records' own sizes",
            rounded(largest("open", "tellurix", "peak_MB") / largest("open", "tellurix", "own_MB")),
            "at most 1.5"});
}

void writeFigures(std::ostream& out, const nlohmann::json& results, const Run& run)
{
    const auto& context = results.at("context");
    out << "# Figures of one run\n\nMade by `tools/curves.sh`; do not edit. "
        << context.at("date").get<std::string>() << ", " << context.at("num_cpus") << " processors of "
        << context.at("mhz_per_cpu") << " MHz, load " << context.at("load_avg").dump()
        << " at the start. Medians.\n";
    targetTable(out, run);
    fileTable(out, run, "open");
    namesTable(out, run);
    fileTable(out, run, "save");
    mapTable(out, run);
    classificationTable(out, run);
}

void drawAll(const Run& run, const std::filesystem::path& folder)
{
    const auto picture = [&folder](
                             const char* name, const std::string& title, const std::vector<Panel>& panels) {
        std::ofstream out(folder / name);
        drawPicture(out, title, panels);
    };
    Panel memory = panelOf(run, "open", "peak_MB", "peak memory, beside the records' own sizes", "MB");
    memory.curves["the records"] = curve(sizesOf(run, "open", "tellurix"), "file_MB", "own_MB");
    picture("open.svg",
        "Opening a project",
        {panelOf(run, "open", "real_time", "time", "ms"), std::move(memory)});
    picture("save.svg",
        "Saving a project, flushed to the disk",
        {panelOf(run, "save", "real_time", "time", "ms"),
            panelOf(run, "save", "peak_MB", "peak memory beside the project", "MB")});
    picture("maps.svg", "Registers", mapPanels(run));
    Panel soils{"time", "soils", "ms", {}};
    for (const auto& [who, sizes] : run.at("classification"))
        soils.curves[who] = curve(sizes, "", "real_time");
    picture("classification.svg", "Classifying soils", {soils});
}

} // namespace

int main(int argumentCount, char** arguments)
{
    if (argumentCount != 3) {
        std::fprintf(stderr, "draw_curves RESULTS.json FOLDER\n");
        return 2;
    }
    try {
        const auto results = nlohmann::json::parse(std::ifstream(arguments[1]));
        const Run run = readRun(results);
        std::filesystem::create_directories(arguments[2]);
        drawAll(run, arguments[2]);
        std::ofstream figures(std::filesystem::path(arguments[2]) / "figures.md");
        writeFigures(figures, results, run);
        return figures.flush() ? 0 : 1;
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "%s\n", failure.what());
        return 1;
    }
}
