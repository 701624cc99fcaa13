#pragma once

#include "db/walk_order.h"
#include "persistence/grammar/grammar.h"
#include "persistence/walk_archive.h"
#include "platform/ascii.h"

#include <cstdint>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

// The text that an opening will find where this one is saved: cut at a zero character, with '?' for what the
// code page lacks.
std::wstring storedText(const std::wstring& text);

// Turns the texts of a record into those that an opening will find.
class StoredTexts : public WalkArchive<StoredTexts>
{
public:
    static constexpr bool reading = true;

    template <class Integer>
    void byte(std::string_view, const Integer&)
    {
    }
    template <class Number>
    void word(std::string_view, const Number&)
    {
    }
    void text(std::string_view, std::wstring& value)
    {
        if (!isPlainAscii(value))
            value = storedText(value);
    }
};

// A key as an opening will read it.
template <class Key>
Key storedKey(Key key)
{
    StoredTexts texts;
    entryHalf(texts, {}, key);
    return key;
}

// Whether a reader finds keys of one consistent order, each behind the last, so that none is refused. What is
// not seen here is found row by row.
template <class Map>
bool comeBackInOrder(const Map& rows)
{
    using Key = typename Map::key_type;
    WalkOrder order;
    StoredTexts texts;
    std::pair<Key, Key> keys; // the last one and the next in turn: their texts keep their room
    bool isFirst = true;
    try {
        for (const auto& entry : rows) {
            std::swap(keys.first, keys.second);
            keys.second = entry.first;
            entryHalf(texts, {}, keys.second);
            if (!order.admitsNext<Map>(keys.second))
                return false;
            if (!std::exchange(isFirst, false) && !rows.key_comp()(keys.first, keys.second))
                return false;
        }
    } catch (const std::logic_error&) {
        return false;
    }
    return true;
}

// The register that an opening will make of these rows, up to one whose key it cannot read.
template <class Map>
Map storedRegister(const Map& rows)
{
    Map stored;
    RowByRow insertion(stored);
    StoredTexts texts;
    try {
        for (auto [key, value] : rows) {
            entryHalf(texts, {}, value);
            insertion.insert(std::pair(storedKey(key), std::move(value)));
        }
    } catch (const std::logic_error&) {
        // Such a file does not open at all.
        return stored;
    }
    return stored;
}
