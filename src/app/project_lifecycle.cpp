// How a project comes to be in memory and reaches the disk.

#include "app/main_controller.h"
#include "app/main_window.h"
#include "app/message_box.h"
#include "app/project_reading.h"
#include "app/project_writer.h"
#include "core/base/content_hash.h"
#include "core/base/mexception.h"
#include "persistence/save_losses.h"

#include <QApplication>
#include <QMessageBox>

#include <algorithm>

static constexpr int statusMilliseconds = 2000;
static constexpr const wchar_t* newProjectName = L"TLXXXXX.TLX";

void MainController::takeProject(Reference<DBProject> project)
{
    project_ = std::move(project);
    controller_->setProject(project_.get());
    // The object type is the project's own while one is open.
    settings_->setIsShowTypeObject(project_.get() == nullptr);
    toldLosses_.clear();
}

void MainController::resetFacade()
{
    controller_->detachAll();
    controller_->reset();
}

void MainController::newProject()
{
    projectPath_ = newProjectName;
    // Its short name is TLXXXXX until the user names the project in the list of points.
    auto project = makeReference<DBProject>();
    project->setFilePath(projectPath_);
    project->setTypeObject(settings_->typeObject());
    project->setLabValueC(settings_->newProjectMode());
    project->setGranGost(settings_->granGostLaboratory());
    rowsWereRefused_ = false;
    takeProject(std::move(project));
    guard_.release();
    watchProject();
}

// Rows that did not come in stand in the file until it is saved for the first time: then they are gone.
static std::wstring refusalWarning(const ReadReport& report)
{
    std::wstring text = L"Из файла не прочитано строк: " + std::to_wstring(report.refusalCount)
        + L".\nИх имена или глубины читаются как то же число, что у другой строки, или не читаются вовсе:\n";
    static constexpr std::size_t shown = 10;
    for (std::size_t i = 0; i < std::min(shown, report.refusals.size()); ++i)
        text += L"    " + report.refusals[i].key + L"\n";
    if (report.refusalCount > shown)
        text += L"    ...\n";
    return text + L"После сохранения этих строк в файле не будет. Сделайте копию файла, если они нужны.";
}

void MainController::openProject()
{
    openFailed_ = false;
    resetFacade();
    std::wstring message;
    ReadReport report;
    try {
        Reference<DBProject> project = readProjectFile(projectPath_, report);
        // An opening that the user calls off is one that failed without a word: the project that was open
        // stays, and a caller who goes on to the list of points does not find a new project made for him.
        openFailed_ = !project || !guard_.mayOpen(projectPlace(*project, *settings_), mainWindow_);
        if (!openFailed_) {
            rowsWereRefused_ = report.refusalCount > 0;
            takeProject(std::move(project));
            watchProject();
            settings_->setTypeObject(project_->getTypeObject());
            settings_->setGranGostLaboratory(project_->getGranGost());
            if (rowsWereRefused_)
                showMessageBox(ModeNone, refusalWarning(report), mainWindow_, QMessageBox::Warning);
        }
    } catch (const MException& failure) {
        openFailed_ = true;
        message = failure.message();
    } catch (...) {
        // A failure without words leaves the previous project open and says nothing.
    }
    if (!message.empty())
        showMessageBox(ModeNone, message, mainWindow_, QMessageBox::Warning);
}

bool MainController::saveProject(SaveWay way)
{
    if (!project_) {
        tell(ModeStratigraphic, &TXWidget::signalSaveColumn);
        return true;
    }
    showStatus(QStringLiteral("Сохранение проекта..."), statusMilliseconds);
    // Whatever the screen answers, what is stored is saved.
    syncMode(controller_->currentMode());
    return writeOpenProject(way);
}

bool MainController::writeOpenProject(SaveWay way)
{
    bool written = false;
    std::uint64_t state = 0;
    const std::wstring place = projectPlace(*project_, *settings_);
    try {
        const ProjectWriter writer(project_.get(), settings_);
        const ByteBlocks bytes = writer.encode();
        state = contentHash(bytes.parts());
        if (writer.makeFolder()) {
            if (!guard_.maySave(place, way, mainWindow_)) {
                showStatus(guard_.reason(), 0);
                return false;
            }
            written = bool(writer.write(bytes.parts()));
            if (written)
                guard_.wrote(place, bytes.size(), state);
            else // half a file is our own doing too
                guard_.remember(place);
        }
    } catch (...) {
        // What it was does not help the user; that nothing is on the disk does.
        written = false;
    }
    if (written) {
        rowsWereRefused_ = false;
        recovery_.saved(state);
        showStatus(QStringLiteral("Готово."), 0);
    } else {
        showMessageBox(ModeNone, L"Ошибка при сохранения проекта!", mainWindow_, QMessageBox::Warning);
    }
    return written;
}

// What the file just written will not give back, once for each state of the project.
void MainController::warnOfLosses()
{
    if (!project_)
        return;
    const auto losses = findSaveLosses(*project_);
    static constexpr std::size_t shown = 8;
    std::wstring text;
    for (std::size_t i = 0; i < std::min(shown, losses.size()); ++i)
        text += describeLoss(losses[i]) + L"\n";
    if (losses.size() > shown)
        text += L"... и ещё " + std::to_wstring(losses.size() - shown);
    if (text.empty() || text == toldLosses_)
        return;
    toldLosses_ = text;
    showMessageBox(ModeNone,
        L"Проект записан, но не всё из него вернётся при открытии файла:\n" + text,
        mainWindow_,
        QMessageBox::Warning);
}

void MainController::autoSave()
{
    // A question that is open may be about this very project.
    if (dynamic_cast<QMessageBox*>(QApplication::activeModalWidget()))
        return;
    if (rowsWereRefused_) {
        showStatus(QStringLiteral("Автосохранение ждёт: в файле есть непрочитанные строки, которые исчезнут "
                                  "при записи. Сохраните проект сами, если они не нужны."),
            0);
        return;
    }
    saveProject(SaveWay::ByTimer);
}
