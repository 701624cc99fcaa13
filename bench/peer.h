#pragma once

#include "core/base/reference.h"
#include "db/db_project.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

// One way of keeping a project in a file. All of them save so that a crash of the program or of the machine
// leaves the old file or the new one whole: beside it, flushed, renamed.
struct Peer {
    const char* name;
    // Makes what is in the file anew. The holder keeps it for as long as it lives.
    std::function<std::shared_ptr<void>(const std::string& path)> open;
    // The engine's bytes of the same project are for the one that only writes.
    std::function<void(
        const std::string& path, IDBProject& project, const std::vector<std::uint8_t>& engineBytes)>
        save;
    // The same opening, for the comparison of the records; none where they have no meaning.
    std::function<Reference<DBProject>(const std::string& path)> openProject;
};

// Where a peer's operation fails the run ends with this.
[[noreturn]] void failPeer(const std::string& why);

// Flushes the file and puts it in the other's place.
void flushAndReplace(const std::string& temporary, const std::string& path);

const Peer& enginePeer();
// Opening: the same strings in the same containers without bounds, code page, checks or order. Saving: the
// plain write of the engine's bytes.
const Peer& barePeer();
const Peer& sqlitePeer();
const Peer& dataStreamPeer();

inline const std::vector<const Peer*>& allPeers()
{
    static const std::vector<const Peer*> peers = {
        &enginePeer(), &barePeer(), &sqlitePeer(), &dataStreamPeer()};
    return peers;
}

// An opened project as a holder.
inline std::shared_ptr<void> held(Reference<DBProject> project)
{
    return std::make_shared<Reference<DBProject>>(std::move(project));
}
