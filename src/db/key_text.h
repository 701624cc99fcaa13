#pragma once

#include "db/records/point_keys.h"
#include "db/records/section_records.h"
#include "db/records/sounding.h"

#include <string>

// A key as a person reads it in a message: "12" or "12 / 3.5".

inline std::wstring keyText(const std::wstring& key)
{
    return key;
}

inline std::wstring keyText(std::uint32_t key)
{
    return std::to_wstring(key);
}

inline std::wstring keyText(const PointKey& key)
{
    return key.pointName;
}

inline std::wstring keyText(const SoundingKey& key)
{
    return key.pointName;
}

inline std::wstring keyText(const PointDepthKey& key)
{
    return key.pointName + L" / " + key.depth;
}

inline std::wstring keyText(const CurveKey& key)
{
    return key.first + L" / " + key.second;
}
