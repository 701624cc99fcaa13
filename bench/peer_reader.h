#pragma once

#include "persistence/grammar/project.h"
#include "persistence/walk_archive.h"

#include <bit>
#include <concepts>
#include <map>
#include <string>
#include <vector>

// Reads a project from a source that knows words, bytes, texts and how rows go into a register. Without the
// engine's care: nothing is held against the bytes left, no report is made.
template <class Source>
class PeerReader : public WalkArchive<PeerReader<Source>>
{
public:
    static constexpr bool reading = true;
    static constexpr bool binary = true;

    explicit PeerReader(Source& source)
        : source_(source)
    {
    }

    template <std::integral Integer>
    void byte(std::string_view, Integer& value)
    {
        value = static_cast<Integer>(source_.byte());
    }
    void flag(std::string_view, bool& value) { value = source_.byte() == 1; }
    template <class Number>
    void word(std::string_view, Number& value)
    {
        value = std::bit_cast<Number>(source_.word());
    }
    void text(std::string_view, std::wstring& value) { source_.text(value); }
    void elementText(std::string_view, std::wstring& value) { source_.text(value); }
    void guid(std::string_view, Uuid& value) { source_.guid(value); }
    void blob(std::string_view, std::vector<std::uint8_t>& value)
    {
        value.resize(source_.word());
        for (std::uint8_t& one : value)
            one = source_.byte();
    }

    template <class Element>
    void list(std::string_view, std::vector<Element>& values)
    {
        const std::uint32_t count = source_.word();
        values.clear();
        values.reserve(count);
        for (std::uint32_t i = 0; i < count; ++i)
            element(*this, {}, values.emplace_back());
    }
    template <class Key, class Value, class Order>
    void map(std::string_view, const EntryNames& names, std::map<Key, Value, Order>& values)
    {
        auto&& rows = source_.rowsOf(values);
        const std::uint32_t count = source_.word();
        for (std::uint32_t i = 0; i < count; ++i) {
            std::pair<Key, Value> entry;
            entryFields(*this, names, entry.first, entry.second);
            rows.insert(std::move(entry));
        }
    }
    void objects(std::string_view, GLObjectList& values)
    {
        const std::uint32_t count = source_.word();
        values.reserve(count);
        for (std::uint32_t i = 0; i < count; ++i) {
            const auto code = source_.byte();
            anyDrawingClass([&](auto row) {
                const bool known = static_cast<std::uint8_t>(row.code) == code;
                if (known)
                    values.push_back(readObject(*this, row).detach());
                return known;
            });
        }
    }
    // None of these three stands in a generated site.
    void planes(std::string_view, GLObjectList&) { source_.word(); }
    void informs(std::string_view, InformList&) { source_.word(); }
    void items(std::string_view, std::vector<PropertyGridItem*>&) { source_.word(); }

    void stem(std::string_view, IDBProject& project) { source_.text(project.getFileStem()); }
    void subsidence(std::string_view name, SubsidenceMap& values) { map(name, {}, values); }

private:
    Source& source_;
};
