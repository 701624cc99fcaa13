#pragma once

#include "dictionaries/modes.h"

#include <QString>

#include <map>

// File name of each module library and its mode, in the order in which they are loaded.
const std::map<QString, TX_Modes>& modeLibraries();

// Where the library is loaded from: the program's folder if it is there, else the bare name for the system's
// own search.
QString modeLibraryPath(const QString& fileName);
