#pragma once

#include <chrono>
#include <cstdio>
#include <cstdlib>

// What a measured program tells the one that started it: a name and a number a line on its standard output.

inline constexpr const char* beginVariable = "TELLURIX_BENCH_BEGIN";

inline void report(const char* what, double value)
{
    std::printf("%s\t%.3f\n", what, value);
    std::fflush(stdout);
}

// Milliseconds since the process was asked for; both sides read the same clock of the machine.
inline double millisecondsSinceStart()
{
    using namespace std::chrono;
    const char* begin = std::getenv(beginVariable);
    const auto now = duration_cast<nanoseconds>(steady_clock::now().time_since_epoch()).count();
    return static_cast<double>(now - (begin ? std::atoll(begin) : now)) / 1e6;
}
