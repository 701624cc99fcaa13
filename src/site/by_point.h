#pragma once

#include "core/base/reading_order.h"
#include "core/base/typed_number.h"
#include "modules/idbproject.h"

#include <algorithm>
#include <functional>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

// The rows of a register gathered by the exact name of their point, points as a person reads a list of them,
// rows from the top down. The registers' own order is not enough: "Скв-11" stands before "Скв-2" there, names
// that read as one number stand mixed, and mixed names stand in no consistent order at all.

// By the names that nameOf gives; where they are in order already, which is often, that is all it looks for.
template <class List, class NameOf>
void sortInReadingOrder(List& list, const NameOf& nameOf)
{
    const auto isBefore = [&](const auto& a, const auto& b) { return standsBefore(nameOf(a), nameOf(b)); };
    if (!std::is_sorted(list.begin(), list.end(), isBefore))
        std::stable_sort(list.begin(), list.end(), isBefore);
}

// The entries of a register by their points, "Скв-2" before "Скв-11"; those of one point as they stand.
template <class Register>
std::vector<const typename Register::value_type*> inReadingOrder(const Register& all)
{
    std::vector<const typename Register::value_type*> entries;
    entries.reserve(all.size());
    for (const auto& entry : all)
        entries.push_back(&entry);
    sortInReadingOrder(entries, [](const auto* entry) { return std::wstring_view(entry->first.pointName); });
    return entries;
}

template <class Register>
struct PointRows {
    std::wstring_view point;
    std::vector<const typename Register::value_type*> rows;
};

// From the top down; depths that are no numbers last, in stored order.
template <class Row>
void sortByDepth(std::vector<const Row*>& rows)
{
    struct Placed {
        bool isText = false;
        double depth = 0;
        const Row* row = nullptr;
    };
    const auto isAbove = [](const Placed& a, const Placed& b) {
        return a.isText != b.isText ? b.isText : a.depth < b.depth;
    };
    std::vector<Placed> placed(rows.size());
    std::transform(rows.begin(), rows.end(), placed.begin(), [](const Row* row) {
        Placed made{false, 0, row};
        const Number depth = readNumber(row->first.depth);
        made.isText = !depth;
        made.depth = depth.value_or(0);
        return made;
    });
    if (std::is_sorted(placed.begin(), placed.end(), isAbove))
        return;
    std::stable_sort(placed.begin(), placed.end(), isAbove);
    std::transform(placed.begin(), placed.end(), rows.begin(), [](const Placed& made) { return made.row; });
}

template <class Register>
std::vector<PointRows<Register>> rowsByPoint(const Register& all)
{
    std::vector<PointRows<Register>> points;
    std::unordered_map<std::wstring_view, std::size_t> places;
    for (const auto& row : all) {
        const std::wstring_view name = row.first.pointName;
        if (points.empty() || points.back().point != name) {
            const auto [place, isNew] = places.try_emplace(name, points.size());
            if (isNew)
                points.push_back({name, {}});
            points[place->second].rows.push_back(&row);
        } else {
            points.back().rows.push_back(&row);
        }
    }
    for (PointRows<Register>& point : points)
        sortByDepth(point.rows);
    sortInReadingOrder(points, [](const PointRows<Register>& point) { return point.point; });
    return points;
}

template <class Register>
std::vector<const typename Register::value_type*> rowsOfPoint(const Register& all, std::wstring_view point)
{
    std::vector<const typename Register::value_type*> rows;
    for (const auto& row : all)
        if (row.first.pointName == point)
            rows.push_back(&row);
    sortByDepth(rows);
    return rows;
}

// How many rows a register holds for each point. The rows of a point stand together nearly always.
template <class Register>
std::unordered_map<std::wstring_view, std::size_t> rowCounts(const Register& all)
{
    std::unordered_map<std::wstring_view, std::size_t> counts;
    std::wstring_view name;
    std::size_t* count = nullptr;
    for (const auto& row : all) {
        if (!count || name != row.first.pointName) {
            name = row.first.pointName;
            count = &counts[name];
        }
        ++*count;
    }
    return counts;
}

template <class Value>
Value foundOr(
    const std::unordered_map<std::wstring_view, Value>& values, std::wstring_view name, Value otherwise = {})
{
    const auto found = values.find(name);
    return found == values.end() ? otherwise : found->second;
}

// A point and a depth, by their exact texts.
struct Place {
    std::wstring_view point;
    std::wstring_view depth;

    bool operator==(const Place&) const = default;
};

struct PlaceHash {
    std::size_t operator()(const Place& place) const
    {
        const std::hash<std::wstring_view> hash;
        return hash(place.point) * 31 + hash(place.depth);
    }
};

// The rows of a register by where they stand, to be joined with those of another one.
template <class Register>
std::unordered_map<Place, const typename Register::mapped_type*, PlaceHash> rowsByPlace(const Register& all)
{
    std::unordered_map<Place, const typename Register::mapped_type*, PlaceHash> rows(all.size());
    for (const auto& [key, value] : all)
        rows.try_emplace({key.pointName, key.depth}, &value);
    return rows;
}

// The absolute marks of the points' mouths, as typed.
std::unordered_map<std::wstring_view, std::wstring_view> absoluteMarks(IDBProject& project);
// That of one point; empty where there is no such point.
std::wstring_view absoluteMark(IDBProject& project, std::wstring_view point);

// A layer with what follows from its neighbours and from its point.
struct LayerView {
    std::wstring_view top; // m
    std::wstring thickness; // m
    std::wstring bottomMark; // m
    const LithologyRegister::value_type* layer = nullptr;
};

std::vector<LayerView> layersOf(
    const std::vector<const LithologyRegister::value_type*>& rows, std::wstring_view mouthMark);
