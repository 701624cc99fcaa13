#pragma once

#include "core/base/reference.h"
#include "db/db_project.h"
#include "tlxtool/json.h"
#include "tlxtool/opened_project.h"

// A project file as JSON: "format", "version", "project" with every field under its name, and "reading" with
// what stands in the file beside the project (the stored short name, refused rows, what was dropped, bytes
// behind the end, and the stretch in which the file differs from a save of the project), so that nothing of
// the file is missing.

Json projectToJson(const OpenedProject& opened);

// The project in such JSON; "reading" may be missing and is not looked at. Throws ToolError with the path of
// the fault.
Reference<DBProject> projectFromJson(const Json& root);
