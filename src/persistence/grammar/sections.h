#pragma once

#include "db/records/section_records.h"
#include "persistence/grammar/grammar.h"

// Lines, ends and curves of the sections.

template <class Archive>
void fields(Archive& archive, SectionRef& point)
{
    archive.text("name", point.name);
    archive.word("number", point.number);
}

template <class Archive>
void fields(Archive& archive, SectionPointValue& ends)
{
    archive.text("textA", ends.textA);
    archive.text("textB", ends.textB);
    archive.word("word0", ends.word0);
    archive.word("word1", ends.word1);
    archive.word("markA", ends.markA);
    archive.word("markB", ends.markB);
}

template <class Archive, Of<CurveKey> Key>
void fields(Archive& archive, Key& key)
{
    archive.text("first", key.first);
    archive.text("second", key.second);
}

template <class Archive>
void fields(Archive& archive, CurveCell& cell)
{
    archive.text("textA", cell.textA);
    archive.text("textB", cell.textB);
}
