#pragma once

#include "persistence/factory.h"
#include "persistence/read_report.h"

using IDBFactory = IFileFactory<DBProject>;
using DBFromFileFactory = FromFileFactory<DBProject>;

// Reads projects of version 104.
class DBFromFilev104Factory : public DBFromFileFactory
{
public:
    using DBFromFileFactory::DBFromFileFactory;
    // The same with a report, the caller's, of what was found beside the project's data.
    DBFromFilev104Factory(
        const std::wstring& path, const std::vector<std::uint8_t>& bytes, ReadReport& report)
        : DBFromFileFactory(path, bytes)
        , report_(&report)
    {
    }

    // MException passes on with code 0; every other failure is "Critical Error reading the file " and the
    // path, code 2: the path in the file once that has been read, before that the path given to the factory.
    void readDB(const std::vector<std::uint8_t>& bytes, DBProject& project) override;

private:
    ReadReport* report_ = nullptr;
};
