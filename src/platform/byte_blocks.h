#pragma once

#include "platform/large_pages.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <mutex>
#include <span>
#include <utility>
#include <vector>

// Pages of blocks that are done with, for those to come: what was written goes to the disk while more is
// being made, and memory that was just in use is quicker than fresh one. For any number of threads.
class PageStore
{
public:
    // Of the one size that is kept.
    Pages take();
    void giveBack(Pages pages);

private:
    std::mutex mutex_;
    std::vector<Pages> pages_;
};

// Bytes in the order in which they were written, in blocks that never move, so that growing copies nothing.
// The large ones are asked of the system in its large pages, where it has them: what takes it the longest
// about fresh memory is the number of pages.
class ByteBlocks
{
public:
    ByteBlocks() = default;
    // Its largest blocks come from the store and go back there.
    explicit ByteBlocks(std::shared_ptr<PageStore> store)
        : store_(std::move(store))
    {
    }

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
    // Pages that go back where they came from.
    class StoredPages
    {
    public:
        StoredPages() = default;
        StoredPages(Pages pages, std::shared_ptr<PageStore> store)
            : pages_(std::move(pages))
            , store_(std::move(store))
        {
        }
        ~StoredPages()
        {
            if (store_ && pages_)
                store_->giveBack(std::move(pages_));
        }
        StoredPages(StoredPages&&) = default;
        StoredPages& operator=(StoredPages&& other) noexcept
        {
            std::swap(pages_, other.pages_);
            std::swap(store_, other.store_);
            return *this;
        }

        std::uint8_t* get() const { return pages_.get(); }

    private:
        Pages pages_;
        std::shared_ptr<PageStore> store_;
    };
    struct Block {
        std::unique_ptr<std::uint8_t[]> small;
        StoredPages large;
        std::span<std::uint8_t> room;
        std::size_t size = 0;
    };

    std::shared_ptr<PageStore> store_;
    std::vector<Block> blocks_;
};
