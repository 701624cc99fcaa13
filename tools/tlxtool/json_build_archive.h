#pragma once

#include "core/base/reference.h"
#include "db/key_text.h"
#include "db/walk_order.h"
#include "modules/idbproject.h"
#include "persistence/grammar/drawings.h"
#include "persistence/grammar/grammar.h"
#include "persistence/grammar/informs.h"
#include "persistence/grammar/strata.h"
#include "persistence/walk_archive.h"
#include "tlxtool/json.h"

#include <concepts>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

// Fills the fields of a project from the members of a JSON object, as JsonDumpArchive writes them. Every
// fault (a missing or unknown member, another type, a number out of range, a row that its register refuses)
// throws ToolError, which begins with the path of the place: "project.lithology[3].depth". What the reader of
// files completes or drops, this one takes as it stands.
class JsonBuildArchive : public WalkArchive<JsonBuildArchive>
{
public:
    static constexpr bool reading = true;

    explicit JsonBuildArchive(const Json& root)
        : root_(root)
    {
    }

    // Calls body() for the members of the root, all of which must be asked for.
    template <class Body>
    void inRoot(Body&& body)
    {
        inObject(root_, std::forward<Body>(body));
    }
    // The same for the members of a member that is an object.
    template <class Body>
    void inMember(std::string_view name, Body&& body)
    {
        inObject(take(name), std::forward<Body>(body));
    }
    // The value of a member of any type.
    const Json& any(std::string_view name) { return take(name); }
    // A member that may be missing.
    void optional(std::string_view name);
    [[noreturn]] void fail(const std::string& what) const;

    template <std::integral Integer>
    void byte(std::string_view name, Integer& value)
    {
        value = static_cast<Integer>(integer(take(name), 0, std::numeric_limits<std::uint8_t>::max()));
    }
    void flag(std::string_view name, bool& value);

    template <std::integral Number>
    void word(std::string_view name, Number& value)
    {
        using Limits = std::numeric_limits<Number>;
        value = static_cast<Number>(integer(take(name), Limits::min(), Limits::max()));
    }
    void word(std::string_view name, float& value);
    void text(std::string_view name, std::wstring& value);
    void guid(std::string_view name, Uuid& value);
    void blob(std::string_view name, std::vector<std::uint8_t>& value);

    template <class Element>
    void list(std::string_view name, std::vector<Element>& values)
    {
        values.clear();
        inArray(take(name), [&](std::size_t count) {
            values.reserve(count);
            for (std::size_t i = 0; i < count; ++i)
                element(*this, {}, values.emplace_back());
        });
    }

    template <class Array, class Each>
    void array(std::string_view name, Array& values, Each&& each)
    {
        inArray(take(name), [&](std::size_t count) {
            expectCount(values.size(), count);
            for (auto& value : values)
                each(value);
        });
    }

    // Rows go in one by one in the given order, as they do when they are typed.
    template <class Key, class Value, class Order>
    void map(std::string_view name, const EntryNames& names, std::map<Key, Value, Order>& values)
    {
        values.clear();
        RowByRow rows(values);
        inArray(take(name), [&](std::size_t count) {
            for (std::size_t i = 0; i < count; ++i) {
                std::pair<Key, Value> entry;
                inObject(take({}), [&] { entryFields(*this, names, entry.first, entry.second); });
                insert(rows, values, std::move(entry));
            }
        });
    }

    template <class Record>
    void record(std::string_view name, Record& value)
    {
        inMember(name, [&] { fields(*this, value); });
    }

    void objects(std::string_view name, GLObjectList& values);
    void planes(std::string_view name, GLObjectList& values);
    void informs(std::string_view name, InformList& values);
    void items(std::string_view name, std::vector<PropertyGridItem*>& values);
    void stem(std::string_view name, IDBProject& project);
    void doubledTitle(std::string_view nameA, std::wstring& a, std::string_view nameB, std::wstring& b);
    void subsidence(std::string_view name, SubsidenceMap& values);
    NestingLevel enter();

private:
    // An object or array that is being read, and how far.
    struct Level {
        const Json* value;
        std::size_t next = 0; // the element, or the member that is looked at first
        std::size_t taken = 0;
        std::vector<bool> used; // the members asked for
    };

    // The next element of the array, or the member of that name, of the innermost level.
    const Json& take(std::string_view name);
    std::size_t find(std::string_view name) const;

    template <class Body>
    void inObject(const Json& value, Body&& body)
    {
        expectObject(value);
        levels_.push_back({&value, 0, 0, std::vector<bool>(value.size())});
        body();
        expectAllTaken();
        levels_.pop_back();
    }
    template <class Body>
    void inArray(const Json& value, Body&& body)
    {
        expectArray(value);
        levels_.push_back({&value, 0, 0, {}});
        body(value.size());
        levels_.pop_back();
    }
    template <class Record, class Make>
    void references(std::string_view name, std::vector<Record*>& values, Make&& make);
    Reference<GLObjectDB> object();
    void subsidenceCells(std::vector<SubsidenceCell>& cells);

    void expectObject(const Json& value) const;
    void expectArray(const Json& value) const;
    void expectAllTaken();
    void expectCount(std::size_t wanted, std::size_t found) const;
    std::int64_t integer(const Json& value, std::int64_t smallest, std::int64_t largest) const;
    const std::string& string(const Json& value) const;

    template <class Key, class Value, class Order>
    void insert(RowByRow<std::map<Key, Value, Order>>& rows,
        std::map<Key, Value, Order>& values,
        std::pair<Key, Value>&& entry)
    {
        const std::wstring key = keyText(entry.first);
        try {
            // The only row of a register is compared with itself, as the project's own operations do.
            if (values.empty())
                static_cast<void>(values.key_comp()(entry.first, entry.first));
            if (!rows.insert(std::move(entry)))
                failRefused(key, {});
        } catch (const std::logic_error& failure) {
            failRefused(key, failure.what());
        }
    }
    [[noreturn]] void failRefused(const std::wstring& key, std::string_view reason) const;

    const Json& root_;
    std::vector<Level> levels_;
};
