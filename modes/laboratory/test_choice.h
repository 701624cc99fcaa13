#pragma once

#include "dictionaries/modes.h"

// The pages of the laboratory's tests.
enum class LabTest {
    Physical,
    Grading,
    Compression,
    Shear,
    Swelling,
    Shrinkage,
};

// Which part of the records a page shows.
struct TestChoice {
    LabTest test = LabTest::Physical;
    int method = 0; // of compression 21 to 25, of shear 1 to 12
    int branch = 0; // of compression: 0 the first specimen or before soaking, 1 the second or after
};

// In names of objects and settings.
const char* nameOf(LabTest test);
TX_Lab_Modes labModeOf(LabTest test);
