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

// Both forms: a run-time of its own heap may not send one through the other.
void* operator new(std::size_t size, const std::nothrow_t&) noexcept
{
    ++allocations;
    bytesTaken += size;
    return std::malloc(size);
}

void* operator new(std::size_t size)
{
    if (void* memory = operator new(size, std::nothrow))
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
