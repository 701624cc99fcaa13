#include "app/project_writer.h"

#include "core/base/content_hash.h"
#include "core/base/mexception.h"
#include "modules/idbproject.h"
#include "modules/isettings.h"
#include "modules/program.h"
#include "persistence/project_codec.h"
#include "platform/files.h"
#include "platform/safe_write.h"

#include <optional>

std::wstring projectFolder(IDBProject& project, ISettings& settings)
{
    return settings.projectPath() + L'\\' + projectsFolder.toStdWString() + L'\\' + project.getFileStem();
}

std::wstring projectPlace(IDBProject& project, ISettings& settings)
{
    return projectFolder(project, settings) + L'\\' + project.getFilePath();
}

// The path with another extension in place of the file name's last one.
static std::wstring withExtension(const std::wstring& path, const std::wstring& extension)
{
    const auto dot = path.rfind(L'.');
    const auto slash = path.find_last_of(L"\\/");
    const bool hasOne = dot != std::wstring::npos && (slash == std::wstring::npos || dot > slash);
    return (hasOne ? path.substr(0, dot) : path) + extension;
}

ProjectWriter::ProjectWriter(IDBProject* project, ISettings* settings)
    : project_(project)
    , settings_(settings)
{
    if (!project)
        throw MException(L"Invalid database");
    if (!settings)
        throw MException(L"Invalid settings");
}

FileResult ProjectWriter::makeFolder() const
{
    if (fileExists(projectPlace(*project_, *settings_)))
        return {};
    return createFolder(projectFolder(*project_, *settings_));
}

static FileResult keepBackup(const std::wstring& place, const std::wstring& backup)
{
    return fileExists(place) ? copyFile(place, backup) : FileResult{};
}

WrittenProject ProjectWriter::write() const
{
    const std::wstring place = projectPlace(*project_, *settings_);
    const std::wstring backup = withExtension(place, L".bak");
    WrittenProject written{makeFolder(), 0, 0};
    if (!written)
        return written;

    ContentHash hash;
    std::optional<FileReplacement> file;
    encodeProjectInPieces(*project_, [&](FileParts parts) {
        // The first piece comes at once: the older file is copied while the rest is being encoded.
        if (written && !file) {
            written.result = keepBackup(place, backup);
            if (written)
                file.emplace(place);
        }
        if (!file)
            return;
        file->add(parts);
        for (const auto part : parts) {
            hash.add(part);
            written.size += part.size();
        }
    });
    if (!file)
        return written;
    written.result = file->finish([this] { return encodeProjectInBlocks(*project_); });
    // Else the next save would take half a project for the one to keep.
    if (written.result.targetDamaged && fileExists(backup))
        written.result.targetDamaged = !copyFile(backup, place);
    written.state = hash.value();
    return written;
}
