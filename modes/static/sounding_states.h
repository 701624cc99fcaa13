#pragma once

#include "modules/idbproject.h"

#include <string>
#include <vector>

// What an undo step of the screen of sounding exchanges, and how it comes into the project.

// The journal of one point, or that it has none.
struct JournalState {
    std::wstring point;
    bool exists = false;
    std::uint32_t kind = 3;
    std::wstring device, date;
    std::vector<SoundingRow> rows;
};
JournalState journalState(IDBProject& project, const std::wstring& point);
// A new rig or date takes out the entry and puts it back in one step, so that the other of the two stays.
void putJournal(IDBProject& project, const JournalState& state);

// Kind, section, probe and numbers of the calculation of piles, and its results.
struct PileState {
    std::int32_t instrument = 0;
    std::int32_t probe = 2;
    std::int32_t kind = 0;
    std::int32_t section = 0;
    SoundingTriples triples;
    SoundingFlags flags;
    std::vector<SoundingCalcRow> results;
};
PileState pileState(IDBProject& project);
void putPile(IDBProject& project, const PileState& state);
