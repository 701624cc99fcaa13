// Writes the projects that the tests generate into a folder: write_projects FOLDER. Each is written as made,
// and once more after it has been opened again.
#include "persistence/project_codec.h"
#include "persistence/project_factory.h"
#include "platform/files.h"
#include "platform/safe_write.h"
#include "platform/system_text.h"
#include "platform/utf8.h"
#include "support/random_project.h"

#include <cstdio>

// At least those of every test.
static constexpr std::uint32_t lastSeed = 100;

static bool write(const std::wstring& path, const std::vector<std::uint8_t>& bytes)
{
    const FileResult result = replaceFile(path, bytes);
    if (!result)
        std::fprintf(stderr, "%s: %s\n", toUtf8(path).c_str(), toUtf8(result.reason).c_str());
    return static_cast<bool>(result);
}

static bool writeBoth(const std::wstring& path, IDBProject& project)
{
    const std::vector<std::uint8_t> bytes = encodeProject(project);
    ReadReport report;
    const auto factory = makeReference<DBFromFilev104Factory>(path, bytes, report);
    const auto again = Reference<DBProject>::adopt(factory->createDB());
    return write(path + L".TLX", bytes) && write(path + L".again.TLX", encodeProject(*again));
}

int main(int argumentCount, char** arguments)
{
    if (argumentCount != 2)
        return 2;
    const std::wstring folder = fromSystemText(arguments[1]);
    for (std::uint32_t seed = 1; seed <= lastSeed; ++seed)
        for (const bool lettered : {false, true}) {
            std::wstring path = folder;
            path.append(L"/").append(std::to_wstring(seed)).append(lettered ? L"-lettered" : L"-numbered");
            if (!writeBoth(path, *randomProject(seed, lettered)))
                return 1;
        }
    return 0;
}
