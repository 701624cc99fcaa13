#pragma once

#include "laboratory/sample_edits.h"
#include "laboratory/test_choice.h"
#include "site/derived_cells.h"

class QWidget;

struct SampleChange {
    SampleStates before;
    SampleStates after;
};

// The derived cells and names of all samples, or of the one given. Where it takes long, its progress is shown
// over the widget and the user may stop it: then false, and nothing is to be changed.
bool calculateSamples(IDBProject& project,
    int language,
    Fill fill,
    const PointDepthKey* one,
    QWidget* parent,
    SampleChange& change);

// The sample without what a page shows of it.
LabSample withoutTest(LabSample sample, const TestChoice& choice);
