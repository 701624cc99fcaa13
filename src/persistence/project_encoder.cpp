#include "core/base/mexception.h"
#include "persistence/grammar/project.h"
#include "persistence/project_codec.h"
#include "persistence/write_archive.h"

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

static void encodeInto(WriteArchive& archive, IDBProject& project)
{
    headBytes(archive, format::projectHead);
    try {
        projectFields(archive, project);
    } catch (const std::length_error&) {
        throw MException(L"Блоки чертежа вложены друг в друга глубже " + std::to_wstring(format::nestingLimit)
            + L" уровней: такой файл нельзя будет открыть.\nРазберите вложенные блоки и сохраните снова.");
    }
}

ByteBlocks encodeProjectInBlocks(IDBProject& project, const WorkSharing& sharing)
{
    WriteArchive archive(sharing);
    encodeInto(archive, project);
    return archive.takeBlocks();
}

namespace
{

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

// What was handed on is not kept: its pages take the next pieces.
void handOver(PieceQueue& queue, const TakeParts& takeParts)
{
    while (auto piece = queue.next()) {
        takeParts(std::exchange(piece->blocks, {}).parts());
        if (piece->next)
            handOver(*piece->next, takeParts);
    }
}

} // namespace

void encodeProjectInPieces(IDBProject& project, const TakeParts& takeParts, const WorkSharing& sharing)
{
    PieceQueue queue;
    auto taken = inAnotherThread([&] { handOver(queue, takeParts); });
    {
        const QueueEnd end(queue);
        WriteArchive archive([&queue](WrittenPiece piece) { queue.add(std::move(piece)); },
            sharing,
            std::make_shared<PageStore>());
        encodeInto(archive, project);
        archive.finish();
    }
    if (taken.valid())
        taken.get();
    else
        handOver(queue, takeParts);
}

std::vector<std::uint8_t> encodeProject(IDBProject& project, const WorkSharing& sharing)
{
    return encodeProjectInBlocks(project, sharing).joined();
}
