#include "persistence/grammar/project.h"
#include "persistence/project_codec.h"
#include "persistence/read_sections.h"

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
