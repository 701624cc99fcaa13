#pragma once

#include "platform/file_result.h"

#include <cstddef>
#include <cstdint>
#include <string>

class IDBProject;
class ISettings;

// What became of a save; of one that succeeded also the size and the hash of what was written.
struct WrittenProject {
    FileResult result;
    std::size_t size = 0;
    std::uint64_t state = 0;

    explicit operator bool() const { return bool(result); }
};

// Writes a project to its place, <work folder>/Проекты/<stem>/<file name>, which follows from the project and
// not from where it was opened. The file that stood there is kept as .bak; it is complete before the
// project's own file is touched.
class ProjectWriter
{
public:
    // Throws MException: "Invalid database", "Invalid settings" for what is null.
    ProjectWriter(IDBProject* project, ISettings* settings);

    // Makes the folder first. The disk is at work while the project is being encoded. Throws what a project
    // that cannot be encoded throws; then the project's file is as it was.
    WrittenProject write() const;
    // One level, and only where no file stands at the place yet: for a caller who locks the place before.
    FileResult makeFolder() const;

private:
    IDBProject* project_;
    ISettings* settings_;
};

// The folder of a project and its file.
std::wstring projectFolder(IDBProject& project, ISettings& settings);
std::wstring projectPlace(IDBProject& project, ISettings& settings);
