#pragma once

#include "core/base/reference.h"
#include "db/db_project.h"
#include "persistence/project_codec.h"
#include "persistence/project_factory.h"
#include "platform/files.h"
#include "platform/utf8.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

using Bytes = std::vector<std::uint8_t>;

// Opens bytes the way the program does.
inline Reference<DBProject> openBytes(
    const Bytes& bytes, ReadReport& report, const std::wstring& path = L"/тест/файл.TLX")
{
    const auto factory = makeReference<DBFromFilev104Factory>(path, bytes, report);
    return Reference<DBProject>::adopt(factory->createDB());
}

inline Reference<DBProject> openBytes(const Bytes& bytes)
{
    ReadReport report;
    return openBytes(bytes, report);
}

// Saved and opened again.
inline Reference<DBProject> reopened(IDBProject& project)
{
    return openBytes(encodeProject(project));
}

inline Bytes sampleBytes(const std::string& name)
{
    Bytes bytes;
    const FileResult result = readFile(*fromUtf8(TELLURIX_SAMPLES "/" + name), bytes);
    EXPECT_TRUE(result) << name << ": " << toUtf8(result.reason);
    return bytes;
}
