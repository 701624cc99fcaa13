#pragma once

#include "drawing/drawing.h"
#include "drawing/hatch.h"

#include <QString>

#include <vector>

class QWidget;

// What leaves the program of a drawing. All tell the user what went wrong themselves.

// As picture and as SVG.
void copyDrawing(const Drawing& drawing, const Hatches& hatches);
// Asks for place and format. A PDF holds all sheets; of the other formats there is one file a sheet, and the
// user says whether the shown one alone is meant. Gives back the file, the first of several; empty where the
// user called it off or nothing was written.
QString saveDrawings(QWidget* parent,
    const std::vector<Drawing>& pages,
    int shown,
    const Hatches& hatches,
    const QString& fileName);
// With a preview; the printer's dialog has the choice of pages.
void printDrawings(QWidget* parent, const std::vector<Drawing>& pages, const Hatches& hatches);
