#pragma once

#include "calc/sounding_layers.h"
#include "db/records/sounding.h"
#include "site/soundings.h"

#include <string>

// Layers of a sounding that its own readings propose and a user edits; they stand in the journal as the
// elements of its rows.

struct JournalLayer {
    double from = 0.0; // m
    double to = 0.0;
    std::wstring element; // empty: that of the borehole
};

// As the readings propose them. Each takes the element of the borehole that fills most of it, of those that
// are sand, or are not, as its friction says; of all where none of them is.
std::vector<JournalLayer> proposedJournalLayers(IDBProject& project,
    const SiteSounding& sounding,
    const std::vector<SoundingLayer>& shaft,
    const LayerRule& rule = {});
// As they stand now, from the journal and the borehole.
std::vector<JournalLayer> journalLayers(const SiteSounding& sounding);

// The journal with each row under the element of the layer that its depth lies in, from < depth <= to.
std::vector<SoundingRow> rowsWithLayers(
    std::vector<SoundingRow> rows, const std::vector<JournalLayer>& layers);
// Statistics of the readings of such a layer, and what the tables make of them.
SoundingLayerResult layerResult(IDBProject& project, const SiteSounding& sounding, const JournalLayer& layer);

// The boundary below a layer to a depth, kept between its neighbours by a step; false where there is none or
// the depth is no other.
bool moveBoundary(std::vector<JournalLayer>& layers, std::size_t above, double depth);
// Two halves of a layer; false where it is too thin.
bool splitLayer(std::vector<JournalLayer>& layers, std::size_t place);
// A layer and the one below it as one with the upper's element; false for the last.
bool joinLayer(std::vector<JournalLayer>& layers, std::size_t place);
