#pragma once

#include "db/records/laboratory.h"
#include "persistence/grammar/grammar.h"

// The laboratory: templates and samples.

template <class Archive>
void fields(Archive& archive, PropertyCell& cell)
{
    archive.byte("id", cell.id);
    archive.flag("enabled", cell.enabled);
    archive.text("value", cell.value);
}

template <class Archive>
void fields(Archive& archive, ShearCell& cell)
{
    archive.byte("id", cell.id);
    archive.text("value", cell.value);
}

template <class Archive>
void fields(Archive& archive, CompressionCell& cell)
{
    archive.byte("id", cell.id);
    archive.text("textA", cell.textA);
    archive.text("textB", cell.textB);
    archive.text("textC", cell.textC);
}

template <class Archive>
void fields(Archive& archive, SwellingCell& cell)
{
    archive.byte("id", cell.id);
    archive.text("textA", cell.textA);
    archive.text("textB", cell.textB);
    archive.text("textC", cell.textC);
}

template <class Archive>
void fields(Archive& archive, ShrinkageRow& row)
{
    archive.word("stage", row.stage);
    texts(archive, "cells", row.cells);
}

template <class Archive>
void fields(Archive& archive, CompressionGroup& group)
{
    archive.list("cells", group.cells);
    bytes(archive, "flags", group.flags);
    words(archive, "numbers", group.numbers);
}

template <class Archive>
void fields(Archive& archive, SoilKind& kind)
{
    archive.byte("code", kind.code);
    archive.text("text", kind.text);
}

template <class Archive>
void fields(Archive& archive, LabSample& sample)
{
    archive.word("number", sample.number);
    archive.text("code", sample.code);
    archive.list("physical", sample.physical);
    archive.record("soilKind", sample.soilKind);
    archive.map("grading", {"fraction", "percentage"}, sample.grading);
    archive.map("shear", {"method", "cells"}, sample.shear);
    archive.map("compression", {"test", {}}, sample.compression);
    archive.list("swelling", sample.swelling);
    archive.list("shrinkage", sample.shrinkage);
}

// The number comes first in the file, though it is the last in memory.
template <class Archive>
void fields(Archive& archive, LabTriple& triple)
{
    archive.word("number", triple.number);
    archive.word("valueA", triple.valueA);
    archive.word("valueB", triple.valueB);
}
