#pragma once

#include "core/base/reference.h"
#include "db/db_project.h"
#include "persistence/read_report.h"
#include "tlxtool/messages.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

// A project file in memory, with all that reading it has to say.
struct OpenedProject {
    std::string name; // as given on the command line, UTF-8
    std::wstring path;
    std::vector<std::uint8_t> bytes;
    Reference<DBProject> project; // null until the bytes were read without a failure
    ReadReport report;
};

// The bytes of the file. Its suffix does not matter here: copies are called .bak or .old. Throws ToolError
// where the system does not give them.
OpenedProject loadFile(const std::string& argument);

// Reads the project in the bytes; where that is impossible, what is wrong and where.
std::optional<Finding> decode(OpenedProject& opened);

// Both. Throws ToolError with the name of the file.
OpenedProject openProject(const std::string& argument);

// The stretch in which a save of the unchanged project differs from the content of the file; both begin at
// the same offset. Bytes behind the end of the content do not take part.
struct ByteDifference {
    std::size_t begin;
    std::size_t endInFile;
    std::size_t endWhenSaved;
};
std::optional<ByteDifference> differenceOnSave(const OpenedProject& opened);

// The first offset at which two byte strings differ, the length of the shorter where one begins the other.
std::size_t commonPrefix(const std::vector<std::uint8_t>& a, const std::vector<std::uint8_t>& b);

// Name of the section that the byte at this offset belongs to.
std::string_view sectionAt(const OpenedProject& opened, std::size_t offset);

// That the program will save the project somewhere else than in this file, where the path in it says so.
std::optional<std::string> otherSavingPlace(const OpenedProject& opened);
