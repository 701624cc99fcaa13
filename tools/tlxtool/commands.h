#pragma once

#include "tlxtool/output.h"

#include <string>
#include <vector>

// The commands. File names are bytes as they stand on the command line. Each returns the exit status of the
// process and throws ToolError where it cannot do its work; those that take several files report a file that
// cannot be read on the standard error, go on with the next one and return `trouble`.

namespace exitStatus
{
inline constexpr int good = 0;
inline constexpr int found = 1; // something was found, or differs
inline constexpr int trouble = 2; // the work could not be done
} // namespace exitStatus

// One line on the standard error.
void complain(const std::string& message);

int runInfo(Output& output, const std::vector<std::string>& files);
int runCheck(Output& output, const std::vector<std::string>& files);
int runDump(Output& output, const std::string& file, bool compact);
int runBuild(const std::string& json, const std::string& file);
int runResave(const std::string& from, const std::string& to);
int runDiff(Output& output, const std::string& a, const std::string& b);

// Where the registers go as documents; empty: not in this format.
struct OfficeFiles {
    std::string xlsx;
    std::string docx;
    std::string odt;
    std::string html;
    std::vector<std::string> tables; // the names of the tables; empty: all that have rows

    bool isEmpty() const { return xlsx.empty() && docx.empty() && odt.empty() && html.empty(); }
};
int runOfficeExport(Output& output, const std::string& file, const OfficeFiles& files);
int runExport(Output& output, const std::string& file, const std::string& folder);
// All results as one JSON object; language "ru" or "uk".
int runCalc(Output& output, const std::string& file, const std::string& language);

// What to draw and how; texts as they stand on the command line.
struct DrawRequest {
    std::string file;
    std::string what; // "column"
    std::string point; // a name
    bool allPoints = false;
    std::string out; // the format by its suffix
    int scale = 0; // 1:n; 0: fitting
    std::string sheet = "A4";
    bool isLandscape = false;
    std::string language = "ru";
    double dotsPerInch = 300;
};
int runDraw(Output& output, const DrawRequest& request);
