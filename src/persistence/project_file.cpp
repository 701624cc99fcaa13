#include "persistence/project_file.h"

#include "persistence/file_bytes.h"
#include "persistence/file_head.h"
#include "persistence/hatch_factory.h"
#include "persistence/igk_preset_factory.h"
#include "persistence/project_codec.h"
#include "persistence/project_factory.h"
#include "platform/files.h"
#include "platform/safe_write.h"

#include <algorithm>

// Behind the last dot, compared as capital letters.
static bool hasSuffix(const std::wstring& path, std::wstring_view capitals)
{
    const auto dot = path.rfind(L'.');
    if (dot == std::wstring::npos)
        return false;
    const std::wstring_view suffix = std::wstring_view(path).substr(dot + 1);
    const auto sameLetter = [](wchar_t given, wchar_t capital) {
        return given == capital || (given >= L'a' && given <= L'z' && given - L'a' + L'A' == capital);
    };
    return std::equal(suffix.begin(), suffix.end(), capitals.begin(), capitals.end(), sameLetter);
}

ProjectFileState lookAtProjectFile(const std::wstring& path, std::vector<std::uint8_t>& bytes)
{
    if (!fileExists(path))
        return ProjectFileState::missing;
    if (!hasSuffix(path, L"TLX"))
        return ProjectFileState::wrongSuffix;
    readFileBytes(path, bytes);
    std::size_t position = 0;
    return checkProjectHead(bytes, position) ? ProjectFileState::current : ProjectFileState::otherVersion;
}

Reference<DBProject> readProject(
    const std::wstring& path, const std::vector<std::uint8_t>& bytes, ReadReport& report)
{
    const auto factory = makeReference<DBFromFilev104Factory>(path, bytes, report);
    return Reference<DBProject>::adopt(factory->createDB());
}

FileResult writeProjectFile(const std::wstring& path, IDBProject& project)
{
    FileReplacement file(path);
    encodeProjectInPieces(project, [&file](FileParts parts) { file.add(parts); });
    return file.finish([&project] { return encodeProjectInBlocks(project); });
}

template <class Factory, class Library, class CheckHead>
static Reference<Library> readLibrary(const std::wstring& path, CheckHead checkHead)
{
    if (!hasSuffix(path, L"DAT"))
        return {};
    std::vector<std::uint8_t> bytes;
    readFileBytes(path, bytes);
    std::size_t position = 0;
    if (!checkHead(bytes, position))
        return {};
    const auto factory = makeReference<Factory>(path, bytes);
    return Reference<Library>::adopt(factory->createDB());
}

Reference<DBHatch> readHatchFile(const std::wstring& path)
{
    return readLibrary<DBFromHatchFilev100Factory, DBHatch>(path, checkHatchHead);
}

Reference<DBIgkPreset> readIgkPresetFile(const std::wstring& path)
{
    return readLibrary<DBFromIgkPresetFilev100Factory, DBIgkPreset>(path, checkIgkPresetHead);
}
