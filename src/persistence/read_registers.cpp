#include "persistence/read_sections.h"

template void registerFields(ReadArchive& archive, IDBProject& project);
