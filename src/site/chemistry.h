#pragma once

#include "calc/aggressiveness.h"
#include "db/records/chemistry.h"
#include "db/records/subsidence.h"

#include <optional>
#include <string_view>
#include <vector>

class IDBProject;

// The analyses of water and soil as numbers. Views into the project: look, use and let go before the next
// change.

struct SiteAnalysis {
    std::wstring_view point;
    std::wstring_view depth; // as typed
    Analysis analysis;
    Number cathodeCurrent; // A/m2, of the laboratory sample at the same depth
    Remarks remarks; // texts that are no numbers: "chemistry/4"
};

// In the order of their register.
std::vector<SiteAnalysis> siteAnalyses(IDBProject& project);
// One record by itself.
SiteAnalysis siteAnalysis(const PointDepthKey& key, const ChemistryRecord& record);

// What is chosen for the site, and its form in the project: cement; cover, mm; ground ("Кф от 0.1" or
// "Кф до 0.1"); edition, parted by semicolons, a part empty for the usual one.
ProtectionChoice protectionChoice(IDBProject& project);
std::wstring protectionText(const ProtectionChoice& choice);
NumberedLinks withProtectionChoice(const NumberedLinks& links, const ProtectionChoice& choice);
void setProtectionChoice(IDBProject& project, const ProtectionChoice& choice);
// Cements and covers of the table, for lists to choose from.
std::vector<std::wstring> knownCements(const AggressivenessLimits& limits);
std::vector<int> knownCovers(const AggressivenessLimits& limits, bool isWater);

// The limits that an office keeps beside the program, in aggressiveness.txt of the folder; those of the
// program where there is no such file or it has a mistake. Mistakes are for the user.
inline constexpr std::wstring_view limitsFileName = L"aggressiveness.txt";
AggressivenessLimits limitsBeside(const std::wstring& folder, std::vector<TableMistake>& mistakes);
// Read once, from the program's folder; and what is wrong with the file there.
const AggressivenessLimits& limitsInUse();
const std::vector<TableMistake>& limitMistakes();
// What a user is told of them: the file, up to five lines with what is wrong in each, and that the limits of
// the program rule; empty where there are none.
std::wstring limitsMessage(const std::vector<TableMistake>& mistakes);
