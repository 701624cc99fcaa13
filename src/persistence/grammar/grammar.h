#pragma once

#include <array>
#include <concepts>
#include <cstddef>
#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

// clang-format off
// The files are described once. Each record has one function fields(archive, record) that names its fields in
// file order, and each archive is one thing that can be done with them: read, write, measure, look for what a
// save would lose, turn into JSON and back. An archive offers
//
//   section(name)             marks the section that begins, for messages
//   byte(name, integer)       one byte; the low byte of a wider field
//   flag(name, bool)          one byte, 1 for true
//   word(name, number)        four bytes, little-endian: an integer or a single
//   text(name, wide string)   byte count, then the text in the code page
//   elementText(name, text)   the same with the narrow character rule of geological elements
//   guid(name, uuid)          a text of 36 characters
//   blob(name, bytes)         byte count, then the bytes
//   list(name, vector)        count, then the elements
//   map(name, entryNames, map)  count, then keys and values in walk order; reading keeps the first of equal keys
//   array(name, array, each)  each element in turn, without a count
//   record(name, record)      the fields of a record in place
//
// and, for what stands in a project once or twice and differs by direction, objects, planes, informs, stem,
// doubledTitle, subsidence and subsidenceNames. The constant `reading` tells the direction, `binary` that the
// fields stand as in the file; only the few places ask them where archives really differ.

// clang-format on

// Lets one description serve a record that is being filled and a constant one.
template <class Given, class Record>
concept Of = std::same_as<std::remove_const_t<Given>, Record>;

// How the key and the value of a map's entries are called where they are no records with names of their own.
struct EntryNames {
    std::string_view key;
    std::string_view value;
};

template <class T>
inline constexpr bool isVector = false;
template <class T>
inline constexpr bool isVector<std::vector<T>> = true;

template <class T>
inline constexpr bool isWordArray = false;
template <std::size_t Size>
inline constexpr bool isWordArray<std::array<std::int32_t, Size>> = true;

// One element of a list, or a key or value of a map, by its type; the name is empty in lists.
template <class Archive, class Element>
void element(Archive& archive, std::string_view name, Element& value)
{
    using Type = std::remove_const_t<Element>;
    if constexpr (std::same_as<Type, std::wstring>)
        archive.text(name, value);
    else if constexpr (std::same_as<Type, std::uint8_t>)
        archive.byte(name, value);
    else if constexpr (std::same_as<Type, float> || std::same_as<Type, std::uint32_t>)
        archive.word(name, value);
    else if constexpr (std::same_as<Type, std::vector<std::uint8_t>>)
        archive.blob(name, value);
    else if constexpr (isVector<Type>)
        archive.list(name, value);
    else
        archive.record(name, value);
}

// A key or a value inside an entry: a record's fields stand beside those of the other half.
template <class Archive, class Half>
void entryHalf(Archive& archive, std::string_view name, Half& half)
{
    using Type = std::remove_const_t<Half>;
    if constexpr (isWordArray<Type>)
        words(archive, name, half);
    else if constexpr (std::is_class_v<Type> && !std::same_as<Type, std::wstring> && !isVector<Type>)
        fields(archive, half);
    else
        element(archive, name, half);
}

template <class Archive, class Key, class Value>
void entryFields(Archive& archive, const EntryNames& names, Key& key, Value& value)
{
    entryHalf(archive, names.key, key);
    entryHalf(archive, names.value, value);
}

// Arrays of fixed size: their elements one after the other, without a count.

template <class Archive, class Array>
void texts(Archive& archive, std::string_view name, Array& array)
{
    archive.array(name, array, [&archive](auto& value) { archive.text({}, value); });
}

template <class Archive, class Array>
void words(Archive& archive, std::string_view name, Array& array)
{
    archive.array(name, array, [&archive](auto& value) { archive.word({}, value); });
}

template <class Archive, class Array>
void bytes(Archive& archive, std::string_view name, Array& array)
{
    archive.array(name, array, [&archive](auto& value) { archive.byte({}, value); });
}
