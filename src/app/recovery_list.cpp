#include "app/recovery_list.h"

#include "app/project_writer.h"
#include "app/recovery_copy.h"
#include "persistence/project_file.h"
#include "persistence/project_lock.h"
#include "platform/files.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <algorithm>

static QString systemText(const std::wstring& path)
{
    return QString::fromStdWString(systemPath(path));
}

static Reference<DBProject> readCopy(const std::wstring& path)
{
    try {
        std::vector<std::uint8_t> bytes;
        ReadReport report;
        if (lookAtProjectFile(path, bytes) == ProjectFileState::current)
            return readProject(path, bytes, report);
    } catch (...) {
        // Whatever is wrong with it, it cannot be opened.
    }
    return {};
}

static RecoveredProject describe(const std::wstring& path, ISettings& settings)
{
    RecoveredProject copy;
    copy.path = path;
    copy.copied = fileInfo(path).modified;
    if (const auto record = lockRecord(path)) {
        copy.user = record->user;
        copy.computer = record->computer;
    }
    const auto project = readCopy(path);
    copy.isDamaged = !project;
    if (project) {
        copy.code = project->getProjectCode();
        copy.name = project->getProjectName();
        copy.place = projectPlace(*project, settings);
        copy.saved = fileInfo(copy.place).modified;
    }
    return copy;
}

std::vector<RecoveredProject> findRecoveryCopies(ISettings& settings)
{
    std::vector<RecoveredProject> copies;
    for (const std::wstring& folder : recoveryFolders(settings))
        for (const QFileInfo& file :
            QDir(systemText(folder)).entryInfoList({QStringLiteral("*.TLX")}, QDir::Files, QDir::Name)) {
            const std::wstring path = folder + L'\\' + file.fileName().toStdWString();
            if (!livingOwner(path))
                copies.push_back(describe(path, settings));
        }
    std::stable_sort(copies.begin(), copies.end(), [](const RecoveredProject& a, const RecoveredProject& b) {
        return a.copied > b.copied;
    });
    return copies;
}

bool isRecoveryCopy(const std::wstring& path, ISettings& settings)
{
    const QString folder = QFileInfo(systemText(path)).canonicalPath();
    const auto folders = recoveryFolders(settings);
    return !folder.isEmpty()
        && std::any_of(folders.begin(), folders.end(), [&](const std::wstring& candidate) {
               return QFileInfo(systemText(candidate)).canonicalFilePath() == folder;
           });
}

bool deleteRecoveryCopy(const std::wstring& path)
{
    // Nobody else restores it while it goes.
    const auto lock = ProjectLock::tryTake(path);
    return lock.state != ProjectLock::State::HeldByOther && QFile::remove(systemText(path));
}
