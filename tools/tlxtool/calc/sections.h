#pragma once

#include "calc/remark.h"
#include "core/base/typed_number.h"

#include <nlohmann/json.hpp>

#include <string>
#include <string_view>

class IDBProject;
class SiteLaboratory;

// The sections of what `tlxtool calc` prints, one file each; calc_command.cpp has the list of them.

// Numbers are doubles as they were computed; members stand in the order in which they were written.
using Results = nlohmann::ordered_json;

struct CalcContext {
    IDBProject& project;
    const SiteLaboratory& laboratory; // samples and elements, computed once for all sections
    int language = 0; // of names: 0 Russian, 1 Ukrainian
};

Results samplesResults(const CalcContext& context);
Results elementsResults(const CalcContext& context);
Results soundingsResults(const CalcContext& context);
Results pilesResults(const CalcContext& context);
Results subsidenceResults(const CalcContext& context);
Results chemistryResults(const CalcContext& context);

// null where the number is not determined, or not finite.
Results numberResult(const Number& number);
Results textResult(std::wstring_view text);
Results remarksResult(const Remarks& remarks);
