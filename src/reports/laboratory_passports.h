#pragma once

#include "dictionaries/modes.h"
#include "document/document.h"

#include <optional>
#include <vector>

class IDBProject;
class SiteLaboratory;
struct SiteSample;

// A passport of each of the samples' tests, one A4 page a test: head, table, curve, result. Of swelling and
// of shrinkage together for either. Nothing where none of them was made.
std::optional<Document> laboratoryPassports(IDBProject& project,
    const SiteLaboratory& site,
    const std::vector<const SiteSample*>& samples,
    TX_Lab_Modes test);

// The summary of physical and mechanical properties of all samples, A3 landscape: by point and depth, or by
// element.
Document laboratorySummary(IDBProject& project, const SiteLaboratory& site, bool byElement);
