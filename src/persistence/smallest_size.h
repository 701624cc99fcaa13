#pragma once

#include "persistence/grammar/grammar.h"
#include "persistence/walk_archive.h"

#include <cstddef>
#include <string_view>

// Adds up the fewest bytes that a record can take in a file: every text, list and map empty.
class SizeArchive : public WalkArchive<SizeArchive>
{
public:
    std::size_t size() const { return size_; }

    template <class Integer>
    void byte(std::string_view, const Integer&)
    {
        size_ += 1;
    }
    void flag(std::string_view, bool) { size_ += 1; }
    template <class Number>
    void word(std::string_view, const Number&)
    {
        size_ += 4;
    }
    template <class Text>
    void text(std::string_view, const Text&)
    {
        size_ += 4;
    }
    template <class Text>
    void elementText(std::string_view, const Text&)
    {
        size_ += 4;
    }
    template <class Id>
    void guid(std::string_view, const Id&)
    {
        size_ += 4;
    }
    template <class Bytes>
    void blob(std::string_view, const Bytes&)
    {
        size_ += 4;
    }
    template <class List>
    void list(std::string_view, const List&)
    {
        size_ += 4;
    }
    template <class Map>
    void map(std::string_view, const EntryNames&, const Map&)
    {
        size_ += 4;
    }

private:
    std::size_t size_ = 0;
};

// The fewest bytes of one element, derived from the description of its fields.
template <class Element>
std::size_t smallestSize()
{
    static const std::size_t size = [] {
        SizeArchive archive;
        Element value{};
        entryHalf(archive, {}, value);
        return archive.size();
    }();
    return size;
}
