#pragma once

#include "platform/file_result.h"

#include <cstddef>
#include <optional>
#include <string>

// Messages in Russian, as UTF-8.

// Something about a file that its owner should know, and where it stands.
struct Finding {
    std::string section; // empty where it concerns the whole file
    std::optional<std::size_t> offset; // in bytes from the start of the file
    std::string text;
};

// "lithology, байт 1234: ..."
std::string toText(const Finding& finding);

// What went wrong with a file, and what to do.
std::string describe(const FileResult& failure);

// The system's words for an error number, as UTF-8.
std::string systemReason(int error);

// Line breaks become blanks, so that a message stays one line of a log.
std::string oneLine(std::string text);
