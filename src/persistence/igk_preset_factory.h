#pragma once

#include "persistence/factory.h"
#include "persistence/igk_preset_library.h"

using IDBIgkPresetFactory = IFileFactory<DBIgkPreset>;
using DBFromIgkPresetFileFactory = FromFileFactory<DBIgkPreset>;

// Reads IGK preset libraries of version 100.
class DBFromIgkPresetFilev100Factory : public DBFromIgkPresetFileFactory
{
public:
    using DBFromIgkPresetFileFactory::DBFromIgkPresetFileFactory;

    // Every failure but MException becomes "Critical Error reading the igk preset file ".
    void readDB(const std::vector<std::uint8_t>& bytes, DBIgkPreset& library) override;
};
