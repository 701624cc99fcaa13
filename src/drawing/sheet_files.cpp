#include "drawing/sheet_files.h"

#include "core/base/file_names.h"
#include "core/base/letters.h"

#include <algorithm>
#include <set>

// Two files never differ in capitals alone: not every system tells them apart.
static std::wstring withoutCase(std::wstring name)
{
    std::transform(name.begin(), name.end(), name.begin(), [](wchar_t c) { return withoutCase(c); });
    return name;
}

std::vector<std::wstring> sheetFiles(const std::wstring& path, const std::vector<Drawing>& pages)
{
    if (pages.size() <= 1 || fileSuffix(path) == L"pdf")
        return {path};
    const bool showSeveral = std::any_of(
        pages.begin(), pages.end(), [&](const Drawing& page) { return page.shows != pages.front().shows; });
    const std::size_t suffix = suffixPlace(path);
    std::vector<std::wstring> files;
    std::set<std::wstring> taken;
    for (std::size_t page = 0; page < pages.size(); ++page) {
        const std::wstring own = showSeveral ? fileNamePart(pages[page].shows) : std::wstring();
        const std::wstring stem = path.substr(0, suffix) + (own.empty() ? own : L"_" + own);
        std::wstring name = stem;
        for (std::size_t number = own.empty() ? 1 : 2;
             name == path.substr(0, suffix) || taken.contains(withoutCase(name));
             ++number)
            name = stem + L"_" + std::to_wstring(number);
        taken.insert(withoutCase(name));
        files.push_back(name + path.substr(suffix));
    }
    return files;
}
