// Cells that a screen keeps as typed because the project cannot take them: nobody loses one unasked.

#include "modules/unsaved_cells.h"

#include "app/main_controller.h"
#include "app/main_window.h"
#include "app/mdi_child.h"

#include <QAbstractButton>
#include <QMdiArea>
#include <QMessageBox>
#include <QTimer>
#include <QVariant>

static constexpr int mostNamed = 8;

QVector<MainController::UnsavedCell> MainController::unsavedCells() const
{
    QVector<UnsavedCell> cells;
    if (!mdiArea_ || !life_.project())
        return cells;
    const auto windows = mdiArea_->subWindowList();
    for (const QMdiSubWindow* window : windows) {
        const auto* child = dynamic_cast<const MdiChild*>(window);
        if (!child || !child->widget())
            continue;
        const QStringList texts = child->widget()->property(unsavedCellsProperty).toStringList();
        for (int number = 0; number < texts.size(); ++number)
            cells.append({child->mode(), number, texts[number]});
    }
    return cells;
}

static QString namedCells(const QVector<MainController::UnsavedCell>& cells)
{
    QString text;
    for (int i = 0; i < qMin(cells.size(), mostNamed); ++i) {
        const std::wstring_view* mode = modeNames.find(cells[i].mode);
        text += QStringLiteral("%1. %2\n")
                    .arg(mode ? QString::fromWCharArray(mode->data(), int(mode->size())) : QString(),
                        cells[i].text);
    }
    if (cells.size() > mostNamed)
        text += QStringLiteral("… и ещё %1").arg(cells.size() - mostNamed);
    return text.trimmed();
}

void MainController::showUnsavedCell(const UnsavedCell& cell)
{
    if (controller_->currentMode() != cell.mode)
        changeMode(cell.mode);
    TXWidget* screen = screenOf(cell.mode);
    if (!screen)
        return;
    screen->setProperty(shownCellProperty, {});
    screen->setProperty(shownCellProperty, cell.number);
}

void MainController::tellUnsavedCells()
{
    const QVector<UnsavedCell> cells = unsavedCells();
    if (cells.isEmpty())
        return;
    showStatus(QStringLiteral("Записано, кроме ячеек: %1.").arg(cells.size()), 0);
    QMessageBox box(QMessageBox::Warning,
        QStringLiteral("Проект"),
        QStringLiteral("Проект записан, но эти ячейки в него не вошли:"),
        QMessageBox::Yes | QMessageBox::Ok,
        mainWindow_);
    box.setInformativeText(namedCells(cells));
    box.button(QMessageBox::Yes)->setText(QStringLiteral("Показать"));
    box.button(QMessageBox::Ok)->setText(QStringLiteral("Хорошо"));
    box.setDefaultButton(QMessageBox::Yes);
    box.setEscapeButton(QMessageBox::Ok);
    if (box.exec() == QMessageBox::Yes)
        showUnsavedCell(cells.first());
}

bool MainController::mayDropUnsavedCells()
{
    closeAllEditors();
    const QVector<UnsavedCell> cells = unsavedCells();
    if (cells.isEmpty())
        return true;
    QMessageBox box(QMessageBox::Warning,
        QStringLiteral("Проект"),
        QStringLiteral("Эти ячейки в проект не вошли и при закрытии пропадут:"),
        QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel,
        mainWindow_);
    box.setInformativeText(namedCells(cells));
    box.button(QMessageBox::Yes)->setText(QStringLiteral("Показать"));
    box.button(QMessageBox::No)->setText(QStringLiteral("Закрыть без них"));
    box.button(QMessageBox::Cancel)->setText(QStringLiteral("Отмена"));
    box.setDefaultButton(QMessageBox::Yes);
    const int answer = box.exec();
    // When the closing that is called off has put the facade back.
    if (answer == QMessageBox::Yes)
        QTimer::singleShot(0, mainWindow_, [this, cell = cells.first()] { showUnsavedCell(cell); });
    return answer == QMessageBox::No;
}
