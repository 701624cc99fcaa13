#pragma once

#include <algorithm>
#include <cstddef>
#include <future>
#include <system_error>
#include <thread>
#include <utility>

// How a large piece of work is divided among threads. One thread divides nothing.
struct WorkSharing {
    std::size_t threads = std::clamp(std::thread::hardware_concurrency(), 1U, 4U);
    // Bytes of the file, and rows, below which a register is not worth a thread.
    std::size_t worthwhile = 1U << 20U;
    std::size_t fewestRows = 256;

    bool divides(std::size_t rows, std::size_t bytes) const
    {
        return threads > 1 && rows >= threads && rows >= fewestRows && bytes >= worthwhile;
    }
};

// Starts the work in a thread of its own. The future is not valid where the system has no thread to give.
template <class Work>
auto inAnotherThread(Work&& work) -> std::future<decltype(work())>
{
    try {
        return std::async(std::launch::async, std::forward<Work>(work));
    } catch (const std::system_error&) {
        return {};
    }
}
