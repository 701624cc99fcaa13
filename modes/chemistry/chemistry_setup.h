#pragma once

#include "document/document.h"

#include <optional>

class IDBProject;

// The report of the site's analyses with the limits and the office that stand beside the program, in a
// language of dictionaries/dictionary.h; nothing where there is no analysis.
std::optional<Document> chemistryDocument(IDBProject& project, int language);
