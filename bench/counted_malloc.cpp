#include "counted_heap.h"

#include <cstdlib>
#include <mimalloc.h>
#include <new>

// The peers allocate in C: to count theirs as well, the functions of the program's heap are stood in for.
// Giving back needs no counting and stays the heap's own.

static std::size_t allocations = 0;

std::size_t heapAllocations()
{
    return allocations;
}

extern "C" {

void* malloc(std::size_t size)
{
    ++allocations;
    return mi_malloc(size);
}

void* calloc(std::size_t count, std::size_t size)
{
    ++allocations;
    return mi_calloc(count, size);
}

void* realloc(void* memory, std::size_t size)
{
    ++allocations;
    return mi_realloc(memory, size);
}

} // extern "C"

// The heap brings its own of this, which does not go by malloc.
void* operator new(std::size_t size)
{
    ++allocations;
    return mi_new(size);
}
