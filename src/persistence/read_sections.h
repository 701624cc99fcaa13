#pragma once

#include "persistence/grammar/project.h"
#include "persistence/read_archive.h"

// Reading the sections with the large registers, each compiled in a source of its own: all in one keep a
// compiler with sanitizers busy for minutes.

extern template void registerFields(ReadArchive& archive, IDBProject& project);
extern template void laboratoryFields(ReadArchive& archive, IDBProject& project);
extern template void soundingFields(ReadArchive& archive, IDBProject& project);
extern template void planSectionFields(ReadArchive& archive, IDBProject& project);
