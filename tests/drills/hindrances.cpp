#include "drills/hindrances.h"

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <linux/capability.h>
#include <sched.h>
#include <sys/mount.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace fs = std::filesystem;

namespace
{

struct Capabilities {
    __user_cap_header_struct head = {_LINUX_CAPABILITY_VERSION_3, 0};
    __user_cap_data_struct sets[2] = {};

    Capabilities() { ::syscall(SYS_capget, &head, sets); }
    void apply() { ::syscall(SYS_capset, &head, sets); }
};

std::string sizeOption(std::size_t kilobytes)
{
    return "size=" + std::to_string(kilobytes) + "k";
}

// Mounts of this process stay its own from here on. False, with errno, where that is not permitted.
bool haveOwnMounts()
{
    static const bool own =
        ::unshare(CLONE_NEWNS) == 0 && ::mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0;
    return own;
}

} // namespace

FileSizeLimit::FileSizeLimit(rlim_t bytes)
    : handler_(::signal(SIGXFSZ, SIG_IGN))
{
    ::getrlimit(RLIMIT_FSIZE, &before_);
    const rlimit limit = {bytes, before_.rlim_max};
    ::setrlimit(RLIMIT_FSIZE, &limit);
}

FileSizeLimit::~FileSizeLimit()
{
    ::setrlimit(RLIMIT_FSIZE, &before_);
    ::signal(SIGXFSZ, handler_);
}

MemoryLimit::MemoryLimit(std::size_t block)
{
    rlim_t pages = 0;
    std::ifstream("/proc/self/statm") >> pages;
    ::getrlimit(RLIMIT_AS, &before_);
    const auto page = static_cast<rlim_t>(::sysconf(_SC_PAGESIZE));
    const rlimit limit = {pages * page + 4 * block, before_.rlim_max};
    ::setrlimit(RLIMIT_AS, &limit);
    while (void* taken = std::malloc(block))
        ballast_.push_back(taken);
}

MemoryLimit::~MemoryLimit()
{
    std::for_each(ballast_.begin(), ballast_.end(), std::free);
    ::setrlimit(RLIMIT_AS, &before_);
}

WithoutPrivilege::WithoutPrivilege()
{
    Capabilities now;
    lower_ = now.sets[0].effective;
    upper_ = now.sets[1].effective;
    now.sets[0].effective = now.sets[1].effective = 0;
    now.apply();
}

WithoutPrivilege::~WithoutPrivilege()
{
    Capabilities now;
    now.sets[0].effective = lower_;
    now.sets[1].effective = upper_;
    now.apply();
}

Forbidden::Forbidden(fs::path path, fs::perms left)
    : path_(std::move(path))
    , before_(fs::status(path_).permissions())
{
    fs::permissions(path_, left);
}

Forbidden::~Forbidden()
{
    fs::permissions(path_, before_);
}

Away::Away(fs::path path)
    : path_(std::move(path))
    , away_(path_)
{
    away_ += ".away";
    fs::rename(path_, away_);
}

Away::~Away()
{
    fs::remove_all(path_);
    fs::rename(away_, path_);
}

SmallFileSystem::SmallFileSystem(fs::path folder, std::size_t kilobytes)
    : folder_(std::move(folder))
{
    if (!haveOwnMounts() || ::mount("none", folder_.c_str(), "tmpfs", 0, sizeOption(kilobytes).c_str()) != 0)
        refusal_ = std::string("no file system may be mounted here: ") + std::strerror(errno);
}

SmallFileSystem::~SmallFileSystem()
{
    if (refusal_.empty())
        ::umount(folder_.c_str());
}

bool SmallFileSystem::resize(std::size_t kilobytes) const
{
    return ::mount("none", folder_.c_str(), nullptr, MS_REMOUNT, sizeOption(kilobytes).c_str()) == 0;
}
