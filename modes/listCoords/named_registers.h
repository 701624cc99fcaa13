#pragma once

#include "modules/idbproject.h"
#include "site/element_links.h"

#include <algorithm>
#include <iterator>
#include <stdexcept>
#include <string>
#include <string_view>
#include <tuple>
#include <type_traits>
#include <unordered_set>
#include <utility>
#include <vector>

// The registers that name points, and where in each the names stand.

using PointNames = std::unordered_set<std::wstring>;

// Where in a key the name stands. holds: whether it is one of the names; replace: the key with another name.
struct WholeKey {
    static bool holds(const std::wstring& key, const PointNames& names) { return names.contains(key); }
    static void replace(std::wstring& key, const std::wstring&, const std::wstring& name) { key = name; }

    template <class Key>
    static bool holds(const Key& key, const PointNames& names)
    {
        return names.contains(key.pointName);
    }
    template <class Key>
    static void replace(Key& key, const std::wstring&, const std::wstring& name)
    {
        key.pointName = name;
    }
};

struct EitherText {
    static bool holds(const CurveKey& key, const PointNames& names)
    {
        return names.contains(key.first) || names.contains(key.second);
    }
    static void replace(CurveKey& key, const std::wstring& oldName, const std::wstring& name)
    {
        if (key.first == oldName)
            key.first = name;
        if (key.second == oldName)
            key.second = name;
    }
};

// Links of layers are numbered: "12:1", "12:2". Those of number 0 belong to elements and to the site.
struct BeforeColon {
    static bool holds(const std::wstring& key, const PointNames& names)
    {
        const auto link = readLayerLink(key);
        return link && names.contains(std::wstring(link->point));
    }
    static void replace(std::wstring& key, const std::wstring&, const std::wstring& name)
    {
        key.replace(0, key.find(L':'), name);
    }
};

// A register whose rows are named by their keys.
template <class Place>
struct InKeys {
    template <class Map>
    static std::size_t count(const Map& map, const PointNames& names)
    {
        const auto counted = std::count_if(
            map.begin(), map.end(), [&](const auto& entry) { return Place::holds(entry.first, names); });
        return static_cast<std::size_t>(counted);
    }

    template <class Map>
    static void remove(Map& map, const PointNames& names)
    {
        for (auto entry = map.begin(); entry != map.end();)
            entry = Place::holds(entry->first, names) ? map.erase(entry) : std::next(entry);
    }

    // False, or the failure of the ordering, where a row has no place under its new name.
    template <class Map>
    static bool rename(Map& map, const std::wstring& oldName, const std::wstring& newName)
    {
        std::vector<typename Map::node_type> rows;
        for (auto entry = map.begin(); entry != map.end();) {
            const auto next = std::next(entry);
            if (Place::holds(entry->first, {oldName}))
                rows.push_back(map.extract(entry));
            entry = next;
        }
        for (auto& row : rows) {
            Place::replace(row.key(), oldName, newName);
            // The only row of a map is compared with nothing: see now whether its key can be read.
            if (map.empty())
                static_cast<void>(map.key_comp()(row.key(), row.key()));
            if (!map.insert(std::move(row)).inserted)
                return false;
        }
        return true;
    }
};

// The points that a section runs through.
struct InLines {
    static std::size_t count(const SectionLineMap& map, const PointNames& names)
    {
        std::size_t counted = 0;
        for (const auto& [section, points] : map)
            counted += static_cast<std::size_t>(std::count_if(points.begin(),
                points.end(),
                [&](const SectionRef& point) { return names.contains(point.name); }));
        return counted;
    }
    static void remove(SectionLineMap& map, const PointNames& names)
    {
        for (auto& [section, points] : map)
            std::erase_if(points, [&](const SectionRef& point) { return names.contains(point.name); });
    }
    static bool rename(SectionLineMap& map, const std::wstring& oldName, const std::wstring& newName)
    {
        for (auto& [section, points] : map)
            for (SectionRef& point : points)
                if (point.name == oldName)
                    point.name = newName;
        return true;
    }
};

// The two points between which a section runs.
struct AtEnds {
    static std::size_t count(const SectionPointMap& map, const PointNames& names)
    {
        std::size_t counted = 0;
        for (const auto& [section, ends] : map)
            counted += (names.contains(ends.textA) ? 1U : 0U) + (names.contains(ends.textB) ? 1U : 0U);
        return counted;
    }
    static void remove(SectionPointMap& map, const PointNames& names)
    {
        for (auto& [section, ends] : map)
            for (std::wstring* end : {&ends.textA, &ends.textB})
                if (names.contains(*end))
                    end->clear();
    }
    static bool rename(SectionPointMap& map, const std::wstring& oldName, const std::wstring& newName)
    {
        for (auto& [section, ends] : map)
            for (std::wstring* end : {&ends.textA, &ends.textB})
                if (*end == oldName)
                    *end = newName;
        return true;
    }
};

enum class Owner {
    Point, // the name can be a point's only
    PointOrElement, // an element of that name has the better claim
};

template <auto getter, class Place>
struct Register {
    using Map = std::remove_reference_t<std::invoke_result_t<decltype(getter), IDBProject&>>;
    using Where = Place;

    std::wstring_view title;
    Owner owner = Owner::Point;

    static Map& of(IDBProject& project) { return (project.*getter)(); }

    std::size_t count(IDBProject& project, const PointNames& names) const
    {
        return Place::count(of(project), names);
    }
    void remove(IDBProject& project, const PointNames& names) const { Place::remove(of(project), names); }
    bool rename(IDBProject& project, const std::wstring& oldName, const std::wstring& newName) const
    {
        try {
            return Place::rename(of(project), oldName, newName);
        } catch (const std::logic_error&) {
            return false;
        }
    }
};

template <auto getter>
using Keyed = Register<getter, InKeys<WholeKey>>;
template <auto getter>
using Lines = Register<getter, InLines>;
template <auto getter>
using Ends = Register<getter, AtEnds>;

// Every register that names points, in the order of the modes.
// clang-format off
inline constexpr auto namedRegisters = std::make_tuple(
    Keyed<&IDBProject::getLithology>       {L"Литология"},
    Keyed<&IDBProject::getSamples>         {L"Пробы"},
    Keyed<&IDBProject::getWaterLevels>     {L"Уровень воды"},
    Keyed<&IDBProject::getConsistency>     {L"Консистенция"},
    Keyed<&IDBProject::getLabSamples>      {L"Лабораторные пробы"},

    Keyed<&IDBProject::getSoundings>       {L"Статическое зондирование"},
    Keyed<&IDBProject::getSoundingFlags>   {L"Типы грунта зондирований", Owner::PointOrElement},

    Lines<&IDBProject::getSectionLines>    {L"Линии разрезов"},
    Ends<&IDBProject::getSectionPoints>    {L"Концы разрезов"},
    Register<&IDBProject::getSectionCurves, InKeys<EitherText>>
                                           {L"Кривые разрезов", Owner::PointOrElement},
    Lines<&IDBProject::getTerrainLines>    {L"Линии разрезов на модели местности"},
    Ends<&IDBProject::getTerrainPoints>    {L"Концы разрезов на модели местности"},

    Register<&IDBProject::getNumberedLinks, InKeys<BeforeColon>>
                                           {L"Нумерованные ссылки"},
    Keyed<&IDBProject::getSubsidence>      {L"Общая просадочность"},
    Keyed<&IDBProject::getSubsidenceNames> {L"Наименования просадочности", Owner::PointOrElement},
    Keyed<&IDBProject::getSubsidenceGroups>{L"Группы просадочности", Owner::PointOrElement},
    Keyed<&IDBProject::getChemistry>       {L"Химический анализ"});
// clang-format on

// The names as they count for a register of points, and for one of points or elements.
struct WantedNames {
    WantedNames(IDBProject& project, const std::vector<std::wstring>& names)
        : all(names.begin(), names.end())
        , withoutElements(all)
    {
        for (const auto& [name, element] : project.getStrataElements())
            withoutElements.erase(name);
    }
    template <class Part>
    const PointNames& of(const Part& part) const
    {
        return part.owner == Owner::Point ? all : withoutElements;
    }

    PointNames all;
    PointNames withoutElements;
};
