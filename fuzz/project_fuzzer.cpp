#include "project_oracle.h"

// Any bytes, as a project file.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    ReadReport report;
    if (const auto project = openOrRefuse(Bytes(data, data + size), report))
        requireComesBack(*project);
    return 0;
}
