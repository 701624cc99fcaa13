#pragma once

#include "persistence/grammar/grammar.h"
#include "persistence/walk_archive.h"

#include <cstdint>
#include <span>
#include <string_view>

// Walks over the rows of a register without keeping anything, to learn where in the file each begins.
class SkipArchive : public WalkArchive<SkipArchive>
{
public:
    static constexpr bool binary = true;

    SkipArchive(std::span<const std::uint8_t> bytes, std::size_t position)
        : bytes_(bytes)
        , position_(position)
    {
    }

    std::size_t position() const { return position_; }
    // False once the bytes have ended inside of a row.
    bool isWhole() const { return whole_; }

    template <class Integer>
    void byte(std::string_view, const Integer&)
    {
        skip(1);
    }
    void flag(std::string_view, bool) { skip(1); }
    template <class Number>
    void word(std::string_view, const Number&)
    {
        skip(4);
    }
    template <class Text>
    void text(std::string_view, const Text&)
    {
        skip(readWord());
    }
    template <class Text>
    void elementText(std::string_view, const Text&)
    {
        skip(readWord());
    }
    template <class Bytes>
    void blob(std::string_view, const Bytes&)
    {
        skip(readWord());
    }
    template <class List>
    void list(std::string_view, const List&)
    {
        typename List::value_type value{};
        for (std::uint32_t left = readWord(); left > 0 && whole_; --left)
            element(*this, {}, value);
    }
    template <class Map>
    void map(std::string_view, const EntryNames&, const Map&)
    {
        rows<typename Map::key_type, typename Map::mapped_type>(readWord());
    }
    // So many rows of a register.
    template <class Key, class Value>
    void rows(std::size_t count)
    {
        Key key{};
        Value value{};
        for (; count > 0 && whole_; --count)
            entryFields(*this, {}, key, value);
    }

private:
    void skip(std::size_t count)
    {
        whole_ = whole_ && count <= bytes_.size() - position_;
        if (whole_)
            position_ += count;
    }
    std::uint32_t readWord()
    {
        const std::size_t at = position_;
        skip(4);
        if (!whole_)
            return 0;
        const std::uint8_t* b = bytes_.data() + at;
        return static_cast<std::uint32_t>(b[0]) | static_cast<std::uint32_t>(b[1]) << 8
            | static_cast<std::uint32_t>(b[2]) << 16 | static_cast<std::uint32_t>(b[3]) << 24;
    }

    std::span<const std::uint8_t> bytes_;
    std::size_t position_;
    bool whole_ = true;
};
