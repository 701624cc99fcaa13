// How a project and a column are closed.

#include "app/main_controller.h"

#include <QMessageBox>

int ProjectLife::askToSave(const QString& title, const QString& text)
{
    QMessageBox box(QMessageBox::Warning,
        title,
        text,
        QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel,
        window());
    box.setDefaultButton(QMessageBox::Cancel);
    return box.exec();
}

void ProjectLife::closeScreens()
{
    shell_.closeModeWindows([this] {
        // None of the others may find the project again when the current one is asked to store.
        take({});
        shell_.updateActions();
        shell_.finishModeLeave();
    });
}

bool ProjectLife::closePrompt()
{
    if (!project_)
        return true;
    if (!shell_.mayDropUnsavedCells())
        return false;
    const int answer = askToSave(QStringLiteral("Проект"), QStringLiteral("Сохранить текущий проект?"));
    if (answer != QMessageBox::Yes && answer != QMessageBox::No)
        return false;
    shell_.hideHint();
    if (answer == QMessageBox::Yes) {
        if (!save(SaveWay::ByHand))
            return false;
        warnOfLosses();
    }
    drop();
    return true;
}

void ProjectLife::drop()
{
    closeScreens();
    shell_.updateActions();
    shell_.finishModeLeave();
    take({});
    rowsWereRefused_ = false;
    guard_.release();
    // Also where the user did not want it saved: he threw it away knowingly.
    recovery_.remove();
}

bool ProjectLife::closeColumnPrompt()
{
    if (!shell_.facade().columnModified())
        return true;
    const int answer =
        askToSave(QStringLiteral("Стратиграфическая колонка"), QStringLiteral("Сохранить текущую колонку?"));
    if (answer != QMessageBox::Yes && answer != QMessageBox::No)
        return false;
    shell_.hideHint();
    if (answer == QMessageBox::Yes)
        shell_.tell(ModeStratigraphic, &TXWidget::signalSaveColumn);
    closeScreens();
    shell_.updateActions();
    shell_.finishModeLeave();
    return true;
}
