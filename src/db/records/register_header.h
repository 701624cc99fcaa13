#pragma once

#include "core/base/calendar_date.h"

#include <cstdint>

// What a screen keeps beside its register for the time a project is open; never in the file.
struct RegisterHeader {
    Date3 periodBegin{2018, 1, 1};
    Date3 periodEnd{2018, 1, 1};
    std::int32_t cellsA = 10;
    std::int32_t cellsB = 10;
    std::int32_t option = 0;

    bool operator==(const RegisterHeader&) const = default;
};
