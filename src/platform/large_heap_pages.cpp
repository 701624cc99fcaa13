#include <mimalloc.h>

// Part of each program that links the quick heap, see cmake/allocator.cmake.

// The heap asks for memory in large pages, where the system gives them to everybody: what takes the longest
// about fresh memory is the number of its pages, and the records of a project take hundreds of megabytes. The
// heap's own environment variables still have the last word.
[[maybe_unused]] static const bool largePagesAreAskedFor =
    (mi_option_set_enabled_default(mi_option_large_os_pages, true), true);
