#pragma once

#include <QCoreApplication>

#include <cstdio>
#include <ctime>
#include <functional>

// Milliseconds of the processor until all that an act has set going is done: a busy machine does not count.
inline double measured(const std::function<void()>& act)
{
    const std::clock_t before = std::clock();
    act();
    QCoreApplication::sendPostedEvents();
    QCoreApplication::processEvents();
    return 1000.0 * static_cast<double>(std::clock() - before) / CLOCKS_PER_SEC;
}

inline void tell(const char* what, double milliseconds)
{
    std::printf("%-44s %8.1f ms\n", what, milliseconds);
}
