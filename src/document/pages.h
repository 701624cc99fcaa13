#pragma once

#include "document/document.h"

#include <functional>
#include <vector>

// The document on paper: a drawing for each page, for PDF and the printer. Texts are set in the shipped
// fonts; heads of tables repeat, rows stand whole on a page unless they are higher than one, headings and
// captions stay with what follows, figures are fitted to the page.
// The progress is asked after each page; false: the work ends and nothing is given back.
std::vector<Drawing> pagesOf(
    const Document& document, const std::function<bool(std::size_t pages)>& goesOn = {});
