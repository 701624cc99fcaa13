#include "counted_heap.h"

#include <cstdlib>
#include <new>

// In a file of its own: the compiler must not see through the pairs of new and delete.
static std::size_t allocations = 0;
static std::size_t bytesTaken = 0;

std::size_t heapAllocations()
{
    return allocations;
}

std::size_t heapBytesTaken()
{
    return bytesTaken;
}

void* operator new(std::size_t size)
{
    ++allocations;
    bytesTaken += size;
    if (void* memory = std::malloc(size))
        return memory;
    throw std::bad_alloc();
}

void operator delete(void* memory) noexcept
{
    std::free(memory);
}

void operator delete(void* memory, std::size_t) noexcept
{
    std::free(memory);
}
