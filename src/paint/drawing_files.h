#pragma once

#include "drawing/drawing.h"
#include "drawing/hatch.h"

#include <QByteArray>
#include <QImage>

#include <functional>
#include <vector>

// Drawings as the content of files; who calls writes them (platform/safe_write.h), so that a failure leaves
// no half file.

// Asked before each page; false: the work ends and nothing is given back.
using GoesOn = std::function<bool(std::size_t page)>;

// One page a drawing, each of its own size; texts are texts, the shipped fonts go in as far as they are used.
// The title is that of the first. Empty where it was cancelled.
// Throws MException where the toolkit cannot write it.
QByteArray toPdf(const std::vector<Drawing>& pages, const Hatches& hatches, const GoesOn& goesOn = {});

// White, so many dots per inch. Throws MException where the picture would be larger than 30,000 dots on a
// side or 400 million in all.
QImage toImage(const Drawing& drawing, const Hatches& hatches, double dotsPerInch);
QByteArray toPng(const Drawing& drawing, const Hatches& hatches, double dotsPerInch);

// Writes the sheets under the given path, the format by its suffix: pdf (one file), svg, dxf, png (one file a
// sheet, see drawing/sheet_files.h). Gives back how many files were written; a cancelled work leaves those
// before it. Throws MException with a text for the user; no file is ever half.
std::size_t writeDrawings(const std::wstring& path,
    const std::vector<Drawing>& pages,
    const Hatches& hatches,
    const GoesOn& goesOn = {},
    double dotsPerInch = 300);
