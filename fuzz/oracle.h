#pragma once

#include "core/base/mexception.h"
#include "core/base/reference.h"

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <stdexcept>
#include <string>
#include <vector>

using Bytes = std::vector<std::uint8_t>;

// Ends the process with what was expected, so that the fuzzer keeps the input.
inline void require(bool holds, const char* what)
{
    if (holds)
        return;
    std::fprintf(stderr, "EXPECTED: %s\n", what);
    std::abort();
}

// Opens the library in the bytes; null where its head is another's or the file is damaged, which may show in
// this one message only.
template <class Factory, class CheckHead>
auto openLibrary(const Bytes& bytes, CheckHead checkHead, const wchar_t* failureMessage)
    -> decltype(Factory(L"", bytes).createDB())
{
    std::size_t position = 0;
    try {
        if (!checkHead(bytes, position))
            return nullptr;
    } catch (const std::out_of_range& failure) {
        require(failure.what() == std::string("invalid vector<T> subscript"), "the message of a short head");
        return nullptr;
    }
    try {
        return makeReference<Factory>(L"library.dat", bytes)->createDB();
    } catch (const MException& failure) {
        require(failure.message() == failureMessage && failure.code() == 0, "the library's failure message");
        return nullptr;
    }
}
