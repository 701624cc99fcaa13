#include "projects/project_entry.h"

#include "core/base/mexception.h"
#include "persistence/file_stem.h"
#include "persistence/project_file.h"
#include "persistence/project_lock.h"
#include "persistence/save_losses.h"
#include "platform/files.h"

#include <QDateTime>
#include <QFileInfo>

#include <stdexcept>

std::wstring projectsFolderOf(const std::wstring& workFolder)
{
    return workFolder + L"\\Проекты";
}

void lookAtFile(ProjectEntry& entry)
{
    const QFileInfo file(QString::fromStdWString(systemPath(entry.path)));
    entry.size = static_cast<std::uint64_t>(file.size());
    entry.modified = file.lastModified().toMSecsSinceEpoch();
}

// The same by another name too: through a link, or in letters of another case where the system does not tell
// them apart.
static bool sameFile(const std::wstring& a, const std::wstring& b)
{
    const std::wstring first = systemPath(a);
    const std::wstring second = systemPath(b);
    return first == second
        || QFileInfo(QString::fromStdWString(first)) == QFileInfo(QString::fromStdWString(second));
}

void lookAtSavingPlace(ProjectEntry& entry)
{
    if (entry.savingPlace.empty())
        return;
    entry.savesElsewhere = !sameFile(entry.savingPlace, entry.path);
    entry.placeIsTaken = entry.savesElsewhere && fileExists(entry.savingPlace);
    const auto owner = foreignOwner(entry.savingPlace);
    entry.openedBy.clear();
    if (owner)
        entry.openedBy = owner->user.empty() ? L"другая программа" : owner->user + L", " + owner->computer;
}

static void takeProject(ProjectEntry& entry, DBProject& project, const std::wstring& workFolder)
{
    entry.state = ProjectEntry::State::current;
    entry.code = project.getProjectCode();
    entry.name = project.getProjectName();
    entry.points = project.getPointRegister().size();
    entry.savingPlace = projectsFolderOf(workFolder) + L'\\' + fileStem(project.getFilePath()) + L'\\'
        + project.getFilePath();
    lookAtSavingPlace(entry);
}

// Null for a file of another version.
static Reference<DBProject> readContent(
    ProjectEntry& entry, const std::wstring& workFolder, ReadReport& report)
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
        return {};
    case ProjectFileState::current:
        break;
    }
    Reference<DBProject> project = readProject(entry.path, bytes, report);
    takeProject(entry, *project, workFolder);
    return project;
}

static Reference<DBProject> readGuarded(
    ProjectEntry& entry, const std::wstring& workFolder, ReadReport& report)
{
    try {
        return readContent(entry, workFolder, report);
    } catch (const MException& failure) {
        entry.problem = failure.message();
    } catch (const std::out_of_range&) {
        entry.problem = L"Файл слишком короткий, чтобы быть проектом.";
    } catch (const std::exception&) {
        entry.problem = L"Файл не читается.";
    }
    entry.state = ProjectEntry::State::damaged;
    return {};
}

void readProjectEntry(ProjectEntry& entry, const std::wstring& workFolder)
{
    ReadReport report;
    readGuarded(entry, workFolder, report);
}

std::wstring storingProblem(const std::wstring& path, const std::wstring& workFolder)
{
    ProjectEntry entry;
    entry.path = path;
    ReadReport report;
    const auto project = readGuarded(entry, workFolder, report);
    if (!project)
        return entry.problem;
    if (entry.savesElsewhere)
        return L"Проект этого файла сохраняется в другое место: " + systemPath(entry.savingPlace);
    if (!entry.openedBy.empty())
        return L"Проект сейчас открыт в другом месте: " + entry.openedBy + L".";
    if (report.refusalCount > 0)
        return L"В файле есть строки с именами, которые читаются одинаково; при записи они пропали бы. "
               L"Откройте проект: программа покажет эти строки.";
    const auto losses = findSaveLosses(*project, 1);
    return losses.empty() ? std::wstring() : describeLoss(losses.front());
}

std::wstring openingProblem(const std::wstring& path)
{
    ProjectEntry entry;
    entry.path = path;
    readProjectEntry(entry, {});
    return entry.state == ProjectEntry::State::damaged ? entry.problem : std::wstring();
}
