#pragma once

#include "common/edit_grid.h"
#include "core/facade/tellurix_controller.h"
#include "modules/tx_widget.h"
#include "support/temporary_folder.h"

#include <QApplication>
#include <QLibrary>
#include <QLineEdit>
#include <QTest>
#include <QTimer>

#include <memory>
#include <stdexcept>

// The module as the shell loads it, over the real facade, with a work folder of its own.
class ListCoordsHost
{
public:
    explicit ListCoordsHost(Reference<DBProject> opened)
        : project(std::move(opened))
        , settings(makeReference<Settings>())
    {
        settings->setProjectPath(fromUtf8(folder.path().string()).value_or(L""));
        controller = makeReference<TellurixController>(settings.get(), project.get());
        controller->setCurrentMode(ModeListCoords);
        make();
    }

    // Closes the screen and opens it again, as a user does.
    void make()
    {
        using CreateWidget = QWidget* (*)(const TX_Modes*, ITellurixController*);
        QLibrary library(QCoreApplication::applicationDirPath() + QStringLiteral("/listCoords19.dll"));
        const auto create = reinterpret_cast<CreateWidget>(library.resolve("createWidget"));
        if (!create)
            throw std::runtime_error(library.errorString().toStdString());
        const TX_Modes mode = ModeListCoords;
        screen.reset();
        screen.reset(dynamic_cast<TXWidget*>(create(&mode, controller.get())));
        QObject::connect(
            screen.get(), &TXWidget::signalShowStatusMessage, screen.get(), [this](const std::wstring& text) {
                status = QString::fromStdWString(text);
            });
        QObject::connect(
            screen.get(), &TXWidget::signalDeleteRecord, screen.get(), [this](TX_Modes, bool can) {
                canDelete = can;
            });
        screen->resize(1280, 760);
        screen->show();
        QApplication::setActiveWindow(screen.get());
        Q_EMIT screen->signalUpdateMode();
    }

    // Parts of the screen carry names; findChild over its own classes would not cross the library's border.
    template <class Widget>
    Widget* part(const char* name) const
    {
        return screen->findChild<Widget*>(QLatin1String(name));
    }
    QTableView* table() const { return screen->findChild<QTableView*>(); }

    QString cell(int row, int column) const { return table()->model()->index(row, column).data().toString(); }
    QString tip(int row, int column) const
    {
        return table()->model()->index(row, column).data(Qt::ToolTipRole).toString();
    }
    int rowOf(const QString& name) const
    {
        for (int row = 0; row < table()->model()->rowCount(); ++row)
            if (cell(row, 0) == name)
                return row;
        return -1;
    }
    void select(int row, int column) const
    {
        table()->setFocus();
        table()->selectionModel()->setCurrentIndex(
            table()->model()->index(row, column), QItemSelectionModel::ClearAndSelect);
    }

    // Keys go where a person's keys go.
    static void press(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key(key), modifiers);
    }
    static void type(const QString& text)
    {
        for (const QChar& letter : text)
            QTest::sendKeyEvent(
                QTest::Click, QApplication::focusWidget(), Qt::Key_unknown, letter, Qt::NoModifier);
    }
    void typeInto(int row, int column, const QString& text) const
    {
        select(row, column);
        press(Qt::Key_F2);
        press(Qt::Key_A, Qt::ControlModifier);
        type(text);
        press(Qt::Key_Return);
    }

    TemporaryFolder folder;
    Reference<DBProject> project;
    Reference<Settings> settings;
    Reference<TellurixController> controller;
    std::unique_ptr<TXWidget> screen;
    QString status;
    bool canDelete = false;
};
