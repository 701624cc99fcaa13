// What keeps the open project from being lost: the copy that outlives a crash, and the signs of life.

#include "app/main_controller.h"
#include "app/message_box.h"
#include "app/project_writer.h"
#include "app/recovery_dialog.h"
#include "app/recovery_list.h"
#include "core/base/content_hash.h"
#include "persistence/file_stem.h"
#include "persistence/project_codec.h"

#include <QMessageBox>

#include <algorithm>

using namespace std::chrono;

// Of a project that cannot be encoded: nothing.
static std::optional<std::uint64_t> stateOf(IDBProject& project)
{
    try {
        return contentHash(encodeProjectInBlocks(project).parts());
    } catch (...) {
        return {};
    }
}

void ProjectLife::watch()
{
    guard_.remember(projectPlace(*project_, settings()));
    recovery_.begin(stateOf(*project_).value_or(0));
    if (isRecoveryCopy(path_, settings()))
        recovery_.adopt(path_);
}

milliseconds ProjectLife::keepCopy()
{
    if (const std::wstring failure = recovery_.newFailure(); !failure.empty())
        shell_.showStatus(
            QStringLiteral("Копия проекта на случай сбоя не записана: %1. Сохраняйте проект чаще.")
                .arg(QString::fromStdWString(failure)),
            0);
    if (!project_ || recovery_.isWriting())
        return {};
    const milliseconds writing = recovery_.writingTime();
    const auto start = steady_clock::now();
    try {
        recovery_.keep(
            encodeProjectInBlocks(*project_), fileStem(project_->getFilePath()), recoveryFolders(settings()));
    } catch (...) {
        // A project that cannot be encoded cannot be saved either, and the save tells. The copy of the last
        // state that could be stays.
    }
    return writing + duration_cast<milliseconds>(steady_clock::now() - start);
}

void ProjectLife::giveSign()
{
    recovery_.giveSign();
    if (const QString taken = guard_.giveSign(); !taken.isEmpty())
        shell_.showStatus(taken, 0);
}

void ProjectLife::offerRecovery()
{
    if (shell_.leaving())
        return;
    std::vector<RecoveredProject> copies = findRecoveryCopies(settings());
    if (copies.empty())
        return;
    if (project_)
        std::stable_partition(copies.begin(),
            copies.end(),
            [place = projectPlace(*project_, settings())](
                const RecoveredProject& copy) { return copy.place == place; });
    RecoveryDialog dialog(std::move(copies), settings().projectPath(), window());
    if (dialog.exec() == QDialog::Accepted)
        restore(dialog.chosen());
}

// An ordinary opening: the copy is a project file, and what it saves to stands in it.
void ProjectLife::restore(const std::wstring& copy)
{
    if (livingOwner(copy)) {
        showMessageBox(ModeNone,
            L"Этот проект уже восстановлен в другом окне программы.",
            window(),
            QMessageBox::Warning);
        return;
    }
    // The command line's project, just opened, is in nobody's way; one that has been worked on is asked for.
    if (project_ && stateOf(*project_) == recovery_.savedState())
        drop();
    else if (!closePrompt())
        return;
    setPath(copy);
    open();
    if (openFailed_)
        return;
    shell_.showOpenProject();
    shell_.showStatus(QStringLiteral("Проект восстановлен. Проверьте его и сохраните."), 0);
}
