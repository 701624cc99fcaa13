// Starts, each in a process of its own, a bare window of the toolkit, Tellurix with modules that show
// nothing, Tellurix as it is shipped, and Tellurix with projects of several sizes; writes the figures and a
// picture:
//   program_bench BARE WATCHED TOY_FOLDER PROGRAM_FOLDER FOLDER STARTS POINTS...

#include "generated_site.h"
#include "persistence/project_codec.h"
#include "picture.h"
#include "since_start.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <sstream>
#include <string>
#include <unistd.h>
#include <vector>

namespace fs = std::filesystem;

namespace
{

using Reports = std::vector<std::pair<std::string, double>>;

// What a program told until its end.
Reports reportsOf(const std::string& what, const std::string& command)
{
    using namespace std::chrono;
    const auto begin = duration_cast<nanoseconds>(steady_clock::now().time_since_epoch()).count();
    const std::string whole = "TELLURIX_BENCH=" + what + ' ' + beginVariable + '=' + std::to_string(begin)
        + " exec timeout 600 " + command + " 2>/dev/null";
    Reports reports;
    FILE* pipe = ::popen(whole.c_str(), "r");
    if (!pipe)
        return reports;
    std::string output;
    char buffer[4096];
    while (const std::size_t length = std::fread(buffer, 1, sizeof buffer, pipe))
        output.append(buffer, length);
    ::pclose(pipe);
    std::istringstream lines(output);
    for (std::string line; std::getline(lines, line);)
        if (const auto tab = line.find('\t'); tab != std::string::npos)
            reports.emplace_back(line.substr(0, tab), std::stod(line.substr(tab + 1)));
    return reports;
}

// A folder with program, modules and data, since settings are written beside the program.
class ProgramFolder
{
public:
    ProgramFolder(const fs::path& source, const fs::path& watched)
    {
        fs::create_directories(folder_);
        for (const auto& entry : fs::directory_iterator(source))
            if (entry.path().extension() == ".dll")
                fs::copy(entry.path(), folder_ / entry.path().filename());
        for (const char* data : {"hatch", "igkPreset"})
            fs::copy(source / data, folder_ / data, fs::copy_options::recursive);
        fs::create_directories(folder_ / "Проекты");
        fs::copy(watched, program());
    }
    ~ProgramFolder()
    {
        std::error_code failure;
        fs::remove_all(folder_, failure);
    }
    ProgramFolder(const ProgramFolder&) = delete;
    ProgramFolder& operator=(const ProgramFolder&) = delete;

    fs::path program() const { return folder_ / "tellurix"; }
    fs::path projects() const { return folder_ / "Проекты"; }

private:
    static fs::path freshFolder()
    {
        static int made = 0;
        const std::string name = "tellurix_program_bench_" + std::to_string(::getpid()) + '_';
        return fs::temp_directory_path() / (name + std::to_string(made++));
    }

    const fs::path folder_ = freshFolder();
};

double median(std::vector<double> values)
{
    std::sort(values.begin(), values.end());
    return values.empty() ? 0 : values[values.size() / 2];
}

std::string rounded(double value)
{
    char text[32];
    std::snprintf(text, sizeof text, "%.*f", value < 10 ? 2 : 0, value);
    return text;
}

// In turn, so that what else the machine does falls on all of them alike.
void compareStarts(
    std::ostream& out, const std::string& bare, const std::string& toys, const std::string& whole, int starts)
{
    struct Measured {
        const char* what;
        const std::string& program;
        const char* report;
        std::vector<double> spent = {};
    };
    Measured measured[] = {{"a bare `QMainWindow`", bare, "first_window_ms"},
        {"the splash, the first window", whole, "first_window_ms"},
        {"the main window, screens of the modules empty", toys, "main_window_ms"},
        {"the main window as shipped", whole, "main_window_ms"}};
    for (int i = 0; i < starts; ++i)
        for (Measured& each : measured)
            for (const auto& [name, value] : reportsOf("start", each.program))
                if (name == each.report)
                    each.spent.push_back(value);
    const double base = median(measured[0].spent);
    out << "| From the start to | ms | times the bare window |\n| --- | --- | --- |\n";
    for (const Measured& each : measured)
        out << "| " << each.what << " | " << rounded(median(each.spent)) << " | "
            << rounded(median(each.spent) / base) << " |\n";
}

// Every report by the number of points.
using Tours = std::map<std::string, std::map<std::size_t, double>>;

bool tour(const ProgramFolder& folder, std::size_t points, Tours& tours)
{
    fs::remove_all(folder.projects());
    fs::create_directories(folder.projects());
    // Before the project is there: the list of projects reads what it shows.
    const auto empty = reportsOf("tour", folder.program());
    const auto project = generatedSite(points);
    // It saves under this name.
    project->setFilePath(L"Tour.TLX");
    project->setFileStem(L"Tour");
    const auto bytes = encodeProject(*project);
    const fs::path path = folder.projects() / "Tour.TLX";
    std::ofstream(path, std::ios::binary)
        .write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
    const auto reports = reportsOf("tour", folder.program().string() + ' ' + path.string());
    if (empty.empty() || reports.empty())
        return false;
    for (const auto& [name, value] : reports)
        tours[name][points] = value;
    tours["points"][points] = static_cast<double>(points);
    tours["layers"][points] = static_cast<double>(project->getLithology().size());
    tours["file, MB"][points] = static_cast<double>(bytes.size()) / 1e6;
    tours["memory of the program, kB a point"][points] =
        (reports.front().second - empty.front().second) * 1e3 / static_cast<double>(points);
    return true;
}

// The values at all sizes, from the smallest.
std::string valuesOf(const Tours& tours, const std::string& name)
{
    std::string text;
    if (const auto found = tours.find(name); found != tours.end())
        for (const auto& [points, value] : found->second)
            text += (text.empty() ? "" : " / ") + rounded(value);
    return text;
}

void writeTours(std::ostream& out, const Tours& tours)
{
    out << "\n| Project | from the smallest to the largest |\n| --- | --- |\n";
    for (const char* whole : {"points",
             "layers",
             "file, MB",
             "memory of the program, kB a point",
             "resident, MB",
             "resident after all modes, MB",
             "save, ms",
             "question before removing all points, ms",
             "removal of all points, ms",
             "its undo, ms"})
        out << "| " << whole << " | " << valuesOf(tours, whole) << " |\n";
    out << "\n| Mode, ms | first visit | second visit | paint while scrolling | longest paint |\n"
           "| --- | --- | --- | --- | --- |\n";
    const std::string first = "first/";
    for (const auto& [name, values] : tours) {
        if (!name.starts_with(first))
            continue;
        const std::string mode = name.substr(first.size());
        out << "| " << mode;
        for (const char* what : {"first/", "second/", "frame/", "worst frame/"})
            out << " | " << valuesOf(tours, what + mode);
        out << " |\n";
    }
}

// The screens that take longer than a frame.
Panel panelOf(const Tours& tours, const std::string& what, const std::string& title)
{
    constexpr double frame = 16; // ms
    Panel panel{title, "points", "ms", {}};
    for (const auto& [name, values] : tours)
        if (name.starts_with(what + '/') && values.rbegin()->second > frame)
            panel.curves[name.substr(what.size() + 1)] = {values.begin(), values.end()};
    return panel;
}

} // namespace

int main(int argc, char** argv)
{
    if (argc < 8) {
        std::fprintf(
            stderr, "program_bench BARE WATCHED TOY_FOLDER PROGRAM_FOLDER FOLDER STARTS POINTS...\n");
        return 2;
    }
    const ProgramFolder toys(argv[3], argv[2]);
    const ProgramFolder shipped(argv[4], argv[2]);
    const fs::path folder = argv[5];
    fs::create_directories(folder);
    std::ofstream figures(folder / "program.md");
    figures << "# Figures of the program\n\nMade by `tools/curves.sh`; do not edit.\n\n";
    compareStarts(figures, argv[1], toys.program(), shipped.program(), std::atoi(argv[6]));
    Tours tours;
    for (int i = 7; i < argc; ++i) {
        if (!tour(shipped, std::stoul(argv[i]), tours)) {
            std::fprintf(stderr, "The program did not finish its tour of %s points.\n", argv[i]);
            return 1;
        }
    }
    writeTours(figures, tours);
    std::ofstream picture(folder / "program.svg");
    drawPicture(picture,
        "Switching to a mode",
        {panelOf(tours, "first", "first visit"), panelOf(tours, "second", "second visit")});
    return figures.flush() && picture.flush() ? 0 : 1;
}
