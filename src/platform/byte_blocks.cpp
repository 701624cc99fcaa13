#include "platform/byte_blocks.h"

#include <algorithm>
#include <iterator>
#include <utility>

// What is written goes on its way to the disk block by block.
static constexpr std::size_t largestBlock = 2 * largePage;

Pages PageStore::take()
{
    {
        const std::lock_guard lock(mutex_);
        if (!pages_.empty()) {
            Pages pages = std::move(pages_.back());
            pages_.pop_back();
            return pages;
        }
    }
    return takePages(largestBlock);
}

void PageStore::giveBack(Pages pages)
{
    const std::lock_guard lock(mutex_);
    pages_.push_back(std::move(pages));
}

std::span<std::uint8_t> ByteBlocks::open(std::size_t atLeast)
{
    // A row takes little, a project few of them, and what is not used of the last one is never touched.
    constexpr std::size_t smallest = 512;
    constexpr std::size_t growth = 8;
    const std::size_t next =
        blocks_.empty() ? smallest : std::min(growth * blocks_.back().room.size(), largestBlock);
    const std::size_t size = std::max(atLeast, next);
    Block block;
    if (size < largePage) {
        block.small = std::make_unique_for_overwrite<std::uint8_t[]>(size);
        block.room = {block.small.get(), size};
    } else {
        const bool isStored = store_ && size == largestBlock;
        block.large = isStored ? StoredPages(store_->take(), store_) : StoredPages(takePages(size), {});
        block.room = {block.large.get(), size};
    }
    blocks_.push_back(std::move(block));
    return blocks_.back().room;
}

void ByteBlocks::close(const std::uint8_t* end)
{
    if (!blocks_.empty())
        blocks_.back().size = static_cast<std::size_t>(end - blocks_.back().room.data());
}

void ByteBlocks::append(ByteBlocks&& others)
{
    std::move(others.blocks_.begin(), others.blocks_.end(), std::back_inserter(blocks_));
    others.blocks_.clear();
}

ByteBlocks ByteBlocks::takeAllButLast()
{
    ByteBlocks taken;
    if (blocks_.size() > 1) {
        std::move(blocks_.begin(), std::prev(blocks_.end()), std::back_inserter(taken.blocks_));
        blocks_.erase(blocks_.begin(), std::prev(blocks_.end()));
    }
    return taken;
}

std::size_t ByteBlocks::size() const
{
    std::size_t size = 0;
    for (const Block& block : blocks_)
        size += block.size;
    return size;
}

std::vector<std::span<const std::uint8_t>> ByteBlocks::parts() const
{
    std::vector<std::span<const std::uint8_t>> parts;
    for (const Block& block : blocks_)
        parts.emplace_back(block.room.first(block.size));
    return parts;
}

std::vector<std::uint8_t> ByteBlocks::joined() const
{
    std::vector<std::uint8_t> bytes;
    bytes.reserve(size());
    for (const auto part : parts())
        bytes.insert(bytes.end(), part.begin(), part.end());
    return bytes;
}
