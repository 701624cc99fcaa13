#include "tlxtool/project_json.h"

#include "persistence/format.h"
#include "persistence/grammar/project.h"
#include "platform/utf8.h"
#include "tlxtool/base64.h"
#include "tlxtool/json_build_archive.h"
#include "tlxtool/json_dump_archive.h"

#include <span>
#include <string>

static constexpr const char* formatName = "Tellurix project";

static std::string bytesBetween(const OpenedProject& opened, std::size_t begin, std::size_t end)
{
    return toBase64(std::span(opened.bytes).subspan(begin, end - begin));
}

static Json refusedRows(const OpenedProject& opened)
{
    Json rows = Json::array();
    for (const ReadReport::Refusal& row : opened.report.refusals) {
        Json entry;
        entry["section"] = std::string(row.section);
        entry["key"] = toUtf8(row.key);
        entry["offset"] = row.begin;
        entry["bytes"] = bytesBetween(opened, row.begin, row.end);
        rows.push_back(std::move(entry));
    }
    return rows;
}

static Json drops(const OpenedProject& opened)
{
    Json rows = Json::array();
    for (const ReadReport::Drop& drop : opened.report.drops) {
        Json entry;
        entry["section"] = std::string(drop.section);
        entry["what"] = std::string(drop.what);
        entry["offset"] = drop.offset;
        rows.push_back(std::move(entry));
    }
    return rows;
}

// The bytes of the file that a save would replace by `savedLength` others; null where it would replace none.
static Json difference(const OpenedProject& opened)
{
    const auto found = differenceOnSave(opened);
    if (!found)
        return {};
    Json entry;
    entry["offset"] = found->begin;
    entry["savedLength"] = found->endWhenSaved - found->begin;
    entry["bytes"] = bytesBetween(opened, found->begin, found->endInFile);
    return entry;
}

static Json readingPart(const OpenedProject& opened)
{
    const ReadReport& report = opened.report;
    Json reading;
    reading["storedStem"] = toUtf8(report.storedStem);
    reading["refusedRowCount"] = report.refusalCount;
    reading["refusedRows"] = refusedRows(opened);
    reading["dropCount"] = report.dropCount;
    reading["drops"] = drops(opened);
    reading["difference"] = difference(opened);
    reading["bytesBehindEnd"] = bytesBetween(opened, report.position, opened.bytes.size());
    return reading;
}

Json projectToJson(const OpenedProject& opened)
{
    Json root;
    root["format"] = formatName;
    root["version"] = format::projectHead.version;
    JsonDumpArchive archive(root["project"]);
    projectFields(archive, *opened.project);
    root["reading"] = readingPart(opened);
    return root;
}

Reference<DBProject> projectFromJson(const Json& root)
{
    auto project = makeReference<DBProject>();
    JsonBuildArchive archive(root);
    archive.inRoot([&] {
        if (archive.any("format") != formatName)
            archive.fail(std::string("здесь нужно \"") + formatName + "\", как его пишет tlxtool dump");
        std::uint32_t version = 0;
        archive.word("version", version);
        if (version != format::projectHead.version)
            archive.fail("пишется только версия " + std::to_string(format::projectHead.version));
        archive.inMember("project", [&] { projectFields(archive, *project); });
        archive.optional("reading");
    });
    return project;
}
