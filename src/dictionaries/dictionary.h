#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <stdexcept>
#include <string_view>
#include <utility>

// The form of every table of the shared vocabulary: constant rows in the order in which a person reads them,
// looked up as a map. A missing key throws std::out_of_range ("invalid map<K, T> key").

[[noreturn]] inline void failMissingKey()
{
    throw std::out_of_range("invalid map<K, T> key");
}

template <class Key, class Value>
struct DictionaryEntry {
    Key key;
    Value value;
};

// A map from key to value. Walks in ascending key order, whatever the order of its rows.
template <class Key, class Value, std::size_t Size>
class Dictionary
{
public:
    using Entry = DictionaryEntry<Key, Value>;

    constexpr explicit Dictionary(const std::array<Entry, Size>& rows)
        : entries_(rows)
    {
        std::sort(
            entries_.begin(), entries_.end(), [](const Entry& a, const Entry& b) { return a.key < b.key; });
        for (std::size_t i = 1; i < Size; ++i)
            if (!(entries_[i - 1].key < entries_[i].key))
                throw std::logic_error("a key stands twice in the table");
    }

    constexpr const Value* find(const Key& key) const
    {
        const auto place = std::lower_bound(
            entries_.begin(), entries_.end(), key, [](const Entry& entry, const Key& wanted) {
                return entry.key < wanted;
            });
        return place != entries_.end() && place->key == key ? &place->value : nullptr;
    }
    constexpr const Value& at(const Key& key) const
    {
        const Value* value = find(key);
        if (!value)
            failMissingKey();
        return *value;
    }
    constexpr bool contains(const Key& key) const { return find(key) != nullptr; }

    constexpr std::size_t size() const { return Size; }
    constexpr auto begin() const { return entries_.begin(); }
    constexpr auto end() const { return entries_.end(); }

private:
    std::array<Entry, Size> entries_;
};

// Numbers to texts, the commonest table.
template <std::size_t Size>
constexpr auto textsByNumber(const DictionaryEntry<int, std::wstring_view> (&rows)[Size])
{
    return Dictionary<int, std::wstring_view, Size>(std::to_array(rows));
}

// The same rows the other way round.
template <class Key, class Value, std::size_t Size>
constexpr auto reversed(const Dictionary<Key, Value, Size>& dictionary)
{
    std::array<DictionaryEntry<Value, Key>, Size> rows{};
    std::transform(dictionary.begin(), dictionary.end(), rows.begin(), [](const auto& entry) {
        return DictionaryEntry<Value, Key>{entry.value, entry.key};
    });
    return Dictionary<Value, Key, Size>(rows);
}

// The languages of reports, as the setting reportLanguage counts them.
inline constexpr int languageRussian = 0;
inline constexpr int languageUkrainian = 1;

// One name in both languages side by side.
struct BilingualRow {
    int number;
    std::wstring_view russian;
    std::wstring_view ukrainian;

    // Null for a language that is neither.
    constexpr const std::wstring_view* name(int language) const
    {
        if (language == languageRussian)
            return &russian;
        return language == languageUkrainian ? &ukrainian : nullptr;
    }
};

// A map from (language, number) to a name. Walks its rows, both languages at once, in ascending order of
// their numbers.
template <std::size_t Size>
class NameDictionary
{
public:
    constexpr explicit NameDictionary(const std::array<BilingualRow, Size>& rows)
        : rows_(rows)
    {
        std::sort(
            rows_.begin(), rows_.end(), [](const auto& a, const auto& b) { return a.number < b.number; });
        for (std::size_t i = 1; i < Size; ++i)
            if (rows_[i - 1].number == rows_[i].number)
                throw std::logic_error("a number stands twice in the table");
    }

    constexpr const BilingualRow* find(int number) const
    {
        const auto place =
            std::lower_bound(rows_.begin(), rows_.end(), number, [](const BilingualRow& row, int wanted) {
                return row.number < wanted;
            });
        return place != rows_.end() && place->number == number ? &*place : nullptr;
    }
    constexpr std::wstring_view at(int language, int number) const
    {
        const std::wstring_view* name = find(language, number);
        if (!name)
            failMissingKey();
        return *name;
    }
    constexpr const std::wstring_view* find(int language, int number) const
    {
        const BilingualRow* row = find(number);
        return row ? row->name(language) : nullptr;
    }

    constexpr std::size_t size() const { return Size; }
    constexpr auto begin() const { return rows_.begin(); }
    constexpr auto end() const { return rows_.end(); }

private:
    std::array<BilingualRow, Size> rows_;
};

template <std::size_t Size>
constexpr auto bilingual(const BilingualRow (&rows)[Size])
{
    return NameDictionary<Size>(std::to_array(rows));
}

// A map from (name, language) to the number, over the lowest Count numbers of a dictionary of names.
template <std::size_t Count>
class NameIds
{
public:
    using Key = std::pair<std::wstring_view, int>;
    using Entries = std::array<DictionaryEntry<Key, int>, 2 * Count>;

    constexpr explicit NameIds(const Entries& entries)
        : ids_(entries)
    {
    }

    constexpr int at(std::wstring_view name, int language) const { return ids_.at({name, language}); }
    constexpr const int* find(std::wstring_view name, int language) const
    {
        return ids_.find({name, language});
    }

    constexpr std::size_t size() const { return ids_.size(); }
    constexpr auto begin() const { return ids_.begin(); }
    constexpr auto end() const { return ids_.end(); }

private:
    Dictionary<Key, int, 2 * Count> ids_;
};

template <std::size_t Count, std::size_t Size>
constexpr NameIds<Count> nameIds(const NameDictionary<Size>& names)
{
    static_assert(Count <= Size);
    typename NameIds<Count>::Entries entries{};
    auto row = names.begin();
    for (std::size_t i = 0; i < Count; ++i, ++row) {
        entries[2 * i] = {{row->russian, languageRussian}, row->number};
        entries[2 * i + 1] = {{row->ukrainian, languageUkrainian}, row->number};
    }
    return NameIds<Count>(entries);
}
