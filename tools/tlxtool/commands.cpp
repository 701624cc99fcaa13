#include "tlxtool/commands.h"

#include "core/base/mexception.h"
#include "persistence/project_file.h"
#include "persistence/save_losses.h"
#include "platform/files.h"
#include "platform/system_text.h"
#include "platform/utf8.h"
#include "tlxtool/check.h"
#include "tlxtool/csv_export.h"
#include "tlxtool/diff.h"
#include "tlxtool/info.h"
#include "tlxtool/json_text.h"
#include "tlxtool/messages.h"
#include "tlxtool/opened_project.h"
#include "tlxtool/project_json.h"
#include "tlxtool/terminal.h"
#include "tlxtool/tool_error.h"

#include <algorithm>
#include <cstdio>
#include <string_view>
#include <utility>

void complain(const std::string& message)
{
    // Where even this cannot be written, only the exit status is left.
    std::fputs(("tlxtool: " + oneLine(message) + "\n").c_str(), stderr);
}

// Does the work for each file in turn and returns the worst status.
template <class Work>
static int forEachFile(const std::vector<std::string>& files, Work work)
{
    int worst = exitStatus::good;
    for (const std::string& file : files) {
        int status = exitStatus::trouble;
        try {
            status = work(file);
        } catch (const ToolError& failure) {
            complain(failure.what());
        }
        worst = std::max(worst, status);
    }
    return worst;
}

int runInfo(Output& output, const std::vector<std::string>& files)
{
    std::vector<std::vector<std::string>> rows;
    std::string notes;
    const int status = forEachFile(files, [&](const std::string& file) {
        const OpenedProject opened = openProject(file);
        rows.push_back(infoRow(opened));
        if (const auto other = otherSavingPlace(opened))
            notes += opened.name + ": " + *other + "\n";
        return exitStatus::good;
    });
    if (!rows.empty())
        output.write(infoTable(std::move(rows), terminalWidth()));
    output.write(notes);
    return status;
}

int runCheck(Output& output, const std::vector<std::string>& files)
{
    std::string text;
    const int status = forEachFile(files, [&](const std::string& file) {
        OpenedProject opened = loadFile(file);
        const std::vector<Finding> findings = checkProject(opened);
        for (const Finding& finding : findings)
            text += opened.name + ": " + oneLine(toText(finding)) + "\n";
        if (findings.empty())
            text += opened.name + ": замечаний нет\n";
        return findings.empty() ? exitStatus::good : exitStatus::found;
    });
    output.write(text);
    return status;
}

int runDump(Output& output, const std::string& file, bool compact)
{
    const Json json = projectToJson(openProject(file));
    writeJson(json, compact, [&output](std::string_view piece) { output.write(piece); });
    output.line("");
    return exitStatus::good;
}

static void warnOfLosses(const std::string& name, IDBProject& project)
{
    constexpr std::size_t shown = 200;
    const std::vector<SaveLoss> losses = findSaveLosses(project, shown + 1);
    for (std::size_t i = 0; i < std::min(losses.size(), shown); ++i)
        complain(name + ": не вернётся после открытия: " + toUtf8(describeLoss(losses[i])));
    if (losses.size() > shown)
        complain(name + ": таких мест больше " + std::to_string(shown) + ", остальные не показаны");
}

static void writeProject(const std::wstring& path, IDBProject& project)
{
    const std::string name = toUtf8(path);
    FileResult written;
    try {
        written = writeProjectFile(path, project);
    } catch (const MException& failure) {
        throw ToolError(name + ": " + toUtf8(failure.message()));
    }
    if (!written)
        throw ToolError(name + ": " + describe(written));
}

static Reference<DBProject> readJsonProject(const std::wstring& path)
{
    std::vector<std::uint8_t> text;
    if (const FileResult read = readFile(path, text); !read)
        throw ToolError(describe(read));
    const Json json = parseJson(text);
    // The text and its tree are each as large as many projects: one at a time.
    text = {};
    return projectFromJson(json);
}

int runBuild(const std::string& json, const std::string& file)
{
    const std::wstring from = fromSystemText(json);
    const std::wstring to = fromSystemText(file);
    Reference<DBProject> project;
    try {
        project = readJsonProject(from);
    } catch (const ToolError& failure) {
        throw ToolError(toUtf8(from) + ": " + failure.what());
    }
    writeProject(to, *project);
    warnOfLosses(toUtf8(to), *project);
    return exitStatus::good;
}

int runResave(const std::string& from, const std::string& to)
{
    const OpenedProject opened = openProject(from);
    if (opened.report.refusalCount != 0)
        complain(opened.name + ": отвергнуто строк: " + std::to_string(opened.report.refusalCount)
            + ", в новый файл они не попали; смотрите tlxtool check");
    if (opened.report.dropCount != 0 || opened.report.position < opened.bytes.size())
        complain(
            opened.name + ": часть содержимого пропущена и в новый файл не попала; смотрите tlxtool check");
    const std::wstring path = fromSystemText(to);
    writeProject(path, *opened.project);
    warnOfLosses(toUtf8(path), *opened.project);
    return exitStatus::good;
}

int runDiff(Output& output, const std::string& a, const std::string& b)
{
    const OpenedProject openedA = openProject(a);
    const OpenedProject openedB = openProject(b);
    const std::string text = diffProjects(*openedA.project, *openedB.project);
    output.write(text);
    if (!text.empty())
        return exitStatus::found;
    if (openedA.bytes == openedB.bytes)
        return exitStatus::good;
    output.line("содержание проектов одинаково, файлы различаются с байта "
        + std::to_string(commonPrefix(openedA.bytes, openedB.bytes)));
    return exitStatus::found;
}

int runExport(Output& output, const std::string& file, const std::string& folder)
{
    const OpenedProject opened = openProject(file);
    const std::wstring path = fromSystemText(folder);
    const std::size_t count = exportCsv(*opened.project, path);
    output.line(toUtf8(path) + ": записано таблиц: " + std::to_string(count));
    return exitStatus::good;
}
