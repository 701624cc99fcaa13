#pragma once

#include "db/records/consistency.h"
#include "db/records/lithology.h"
#include "db/records/point_register.h"
#include "db/records/sample.h"
#include "db/records/water_level.h"
#include "persistence/grammar/grammar.h"

// The point register and the four registers of rows by depth.

template <class Archive, Of<PointKey> Key>
void fields(Archive& archive, Key& key)
{
    archive.text("pointName", key.pointName);
    archive.byte("pointKind", key.pointKind);
}

template <class Archive, Of<PointDepthKey> Key>
void fields(Archive& archive, Key& key)
{
    archive.text("pointName", key.pointName);
    archive.text("depth", key.depth);
}

template <class Archive>
void fields(Archive& archive, PointRow& row)
{
    archive.text("text0", row.text0);
    archive.text("text1", row.text1);
    archive.text("absoluteMark", row.absoluteMark);
    archive.text("text3", row.text3);
    archive.text("text4", row.text4);
    archive.text("text5", row.text5);
    archive.text("text6", row.text6);
    archive.byte("kindA", row.kindA);
    archive.byte("kindB", row.kindB);
}

template <class Archive>
void fields(Archive& archive, LithologyValue& layer)
{
    archive.text("geoIndex", layer.geoIndex);
    archive.text("description", layer.description);
}

template <class Archive>
void fields(Archive& archive, SampleValue& sample)
{
    archive.byte("sampleKind", sample.sampleKind);
}

template <class Archive>
void fields(Archive& archive, WaterValue& level)
{
    archive.word("year", level.date.year);
    archive.word("month", level.date.month);
    archive.word("day", level.date.day);
    archive.byte("flagA", level.flagA);
    archive.byte("flagB", level.flagB);
}

template <class Archive>
void fields(Archive& archive, ConsistencyValue& value)
{
    archive.byte("consistencyKind", value.consistencyKind);
}
