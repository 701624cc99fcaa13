#include "project_oracle.h"

// Any bytes, as a project file.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const Bytes bytes(data, data + size);
    // Threads take far longer to start than such small files to read.
    if (size % 32 == 0)
        requireThreadsAgree(bytes);
    ReadReport report;
    if (const auto project = openOrRefuse(bytes, report))
        requireComesBack(*project);
    return 0;
}
