#pragma once

#include "db/records/chemistry.h"
#include "db/records/strata_element.h"
#include "db/records/subsidence.h"
#include "persistence/grammar/grammar.h"

// Chemistry and the geological elements; a subsidence entry.

template <class Archive>
void fields(Archive& archive, ChemistryRecord& analysis)
{
    texts(archive, "cells", analysis.cells);
}

// The order in the file is not the order in memory.
template <class Archive>
void fields(Archive& archive, StrataElement& element)
{
    archive.word("code", element.code);
    archive.word("valueB", element.valueB);
    archive.word("valueC", element.valueC);
    archive.array("texts", element.texts, [&archive](auto& text) { archive.elementText({}, text); });
    archive.blob("patternA", element.patternA);
    archive.byte("patternFlagA", element.patternFlagA);
    archive.word("lowerBound", element.lowerBound);
    archive.word("middleValue", element.middleValue);
    archive.word("upperBound", element.upperBound);
    archive.blob("patternB", element.patternB);
    archive.byte("patternFlagB", element.patternFlagB);
}

// A cell as it stands in the file: its title stands once for the whole row of the point.
template <class Archive>
void fields(Archive& archive, SubsidenceCell& cell)
{
    archive.byte("code", cell.code);
    archive.text("text", cell.text);
}
