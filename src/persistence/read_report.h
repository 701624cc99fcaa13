#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

// What reading a project leaves to say beyond the project itself. Offsets count bytes from the file's start.
struct ReadReport {
    // A row that its register did not take, because its key is, or reads as, that of a row that is there
    // already.
    struct Refusal {
        std::string_view section;
        std::wstring key;
        std::size_t begin = 0;
        std::size_t end = 0;
    };
    // Something that stands in the file and does not come into the project.
    struct Drop {
        std::string_view section;
        std::string_view what;
        std::size_t offset = 0;
    };

    // The first of each are kept whole, the rest are counted: a damaged file may hold millions.
    static constexpr std::size_t kept = 1000;
    std::vector<Refusal> refusals;
    std::size_t refusalCount = 0;
    std::vector<Drop> drops;
    std::size_t dropCount = 0;

    std::wstring storedStem; // the short name as it stands in the file
    std::string_view section; // the section read last
    std::size_t position = 0; // where reading ended, behind the last field or at the failure
    std::string failure; // why reading failed; empty where it did not

    void addRefusal(std::wstring key, std::size_t begin, std::size_t end)
    {
        if (++refusalCount <= kept)
            refusals.push_back({section, std::move(key), begin, end});
    }
    void addDrop(std::string_view what, std::size_t offset)
    {
        if (++dropCount <= kept)
            drops.push_back({section, what, offset});
    }
};
