#pragma once

#include "db/records/point_register.h"
#include "db/records/section_records.h"

// Completes the two ends of every section. An end without a name takes the name of the first (the last) point
// of the section's line; a mark below 1e-5 m takes the absolute mark of that point: of its first row for the
// left end, of its last row for the right one, 0 where the point is unknown or has no rows. Throws as
// std::stof does where the chosen row's mark is no number; such a file does not open.
void completeSectionMarks(SectionPointMap& points, SectionLineMap& lines, PointRegister& pointRegister);

// Whether a mark counts as not given.
bool isMarkMissing(float mark);

// The row of the point that the mark of an end comes from; null where the point is unknown or has no rows.
const PointRow* rowOfMark(PointRegister& pointRegister, const std::wstring& pointName, bool lastRow);
