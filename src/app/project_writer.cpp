#include "app/project_writer.h"

#include "core/base/mexception.h"
#include "modules/idbproject.h"
#include "modules/isettings.h"
#include "modules/program.h"
#include "persistence/project_codec.h"
#include "platform/files.h"

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

FileResult ProjectWriter::write() const
{
    const ByteBlocks bytes = encode();
    if (FileResult made = makeFolder(); !made)
        return made;
    return write(bytes.parts());
}

ByteBlocks ProjectWriter::encode() const
{
    return encodeProjectInBlocks(*project_);
}

FileResult ProjectWriter::makeFolder() const
{
    if (fileExists(projectPlace(*project_, *settings_)))
        return {};
    return createFolder(projectFolder(*project_, *settings_));
}

FileResult ProjectWriter::write(FileParts bytes) const
{
    const std::wstring place = projectPlace(*project_, *settings_);
    const std::wstring backup = withExtension(place, L".bak");
    if (fileExists(place))
        if (FileResult kept = copyFile(place, backup); !kept)
            return kept;
    FileResult written = replaceFileWithParts(place, bytes);
    // Else the next save would take half a project for the one to keep.
    if (written.targetDamaged && fileExists(backup))
        written.targetDamaged = !copyFile(backup, place);
    return written;
}
