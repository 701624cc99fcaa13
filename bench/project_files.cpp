#include "project_files.h"

#include "own_size.h"
#include "persistence/project_codec.h"

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <memory>
#include <unistd.h>

static std::string folder()
{
    const char* set = std::getenv("TMPDIR");
    return set ? set : "/tmp";
}

ProjectFile::ProjectFile(std::size_t points, SiteNames names)
    : path_(folder() + "/tellurix_bench_" + std::to_string(getpid()) + '_' + std::to_string(points) + '_'
        + std::to_string(static_cast<int>(names)) + ".TLX")
    , points_(points)
    , names_(names)
{
    const auto project = generatedSite(points, names);
    const auto bytes = encodeProject(*project);
    std::ofstream file(path_, std::ios::binary);
    file.write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
    if (!file.flush())
        failPeer("cannot write " + path_);
    size_ = bytes.size();
    ownSize_ = static_cast<double>(::ownSize(*project));
}

ProjectFile::~ProjectFile()
{
    std::remove(path_.c_str());
    for (const auto& [name, path] : peerPaths_)
        std::remove(path.c_str());
}

const std::string& ProjectFile::pathFor(const Peer& peer) const
{
    if (&peer == &enginePeer() || &peer == &barePeer())
        return path_;
    std::string& path = peerPaths_[peer.name];
    if (path.empty()) {
        path = path_ + '.' + peer.name;
        const auto project = generatedSite(points_, names_);
        const auto bytes = encodeProject(*project);
        peer.save(path, *project, bytes);
        if (encodeProject(*peer.openProject(path)) != bytes)
            failPeer(std::string(peer.name) + " does not give the same records back");
    }
    return path;
}

const HeapUse& ProjectFile::measured(const std::string& words) const
{
    const auto [place, isNew] = measurements_.try_emplace(words);
    if (isNew)
        place->second = probe(words);
    return place->second;
}

const ProjectFile& projectFile(std::size_t points, SiteNames names)
{
    static std::map<std::pair<std::size_t, SiteNames>, std::unique_ptr<ProjectFile>> files;
    auto& file = files[{points, names}];
    if (!file)
        file = std::make_unique<ProjectFile>(points, names);
    return *file;
}

const SavedProject& projectToSave(const ProjectFile& file)
{
    static SavedProject saved;
    static const ProjectFile* of = nullptr;
    if (of != &file) {
        saved = {};
        of = &file;
        saved.project = enginePeer().openProject(file.path());
        saved.bytes = encodeProject(*saved.project);
    }
    return saved;
}
