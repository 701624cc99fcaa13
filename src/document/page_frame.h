#pragma once

#include "document/document.h"

// How much of a page of that format its frame takes from below, mm: down from the highest thing of the stamp
// between the margins; 0 where there is no frame or no stamp.
double stampHeight(const PageFrame& frame, const PageFormat& page, int number);
