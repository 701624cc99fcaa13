#include "platform/large_pages.h"

#include <memory>
#include <new>
#include <sys/mman.h>

Pages takePages(std::size_t size)
{
    const std::size_t wanted = (size + largePage - 1) / largePage * largePage;
    std::size_t mappedSize = wanted + largePage;
    void* const mapped =
        ::mmap(nullptr, mappedSize, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    if (mapped == MAP_FAILED)
        throw std::bad_alloc();
    // A large page begins at a multiple of its size; what is mapped around those wanted goes back.
    auto* const first = static_cast<std::uint8_t*>(mapped);
    void* aligned = mapped;
    std::align(largePage, wanted, aligned, mappedSize);
    auto* const bytes = static_cast<std::uint8_t*>(aligned);
    if (bytes > first)
        ::munmap(first, static_cast<std::size_t>(bytes - first));
    if (mappedSize > wanted)
        ::munmap(bytes + wanted, mappedSize - wanted);
#ifdef MADV_HUGEPAGE
    ::madvise(bytes, wanted, MADV_HUGEPAGE);
#endif
    return Pages(bytes, {wanted});
}

void ReleasePages::operator()(std::uint8_t* bytes) const
{
    ::munmap(bytes, size);
}
