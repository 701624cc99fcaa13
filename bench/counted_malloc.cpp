#include "counted_heap.h"

#include <cstdlib>

// The peers allocate in C: to count theirs as well, the C library's own functions are stood in for.

static std::size_t allocations = 0;

std::size_t heapAllocations()
{
    return allocations;
}

extern "C" {

void* __libc_malloc(std::size_t size);
void* __libc_calloc(std::size_t count, std::size_t size);
void* __libc_realloc(void* memory, std::size_t size);

void* malloc(std::size_t size)
{
    ++allocations;
    return __libc_malloc(size);
}

void* calloc(std::size_t count, std::size_t size)
{
    ++allocations;
    return __libc_calloc(count, size);
}

void* realloc(void* memory, std::size_t size)
{
    ++allocations;
    return __libc_realloc(memory, size);
}

} // extern "C"
