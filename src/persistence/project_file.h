#pragma once

#include "core/base/reference.h"
#include "db/db_project.h"
#include "persistence/hatch_library.h"
#include "persistence/igk_preset_library.h"
#include "persistence/read_report.h"
#include "platform/file_result.h"

#include <cstdint>
#include <string>
#include <vector>

// Opening the three kinds of files, and writing a project, below the windows.

enum class ProjectFileState {
    missing, // no such file
    wrongSuffix, // not a .TLX, in letters of either case
    otherVersion, // the head is not that of version 104: it may be a project of an older program
    current,
};

// What a look at the suffix and the head tells, and the whole file in memory where it got that far. Throws
// MException ("Can't open file ") where it cannot be read, std::out_of_range where it is shorter than a head.
ProjectFileState lookAtProjectFile(const std::wstring& path, std::vector<std::uint8_t>& bytes);

// The project in these bytes, whose head has been checked. Throws as DBFromFilev104Factory does; the report
// is filled in either case.
Reference<DBProject> readProject(
    const std::wstring& path, const std::vector<std::uint8_t>& bytes, ReadReport& report);

// Replaces the file, the old one staying whole where the system can keep it so. What is encoded is written to
// the temporary file while the rest is being encoded. Throws what encodeProject throws; then the file is as
// it was and nothing stands beside it.
FileResult writeProjectFile(const std::wstring& path, IDBProject& project);

// The library in a file; null where the suffix is not DAT or the head is another's, without a message. Throws
// as readFileBytes and the factories do.
Reference<DBHatch> readHatchFile(const std::wstring& path);
Reference<DBIgkPreset> readIgkPresetFile(const std::wstring& path);
