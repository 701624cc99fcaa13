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
    const auto placedRow = [](const Row* row) {
        const Number depth = readNumber(row->first.depth);
        return Placed{!depth, depth.value_or(0), row};
    };
    // Nearly always they are in order, and there are points by the thousand.
    bool isSorted = true;
    Placed last;
    for (const Row* row : rows) {
        const Placed next = placedRow(row);
        isSorted = isSorted && (!last.row || !isAbove(next, last));
        last = next;
    }
    if (isSorted)
        return;
    std::vector<Placed> placed(rows.size());
    std::transform(rows.begin(), rows.end(), placed.begin(), placedRow);
    std::stable_sort(placed.begin(), placed.end(), isAbove);
    std::transform(placed.begin(), placed.end(), rows.begin(), [](const Placed& made) { return made.row; });
}

// Where in a register the rows of each point stand: together nearly always, else in several runs.
template <class Register>
class PointRuns
{
public:
    using Entry = typename Register::value_type;

    explicit PointRuns(const Register& all)
    {
        entries_.reserve(all.size());
        for (const Entry& entry : all) {
            if (runs_.empty() || runs_.back().point != entry.first.pointName)
                addRun(entry.first.pointName);
            entries_.push_back(&entry);
            runs_.back().end = entries_.size();
        }
    }

    // The rows of a point as they are stored, until visit answers true; null where it never does. Quickest
    // for the point asked for last and for the one behind it.
    template <class Visit>
    const Entry* findOf(std::wstring_view point, const Visit& visit)
    {
        for (std::size_t run = firstRunOf(point); run != none; run = runs_[run].next)
            for (std::size_t i = runs_[run].begin; i < runs_[run].end; ++i)
                if (visit(*entries_[i]))
                    return entries_[i];
        return nullptr;
    }

    // Rows of a point, one after another; points in the order in which they appear.
    std::vector<PointRows<Register>> points() const
    {
        std::vector<PointRows<Register>> points;
        points.reserve(firstRuns_.size());
        for (const Run& first : runs_) {
            if (!first.isFirst)
                continue;
            points.push_back({first.point, {}});
            for (const Run* run = &first; run; run = run->next == none ? nullptr : &runs_[run->next])
                points.back().rows.insert(points.back().rows.end(), entryAt(run->begin), entryAt(run->end));
        }
        return points;
    }

private:
    static constexpr std::size_t none = static_cast<std::size_t>(-1);
    struct Run {
        std::wstring_view point;
        bool isFirst = true; // of its point
        std::size_t begin = 0;
        std::size_t end = 0;
        std::size_t next = none; // run of the same point
    };

    void addRun(std::wstring_view point)
    {
        const auto [first, isFirst] = firstRuns_.try_emplace(point, runs_.size());
        if (!isFirst) {
            std::size_t last = first->second;
            while (runs_[last].next != none)
                last = runs_[last].next;
            runs_[last].next = runs_.size();
        }
        runs_.push_back({point, isFirst, entries_.size(), entries_.size(), none});
    }
    std::size_t firstRunOf(std::wstring_view point)
    {
        for (const std::size_t near : {last_, last_ + 1})
            if (near < runs_.size() && runs_[near].isFirst && runs_[near].point == point)
                return last_ = near;
        const auto first = firstRuns_.find(point);
        if (first == firstRuns_.end())
            return none;
        return last_ = first->second;
    }
    auto entryAt(std::size_t place) const { return entries_.begin() + static_cast<std::ptrdiff_t>(place); }

    std::vector<const Entry*> entries_;
    std::vector<Run> runs_;
    std::unordered_map<std::wstring_view, std::size_t> firstRuns_;
    std::size_t last_ = 0; // found
};

template <class Register>
std::vector<PointRows<Register>> rowsByPoint(const Register& all)
{
    std::vector<PointRows<Register>> points = PointRuns(all).points();
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

// The rows of a register by where they stand, point and depth by their exact texts: to be joined with those
// of another one.
template <class Register>
class RowsByPlace
{
public:
    explicit RowsByPlace(const Register& all)
        : runs_(all)
    {
    }

    // The first row there; null where there is none.
    const typename Register::mapped_type* find(std::wstring_view point, std::wstring_view depth)
    {
        const auto* found =
            runs_.findOf(point, [&](const auto& entry) { return entry.first.depth == depth; });
        return found ? &found->second : nullptr;
    }

private:
    PointRuns<Register> runs_;
};

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
