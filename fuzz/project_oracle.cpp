#include "project_oracle.h"

#include "persistence/file_head.h"
#include "persistence/format.h"
#include "persistence/project_codec.h"
#include "persistence/project_file.h"
#include "persistence/read_archive.h"
#include "persistence/save_losses.h"
#include "platform/utf8.h"
#include "project_rows.h"
#include "support/opening.h"
#include "tlxtool/diff.h"

#include <algorithm>
#include <limits>
#include <stdexcept>

namespace
{

const std::wstring givenPath = L"/проба/файл.TLX";

using Kind = SaveLoss::Kind;

std::vector<SaveLoss> allLosses(IDBProject& project)
{
    return findSaveLosses(project, std::numeric_limits<std::size_t>::max());
}

std::size_t countOf(const std::vector<SaveLoss>& losses, Kind kind)
{
    return static_cast<std::size_t>(std::count_if(
        losses.begin(), losses.end(), [kind](const SaveLoss& loss) { return loss.kind == kind; }));
}

bool anyUnreadable(const std::vector<SaveLoss>& losses)
{
    return std::any_of(
        losses.begin(), losses.end(), [](const SaveLoss& loss) { return makesUnreadable(loss.kind); });
}

// The path of the message is the given one until that in the file has been read.
std::wstring pathInMessage(const Bytes& bytes)
{
    ReadReport report;
    std::uint8_t byte = 0;
    std::wstring path;
    try {
        ReadArchive archive(bytes, format::projectHead.contentOffset, report);
        archive.byte("granGost", byte);
        archive.byte("fileTagB", byte);
        archive.text("filePath", path);
        return path;
    } catch (const std::out_of_range&) {
        return givenPath;
    }
}

bool headMatches(const Bytes& bytes)
{
    std::size_t position = 0;
    try {
        return checkProjectHead(bytes, position);
    } catch (const std::out_of_range& failure) {
        require(bytes.size() < format::projectHead.contentOffset, "only a file shorter than its head throws");
        require(failure.what() == std::string("invalid vector<T> subscript"), "the message of a short head");
        return false;
    }
}

// What a reader cannot have put into a project.
void requireLossesOfRead(const std::vector<SaveLoss>& losses)
{
    for (const Kind kind : {Kind::elementText,
             Kind::unknownObject,
             Kind::nesting,
             Kind::textCut,
             Kind::byteCut,
             Kind::sectionFlag,
             Kind::subsidenceNames})
        require(countOf(losses, kind) == 0, "no loss that a project from a file cannot have");
}

// Ends of sections take their marks from the points, and in a register without an order a look-up may miss.
bool isEndsRegister(std::string_view name)
{
    return name == "sectionPoints" || name == "terrainPoints";
}

std::size_t requireSameRows(const ProjectRows& before, const ProjectRows& after)
{
    std::size_t missing = 0;
    const bool marksMayDiffer = !before.registers.find("pointRegister")->second.consistent;
    for (const auto& [name, rows] : before.registers) {
        const auto found = after.registers.find(name);
        require(found != after.registers.end(), "the same registers");
        if (rows.consistent) {
            require(rows.rows == found->second.rows || (marksMayDiffer && isEndsRegister(name)),
                "rows that come back");
            continue;
        }
        auto sorted = rows.rows;
        auto sortedAfter = found->second.rows;
        std::sort(sorted.begin(), sorted.end());
        std::sort(sortedAfter.begin(), sortedAfter.end());
        require(std::includes(sorted.begin(), sorted.end(), sortedAfter.begin(), sortedAfter.end()),
            "rows that were there before");
        missing += sorted.size() - sortedAfter.size();
    }
    return missing;
}

} // namespace

void requireThreadsAgree(const Bytes& bytes)
{
    if (!headMatches(bytes))
        return;
    constexpr WorkSharing alone{1, 0, 0};
    constexpr WorkSharing shared{3, 0, 0};
    require(Opening(bytes, shared) == Opening(bytes, alone), "threads that change nothing");
}

Reference<DBProject> openOrRefuse(const Bytes& bytes, ReadReport& report)
{
    if (!headMatches(bytes))
        return {};
    try {
        return readProject(givenPath, bytes, report);
    } catch (const MException& failure) {
        require(failure.code() == 2, "code 2");
        require(failure.message() == L"Critical Error reading the file " + pathInMessage(bytes),
            "the message and the path");
        require(!report.failure.empty(), "a reason in the report");
        return {};
    }
}

Saved saveAndReopen(DBProject& project)
{
    Saved saved{allLosses(project), encodeProject(project), {}};
    ReadReport report;
    saved.again = openOrRefuse(saved.bytes, report);
    require(!saved.again == anyUnreadable(saved.losses), "opens as findSaveLosses says");
    if (saved.again) {
        require(report.position == saved.bytes.size(), "reads to the end of what was written");
        // Two lists of subsidence names whose keys become one in the file are dropped, not refused.
        const std::size_t refused = countOf(saved.losses, Kind::rowRefused);
        require(report.refusalCount <= refused && refused <= report.refusalCount + report.dropCount,
            "refuses what findSaveLosses says");
    }
    return saved;
}

void requireComesBack(DBProject& project)
{
    const Saved saved = saveAndReopen(project);
    requireLossesOfRead(saved.losses);
    if (!saved.again)
        return;
    const std::size_t refused = countOf(saved.losses, Kind::rowRefused);
    if (refused == 0 && encodeProject(*saved.again) == saved.bytes) {
        // Comparing by content takes twenty times as long as all the rest: one file in some is enough.
        constexpr std::size_t some = 64;
        if (saved.losses.empty() && saved.bytes.size() % some == 0)
            require(diffProjects(project, *saved.again).empty(), "the same project");
        return;
    }
    const ProjectRows before = rowsOf(project);
    const ProjectRows after = rowsOf(*saved.again);
    require(!before.consistent(), "the same bytes at the second save where every register has an order");
    require(before.rest == after.rest, "fields that come back");
    require(requireSameRows(before, after) == refused, "no row lost but the refused");
}
