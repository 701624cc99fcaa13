# Debian has the library for its own system only, and the sources of it for every other.
if(NOT TARGET GTest::gtest)
    add_subdirectory(/usr/src/googletest/googletest ${CMAKE_BINARY_DIR}/googletest EXCLUDE_FROM_ALL)
endif()
set(GTest_FOUND TRUE)
