#include "persistence/read_sections.h"

template void laboratoryFields(ReadArchive& archive, IDBProject& project);
template void soundingFields(ReadArchive& archive, IDBProject& project);
