#pragma once

#include "core/base/reference.h"
#include "core/base/work_sharing.h"
#include "db/key_text.h"
#include "db/walk_order.h"
#include "modules/idbproject.h"
#include "persistence/grammar/drawings.h"
#include "persistence/grammar/grammar.h"
#include "persistence/grammar/informs.h"
#include "persistence/grammar/strata.h"
#include "persistence/read_report.h"
#include "persistence/skip_archive.h"
#include "persistence/smallest_size.h"
#include "persistence/walk_archive.h"

#include <algorithm>
#include <bit>
#include <concepts>
#include <cstdint>
#include <cstring>
#include <functional>
#include <future>
#include <span>
#include <string>
#include <type_traits>

// Reads fields from the bytes of a file, strictly one after the other. Every read past the end throws
// std::out_of_range ("invalid vector<T> subscript"); nothing is allocated beyond what the bytes left can
// fill. The rows of a large register are read by several threads.
class ReadArchive : public WalkArchive<ReadArchive>
{
public:
    static constexpr bool reading = true;
    static constexpr bool binary = true;

    ReadArchive(std::span<const std::uint8_t> bytes,
        std::size_t position,
        ReadReport& report,
        const WorkSharing& sharing = {});

    std::size_t position() const { return position_; }

    void section(std::string_view name) { report_.section = name; }

    template <std::integral Integer>
    void byte(std::string_view, Integer& value)
    {
        value = static_cast<Integer>(take(1)[0]);
    }
    void flag(std::string_view, bool& value) { value = take(1)[0] == 1; }

    template <class Number>
    void word(std::string_view, Number& value)
    {
        static_assert(sizeof(Number) == 4);
        value = std::bit_cast<Number>(readWord());
    }
    void text(std::string_view name, std::wstring& value);
    void elementText(std::string_view name, std::wstring& value);
    void guid(std::string_view name, Uuid& value);
    void blob(std::string_view name, std::vector<std::uint8_t>& value);

    template <class Element>
    void list(std::string_view, std::vector<Element>& values)
    {
        const std::uint32_t count = readWord();
        expect(count, smallestSize<Element>());
        values.clear();
        values.reserve(count);
        for (std::uint32_t i = 0; i < count; ++i)
            element(*this, {}, values.emplace_back());
    }

    template <class Key, class Value, class Order>
    void map(std::string_view, const EntryNames& names, std::map<Key, Value, Order>& values)
    {
        RowByRow rows(values);
        const std::uint32_t count = readWord();
        expect(count, smallestSize<Key>() + smallestSize<Value>());
        auto parts = readAhead<Key, Value>(count, names);
        std::size_t row = 0;
        for (ReadPart<Key, Value>& part : parts) {
            for (; row < part.firstRow; ++row)
                addRow<Key>(readRow<Key, Value>(names), rows, names);
            // Where the thread met anything to report, these rows are read here like the others.
            for (ReadRow<Key, Value>& read : part.takeRows(position_)) {
                position_ = read.end;
                addRow<Key>(std::move(read), rows, names);
                ++row;
            }
        }
        for (; row < count; ++row)
            addRow<Key>(readRow<Key, Value>(names), rows, names);
    }

    // Object lists: a type code, then the object. An unknown code is one byte and no object; what follows it
    // is then read as something else, as the format has it.
    void objects(std::string_view name, GLObjectList& values);
    void planes(std::string_view name, GLObjectList& values);
    void informs(std::string_view name, InformList& values);
    void items(std::string_view name, std::vector<PropertyGridItem*>& values);

    // The short name in the file is not taken: the project's is that of the path in its head.
    void stem(std::string_view name, IDBProject& project);
    void complete(SectionPointMap& points, SectionLineMap& lines, PointRegister& pointRegister);
    // Every cell takes the title of its row; a cell whose text is empty is none, a row without cells stays.
    void subsidence(std::string_view name, SubsidenceMap& values);
    // A name that comes twice keeps its last list.
    void subsidenceNames(std::string_view name, SubsidenceNames& values);

    // What stands in the file and does not come into the project.
    void drop(std::string_view what) { report_.addDrop(what, position_); }
    ReadReport& report() { return report_; }

private:
    const std::uint8_t* take(std::size_t count)
    {
        if (count > bytes_.size() - position_)
            failPastEnd();
        const std::uint8_t* first = bytes_.data() + position_;
        position_ += count;
        return first;
    }
    std::uint32_t readWord()
    {
        const std::uint8_t* b = take(4);
        return static_cast<std::uint32_t>(b[0]) | static_cast<std::uint32_t>(b[1]) << 8
            | static_cast<std::uint32_t>(b[2]) << 16 | static_cast<std::uint32_t>(b[3]) << 24;
    }
    // The bytes of a text up to its first zero byte; the position moves behind all of them.
    std::span<const std::uint8_t> readTextBytes();
    // Fails at once where the bytes left cannot hold that many elements, before anything is allocated for
    // them.
    void expect(std::uint32_t count, std::size_t smallest) const
    {
        if (count > (bytes_.size() - position_) / smallest)
            failPastEnd();
    }
    [[noreturn]] static void failPastEnd();

    // A row of a register and the bytes that it stands in.
    template <class Key, class Value>
    struct ReadRow {
        std::pair<Key, Value> entry;
        std::size_t begin = 0;
        std::size_t end = 0;
    };
    // The rows from one on, being read in another thread.
    template <class Key, class Value>
    struct ReadPart {
        std::size_t firstRow = 0;
        std::size_t begin = 0;
        std::vector<ReadRow<Key, Value>> rows;
        std::future<void> reading; // the last member: gone before the rows that it fills

        std::vector<ReadRow<Key, Value>> takeRows(std::size_t position)
        {
            if (!reading.valid() || position != begin)
                return {};
            reading.get();
            return std::move(rows);
        }
    };

    template <class Key, class Value>
    ReadRow<Key, Value> readRow(const EntryNames& names)
    {
        ReadRow<Key, Value> row;
        row.begin = position_;
        entryFields(*this, names, row.entry.first, row.entry.second);
        row.end = position_;
        return row;
    }

    template <class Key, class Row, class Rows>
    void addRow(Row&& row, Rows& rows, const EntryNames& names)
    {
        if (!rows.insert(std::move(row.entry)))
            refuse<Key>(row.begin, names);
    }

    // Has the later rows of a large register read by other threads, while this one reads the first. Rows do
    // not depend on one another until they are put into the register, which is done here, in their order.
    template <class Key, class Value>
    std::vector<ReadPart<Key, Value>> readAhead(std::size_t count, const EntryNames& names) const
    {
        std::vector<ReadPart<Key, Value>> parts;
        if (!sharing_.divides(count, bytes_.size() - position_))
            return parts;
        SkipArchive places(bytes_, position_);
        std::size_t row = 0;
        for (std::size_t i = 1; i < sharing_.threads; ++i) {
            const std::size_t first = count * i / sharing_.threads;
            places.rows<Key, Value>(first - row);
            row = first;
            parts.push_back({first, places.position(), {}, {}});
        }
        if (!places.isWhole() || places.position() - position_ < sharing_.worthwhile / 2)
            return {};
        for (std::size_t i = 0; i < parts.size(); ++i) {
            const std::size_t end = i + 1 < parts.size() ? parts[i + 1].firstRow : count;
            parts[i].reading =
                readAside([bytes = bytes_, &part = parts[i], count = end - parts[i].firstRow, names] {
                    part.rows = readRows<Key, Value>(bytes, part.begin, count, names);
                });
        }
        return parts;
    }

    static std::future<void> readAside(std::function<void()> read);

    // No rows where anything is wrong with them: only reading in order tells what, and when.
    template <class Key, class Value>
    static std::vector<ReadRow<Key, Value>> readRows(
        std::span<const std::uint8_t> bytes, std::size_t begin, std::size_t count, const EntryNames& names)
    {
        ReadReport report;
        ReadArchive archive(bytes, begin, report, WorkSharing{1});
        std::vector<ReadRow<Key, Value>> rows;
        try {
            rows.reserve(count);
            for (std::size_t i = 0; i < count; ++i)
                rows.push_back(archive.readRow<Key, Value>(names));
        } catch (...) {
            return {};
        }
        return report.dropCount == 0 && report.refusalCount == 0 ? std::move(rows)
                                                                 : std::vector<ReadRow<Key, Value>>();
    }

    // Notes a row that was not taken, from its begin to here. The map has swallowed its key: read it once
    // more.
    template <class Key>
    void refuse(std::size_t begin, const EntryNames& names)
    {
        ReadReport scratch;
        ReadArchive again(bytes_, begin, scratch);
        Key key{};
        entryHalf(again, names.key, key);
        report_.addRefusal(keyText(key), begin, position_);
    }

    // A list of what make() reads, each held by reference until the whole list is there; null leaves a gap
    // out.
    template <class Record, class Make>
    void references(std::vector<Record*>& values, Make&& make);

    std::span<const std::uint8_t> bytes_;
    std::size_t position_;
    ReadReport& report_;
    WorkSharing sharing_;
};

template <class Record, class Make>
void ReadArchive::references(std::vector<Record*>& values, Make&& make)
{
    const std::uint32_t count = readWord();
    expect(count, 1);
    std::vector<Reference<Record>> read;
    for (std::uint32_t i = 0; i < count; ++i)
        if (Reference<Record> one = make())
            read.push_back(std::move(one));
    values.reserve(values.size() + read.size());
    for (auto& one : read)
        values.push_back(one.detach());
}
