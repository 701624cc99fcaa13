#pragma once

#include "common/edit_grid.h"
#include "core/facade/mode_libraries.h"
#include "core/facade/tellurix_controller.h"
#include "modules/tx_widget.h"
#include "persistence/project_file.h"

#include <QApplication>
#include <QLibrary>
#include <QListView>
#include <QTest>

#include <memory>

// One module in the place where the shell has it: made by createWidget over the real facade, told what the
// shell tells it.
class ScreenHost
{
public:
    ScreenHost(const char* file, TX_Modes mode, Reference<DBProject> opened)
        : project(std::move(opened))
        , mode_(mode)
        , library_(modeLibraryPath(QLatin1String(file)))
    {
        controller.setProject(project.get());
        make();
    }
    virtual ~ScreenHost() = default;

    // Closes the screen, where there is one, and makes it anew.
    void make()
    {
        using Create = QWidget* (*)(const TX_Modes*, ITellurixController*);
        const auto create = reinterpret_cast<Create>(library_.resolve("createWidget"));
        const TX_Modes mode = mode_;
        screen.reset(create ? dynamic_cast<TXWidget*>(create(&mode, &controller)) : nullptr);
        if (!screen)
            qFatal("%s", qPrintable(library_.errorString()));
        QObject::connect(screen.get(), &TXWidget::signalShowStatusMessage, [this](const std::wstring& text) {
            status = QString::fromStdWString(text);
        });
        screen->resize(1100, 600);
        screen->show();
        QApplication::setActiveWindow(screen.get());
        activate();
    }

    // What a change of mode does.
    void activate()
    {
        controller.setCurrentMode(mode_);
        Q_EMIT screen->signalUpdateComplexPoints();
        Q_EMIT screen->signalUpdateInfo();
        Q_EMIT screen->signalUpdateMode();
    }

    // The classes of the screen are the module's own, so they are found by what Qt knows of them.
    virtual QTableView* table() const { return screen->findChild<QTableView*>(); }
    QListView* list() const { return screen->findChild<QListView*>(); }

    QString cell(int row, int column) const { return table()->model()->index(row, column).data().toString(); }
    QString toolTip(int row, int column) const
    {
        return table()->model()->index(row, column).data(Qt::ToolTipRole).toString();
    }
    bool isMarked(int row, int column) const
    {
        return table()->model()->index(row, column).data(EditGridModel::ProblemRole).toBool();
    }
    bool isWarned(int row, int column) const
    {
        return table()->model()->index(row, column).data(EditGridModel::WarningRole).toBool();
    }
    // Without the spare one.
    int rowCount() const
    {
        const QAbstractItemModel* model = table()->model();
        const int rows = model->rowCount();
        return rows > 0 && model->index(rows - 1, 0).data(NumberSortProxy::SpareRole).toBool() ? rows - 1
                                                                                               : rows;
    }
    QString cells() const
    {
        QStringList rows;
        for (int row = 0; row < rowCount(); ++row) {
            QStringList rowCells;
            for (int column = 0; column < table()->model()->columnCount(); ++column)
                rowCells += cell(row, column);
            rows += rowCells.join(QLatin1Char('|'));
        }
        return rows.join(QLatin1Char('\n'));
    }

    void choose(int point) { list()->setCurrentIndex(list()->model()->index(point, 0)); }
    void goTo(int row, int column)
    {
        table()->setFocus();
        table()->selectionModel()->setCurrentIndex(
            table()->model()->index(row, column), QItemSelectionModel::ClearAndSelect);
    }
    void enter(int row, int column, const QString& text)
    {
        goTo(row, column);
        press(Qt::Key_F2);
        type(text);
        press(Qt::Key_Return);
    }
    void type(const QString& text)
    {
        for (const QChar& letter : text)
            QTest::sendKeyEvent(QTest::Click, focus(), Qt::Key_unknown, letter, Qt::NoModifier);
    }
    void press(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QTest::keyClick(focus(), Qt::Key(key), modifiers);
    }
    bool store() { return screen->signalUpdateDB(); }

    Settings settings;
    TellurixController controller{&settings, nullptr};
    Reference<DBProject> project;
    std::unique_ptr<TXWidget> screen;
    QString status;

private:
    QWidget* focus() const
    {
        QWidget* focused = QApplication::focusWidget();
        return focused ? focused : screen.get();
    }

    TX_Modes mode_;
    QLibrary library_;
};
