#pragma once

#include "core/base/work_sharing.h"
#include "modules/idbproject.h"
#include "persistence/grammar/drawings.h"
#include "persistence/grammar/grammar.h"
#include "persistence/grammar/informs.h"
#include "persistence/grammar/strata.h"
#include "persistence/nesting_level.h"

#include <algorithm>
#include <bit>
#include <concepts>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <future>
#include <iterator>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

// Writes fields as the bytes of a file into memory. Nothing it is given can fail but a drawing nested deeper
// than the reader follows, which throws MException. The rows of a large register are written by several
// threads.
class WriteArchive
{
public:
    static constexpr bool reading = false;
    static constexpr bool binary = true;

    // With room for as many bytes as are expected; fewer or more do no harm.
    explicit WriteArchive(std::size_t expected = 0, const WorkSharing& sharing = {})
        : sharing_(sharing)
    {
        bytes_.reserve(expected);
    }

    // The bytes written so far; the archive is empty afterwards.
    std::vector<std::uint8_t> takeBytes();

    void section(std::string_view) { }

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
    void text(std::string_view name, const std::wstring& value);
    // Written like any other text, though not all of them can be read back.
    void elementText(std::string_view name, const std::wstring& value) { text(name, value); }
    void guid(std::string_view name, const Uuid& value);
    void blob(std::string_view name, const std::vector<std::uint8_t>& value);

    template <class List>
    void list(std::string_view, List& values)
    {
        writeCount(values.size());
        for (auto& value : values)
            element(*this, {}, value);
    }

    template <class Array, class Each>
    void array(std::string_view, Array& values, Each&& each)
    {
        for (auto& value : values)
            each(value);
    }

    template <class Map>
    void map(std::string_view, const EntryNames& names, Map& values)
    {
        writeCount(values.size());
        const std::size_t firstRows = std::min<std::size_t>(values.size(), 64);
        const std::size_t begin = size_;
        writeRows(names, values.begin(), firstRows);
        const std::size_t left = values.size() - firstRows;
        if (left == 0)
            return;
        // What the first rows took tells of the others: room is made once, and a large register divided.
        const std::size_t expected = (size_ - begin) / firstRows * left / 16 * 17;
        makeRoom(expected);
        const auto next = advanced(values.begin(), firstRows);
        if (sharing_.divides(left, expected))
            writeDivided(names, next, left, expected);
        else
            writeRows(names, next, left);
    }

    template <class Record>
    void record(std::string_view, Record& value)
    {
        fields(*this, value);
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
    void subsidenceNames(std::string_view name, SubsidenceNames& values)
    {
        map(name, {"name", "names"}, values);
    }

    NestingLevel enter() { return NestingLevel(depth_); }

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
    // The first rows here, the others meanwhile in other threads, each into bytes of its own, which are put
    // together in the order of the rows. Writing changes nothing in the project.
    template <class Row>
    void writeDivided(const EntryNames& names, Row first, std::size_t count, std::size_t expected)
    {
        const auto begin = [count, threads = sharing_.threads](
                               std::size_t part) { return count * part / threads; };
        std::vector<std::future<std::vector<std::uint8_t>>> parts(sharing_.threads);
        for (std::size_t i = 1; i < parts.size(); ++i)
            parts[i] = inAnotherThread([&names,
                                           first,
                                           skipped = begin(i),
                                           rows = begin(i + 1) - begin(i),
                                           room = expected / sharing_.threads] {
                WriteArchive archive(room, WorkSharing{1});
                archive.writeRows(names, advanced(first, skipped), rows);
                return archive.takeBytes();
            });
        for (std::size_t i = 0; i < parts.size(); ++i) {
            if (parts[i].valid())
                append(parts[i].get());
            else
                writeRows(names, advanced(first, begin(i)), begin(i + 1) - begin(i));
        }
    }
    void append(const std::vector<std::uint8_t>& bytes);
    void makeRoom(std::size_t count);
    // Room for more bytes; returns where they begin.
    std::uint8_t* extend(std::size_t count)
    {
        if (count > bytes_.size() - size_)
            grow(count);
        std::uint8_t* first = bytes_.data() + size_;
        size_ += count;
        return first;
    }
    void grow(std::size_t count);
    void writeWord(std::uint32_t value)
    {
        std::uint8_t* b = extend(4);
        b[0] = static_cast<std::uint8_t>(value);
        b[1] = static_cast<std::uint8_t>(value >> 8);
        b[2] = static_cast<std::uint8_t>(value >> 16);
        b[3] = static_cast<std::uint8_t>(value >> 24);
    }
    template <class Record>
    void writeRecords(const std::vector<Record*>& records);
    void writeCount(std::size_t count) { writeWord(static_cast<std::uint32_t>(count)); }

    std::vector<std::uint8_t> bytes_;
    std::size_t size_ = 0;
    WorkSharing sharing_;
    int depth_ = 0;
};
