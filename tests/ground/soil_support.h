#pragma once

#include "core/base/reference.h"
#include "db/db_project.h"
#include "ground/ground_controller.h"
#include "site/plain_settings.h"

#include <gtest/gtest.h>

#include <array>
#include <charconv>
#include <cmath>
#include <functional>
#include <limits>
#include <memory>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

// The classification as the facade has it: over settings and a project that may change.
class Soils : public GroundController
{
public:
    Soils()
        : Soils(std::make_unique<PlainSettings>(), makeReference<DBProject>())
    {
    }
    virtual ~Soils() = default;

    PlainSettings& settings() { return *settings_; }
    DBProject& project() { return *project_; }
    using GroundController::classifyFor;

private:
    Soils(std::unique_ptr<PlainSettings> settings, Reference<DBProject> project)
        : GroundController(settings.get(), project.get())
        , settings_(std::move(settings))
        , project_(std::move(project))
    {
    }

    std::unique_ptr<PlainSettings> settings_;
    Reference<DBProject> project_;
};

// The shortest text that reads back as the same single.
inline std::wstring textOf(float value)
{
    std::array<char, 40> text{};
    const auto end = std::to_chars(text.data(), text.data() + text.size(), value).ptr;
    return std::wstring(text.data(), end);
}

// The nearest single that can be typed: below the smallest normal one a text is out of range.
inline float nearest(float value, float direction)
{
    constexpr float smallest = std::numeric_limits<float>::min();
    return value == 0 ? std::copysign(smallest, direction) : std::nextafter(value, direction);
}
inline float justBelow(float value)
{
    return nearest(value, -std::numeric_limits<float>::infinity());
}
inline float justAbove(float value)
{
    return nearest(value, std::numeric_limits<float>::infinity());
}

// One bound of a ladder: the names just below it, at it and just above it.
struct Threshold {
    float bound;
    const wchar_t* below;
    const wchar_t* at;
    const wchar_t* above;
};

// Grades a text; returns the name.
using Grade = std::function<std::wstring(const std::wstring&)>;

inline void expectThresholds(const std::vector<Threshold>& thresholds, const Grade& grade)
{
    for (const Threshold& row : thresholds) {
        EXPECT_EQ(grade(textOf(justBelow(row.bound))), row.below) << "below " << row.bound;
        EXPECT_EQ(grade(textOf(row.bound)), row.at) << "at " << row.bound;
        EXPECT_EQ(grade(textOf(justAbove(row.bound))), row.above) << "above " << row.bound;
    }
    EXPECT_EQ(grade(L"nan"), L"Не определен");
    EXPECT_EQ(grade(L""), L"Не определен");
    EXPECT_EQ(grade(L"-inf"), thresholds.front().below);
    EXPECT_EQ(grade(L"inf"), thresholds.back().above);
}

inline std::string failureOf(const std::function<void()>& act)
{
    try {
        act();
    } catch (const std::logic_error& failure) {
        return failure.what();
    }
    return "none";
}
