#include "persistence/read_sections.h"

template void planSectionFields(ReadArchive& archive, IDBProject& project);
