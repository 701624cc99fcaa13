#pragma once

#include <cstddef>

// How often this process has taken memory from the heap.
std::size_t heapAllocations();
// How many bytes it has taken, given back or not: more than it can ever have held at a time.
std::size_t heapBytesTaken();
