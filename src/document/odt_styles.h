#pragma once

#include "document/document.h"

#include <string>
#include <vector>

// A page of an OpenDocument: its format, and what stands in its head.
struct OdtPage {
    std::string name; // of the master page: ASCII
    PageFormat format;
    std::string next = {}; // the master page behind it; empty: itself
    std::string frame = {}; // the picture behind its text, as XML in its header
    bool hasNumbers = true; // head and foot with the number of the page
};

// styles.xml
std::string odtStyles(const Document& document, const std::vector<OdtPage>& pages);
// Name spaces of content.xml and styles.xml.
std::string odtSpaces();
// "12.5mm"
std::string odtLength(double mm);
