#pragma once

#include "persistence/factory.h"
#include "persistence/hatch_library.h"

using IDBHatchFactory = IFileFactory<DBHatch>;
using DBFromHatchFileFactory = FromFileFactory<DBHatch>;

// Reads hatch libraries of version 100.
class DBFromHatchFilev100Factory : public DBFromHatchFileFactory
{
public:
    using DBFromHatchFileFactory::DBFromHatchFileFactory;

    // Every failure but MException becomes "Critical Error reading the hatch file ".
    void readDB(const std::vector<std::uint8_t>& bytes, DBHatch& library) override;
};
