#pragma once

#include "shell/shell_test.h"

#include <QAbstractItemView>
#include <QLineEdit>
#include <QTableView>
#include <QWheelEvent>

// The program with its real modules, as far as the event loop goes.
class ProgramTest : public ShellTest
{
protected:
    void SetUp() override
    {
        QFile::remove(here(QStringLiteral("tellurix19_view.ini")));
        ShellTest::SetUp();
        shell.mainWindow->resize(1400, 900);
        QTest::qWait(1);
    }

    // A copy of a sample in the folder where the program saves it.
    QString project(const QString& name)
    {
        const QString folder = here(projectsFolder + QLatin1Char('/') + name);
        QDir().mkpath(folder);
        QString path = folder + QLatin1Char('/') + name + QStringLiteral(".TLX");
        QFile::remove(path);
        QFile::copy(QStringLiteral(TELLURIX_SAMPLES "/") + name + QStringLiteral(".TLX"), path);
        QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner);
        return path;
    }
    static QByteArray content(const QString& path)
    {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("missing");
    }
    // The one table of a screen that is shown.
    QTableView* table(TX_Modes mode)
    {
        const auto tables = screen(mode)->findChildren<QTableView*>();
        for (QTableView* candidate : tables)
            if (candidate->isVisibleTo(screen(mode)))
                return candidate;
        return nullptr;
    }
    // Letters of any alphabet; the toolkit's own keyClicks knows Latin ones alone.
    static void enter(QWidget* widget, const QString& text)
    {
        for (const QChar letter : text)
            QTest::sendKeyEvent(QTest::Click, widget, Qt::Key_unknown, QString(letter), Qt::NoModifier);
    }
    // Types over a cell, as a user does: the letters open it, Enter closes it.
    static void type(QTableView* view, int row, int column, const QString& text)
    {
        view->setFocus();
        view->setCurrentIndex(view->model()->index(row, column));
        QTest::keyClick(view, Qt::Key_F2);
        auto* editor = view->findChild<QLineEdit*>();
        ASSERT_NE(editor, nullptr) << "the cell does not open";
        editor->selectAll();
        enter(editor, text);
        QTest::keyClick(editor, Qt::Key_Return);
        QCoreApplication::processEvents();
    }
    // A step of the wheel over the middle of the field; whether the field takes it.
    static bool turnWheel(QWidget& field, int by)
    {
        const QPoint at = field.rect().center();
        QWheelEvent wheel(
            at, field.mapToGlobal(at), {}, {0, by}, Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(&field, &wheel);
        return wheel.isAccepted();
    }
    static QString cell(const QTableView* view, int row, int column)
    {
        return view->model()->index(row, column).data().toString();
    }
};
