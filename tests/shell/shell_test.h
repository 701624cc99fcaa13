#pragma once

#include "app/mdi_child.h"
#include "app/shell_assembly.h"
#include "modules/program.h"
#include "shell/message_answers.h"

#include <QAction>
#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QTest>
#include <QTimer>
#include <gtest/gtest.h>

// The shell as the entry assembles it, in the folder of the test program: its settings file, the folder of
// projects and what a test leaves there are gone when the next test begins.
class ShellTest : public testing::Test
{
protected:
    void SetUp() override { start(); }
    void start()
    {
        QFile::remove(here(settingsFileName));
        QDir(here(projectsFolder)).removeRecursively();
        QDir().mkpath(here(projectsFolder));
        shell.settings = makeReference<Settings>();
        shell.settings->initialise();
        ASSERT_TRUE(assembleShell(shell));
        QCoreApplication::processEvents();
    }
    void TearDown() override
    {
        shell.closeWindows();
        shell.controller = {};
        shell.mainController = {};
        shell.settings = {};
        // A window that was closed has told the event loops to end: one loop more, else every later one would
        // too.
        QTimer::singleShot(0, QCoreApplication::instance(), &QCoreApplication::quit);
        QCoreApplication::exec();
        // What is deleted later is deleted now, not within the next test.
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    static QString here(const QString& name)
    {
        return QCoreApplication::applicationDirPath() + QLatin1Char('/') + name;
    }
    MainController& controller() { return *shell.mainController; }
    QAction* action(ShellAction which) { return controller().action(which); }
    QWidget* screen(TX_Modes mode)
    {
        const MdiChild* child = controller().findSubWindow(mode);
        return child ? child->widget() : nullptr;
    }
    // The signals that the toy screen of a mode got since the last question.
    QStringList heard(TX_Modes mode)
    {
        QWidget* toy = screen(mode);
        QStringList log = toy ? toy->property("log").toStringList() : QStringList{};
        if (toy)
            toy->setProperty("log", {});
        return log;
    }
    TXWidget* bus(TX_Modes mode) { return dynamic_cast<TXWidget*>(screen(mode)); }
    // A sample project, copied to a path of the test's own and opened.
    QString open(const QString& sample, const QString& name)
    {
        QString path = here(name);
        QFile::remove(path);
        QFile::copy(QStringLiteral(TELLURIX_SAMPLES "/") + sample, path);
        QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner);
        controller().setProjectPath(path.toStdWString());
        controller().openProject();
        return path;
    }

    Shell shell;
};
