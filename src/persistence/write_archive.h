#pragma once

#include "core/base/work_sharing.h"
#include "modules/idbproject.h"
#include "persistence/aside_rows.h"
#include "persistence/grammar/drawings.h"
#include "persistence/grammar/grammar.h"
#include "persistence/grammar/informs.h"
#include "persistence/grammar/strata.h"
#include "persistence/walk_archive.h"
#include "platform/ascii.h"
#include "platform/byte_blocks.h"
#include "platform/code_page.h"

#include <algorithm>
#include <bit>
#include <concepts>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <functional>
#include <iterator>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

// Writes fields as the bytes of a file into memory. Nothing it is given can fail but a drawing nested deeper
// than the reader follows, which throws MException. The rows of a large register are written by several
// threads.
class WriteArchive : public WalkArchive<WriteArchive>
{
public:
    static constexpr bool binary = true;

    explicit WriteArchive(const WorkSharing& sharing = {})
        : sharing_(sharing)
    {
    }
    // Hands over its pieces as soon as they are large enough, the last one with finish. The pages of those
    // that are done with come back by the store.
    WriteArchive(std::function<void(WrittenPiece)> takePiece,
        const WorkSharing& sharing,
        std::shared_ptr<PageStore> pages);

    // Everything has been handed over, or is being written by a thread that was told to.
    void finish();
    // The bytes written so far; the archive is empty afterwards. Not where they are handed over.
    ByteBlocks takeBlocks();
    std::vector<std::uint8_t> takeBytes() { return takeBlocks().joined(); }

    // The low byte of a wider number: that is how much of it the format keeps.
    template <std::integral Integer>
    void byte(std::string_view, const Integer& value)
    {
        *extend(1) = static_cast<std::uint8_t>(value);
    }
    void flag(std::string_view, bool value) { *extend(1) = value ? 1 : 0; }

    template <class Number>
    void word(std::string_view, const Number& value)
    {
        static_assert(sizeof(Number) == 4);
        writeWord(std::bit_cast<std::uint32_t>(value));
    }
    void text(std::string_view, const std::wstring& value)
    {
        // Room for the most bytes that it can take; how many it took stands in front of them.
        std::uint8_t* const length = room(4 + 2 * value.size());
        std::uint8_t* const first = length + 4;
        std::uint8_t* const end =
            writeAscii(value, first) ? first + value.size() : writeCodePage(value, first);
        putWord(length, static_cast<std::uint32_t>(end - first));
        at_ = end;
    }
    void guid(std::string_view name, const Uuid& value);
    void blob(std::string_view name, const std::vector<std::uint8_t>& value);

    template <class List>
    void list(std::string_view, List& values)
    {
        writeCount(values.size());
        for (auto& value : values)
            element(*this, {}, value);
    }

    template <class Map>
    void map(std::string_view, const EntryNames& names, Map& values)
    {
        writeCount(values.size());
        constexpr std::size_t firstRows = 64;
        if (values.size() <= firstRows)
            return writeRows(names, values.begin(), values.size());
        // What the first rows took tells of the others.
        const std::size_t before = size();
        writeRows(names, values.begin(), firstRows);
        const std::size_t left = values.size() - firstRows;
        const auto next = advanced(values.begin(), firstRows);
        const std::size_t row = (size() - before) / firstRows;
        if (sharing_.divides(left, row * left))
            writeDivided(names, next, left, row);
        else
            writeRows(names, next, left);
    }

    // An object of no listed class is counted and not written, as the format has it.
    void objects(std::string_view name, const GLObjectList& values);
    void planes(std::string_view name, const GLObjectList& values);

    void informs(std::string_view name, const InformList& values);
    void items(std::string_view name, const std::vector<PropertyGridItem*>& values);

    void stem(std::string_view name, IDBProject& project);
    // The first title goes out twice, the second never: it does not survive a save.
    void doubledTitle(
        std::string_view nameA, const std::wstring& a, std::string_view nameB, const std::wstring& b);
    // The title of a row is that of its first cell.
    void subsidence(std::string_view name, SubsidenceMap& values);

private:
    template <class Row>
    static Row advanced(Row row, std::size_t count)
    {
        return std::next(row, static_cast<std::ptrdiff_t>(count));
    }
    template <class Row>
    void writeRows(const EntryNames& names, Row row, std::size_t count)
    {
        for (; count > 0; --count, ++row)
            entryFields(*this, names, row->first, row->second);
    }
    // In parts that this thread and the others share, each taking the next when it has done one. Nobody waits
    // for another before the end. Writing changes nothing in the project.
    template <class Row>
    void writeDivided(const EntryNames& names, Row first, std::size_t count, std::size_t rowSize)
    {
        // To walk to a small row takes as long as to write it: another thread gets them all.
        constexpr std::size_t smallRow = 256; // bytes
        constexpr std::size_t partsOfThread = 8;
        const std::size_t parts = rowSize < smallRow ? 1 : std::min(count, partsOfThread * sharing_.threads);
        RowHelpers::Register rows;
        for (std::size_t part = 0; part < parts; ++part) {
            const std::size_t size = count * (part + 1) / parts - count * part / parts;
            rows.push_back(aside(
                [names, first, size](WriteArchive& archive) { archive.writeRows(names, first, size); }));
            if (parts > 1)
                first = advanced(first, size);
        }
        shareOut(rows);
    }
    std::shared_ptr<AsideRows> aside(AsideRows::Write write);
    void shareOut(const RowHelpers::Register& rows);
    ByteBlocks takeLast();
    std::size_t size();
    // Where the next bytes go; there is room for so many.
    std::uint8_t* room(std::size_t count)
    {
        if (count > static_cast<std::size_t>(end_ - at_))
            openBlock(count);
        return at_;
    }
    std::uint8_t* extend(std::size_t count)
    {
        std::uint8_t* const first = room(count);
        at_ = first + count;
        return first;
    }
    void openBlock(std::size_t count);
    void writeWord(std::uint32_t value) { putWord(extend(4), value); }
    static void putWord(std::uint8_t* b, std::uint32_t value)
    {
        b[0] = static_cast<std::uint8_t>(value);
        b[1] = static_cast<std::uint8_t>(value >> 8);
        b[2] = static_cast<std::uint8_t>(value >> 16);
        b[3] = static_cast<std::uint8_t>(value >> 24);
    }
    template <class Record>
    void writeRecords(const std::vector<Record*>& records);
    void writeCount(std::size_t count) { writeWord(static_cast<std::uint32_t>(count)); }

    void keep(WrittenPiece piece);

    std::function<void(WrittenPiece)> takePiece_;
    std::shared_ptr<PageStore> pages_;
    std::vector<WrittenPiece> pieces_;
    std::size_t piecesSize_ = 0;
    ByteBlocks blocks_; // behind all of them
    std::uint8_t* at_ = nullptr; // in the last block
    std::uint8_t* end_ = nullptr;
    WorkSharing sharing_;
    std::unique_ptr<RowHelpers> helpers_; // from the first register that is worth them
};
