#pragma once

#include "core/base/work_sharing.h"
#include "persistence/read_report.h"

#include <cstdint>
#include <span>
#include <vector>

class IDBProject;

// Fills the project with the content of a file whose head has been checked, and the report on the way, so
// that it tells section, offset and reason of a failure too. The failure itself passes as it comes.
void decodeProject(std::span<const std::uint8_t> bytes,
    IDBProject& project,
    ReadReport& report,
    const WorkSharing& sharing = {});

// The bytes of the project's file, head included. Throws MException where a drawing is nested deeper than a
// file can be read back. Who knows about how many there will be spares the growing.
std::vector<std::uint8_t> encodeProject(
    IDBProject& project, std::size_t expectedSize = 0, const WorkSharing& sharing = {});
