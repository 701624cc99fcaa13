#pragma once

#include <cstdint>
#include <string>
#include <vector>

class ISettings;

// A copy that a crash has left. Times are seconds since 1970.
struct RecoveredProject {
    std::wstring path;
    bool isDamaged = false; // and nothing is known of what follows up to the place
    std::wstring code;
    std::wstring name;
    std::wstring place; // where the project is saved
    std::int64_t copied = 0;
    std::int64_t saved = 0; // the file at the place; 0 where there is none
    std::wstring user; // who worked on it, and on which computer; empty where its lock does not tell
    std::wstring computer;

    bool isNewer() const { return !isDamaged && copied >= saved; }
};

// The copies without a living owner, the latest first. Never throws for what stands in a file.
std::vector<RecoveredProject> findRecoveryCopies(ISettings& settings);

// Whether a file stands in a folder for copies.
bool isRecoveryCopy(const std::wstring& path, ISettings& settings);

// False where it could not be taken away, or another program has come to use it.
bool deleteRecoveryCopy(const std::wstring& path);
