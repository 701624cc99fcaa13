#pragma once

#include "platform/byte_blocks.h"
#include "platform/safe_write.h"

#include <string>

class IDBProject;
class ISettings;

// Writes a project to its place, <work folder>/Проекты/<stem>/<file name>, which follows from the project and
// not from where it was opened. The file that stood there is kept as .bak; it is complete before the
// project's own file is touched.
class ProjectWriter
{
public:
    // Throws MException: "Invalid database", "Invalid settings" for what is null.
    ProjectWriter(IDBProject* project, ISettings* settings);

    // Throws what a project that cannot be encoded throws, before the disk is touched.
    FileResult write() const;

    // The same in three steps, for a caller who looks at the place before the last one.
    ByteBlocks encode() const;
    // One level, and only where no file stands at the place yet.
    FileResult makeFolder() const;
    FileResult write(FileParts bytes) const;

private:
    IDBProject* project_;
    ISettings* settings_;
};

// The folder of a project and its file.
std::wstring projectFolder(IDBProject& project, ISettings& settings);
std::wstring projectPlace(IDBProject& project, ISettings& settings);
