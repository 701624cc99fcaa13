#include "core/base/mexception.h"
#include "persistence/grammar/project.h"
#include "persistence/project_codec.h"
#include "persistence/write_archive.h"

#include <condition_variable>
#include <deque>
#include <mutex>
#include <optional>
#include <stdexcept>
#include <utility>

static void headBytes(WriteArchive& archive, const format::Head& head)
{
    std::size_t offset = 0;
    for (; offset < head.signature.size(); ++offset)
        archive.byte("signature", static_cast<std::uint8_t>(head.signature[offset]));
    for (; offset < head.versionOffset; ++offset)
        archive.byte("filler", std::uint8_t{0});
    archive.word("version", head.version);
}

static ByteBlocks encodeInto(WriteArchive& archive, IDBProject& project)
{
    headBytes(archive, format::projectHead);
    try {
        projectFields(archive, project);
    } catch (const std::length_error&) {
        throw MException(L"Блоки чертежа вложены друг в друга глубже " + std::to_wstring(format::nestingLimit)
            + L" уровней: такой файл нельзя будет открыть.\nРазберите вложенные блоки и сохраните снова.");
    }
    return archive.takeBlocks();
}

ByteBlocks encodeProjectInBlocks(IDBProject& project, const WorkSharing& sharing)
{
    WriteArchive archive(sharing);
    return encodeInto(archive, project);
}

namespace
{

// Pieces from the thread that encodes to the one that hands them on.
class PieceQueue
{
public:
    void add(WriteArchive::Piece piece)
    {
        {
            const std::lock_guard lock(mutex_);
            pieces_.push_back(std::move(piece));
        }
        changed_.notify_one();
    }
    void end()
    {
        {
            const std::lock_guard lock(mutex_);
            isEnded_ = true;
        }
        changed_.notify_one();
    }
    // None behind the last.
    std::optional<WriteArchive::Piece> next()
    {
        std::unique_lock lock(mutex_);
        changed_.wait(lock, [this] { return isEnded_ || !pieces_.empty(); });
        if (pieces_.empty())
            return {};
        WriteArchive::Piece piece = std::move(pieces_.front());
        pieces_.pop_front();
        return piece;
    }

private:
    std::mutex mutex_;
    std::condition_variable changed_;
    std::deque<WriteArchive::Piece> pieces_;
    bool isEnded_ = false;
};

// However the encoding ends, the other thread is told.
class QueueEnd
{
public:
    explicit QueueEnd(PieceQueue& queue)
        : queue_(queue)
    {
    }
    ~QueueEnd() { queue_.end(); }
    QueueEnd(const QueueEnd&) = delete;
    QueueEnd& operator=(const QueueEnd&) = delete;

private:
    PieceQueue& queue_;
};

ByteBlocks handOver(PieceQueue& queue, const TakeParts& takeParts)
{
    ByteBlocks all;
    const auto take = [&](ByteBlocks blocks) {
        takeParts(blocks.parts());
        all.append(std::move(blocks));
    };
    while (auto piece = queue.next()) {
        take(std::move(piece->blocks));
        if (piece->next.valid())
            take(piece->next.get());
    }
    return all;
}

} // namespace

ByteBlocks encodeProjectInBlocks(IDBProject& project, const TakeParts& takeParts, const WorkSharing& sharing)
{
    PieceQueue queue;
    auto taken = inAnotherThread([&] { return handOver(queue, takeParts); });
    {
        const QueueEnd end(queue);
        WriteArchive archive([&queue](WriteArchive::Piece piece) { queue.add(std::move(piece)); }, sharing);
        encodeInto(archive, project);
    }
    return taken.valid() ? taken.get() : handOver(queue, takeParts);
}

std::vector<std::uint8_t> encodeProject(IDBProject& project, const WorkSharing& sharing)
{
    return encodeProjectInBlocks(project, sharing).joined();
}
