#pragma once

#include "modules/idbproject.h"
#include "persistence/grammar/grammar.h"
#include "persistence/nesting_level.h"

#include <string>
#include <string_view>

// What most archives do alike: they walk over what is there, in its order. An archive derives from this with
// itself as the parameter and defines what it does otherwise, which hides the operation here.
template <class Archive>
class WalkArchive
{
public:
    static constexpr bool reading = false;
    static constexpr bool binary = false;

    void section(std::string_view) { }
    template <class Text>
    void elementText(std::string_view name, Text& value)
    {
        self().text(name, value);
    }
    template <class List>
    void list(std::string_view name, List& values)
    {
        for (auto& value : values)
            element(self(), name, value);
    }
    template <class Array, class Each>
    void array(std::string_view, Array& values, Each&& each)
    {
        for (auto& value : values)
            each(value);
    }
    template <class Map>
    void map(std::string_view, const EntryNames& names, Map& values)
    {
        for (auto& [key, value] : values)
            entryFields(self(), names, key, value);
    }
    template <class Record>
    void record(std::string_view, Record& value)
    {
        fields(self(), value);
    }

    void stem(std::string_view name, IDBProject& project) { self().text(name, project.getFileStem()); }
    template <class Text>
    void doubledTitle(std::string_view nameA, Text& a, std::string_view nameB, Text& b)
    {
        self().text(nameA, a);
        self().text(nameB, b);
    }
    void complete(SectionPointMap&, SectionLineMap&, PointRegister&) { }
    template <class Map>
    void subsidenceNames(std::string_view name, Map& values)
    {
        self().map(name, {"name", "names"}, values);
    }

    NestingLevel enter() { return NestingLevel(depth_); }

protected:
    WalkArchive() = default;
    ~WalkArchive() = default;
    WalkArchive(const WalkArchive&) = default;
    WalkArchive& operator=(const WalkArchive&) = default;

    int depth() const { return depth_; }

private:
    Archive& self() { return static_cast<Archive&>(*this); }

    int depth_ = 0;
};
