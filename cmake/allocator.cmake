# tellurix_allocator: what a program of ours for Linux links, so that it, its modules and every library in the process
# take memory from one quick heap. Records are millions of small texts, and nearly all of the time of an opening is
# spent on them. A module links nothing for it: it looks for malloc and operator new where the program does. On Windows
# a module cannot, so there program and modules share the system's heap; sanitizers bring a heap of their own.
add_library(tellurix_allocator INTERFACE)
if(NOT WIN32 AND NOT TELLURIX_SANITIZE)
    find_library(TELLURIX_MIMALLOC NAMES libmimalloc.so.2 mimalloc REQUIRED)
    # Before all other libraries, whose malloc and operator new it stands in for, though no symbol of it is asked for.
    target_link_options(tellurix_allocator INTERFACE
        "LINKER:--push-state,--no-as-needed,${TELLURIX_MIMALLOC},--pop-state")
    target_sources(tellurix_allocator INTERFACE ${PROJECT_SOURCE_DIR}/src/platform/large_heap_pages.cpp)
    target_compile_definitions(tellurix_allocator INTERFACE TELLURIX_MIMALLOC)
endif()
