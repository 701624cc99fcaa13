#pragma once

#include "db/records/point_keys.h"
#include "db/records/section_records.h"
#include "db/records/sounding.h"

#include <concepts>
#include <string>
#include <string_view>
#include <utility>

// What the orderings make of a name.
enum class NameClass {
    lettered, // holds a letter: compares as text
    number, // reads as an integer other than 0
    zero, // reads as 0: has a place of its own only where the ordering says so
    unreadable, // neither a letter nor a number: every comparison that needs the number fails
};

NameClass classOfName(std::wstring_view name);

// Whether the text reads as a finite number, so that rows can be ordered by it.
bool isFiniteNumber(std::wstring_view text);

// Tells whether the keys of a register all stand in one consistent order. Only then does a row that walks
// behind the last one belong there whatever else the map holds, and can be put there without a search.
class WalkOrder
{
public:
    // Takes the next key into account; false once the keys have no consistent order.
    bool admits(const PointKey& key) { return admitsName(key.pointName, true); }
    bool admits(const SoundingKey& key) { return admitsName(key.pointName, true); }
    bool admits(const PointDepthKey& key)
    {
        return admitsName(key.pointName, false) && (consistent_ = isFiniteNumber(key.depth));
    }
    // Keys of maps by number or by text, and of orderings that compare every name in one way.
    template <class Key>
    bool admits(const Key&)
    {
        return true;
    }
    // Maps ordered by NumericTextOrder.
    bool admitsNumericText(std::wstring_view name) { return admitsName(name, false); }
    // The next key of such a map.
    template <class Map>
    bool admitsNext(const typename Map::key_type& key)
    {
        if constexpr (std::same_as<typename Map::key_compare, NumericTextOrder>)
            return admitsNumericText(key);
        else
            return admits(key);
    }

private:
    bool admitsName(std::wstring_view name, bool zeroIsNumber);

    enum class Names { none, lettered, numbers };
    Names names_ = Names::none;
    bool consistent_ = true;
};

// Fills an empty register row by row, as opening a file does: the same map as a plain insert makes of every
// row, without a search where the rows come in walk order.
template <class Map>
class RowByRow
{
public:
    explicit RowByRow(Map& rows)
        : rows_(rows)
    {
    }

    // Returns whether the register took the row. Throws as its ordering does.
    template <class Entry>
    bool insert(Entry&& entry)
    {
        const bool ordered = order_.admitsNext<Map>(entry.first);
        const std::size_t before = rows_.size();
        if (ordered)
            rows_.insert(rows_.end(), std::forward<Entry>(entry));
        else // As the map's own row: given another pair the library searches in another way.
            rows_.insert(typename Map::value_type(std::forward<Entry>(entry)));
        return rows_.size() != before;
    }

private:
    Map& rows_;
    WalkOrder order_;
};
