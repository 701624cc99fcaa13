#pragma once

#include <cstddef>

// How often this process has taken memory from the heap, libraries included: by malloc and what stands upon
// it. In a build with sanitizers, which bring a heap of their own, operator new alone is counted.
std::size_t heapAllocations();
