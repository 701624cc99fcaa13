#include "persistence/project_codec.h"

#include "core/base/mexception.h"
#include "persistence/grammar/project.h"
#include "persistence/read_archive.h"
#include "persistence/write_archive.h"

#include <exception>

void decodeProject(
    std::span<const std::uint8_t> bytes, IDBProject& project, ReadReport& report, const WorkSharing& sharing)
{
    ReadArchive archive(bytes, format::projectHead.contentOffset, report, sharing);
    try {
        projectFields(archive, project);
        report.position = archive.position();
    } catch (const std::exception& failure) {
        report.position = archive.position();
        report.failure = failure.what();
        throw;
    }
}

static void headBytes(WriteArchive& archive, const format::Head& head)
{
    std::size_t offset = 0;
    for (; offset < head.signature.size(); ++offset)
        archive.byte("signature", static_cast<std::uint8_t>(head.signature[offset]));
    for (; offset < head.versionOffset; ++offset)
        archive.byte("filler", std::uint8_t{0});
    archive.word("version", head.version);
}

ByteBlocks encodeProjectInBlocks(IDBProject& project, const WorkSharing& sharing)
{
    WriteArchive archive(sharing);
    headBytes(archive, format::projectHead);
    try {
        projectFields(archive, project);
    } catch (const std::length_error&) {
        throw MException(L"Блоки чертежа вложены друг в друга глубже " + std::to_wstring(format::nestingLimit)
            + L" уровней: такой файл нельзя будет открыть.\nРазберите вложенные блоки и сохраните снова.");
    }
    return archive.takeBlocks();
}

std::vector<std::uint8_t> encodeProject(IDBProject& project, const WorkSharing& sharing)
{
    return encodeProjectInBlocks(project, sharing).joined();
}
