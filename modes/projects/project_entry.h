#pragma once

#include <cstdint>
#include <string>

// A project file as the register shows it, read without the shell.
struct ProjectEntry {
    enum class State { waiting, current, olderVersion, damaged };

    std::wstring path;
    std::uint64_t size = 0; // bytes
    std::int64_t modified = 0; // milliseconds since 1970
    State state = State::waiting;
    std::wstring problem; // why it is not current, in words

    std::wstring code;
    std::wstring name;
    std::size_t points = 0;
    std::wstring savingPlace; // where the program saves this project; empty where the file is not current
    bool savesElsewhere = false; // the place is not this file
    bool placeIsTaken = false; // and another file stands there
    std::wstring openedBy; // who beside this program has the project open, and where; else empty

    bool operator==(const ProjectEntry&) const = default;
};

// The folder of projects in a work folder.
std::wstring projectsFolderOf(const std::wstring& workFolder);

// Takes size and time of the file at entry.path.
void lookAtFile(ProjectEntry& entry);

// Reads the file behind entry.path and fills in all that it tells. Never throws.
void readProjectEntry(ProjectEntry& entry, const std::wstring& workFolder);

// Looks at the saving place anew: what stands there, and who has it open, changes without the file itself.
void lookAtSavingPlace(ProjectEntry& entry);

// Why a code must not be written into the file as it stands now, in words; empty where it may.
std::wstring storingProblem(const std::wstring& path, const std::wstring& workFolder);

// Why the file cannot be opened, in words; empty where it can, or is one that the shell converts first.
std::wstring openingProblem(const std::wstring& path);
