#pragma once

#include "platform/large_pages.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <vector>

// Bytes in the order in which they were written, in blocks that never move, so that growing copies nothing.
// The large ones are asked of the system in its large pages, where it has them: what takes it the longest
// about fresh memory is the number of pages.
class ByteBlocks
{
public:
    // Room behind what was written, of at least that many bytes. How many of them it took tells close.
    std::span<std::uint8_t> open(std::size_t atLeast);
    // Everything before this place in the last room is written.
    void close(const std::uint8_t* end);
    // The bytes of others go behind those that are here.
    void append(ByteBlocks&& others);
    // The blocks that are full.
    ByteBlocks takeAllButLast();

    std::size_t size() const;
    std::vector<std::span<const std::uint8_t>> parts() const;
    std::vector<std::uint8_t> joined() const;

private:
    struct Block {
        std::unique_ptr<std::uint8_t[]> small;
        Pages large;
        std::span<std::uint8_t> room;
        std::size_t size = 0;
    };

    std::vector<Block> blocks_;
};
