#pragma once

#include <cstdint>
#include <string>
#include <string_view>

// Temporary files of safe writing: a first letter that hides the file where the system can, "tellurix-", the
// number of the process that writes it, and a number among the files of that process.
std::string temporaryName(char first, std::uint64_t process, int number);

// The process whose temporary file has this name, 0 for a file that is none. Takes the names of every system:
// folders are shared.
std::uint64_t writerOfTemporary(std::string_view name);
