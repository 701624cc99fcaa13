#pragma once

#include <cstddef>

class IDBProject;

// The sum of the sizes of a project's records, in bytes of this system: of every record its sizeof, and of
// every text, list and pattern what it keeps outside of itself. No allocator's or map's overhead is in it.
std::size_t ownSize(IDBProject& project);
