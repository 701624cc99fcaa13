#pragma once

#include <cstddef>
#include <string>

// What one operation takes from the heap, measured in a process of its own, so that none colours the next.
struct HeapUse {
    double peakBytes = 0; // beyond what the process held before the operation
    double allocations = 0;
};

// Runs this program anew with the operation's words; they hold no blanks.
HeapUse probe(const std::string& words);

// In the new process: between the two stands the operation, alone. Allocations and the highest memory count
// from the first to the second, which writes them down for probe().
void beginProbe();
void endProbe();
