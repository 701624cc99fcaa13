#pragma once

#include "generated_site.h"
#include "peer.h"
#include "probe.h"

#include <cstdint>
#include <map>
#include <string>
#include <vector>

// A generated site in files, the engine's and each peer's, made when first asked for and removed at the end.
class ProjectFile
{
public:
    ProjectFile(std::size_t points, SiteNames names);
    ~ProjectFile();
    ProjectFile(const ProjectFile&) = delete;
    ProjectFile& operator=(const ProjectFile&) = delete;

    // The engine's file and its size.
    const std::string& path() const { return path_; }
    std::size_t size() const { return size_; }
    // Bytes of the records in it.
    double ownSize() const { return ownSize_; }

    // The file of a peer, whose records have been read back and compared: they are the engine's.
    const std::string& pathFor(const Peer& peer) const;
    // The measurement of an operation on it, made once.
    const HeapUse& measured(const std::string& words) const;

private:
    std::string path_;
    std::size_t points_;
    SiteNames names_;
    std::size_t size_ = 0;
    double ownSize_ = 0;
    mutable std::map<std::string, std::string> peerPaths_;
    mutable std::map<std::string, HeapUse> measurements_;
};

const ProjectFile& projectFile(std::size_t points, SiteNames names);

// A project in memory with its bytes, as a save finds it. The one that was asked for last.
struct SavedProject {
    Reference<DBProject> project;
    std::vector<std::uint8_t> bytes;
};
const SavedProject& projectToSave(const ProjectFile& file);
