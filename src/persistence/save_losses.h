#pragma once

#include <string>
#include <string_view>
#include <vector>

class IDBProject;

// Something in a project that will not come back once the project has been saved and opened again.
struct SaveLoss {
    enum class Kind {
        // The saved file will not open.
        elementText, // a text of a geological element holds what its narrow character rule cannot read
        markUnread, // an end of a section has no mark of its own, and its point's mark is no number
        unknownObject, // a drawing object of a class that the file has no code for
        keyUnread, // a row's name or depth that the ordering of its register cannot read
        nesting, // blocks, records or items nested too deep

        // The file opens, without this.
        rowRefused, // a row whose key the ordering will take for that of another row
        textCut, // a text ends at its first zero character
        textReplaced, // characters that the code page lacks
        byteCut, // a number that does not fit the one byte it has in the file
        markReplaced, // a negative mark of a section's end, taken for "not given"
        secondTitle, // the second title of a profile
        sectionFlag, // the two flags of the plain section
        subsidence, // a subsidence cell without text, or with a title of its own
        subsidenceNames, // subsidence names or groups without a subsidence row
    };
    Kind kind;
    std::string section; // the register or group of fields
    std::wstring key; // of the row, where there is one
    std::string field;
};

// Whether a file with this loss cannot be opened at all.
bool makesUnreadable(SaveLoss::Kind kind);

// The loss in a sentence for the user: what, where, and what to do.
std::wstring describeLoss(const SaveLoss& loss);

// Everything in the project that will not come back after a save, what makes the file unreadable first; no
// more than `limit` of it.
std::vector<SaveLoss> findSaveLosses(IDBProject& project, std::size_t limit = 200);
