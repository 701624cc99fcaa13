#pragma once

#include "db/records/sounding.h"
#include "persistence/grammar/grammar.h"

// Static sounding: journals and the rows of the pile calculation.

template <class Archive, Of<SoundingKey> Key>
void fields(Archive& archive, Key& key)
{
    archive.text("pointName", key.pointName);
    archive.byte("pointKind", key.pointKind);
    archive.text("device", key.device);
    archive.text("date", key.date);
}

template <class Archive>
void fields(Archive& archive, SoundingRow& row)
{
    archive.text("depth", row.depth);
    texts(archive, "cells", row.cells);
}

template <class Archive>
void fields(Archive& archive, SoundingCalcRow& row)
{
    texts(archive, "cells", row.cells);
}
