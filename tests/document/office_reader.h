#pragma once

#include <map>
#include <string>

// The parts of an office file, by their names, unpacked by a reader that the writers have no part in.
std::map<std::string, std::string> partsOf(const std::string& archive);
