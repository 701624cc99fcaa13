#include "drawing/sheet_files.h"

#include "core/base/file_names.h"
#include "core/base/letters.h"

#include <algorithm>
#include <map>
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
    std::map<std::wstring, std::size_t> seen;
    for (const Drawing& page : pages) {
        const std::wstring own = showSeveral ? fileNamePart(page.shows) : std::wstring();
        const std::wstring stem = path.substr(0, suffix) + (own.empty() ? own : L"_" + own);
        std::size_t& times = seen[stem];
        std::wstring name;
        do {
            ++times;
            name = times == 1 && !own.empty() ? stem : stem + L"_" + std::to_wstring(times);
        } while (!taken.insert(withoutCase(name)).second);
        files.push_back(name + path.substr(suffix));
    }
    return files;
}
