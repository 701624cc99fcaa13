#include "persistence/write_archive.h"

#include "platform/code_page.h"
#include "platform/uuid.h"

#include <algorithm>
#include <utility>

WriteArchive::WriteArchive(
    std::function<void(WrittenPiece)> takePiece, const WorkSharing& sharing, std::shared_ptr<PageStore> pages)
    : takePiece_(std::move(takePiece))
    , pages_(std::move(pages))
    , blocks_(pages_)
    , sharing_(sharing)
{
}

void WriteArchive::finish()
{
    keep({takeLast(), {}});
    if (helpers_)
        helpers_->finish();
}

ByteBlocks WriteArchive::takeBlocks()
{
    finish();
    ByteBlocks all;
    for (WrittenPiece& piece : std::exchange(pieces_, {})) {
        all.append(std::move(piece.blocks));
        while (auto next = piece.next ? piece.next->next() : std::nullopt)
            all.append(std::move(next->blocks));
    }
    return all;
}

ByteBlocks WriteArchive::takeLast()
{
    blocks_.close(at_);
    at_ = end_ = nullptr;
    return std::exchange(blocks_, ByteBlocks(pages_));
}

std::shared_ptr<AsideRows> WriteArchive::aside(AsideRows::Write write)
{
    return std::make_shared<AsideRows>(std::move(write), pages_);
}

// Here and by function, so that what a thread needs is compiled once and not once a register.
void WriteArchive::shareOut(const RowHelpers::Register& rows)
{
    if (!helpers_)
        helpers_ = std::make_unique<RowHelpers>(sharing_.threads - 1);
    helpers_->offer(rows);
    for (const auto& part : rows) {
        if (rows.size() > 1 && part->take())
            part->writeTo(*this);
        else
            keep({takeLast(), part->pieces()});
    }
}

void WriteArchive::keep(WrittenPiece piece)
{
    piecesSize_ += piece.blocks.size();
    if (takePiece_)
        takePiece_(std::move(piece));
    else
        pieces_.push_back(std::move(piece));
}

void WriteArchive::openBlock(std::size_t count)
{
    constexpr std::size_t worthTaking = 1U << 20U;
    blocks_.close(at_);
    const std::span<std::uint8_t> opened = blocks_.open(count);
    at_ = opened.data();
    end_ = at_ + opened.size();
    // The one just opened holds nothing yet.
    if (takePiece_ && blocks_.size() >= worthTaking)
        keep({blocks_.takeAllButLast(), {}});
}

// Of what is written here; the bytes of threads at work do not count.
std::size_t WriteArchive::size()
{
    blocks_.close(at_);
    return piecesSize_ + blocks_.size();
}

void WriteArchive::guid(std::string_view, const Uuid& value)
{
    const std::string text = uuidToText(value);
    writeCount(text.size());
    std::copy(text.begin(), text.end(), extend(text.size()));
}

void WriteArchive::blob(std::string_view, const std::vector<std::uint8_t>& value)
{
    writeCount(value.size());
    std::copy(value.begin(), value.end(), extend(value.size()));
}

void WriteArchive::objects(std::string_view, const GLObjectList& values)
{
    writeCount(values.size());
    for (GLObjectDB* object : values)
        visitDrawing(object, [this](auto row, auto& drawing) {
            byte({}, static_cast<std::uint8_t>(row.code));
            existingObject(*this, row, drawing);
        });
}

void WriteArchive::planes(std::string_view, const GLObjectList& values)
{
    writeCount(values.size());
    for (GLObjectDB* object : values)
        if (auto* plane = dynamic_cast<GLPlaneDB*>(object))
            existingPlane(*this, *plane);
}

template <class Record>
void WriteArchive::writeRecords(const std::vector<Record*>& records)
{
    writeCount(records.size() - static_cast<std::size_t>(std::ranges::count(records, nullptr)));
    for (const Record* record : records)
        if (record)
            existingRecord(*this, *record);
}

void WriteArchive::informs(std::string_view, const InformList& values)
{
    writeRecords(values);
}

void WriteArchive::items(std::string_view, const std::vector<PropertyGridItem*>& values)
{
    writeRecords(values);
}

void WriteArchive::stem(std::string_view name, IDBProject& project)
{
    text(name, project.getFileStem());
}

void WriteArchive::doubledTitle(
    std::string_view nameA, const std::wstring& a, std::string_view nameB, const std::wstring&)
{
    text(nameA, a);
    text(nameB, a);
}

void WriteArchive::subsidence(std::string_view, SubsidenceMap& values)
{
    writeCount(values.size());
    for (auto& [pointName, cells] : values) {
        text("pointName", pointName);
        text("title", cells.empty() ? std::wstring() : cells.front().title);
        list("cells", cells);
    }
}
