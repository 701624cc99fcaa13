#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <stdexcept>
#include <string_view>

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
};

// A map from (language, number) to a name.
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
        const BilingualRow* row = find(number);
        if (!row || (language != languageRussian && language != languageUkrainian))
            failMissingKey();
        return language == languageRussian ? row->russian : row->ukrainian;
    }

    constexpr std::size_t size() const { return Size; }
    // Rows in ascending order of their numbers.
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

// A map from (name, language) to the number, over the rows of a dictionary of names up to a last number.
template <std::size_t Size>
class NameIds
{
public:
    constexpr explicit NameIds(const NameDictionary<Size>& names, int lastNumber)
        : names_(names)
        , lastNumber_(lastNumber)
    {
    }

    constexpr int at(std::wstring_view name, int language) const
    {
        for (const BilingualRow& row : names_)
            if (row.number <= lastNumber_ && names_.at(language, row.number) == name)
                return row.number;
        failMissingKey();
    }

private:
    NameDictionary<Size> names_;
    int lastNumber_;
};
