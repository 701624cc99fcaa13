#pragma once

#include <filesystem>
#include <string>
#include <sys/resource.h>
#include <vector>

// What can stand in a save's way, each for as long as its object lives.

// No file may grow beyond this size: a write takes what fits and then fails, as one on a full disk does.
class FileSizeLimit
{
public:
    explicit FileSizeLimit(rlim_t bytes);
    ~FileSizeLimit();
    FileSizeLimit(const FileSizeLimit&) = delete;
    FileSizeLimit& operator=(const FileSizeLimit&) = delete;

private:
    rlimit before_ = {};
    void (*handler_)(int);
};

// The program has used up its memory but for blocks smaller than this.
class MemoryLimit
{
public:
    explicit MemoryLimit(std::size_t block);
    ~MemoryLimit();
    MemoryLimit(const MemoryLimit&) = delete;
    MemoryLimit& operator=(const MemoryLimit&) = delete;

private:
    rlimit before_ = {};
    std::vector<void*> ballast_;
};

// Permissions bind the administrator too, who otherwise writes everywhere.
class WithoutPrivilege
{
public:
    WithoutPrivilege();
    ~WithoutPrivilege();
    WithoutPrivilege(const WithoutPrivilege&) = delete;
    WithoutPrivilege& operator=(const WithoutPrivilege&) = delete;

private:
    unsigned lower_ = 0;
    unsigned upper_ = 0;
};

// Other permissions for a file or folder, and nobody above them.
class Forbidden
{
public:
    Forbidden(std::filesystem::path path, std::filesystem::perms left);
    ~Forbidden();
    Forbidden(const Forbidden&) = delete;
    Forbidden& operator=(const Forbidden&) = delete;

private:
    std::filesystem::path path_;
    std::filesystem::perms before_;
    WithoutPrivilege bound_;
};

// A file or folder out of the way.
class Away
{
public:
    explicit Away(std::filesystem::path path);
    // Back in its place, and whatever came there gone.
    ~Away();
    Away(const Away&) = delete;
    Away& operator=(const Away&) = delete;

private:
    std::filesystem::path path_;
    std::filesystem::path away_;
};

// A file system of this size at a folder, seen by the test's process alone.
class SmallFileSystem
{
public:
    SmallFileSystem(std::filesystem::path folder, std::size_t kilobytes);
    ~SmallFileSystem();
    SmallFileSystem(const SmallFileSystem&) = delete;
    SmallFileSystem& operator=(const SmallFileSystem&) = delete;

    // Empty, or why the system does not let us have one.
    const std::string& refusal() const { return refusal_; }
    bool resize(std::size_t kilobytes) const;

private:
    std::filesystem::path folder_;
    std::string refusal_;
};
