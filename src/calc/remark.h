#pragma once

#include <string>
#include <vector>

// What a calculation has to say about its inputs, beside its results. Screens mark the cell, reports may list
// the texts, the command prints them.
struct Remark {
    enum Kind {
        Impossible, // the value cannot be; results that need it are missing
        Doubtful, // the value can be, but is rarely so
        Missing, // a result is missing because this is
    };
    Kind kind = Doubtful;
    std::string cell; // "physical/8", "grading", "compression/23/4"
    std::wstring text; // a sentence, in Russian
};

using Remarks = std::vector<Remark>;

// "impossible", "doubtful", "missing".
const char* remarkKindName(Remark::Kind kind);
