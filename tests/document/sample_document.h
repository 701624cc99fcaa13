#pragma once

#include "document/document.h"

// A document with everything that a writer must bring over, and with what others trip over: for tests, and
// for the programs outside that open what the writers make.
Document sampleDocument(bool hasFrame = false);

// A register of so many rows and twelve columns, made row by row.
Document largeRegister(std::size_t rows);
