#include "persistence/aside_rows.h"

#include "persistence/write_archive.h"

#include <system_error>

void PieceQueue::add(WrittenPiece piece)
{
    {
        const std::lock_guard lock(mutex_);
        pieces_.push_back(std::move(piece));
    }
    changed_.notify_one();
}

void PieceQueue::end(std::exception_ptr failure)
{
    {
        const std::lock_guard lock(mutex_);
        isEnded_ = true;
        failure_ = std::move(failure);
    }
    changed_.notify_one();
}

std::optional<WrittenPiece> PieceQueue::next()
{
    std::unique_lock lock(mutex_);
    changed_.wait(lock, [this] { return isEnded_ || !pieces_.empty(); });
    if (pieces_.empty()) {
        if (failure_)
            std::rethrow_exception(failure_);
        return {};
    }
    WrittenPiece piece = std::move(pieces_.front());
    pieces_.pop_front();
    return piece;
}

void AsideRows::writeAside() const
{
    try {
        WriteArchive archive(
            [this](WrittenPiece piece) { pieces_->add(std::move(piece)); }, WorkSharing{1}, pages_);
        write_(archive);
        archive.finish();
        pieces_->end();
    } catch (...) {
        pieces_->end(std::current_exception());
    }
}

RowHelpers::RowHelpers(std::size_t threads)
{
    try {
        for (std::size_t i = 0; i < threads; ++i)
            threads_.emplace_back([this] { help(); });
    } catch (const std::system_error&) {
        // The system has no thread to give: the caller writes what these would have.
    }
}

RowHelpers::~RowHelpers()
{
    std::deque<Register> left;
    {
        const std::lock_guard lock(mutex_);
        isEnded_ = true;
        left.swap(registers_);
    }
    changed_.notify_all();
    for (const Register& rows : left)
        for (const auto& part : rows)
            if (part->take())
                part->leaveUnwritten();
}

void RowHelpers::offer(Register rows)
{
    {
        const std::lock_guard lock(mutex_);
        registers_.push_back(std::move(rows));
    }
    changed_.notify_all();
}

void RowHelpers::finish()
{
    for (;;) {
        std::shared_ptr<AsideRows> rows;
        {
            const std::lock_guard lock(mutex_);
            rows = takeNext();
        }
        if (!rows)
            return;
        rows->writeAside();
    }
}

std::shared_ptr<AsideRows> RowHelpers::takeNext()
{
    while (!registers_.empty()) {
        Register& oldest = registers_.front();
        while (!oldest.empty()) {
            std::shared_ptr<AsideRows> last = std::move(oldest.back());
            oldest.pop_back();
            if (last->take())
                return last;
        }
        registers_.pop_front();
    }
    return {};
}

void RowHelpers::help()
{
    for (;;) {
        std::shared_ptr<AsideRows> rows;
        {
            std::unique_lock lock(mutex_);
            changed_.wait(lock, [&] {
                rows = isEnded_ ? nullptr : takeNext();
                return isEnded_ || rows;
            });
        }
        if (!rows)
            return;
        rows->writeAside();
    }
}
