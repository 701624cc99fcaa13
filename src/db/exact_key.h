#pragma once

#include "db/records/point_keys.h"
#include "db/records/section_records.h"
#include "db/records/sounding.h"

#include <algorithm>
#include <string>

// Finding and erasing by the exact text of a key in maps whose orderings treat several texts as one number,
// or give mixed names no consistent order.

inline bool sameText(const std::wstring& a, const std::wstring& b)
{
    return a == b;
}

inline bool sameText(const PointKey& a, const PointKey& b)
{
    return a.pointName == b.pointName;
}

inline bool sameText(const PointDepthKey& a, const PointDepthKey& b)
{
    return a.pointName == b.pointName && a.depth == b.depth;
}

inline bool sameText(const SoundingKey& a, const SoundingKey& b)
{
    return a.pointName == b.pointName;
}

inline bool sameText(const CurveKey& a, const CurveKey& b)
{
    return a.first == b.first && a.second == b.second;
}

// The entry whose key has exactly this text, else the end. The ordering may lead past it: then a walk
// decides.
template <class Map>
typename Map::iterator findExact(Map& map, const typename Map::key_type& key)
{
    const auto found = map.find(key);
    if (found != map.end() && sameText(found->first, key))
        return found;
    return std::find_if(
        map.begin(), map.end(), [&](const auto& entry) { return sameText(entry.first, key); });
}

// Erases that one entry; returns whether there was one.
template <class Map>
bool eraseExact(Map& map, const typename Map::key_type& key)
{
    const auto found = findExact(map, key);
    if (found == map.end())
        return false;
    map.erase(found);
    return true;
}
