#include "platform/large_pages.h"

#include <new>
#include <windows.h>

Pages takePages(std::size_t size)
{
    // Large pages are for those who may lock memory there; few users may.
    void* const bytes = VirtualAlloc(nullptr, size, MEM_RESERVE | MEM_COMMIT, PAGE_READWRITE);
    if (!bytes)
        throw std::bad_alloc();
    return Pages(static_cast<std::uint8_t*>(bytes), {size});
}

void ReleasePages::operator()(std::uint8_t* bytes) const
{
    VirtualFree(bytes, 0, MEM_RELEASE);
}
