#pragma once

#include "support/project_bytes.h"
#include "tlxtool/opened_project.h"

// A file of these bytes as the tool has it before it reads them.
inline OpenedProject fileOf(const Bytes& bytes, const std::wstring& path = L"C:\\П\\Участок.TLX")
{
    OpenedProject opened;
    opened.path = path;
    opened.name = toUtf8(path);
    opened.bytes = bytes;
    return opened;
}

// A project that will be saved where its file stands.
inline Reference<DBProject> projectInPlace()
{
    auto project = makeReference<DBProject>();
    project->setFilePath(L"C:\\П\\Участок.TLX");
    project->setFileStem(L"Участок");
    return project;
}
