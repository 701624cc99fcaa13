#include "peer.h"
#include "persistence/project_file.h"

static std::wstring wide(const std::string& ascii)
{
    return std::wstring(ascii.begin(), ascii.end());
}

static Reference<DBProject> openEngine(const std::string& path)
{
    std::vector<std::uint8_t> bytes;
    ReadReport report;
    if (lookAtProjectFile(wide(path), bytes) != ProjectFileState::current)
        failPeer("no project: " + path);
    return readProject(wide(path), bytes, report);
}

const Peer& enginePeer()
{
    static const Peer peer{"tellurix",
        [](const std::string& path) { return held(openEngine(path)); },
        [](const std::string& path, IDBProject& project, const std::vector<std::uint8_t>&) {
            if (!writeProjectFile(wide(path), project))
                failPeer("cannot save " + path);
        },
        openEngine};
    return peer;
}
