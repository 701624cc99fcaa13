#pragma once

#include "core/base/reference.h"
#include "db/db_project.h"
#include "persistence/read_report.h"

#include <string>

// Opens a project file. Null, without a message, for a file that is missing or not a .TLX; MException, in
// words for the user, for one that cannot be read. A file of an older program is put aside as .old and
// converted first, as often as it takes: there is no limit to it.
Reference<DBProject> readProjectFile(const std::wstring& path);
// The same with what was found on the way beside the project's data.
Reference<DBProject> readProjectFile(const std::wstring& path, ReadReport& report);

// Keeps the file as it was before its first conversion: a copy beside it, named after what stands before the
// first dot. A copy that is there already stays.
void backupOldFile(const std::wstring& path);
