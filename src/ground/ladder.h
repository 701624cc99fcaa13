#pragma once

#include <span>

// A ladder of thresholds: its rungs are tried in their order and the first that holds gives the grade. A
// value that no rung holds (a not-a-number holds none) has no grade.

enum class Side { Below, AtMost, AtLeast, Above };

inline constexpr int noGrade = -1;

struct Rung {
    Side side;
    float bound;
    int grade;
};

// A ladder without rungs says that the property is not graded at all.
using Ladder = std::span<const Rung>;

constexpr bool holds(const Rung& rung, float value)
{
    switch (rung.side) {
    case Side::Below:
        return value < rung.bound;
    case Side::AtMost:
        return value <= rung.bound;
    case Side::AtLeast:
        return value >= rung.bound;
    case Side::Above:
        return value > rung.bound;
    }
    return false;
}

constexpr int gradeOf(Ladder ladder, float value)
{
    for (const Rung& rung : ladder)
        if (holds(rung, value))
            return rung.grade;
    return noGrade;
}
