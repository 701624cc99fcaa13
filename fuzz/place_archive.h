#pragma once

#include "persistence/grammar/project.h"
#include "persistence/walk_archive.h"
#include "persistence/write_archive.h"
#include "support/random_project.h"

#include <concepts>
#include <cstddef>
#include <cstdint>
#include <span>
#include <stdexcept>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

// Where in a file a field stands.
struct Place {
    enum class Kind { byte, flag, word, text, guid, blob, code, count };
    // What an element of a list can be wrapped in.
    enum class Nesting { none, block, item, inform };
    // The bytes of one more element of the list, as a program would write them.
    using MakeElement = std::vector<std::uint8_t> (*)(const EntryNames& names, std::uint32_t seed);

    Kind kind;
    std::string_view name;
    std::size_t begin; // a length or count is the word that stands here
    std::size_t end = 0; // behind the field; of a count, behind its word

    // Of a count alone: where its elements begin, and where the last one ends if the file gets that far.
    std::vector<std::size_t> elements{};
    // Lists with the same one hold elements of the same sort.
    MakeElement make = nullptr;
    EntryNames names{};
    Nesting nesting = Nesting::none;
};

// Walks the fields of a file as the reader does and notes their places. Nothing is converted and nothing
// kept, so that what the reader would refuse is passed over; the walk ends with std::exception where the file
// does.
class PlaceArchive : public WalkArchive<PlaceArchive>
{
public:
    static constexpr bool reading = true;
    static constexpr bool binary = true;

    PlaceArchive(std::span<const std::uint8_t> bytes, std::size_t position, std::vector<Place>& places)
        : bytes_(bytes)
        , position_(position)
        , places_(places)
    {
    }

    template <std::integral Integer>
    void byte(std::string_view name, const Integer&)
    {
        note(Place::Kind::byte, name, 1);
    }
    void flag(std::string_view name, bool) { note(Place::Kind::flag, name, 1); }
    template <class Number>
    void word(std::string_view name, const Number&)
    {
        note(Place::Kind::word, name, 4);
    }
    void text(std::string_view name, const std::wstring&) { noteBytes(Place::Kind::text, name); }
    void elementText(std::string_view, const std::wstring&) { noteBytes(Place::Kind::text, "elementText"); }
    void guid(std::string_view name, const Uuid&) { noteBytes(Place::Kind::guid, name); }
    void blob(std::string_view name, const std::vector<std::uint8_t>&) { noteBytes(Place::Kind::blob, name); }

    template <class Element>
    void list(std::string_view name, const std::vector<Element>&)
    {
        elements(name, {}, Place::Nesting::none, makeElement<Element>, [this] {
            Element scratch{};
            element(*this, {}, scratch);
        });
    }
    template <class Key, class Value, class Order>
    void map(std::string_view name, const EntryNames& names, const std::map<Key, Value, Order>&)
    {
        elements(name, names, Place::Nesting::none, makeEntry<Key, Value>, [&] {
            std::pair<Key, Value> scratch;
            entryFields(*this, names, scratch.first, scratch.second);
        });
    }
    void objects(std::string_view name, const GLObjectList&);
    void planes(std::string_view name, const GLObjectList&);
    void informs(std::string_view name, const InformList&);
    void items(std::string_view name, const std::vector<PropertyGridItem*>&);
    void stem(std::string_view name, IDBProject&) { text(name, {}); }
    void subsidence(std::string_view name, SubsidenceMap& values);

private:
    std::uint32_t peekWord() const;
    void skip(std::size_t count);
    void note(Place::Kind kind, std::string_view name, std::size_t size);
    void noteBytes(Place::Kind kind, std::string_view name);

    template <class Each>
    void elements(std::string_view name,
        const EntryNames& names,
        Place::Nesting nesting,
        Place::MakeElement make,
        Each&& each)
    {
        const std::size_t index = places_.size();
        const std::uint32_t count = peekWord();
        note(Place::Kind::count, name, 4);
        places_[index].make = make;
        places_[index].names = names;
        places_[index].nesting = nesting;
        for (std::uint32_t i = 0; i < count; ++i) {
            places_[index].elements.push_back(position_);
            each();
        }
        places_[index].elements.push_back(position_);
    }

    template <class Element>
    static std::vector<std::uint8_t> makeElement(const EntryNames&, std::uint32_t seed)
    {
        RandomArchive random(seed, seed % 2 == 0);
        Element value{};
        element(random, {}, value);
        WriteArchive writer;
        element(writer, {}, value);
        return writer.takeBytes();
    }
    template <class Key, class Value>
    static std::vector<std::uint8_t> makeEntry(const EntryNames& names, std::uint32_t seed)
    {
        RandomArchive random(seed, seed % 2 == 0);
        std::pair<Key, Value> entry;
        entryFields(random, names, entry.first, entry.second);
        WriteArchive writer;
        entryFields(writer, names, entry.first, entry.second);
        return writer.takeBytes();
    }

    std::span<const std::uint8_t> bytes_;
    std::size_t position_;
    std::vector<Place>& places_;
};

// The places of a project file behind its head, as far as the file can be followed.
std::vector<Place> placesOfProject(std::span<const std::uint8_t> bytes);
