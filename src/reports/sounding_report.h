#pragma once

#include "document/document.h"
#include "plots/sounding_graph.h"
#include "site/pile_task.h"

// Papers of static sounding: journals, graphs, capacity of piles.

// Journals of these soundings, one after the other; a language of dictionaries/dictionary.h.
Document soundingJournals(IDBProject& project,
    const SiteSoundings& soundings,
    const std::vector<std::wstring>& points,
    int language);

// One figure a sheet.
Document soundingGraphs(const std::vector<Drawing>& pages, int language);

// The title lines of the calculation, and the lines below its table.
enum class PilePart { Whole, Tip, Side };
std::wstring pileTitle(
    const PileTask& task, const std::vector<std::wstring>& points, PilePart part, int language);
std::wstring pileConditionsText(const PileTask& task, int language);

// Cells of the result table as the project keeps them: without the last column.
std::vector<SoundingCalcRow> pileCalcRows(const std::vector<PileRow>& rows);

// Table of the capacity with its picture, of the parts where they are wanted.
Document pileReport(const std::vector<PileRow>& rows, const PileTask& task, bool hasParts, int language);
CapacityGraph capacityGraph(const std::vector<PileRow>& rows);
