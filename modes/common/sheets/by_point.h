#pragma once

#include "common/sheets/sheet_texts.h"
#include "modules/idbproject.h"

#include <algorithm>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

// The rows of a register gathered by the exact name of their point, points in the order in which they first
// appear, rows from the top down. The registers' own order is not enough: names that read as one number stand
// mixed there, and mixed names stand in no consistent order at all.

template <class Register>
struct PointRows {
    std::wstring_view point;
    std::vector<const typename Register::value_type*> rows;
};

// From the top down; depths that are no numbers last, in stored order.
template <class Row>
void sortByDepth(std::vector<const Row*>& rows)
{
    const auto place = [](const Row* row) {
        std::pair<bool, double> key{true, 0};
        key.first = !readTyped(row->first.depth, key.second);
        return key;
    };
    if (std::is_sorted(
            rows.begin(), rows.end(), [&](const Row* a, const Row* b) { return place(a) < place(b); }))
        return;
    std::stable_sort(
        rows.begin(), rows.end(), [&](const Row* a, const Row* b) { return place(a) < place(b); });
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

// How many rows a register holds for each point.
template <class Register>
std::unordered_map<std::wstring_view, std::size_t> rowCounts(const Register& all)
{
    std::unordered_map<std::wstring_view, std::size_t> counts;
    for (const auto& row : all)
        ++counts[row.first.pointName];
    return counts;
}

template <class Value>
Value foundOr(
    const std::unordered_map<std::wstring_view, Value>& values, std::wstring_view name, Value otherwise = {})
{
    const auto found = values.find(name);
    return found == values.end() ? otherwise : found->second;
}

// The absolute marks of the points' mouths, as typed.
std::unordered_map<std::wstring_view, std::wstring_view> absoluteMarks(IDBProject& project);

// A layer with what follows from its neighbours and from its point.
struct LayerView {
    std::wstring top; // m
    std::wstring thickness; // m
    std::wstring bottomMark; // m
    const LithologyRegister::value_type* layer = nullptr;
};

std::vector<LayerView> layersOf(
    const std::vector<const LithologyRegister::value_type*>& rows, std::wstring_view mouthMark);
