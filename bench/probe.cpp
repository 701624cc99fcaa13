#include "probe.h"

#include "counted_heap.h"

#include <cstdio>
#include <fstream>
#include <memory>
#include <stdexcept>
#include <string_view>
#include <unistd.h>

static double heldBefore = 0;
static std::size_t allocationsBefore = 0;

// A figure of /proc/self/status, in bytes.
static double statusBytes(std::string_view name)
{
    std::ifstream status("/proc/self/status");
    for (std::string word; status >> word;)
        if (double kilobytes = 0; word == name && status >> kilobytes)
            return kilobytes * 1024;
    throw std::runtime_error("no memory figures in /proc/self/status");
}

HeapUse probe(const std::string& words)
{
    struct Close {
        void operator()(std::FILE* pipe) const { pclose(pipe); }
    };
    // The link of this process, not that of the shell that starts the other one.
    const std::string program = "/proc/" + std::to_string(getpid()) + "/exe";
    const std::unique_ptr<std::FILE, Close> pipe(popen((program + " --probe " + words).c_str(), "r"));
    HeapUse use;
    if (!pipe || std::fscanf(pipe.get(), "%lf %lf", &use.peakBytes, &use.allocations) != 2)
        throw std::runtime_error("the process to be measured failed: " + words);
    return use;
}

void beginProbe()
{
    // Sets the highest memory back to what is held now.
    std::ofstream("/proc/self/clear_refs") << "5\n";
    heldBefore = statusBytes("VmRSS:");
    allocationsBefore = heapAllocations();
}

void endProbe()
{
    const std::size_t allocations = heapAllocations() - allocationsBefore;
    std::printf("%.0f %zu\n", statusBytes("VmHWM:") - heldBefore, allocations);
}
