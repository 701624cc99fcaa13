#pragma once

#include "registers_screen_host.h"

#include <QClipboard>
#include <QPushButton>
#include <QTabWidget>

// The laboratory's screen with the pages by their place and the cells by the heads of their columns.
class LaboratoryHost : public ScreenHost
{
public:
    enum Place { Register, Physical, Grading, Compression, Shear, Swelling, Shrinkage };

    explicit LaboratoryHost(Reference<DBProject> opened)
        : ScreenHost("laboratory19.dll", ModeLaboratory, std::move(opened))
    {
        QObject::connect(
            screen.get(), &TXWidget::signalSetAccessAllModes, [this](bool value) { hasAllModes = value; });
        QObject::connect(screen.get(), &TXWidget::signalSetDefProp, [this](TX_Lab_Modes page) {
            canTakeMainSet[page] = true;
        });
        QObject::connect(screen.get(), &TXWidget::signalDropDefProp, [this](TX_Lab_Modes page) {
            canTakeMainSet[page] = false;
        });
        turnTo(Register);
    }

    void turnTo(Place place)
    {
        tabs()->setCurrentIndex(place);
        QCoreApplication::sendPostedEvents();
    }
    QTabWidget* tabs() const { return screen->findChild<QTabWidget*>(QStringLiteral("pages")); }

    // The table in view: all samples, or the form of one.
    QTableView* grid() const
    {
        for (QTableView* table : tabs()->currentWidget()->findChildren<QTableView*>())
            if (table->isVisible() && table->objectName() != QString())
                return table;
        return nullptr;
    }
    // -1 where no head reads so; breaks of lines are blanks.
    int column(const QString& head) const
    {
        const QAbstractItemModel* model = grid()->model();
        for (int i = 0; i < model->columnCount(); ++i)
            if (model->headerData(i, Qt::Horizontal)
                    .toString()
                    .replace(QLatin1Char('\n'), QLatin1Char(' '))
                    .startsWith(head))
                return i;
        return -1;
    }
    QModelIndex at(int row, const QString& head) const { return grid()->model()->index(row, column(head)); }
    std::string text(int row, const QString& head) const
    {
        return at(row, head).data().toString().toStdString();
    }
    // Why the cell is marked; empty where it is not.
    std::string reason(int row, const QString& head) const
    {
        return at(row, head).data(EditGridModel::ReasonRole).toString().toStdString();
    }

    void select(int row, const QString& head)
    {
        grid()->setFocus();
        grid()->selectionModel()->setCurrentIndex(at(row, head), QItemSelectionModel::ClearAndSelect);
    }
    void write(int row, const QString& head, const QString& typed)
    {
        select(row, head);
        if (typed.isEmpty())
            return press(Qt::Key_Delete);
        type(typed);
        press(Qt::Key_Return);
    }
    void paste(int row, const QString& head, const QString& block)
    {
        select(row, head);
        QApplication::clipboard()->setText(block);
        press(Qt::Key_V, Qt::ControlModifier);
    }
    int rowOf(const QString& head, const char* value) const
    {
        for (int row = 0; row < grid()->model()->rowCount(); ++row)
            if (text(row, head) == value)
                return row;
        return -1;
    }
    bool click(const QString& caption)
    {
        for (QPushButton* button : screen->findChildren<QPushButton*>())
            if (button->isVisible() && button->isEnabled() && button->text().startsWith(caption)) {
                QTest::mouseClick(button, Qt::LeftButton);
                return true;
            }
        return false;
    }
    void undo()
    {
        Q_EMIT screen->signalCloseAllEditCell();
        controller.undo();
    }

    const LabSample& sample(const wchar_t* point, const wchar_t* depth) const
    {
        return project->getLabSamples().at({point, depth});
    }

    bool hasAllModes = true;
    std::map<TX_Lab_Modes, bool> canTakeMainSet;
};
