#pragma once

#include "db/records/point_register.h"

#include <QString>

#include <string>
#include <unordered_map>
#include <unordered_set>

// Which names points can have. The orderings of the registers read a name without letters as the number that
// it begins with, so "1-1" and "1-2" are one point to them, and a name that is neither is none.
class PointNames
{
public:
    explicit PointNames(const PointRegister& points);

    // Why a point cannot have this name, for the tool tip of its cell; empty where it can. The point's
    // present name does not stand in its way; empty where it has none.
    QString problem(const std::wstring& name, const std::wstring& ownName) const;
    // As points come and go.
    void add(const std::wstring& name);
    void remove(const std::wstring& name);

private:
    std::unordered_set<std::wstring> names_;
    std::unordered_multimap<int, std::wstring> numbers_;
};

// What is wrong with a name that a point has all the same, from another program's file; empty where nothing
// is.
QString pointNameWarning(const std::wstring& name);
