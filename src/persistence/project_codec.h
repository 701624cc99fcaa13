#pragma once

#include "core/base/work_sharing.h"
#include "persistence/read_report.h"
#include "platform/byte_blocks.h"

#include <cstdint>
#include <functional>
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
// file can be read back.
ByteBlocks encodeProjectInBlocks(IDBProject& project, const WorkSharing& sharing = {});
// The same, but each piece that is ready is handed to the function, in their order, by another thread, and is
// not kept. All have been when this returns. Not where it throws: then those handed over are worth nothing.
using TakeParts = std::function<void(std::span<const std::span<const std::uint8_t>>)>;
void encodeProjectInPieces(IDBProject& project, const TakeParts& takeParts, const WorkSharing& sharing = {});
// The same in one piece.
std::vector<std::uint8_t> encodeProject(IDBProject& project, const WorkSharing& sharing = {});
