// How a project comes to be in memory and reaches the disk.

#include "app/main_controller.h"
#include "app/message_box.h"
#include "app/project_reading.h"
#include "app/project_writer.h"
#include "core/base/content_hash.h"
#include "core/base/mexception.h"
#include "persistence/read_failure.h"
#include "persistence/save_losses.h"
#include "platform/utf8.h"

#include <QApplication>
#include <QMainWindow>
#include <QMessageBox>

#include <algorithm>

static constexpr int statusMilliseconds = 2000;
static constexpr const wchar_t* newProjectName = L"TLXXXXX.TLX";

Settings& ProjectLife::settings() const
{
    return *shell_.dbSettings();
}

QWidget* ProjectLife::window() const
{
    return shell_.mainWindow();
}

void ProjectLife::take(Reference<DBProject> project)
{
    project_ = std::move(project);
    shell_.facade().setProject(project_.get());
    // The object type is the project's own while one is open.
    settings().setIsShowTypeObject(project_.get() == nullptr);
    toldLosses_.clear();
}

void ProjectLife::resetFacade()
{
    shell_.facade().detachAll();
    shell_.facade().reset();
}

void ProjectLife::makeNew()
{
    path_ = newProjectName;
    // Its short name is TLXXXXX until the user names the project in the list of points.
    auto project = makeReference<DBProject>();
    project->setFilePath(path_);
    project->setTypeObject(settings().typeObject());
    project->setLabValueC(settings().newProjectMode());
    project->setGranGost(settings().granGostLaboratory());
    rowsWereRefused_ = false;
    take(std::move(project));
    guard_.release();
    watch();
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

// Which file it was, and where and why its reading stopped: the message itself may name neither.
static std::wstring fileAndFault(
    const std::wstring& path, const std::wstring& message, const ReadReport& report)
{
    std::wstring text = message.find(path) == std::wstring::npos ? path : std::wstring();
    const std::string fault = describeReadFailure(report);
    if (!fault.empty())
        text += (text.empty() ? L"" : L"\n") + fromUtf8(fault).value_or(std::wstring());
    return text;
}

void ProjectLife::open()
{
    openFailed_ = false;
    resetFacade();
    std::wstring message;
    ReadReport report;
    try {
        Reference<DBProject> project = readProjectFile(path_, report);
        // An opening that the user calls off is one that failed without a word: the project that was open
        // stays, and a caller who goes on to the list of points does not find a new project made for him.
        openFailed_ = !project || !guard_.mayOpen(projectPlace(*project, settings()), window());
        if (!openFailed_) {
            rowsWereRefused_ = report.refusalCount > 0;
            take(std::move(project));
            watch();
            settings().setTypeObject(project_->getTypeObject());
            settings().setGranGostLaboratory(project_->getGranGost());
            if (rowsWereRefused_)
                showMessageBox(ModeNone, refusalWarning(report), window(), QMessageBox::Warning);
        }
    } catch (const MException& failure) {
        openFailed_ = true;
        message = failure.message();
    } catch (...) {
        // A failure without words leaves the previous project open and says nothing.
    }
    if (!message.empty())
        showMessageBox(
            ModeNone, message, fileAndFault(path_, message, report), window(), QMessageBox::Warning);
}

bool ProjectLife::save(SaveWay way)
{
    if (!project_) {
        shell_.tell(ModeStratigraphic, &TXWidget::signalSaveColumn);
        return true;
    }
    shell_.showStatus(QStringLiteral("Сохранение проекта..."), statusMilliseconds);
    // Whatever the screen answers, what is stored is saved.
    shell_.syncMode(shell_.facade().currentMode());
    return write(way);
}

bool ProjectLife::write(SaveWay way)
{
    WrittenProject written{{FileStep::Write, {}, false}, 0, 0};
    const std::wstring place = projectPlace(*project_, settings());
    try {
        const ProjectWriter writer(project_.get(), &settings());
        if (writer.makeFolder()) {
            if (!guard_.maySave(place, way, window())) {
                shell_.showStatus(guard_.reason(), 0);
                return false;
            }
            written = writer.write();
            if (written)
                guard_.wrote(place, written.size, written.state);
            else // half a file is our own doing too
                guard_.remember(place);
        }
    } catch (...) {
        // What it was does not help the user; that nothing is on the disk does.
    }
    if (written) {
        rowsWereRefused_ = false;
        recovery_.saved(written.state);
        shell_.showStatus(QStringLiteral("Готово."), 0);
    } else {
        showMessageBox(ModeNone, L"Ошибка при сохранения проекта!", window(), QMessageBox::Warning);
    }
    return bool(written);
}

// What the file just written will not give back, once for each state of the project.
void ProjectLife::warnOfLosses()
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
        window(),
        QMessageBox::Warning);
}

void ProjectLife::saveByTimer()
{
    // A question that is open may be about this very project.
    if (dynamic_cast<QMessageBox*>(QApplication::activeModalWidget()))
        return;
    if (rowsWereRefused_) {
        shell_.showStatus(
            QStringLiteral("Автосохранение ждёт: в файле есть непрочитанные строки, которые исчезнут "
                           "при записи. Сохраните проект сами, если они не нужны."),
            0);
        return;
    }
    save(SaveWay::ByTimer);
}
