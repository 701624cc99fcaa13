# Language, warnings and hardening, as two interface targets: tellurix_options for every target of ours,
# tellurix_warnings for our own code only.

add_library(tellurix_options INTERFACE)
target_compile_features(tellurix_options INTERFACE cxx_std_20)
# Classification and geometry compare singles with singles: a fused multiply-add would move a result
# across a threshold on one machine and not on the other.
target_compile_options(tellurix_options INTERFACE -ffp-contract=off)
if(TELLURIX_SANITIZE)
    target_compile_options(tellurix_options INTERFACE -fsanitize=address,undefined -fno-omit-frame-pointer)
    target_link_options(tellurix_options INTERFACE -fsanitize=address,undefined)
endif()

# What guides the fuzzers: the libraries that they look into, and nothing else, tell which way they went.
add_library(tellurix_coverage INTERFACE)
if(TELLURIX_FUZZ)
    if(NOT CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
        message(FATAL_ERROR "TELLURIX_FUZZ needs clang: configure with -DCMAKE_CXX_COMPILER=clang++ or the preset fuzz")
    endif()
    # Without the tracing of comparisons, which takes a third of the time: the mutators know the formats' values.
    target_compile_options(tellurix_coverage INTERFACE
        -fsanitize=fuzzer-no-link -fno-sanitize-coverage=trace-cmp)
endif()

add_library(tellurix_warnings INTERFACE)
target_compile_options(tellurix_warnings INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wsign-conversion -Wold-style-cast -Wnon-virtual-dtor
    -Woverloaded-virtual -Wextra-semi -Wformat=2 -Wundef -Wvla -Wcast-align -Wimplicit-fallthrough
    $<$<CXX_COMPILER_ID:GNU>:-Wsuggest-override -Wlogical-op -Wduplicated-cond -Wduplicated-branches>
    "$<$<CXX_COMPILER_ID:Clang>:-Winconsistent-missing-override;-Wreserved-identifier>")
# GCC 12 sees overlaps and overflows inside its own std::string at -O3 that are not there.
target_compile_options(tellurix_warnings INTERFACE
    $<$<CXX_COMPILER_ID:GNU>:-Wno-restrict -Wno-stringop-overflow -Wno-stringop-overread -Wno-array-bounds>)
if(TELLURIX_WERROR)
    target_compile_options(tellurix_warnings INTERFACE -Werror)
endif()
