// Starts, one after the other and each in a process of its own, a bare window of the toolkit, Tellurix with
// modules that show nothing, Tellurix as it is shipped, and Tellurix with a large project, and prints a
// table.
//   program_bench BARE WATCHED TOY_FOLDER PROGRAM_FOLDER [STARTS]

#include "generated_site.h"
#include "persistence/project_codec.h"
#include "since_start.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
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
    static inline int made_ = 0;
    const fs::path folder_ = fs::temp_directory_path()
        / ("tellurix_program_bench_" + std::to_string(::getpid()) + '_' + std::to_string(made_++));
};

double median(std::vector<double> values)
{
    std::sort(values.begin(), values.end());
    return values.empty() ? 0 : values[values.size() / 2];
}

void row(const std::string& what, double value, const char* unit, const std::string& remark = {})
{
    std::printf("| %s | %.*f %s | %s |\n", what.c_str(), value < 10 ? 2 : 0, value, unit, remark.c_str());
    std::fflush(stdout);
}

std::string times(double value, double base)
{
    char text[32];
    std::snprintf(text, sizeof text, "%.2f times the bare window", base > 0 ? value / base : 0);
    return text;
}

// In turn, so that what else the machine does falls on all of them alike.
void compareStarts(const std::string& bare, const std::string& toys, const std::string& whole, int starts)
{
    struct Measured {
        const char* what;
        const std::string& program;
        const char* report;
        std::vector<double> spent = {};
    };
    Measured measured[] = {{"Start to a bare `QMainWindow`", bare, "first_window_ms"},
        {"Start to the splash", whole, "first_window_ms"},
        {"Start to the main window, screens of the modules empty", toys, "main_window_ms"},
        {"Start to the main window as shipped", whole, "main_window_ms"}};
    for (int i = 0; i < starts; ++i)
        for (Measured& each : measured)
            for (const auto& [name, value] : reportsOf("start", each.program))
                if (name == each.report)
                    each.spent.push_back(value);
    const double base = median(measured[0].spent);
    for (const Measured& each : measured)
        row(each.what, median(each.spent), "ms", times(median(each.spent), base));
}

// More points than ten thousand, so that the layers are a hundred thousand.
constexpr std::size_t tourPoints = 13'400;

bool tour(const ProgramFolder& folder)
{
    // Before the project is there: the list of projects reads what it shows.
    const auto empty = reportsOf("tour", folder.program());
    const auto project = generatedSite(tourPoints);
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
    const double before = empty.front().second;
    std::printf("| Project: %zu points, %zu layers, %.1f MB | | |\n",
        project->getPointRegister().size(),
        project->getLithology().size(),
        static_cast<double>(bytes.size()) / 1e6);
    for (const auto& [name, value] : reports)
        row(name, value, name.find("_MB") != std::string::npos ? "MB" : "ms");
    row("Memory of the program for each point",
        (reports.front().second - before) * 1e3 / tourPoints,
        "kB",
        "file: " + std::to_string(bytes.size() / tourPoints) + " bytes for each point");
    return true;
}

} // namespace

int main(int argc, char** argv)
{
    if (argc < 5) {
        std::fprintf(stderr, "program_bench BARE WATCHED TOY_FOLDER PROGRAM_FOLDER [STARTS]\n");
        return 2;
    }
    const ProgramFolder toys(argv[3], argv[2]);
    const ProgramFolder shipped(argv[4], argv[2]);
    std::printf("| What | Median | |\n|---|---:|---|\n");
    compareStarts(argv[1], toys.program(), shipped.program(), argc > 5 ? std::atoi(argv[5]) : 21);
    return tour(shipped) ? 0 : 1;
}
