#pragma once

#include "platform/utf8.h"

#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <string>
#include <vector>

// A folder with a Cyrillic name for one test, which takes it away with all that is in it.
class TemporaryFolder
{
public:
    TemporaryFolder()
        : path_(std::filesystem::temp_directory_path() / uniqueName())
    {
        std::filesystem::create_directory(path_);
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;
    ~TemporaryFolder()
    {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }

    const std::filesystem::path& path() const { return path_; }
    // The full path of a file in it as stored paths are: wide, with backslashes.
    std::wstring file(const std::wstring& name) const { return wide(path_) + L'\\' + name; }
    // Names of all that is in it.
    std::vector<std::wstring> content() const
    {
        std::vector<std::wstring> names;
        for (const auto& entry : std::filesystem::directory_iterator(path_))
            names.push_back(wide(entry.path().filename()));
        return names;
    }

private:
    static std::wstring wide(const std::filesystem::path& path)
    {
        const std::u8string bytes = path.u8string();
        return fromUtf8({reinterpret_cast<const char*>(bytes.data()), bytes.size()}).value_or(L"");
    }
    static std::filesystem::path uniqueName()
    {
        static int number = 0;
        const auto now = std::chrono::system_clock::now().time_since_epoch().count();
        std::filesystem::path name(u8"проба-");
        name += std::to_string(now) + '-' + std::to_string(++number);
        return name;
    }

    std::filesystem::path path_;
};
