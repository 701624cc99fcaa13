#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>

// Memory straight from the system, in its large pages where it has them and gives them to everybody: most of
// what fresh memory costs is the number of its pages.

inline constexpr std::size_t largePage = 1U << 21U;

struct ReleasePages {
    std::size_t size = 0;
    void operator()(std::uint8_t* bytes) const;
};
using Pages = std::unique_ptr<std::uint8_t, ReleasePages>;

// At least that many bytes; throws std::bad_alloc.
Pages takePages(std::size_t size);
