#include "persistence/write_archive.h"

#include "platform/code_page.h"
#include "platform/uuid.h"

#include <algorithm>
#include <cstddef>
#include <utility>

std::vector<std::uint8_t> WriteArchive::takeBytes()
{
    bytes_.resize(std::exchange(size_, 0));
    return std::move(bytes_);
}

void WriteArchive::grow(std::size_t count)
{
    // In small steps while there is room: what is filled with zeros is still in the cache when it is written.
    constexpr std::size_t step = 1U << 16U;
    const std::size_t needed = size_ + count + step;
    if (needed > bytes_.capacity())
        bytes_.reserve(std::max(bytes_.capacity() + bytes_.capacity() / 2, needed));
    bytes_.resize(needed);
}

void WriteArchive::makeRoom(std::size_t count)
{
    if (size_ + count > bytes_.capacity())
        bytes_.reserve(size_ + count);
}

void WriteArchive::append(const std::vector<std::uint8_t>& bytes)
{
    std::copy(bytes.begin(), bytes.end(), extend(bytes.size()));
}

void WriteArchive::text(std::string_view, const std::wstring& value)
{
    // Room for the most bytes that it can take; how many it took stands in front of them.
    const std::size_t begin = size_;
    std::uint8_t* const first = extend(4 + 2 * value.size()) + 4;
    const auto length = static_cast<std::size_t>(writeCodePage(value, first) - first);
    size_ = begin;
    writeCount(length);
    size_ += length;
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
