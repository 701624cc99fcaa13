#include "projects/project_entry.h"

#include "core/base/mexception.h"
#include "persistence/file_stem.h"
#include "persistence/project_file.h"
#include "platform/files.h"

#include <algorithm>
#include <exception>

std::wstring projectsFolderOf(const std::wstring& workFolder)
{
    return workFolder + L"\\Проекты";
}

static bool samePath(std::wstring a, std::wstring b)
{
    std::replace(a.begin(), a.end(), L'/', L'\\');
    std::replace(b.begin(), b.end(), L'/', L'\\');
    return a == b;
}

static void takeProject(ProjectEntry& entry, DBProject& project, const std::wstring& workFolder)
{
    entry.state = ProjectEntry::State::current;
    entry.code = project.getProjectCode();
    entry.name = project.getProjectName();
    entry.points = project.getPointRegister().size();
    entry.savingPlace = projectsFolderOf(workFolder) + L'\\' + fileStem(project.getFilePath()) + L'\\'
        + project.getFilePath();
    entry.savesElsewhere = !samePath(entry.savingPlace, entry.path);
    entry.placeIsTaken = entry.savesElsewhere && fileExists(entry.savingPlace);
}

static void readContent(ProjectEntry& entry, const std::wstring& workFolder)
{
    std::vector<std::uint8_t> bytes;
    switch (lookAtProjectFile(entry.path, bytes)) {
    case ProjectFileState::missing:
        throw MException(L"Файла больше нет.");
    case ProjectFileState::wrongSuffix:
        throw MException(L"Файл проекта должен иметь расширение TLX.");
    case ProjectFileState::otherVersion:
        entry.state = ProjectEntry::State::olderVersion;
        entry.problem = L"Файл другой версии программы; при открытии он будет преобразован.";
        return;
    case ProjectFileState::current:
        break;
    }
    ReadReport report;
    const auto project = readProject(entry.path, bytes, report);
    takeProject(entry, *project, workFolder);
}

void readProjectEntry(ProjectEntry& entry, const std::wstring& workFolder)
{
    try {
        readContent(entry, workFolder);
    } catch (const MException& failure) {
        entry.state = ProjectEntry::State::damaged;
        entry.problem = failure.message();
    } catch (const std::exception&) {
        entry.state = ProjectEntry::State::damaged;
        entry.problem = L"Файл слишком короткий, чтобы быть проектом.";
    }
}

std::wstring openingProblem(const std::wstring& path)
{
    ProjectEntry entry;
    entry.path = path;
    readProjectEntry(entry, {});
    return entry.state == ProjectEntry::State::damaged ? entry.problem : std::wstring();
}
