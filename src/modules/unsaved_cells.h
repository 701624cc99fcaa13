#pragma once

// How the shell learns of cells that a screen keeps as typed because the project cannot take them, over
// dynamic properties, so that a module that knows nothing of them goes on as it is.

// On the screen's widget, kept up to date by the screen: a list of strings (QStringList), each "where: why".
constexpr const char unsavedCellsProperty[] = "tellurixUnsavedCells";
// Set by the shell on the same widget, when its mode is current: the number in that list of the cell to show.
constexpr const char shownCellProperty[] = "tellurixShownCell";
