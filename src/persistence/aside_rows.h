#pragma once

#include "platform/byte_blocks.h"

#include <atomic>
#include <condition_variable>
#include <cstddef>
#include <deque>
#include <exception>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <thread>
#include <utility>
#include <vector>

class WriteArchive;
class PieceQueue;

// What is written, or by whom what follows it is being written.
struct WrittenPiece {
    ByteBlocks blocks;
    std::shared_ptr<PieceQueue> next;
};

// Pieces of a file from the thread that writes them to the one that hands them on, as soon as they are there.
class PieceQueue
{
public:
    void add(WrittenPiece piece);
    // Nothing follows; what the writer threw passes on to the reader.
    void end(std::exception_ptr failure = {});
    // Waits for it. None behind the last.
    std::optional<WrittenPiece> next();

private:
    std::mutex mutex_;
    std::condition_variable changed_;
    std::deque<WrittenPiece> pieces_;
    std::exception_ptr failure_;
    bool isEnded_ = false;
};

// Rows of a register that whoever comes first writes, into bytes of their own or at once where they belong.
class AsideRows
{
public:
    using Write = std::function<void(WriteArchive&)>;

    AsideRows(Write write, std::shared_ptr<PageStore> pages)
        : write_(std::move(write))
        , pages_(std::move(pages))
    {
    }
    // Once: whoever gets true writes them.
    bool take() { return !isTaken_.exchange(true); }
    void writeTo(WriteArchive& archive) const { write_(archive); }
    void writeAside() const;
    void leaveUnwritten() const { pieces_->end(); }
    const std::shared_ptr<PieceQueue>& pieces() const { return pieces_; }

private:
    Write write_;
    std::shared_ptr<PageStore> pages_;
    std::shared_ptr<PieceQueue> pieces_ = std::make_shared<PieceQueue>();
    std::atomic<bool> isTaken_ = false;
};

// Threads that write rows beside the one that goes through the project: the oldest register first, and of
// that its last rows, since the first are taken by the one that has come to them. At the end of its life the
// rows that nobody took stay unwritten.
class RowHelpers
{
public:
    explicit RowHelpers(std::size_t threads);
    ~RowHelpers();
    RowHelpers(const RowHelpers&) = delete;
    RowHelpers& operator=(const RowHelpers&) = delete;

    using Register = std::vector<std::shared_ptr<AsideRows>>;
    void offer(Register rows);
    // The caller writes too, until nothing is left to take.
    void finish();

private:
    std::shared_ptr<AsideRows> takeNext();
    void help();

    std::mutex mutex_;
    std::condition_variable changed_;
    std::deque<Register> registers_;
    bool isEnded_ = false;
    std::vector<std::jthread> threads_;
};
