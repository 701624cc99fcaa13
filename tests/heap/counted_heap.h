#pragma once

#include <cstddef>

// How often this process has taken memory from the heap.
std::size_t heapAllocations();
