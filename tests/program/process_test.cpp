// The program as a process of its own, for what would keep a test from going on.

#include "app/office_files.h"
#include "program/program_test.h"

#include <QProcess>

class OfficeFiles : public ProgramTest
{
};

// A convertor that says done and changes nothing is run again and again: there is no limit to it, and the
// file and its copy stay as they were.
TEST(Process, ConvertorThatChangesNothingIsRunWithoutEnd)
{
    const QString folder = QCoreApplication::applicationDirPath() + QLatin1Char('/');
    const auto write = [&](const QString& name, const QByteArray& bytes) {
        QFile file(folder + name);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
        file.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    };
    const QByteArray old("TellurixDB\0\0\x67\0\0\0", 16);
    write(QStringLiteral("old.TLX"), old);
    write(archiverName, "#!/bin/sh\n");
    write(convertorName, "#!/bin/sh\necho \"$1\" >> \"$(dirname \"$0\")/runs.txt\"\nexit 3\n");
    QFile::remove(folder + QStringLiteral("runs.txt"));

    const auto runs = [&] {
        QFile file(folder + QStringLiteral("runs.txt"));
        return file.open(QIODevice::ReadOnly) ? file.readAll().split('\n') : QList<QByteArray>{};
    };
    QProcess program;
    program.start(folder + QStringLiteral("tellurix"), {folder + QStringLiteral("old.TLX")});
    ASSERT_TRUE(program.waitForStarted());
    EXPECT_TRUE(QTest::qWaitFor([&] { return runs().size() > 5; }, 60000));
    EXPECT_EQ(program.state(), QProcess::Running);
    program.kill();
    program.waitForFinished();
    EXPECT_EQ(runs().first(), (QLatin1Char('-') + folder + QStringLiteral("old.TLX")).toLocal8Bit());
    QFile kept(folder + QStringLiteral("old.old"));
    ASSERT_TRUE(kept.open(QIODevice::ReadOnly));
    EXPECT_EQ(kept.readAll(), old);
    for (const QString& name : {archiverName, convertorName})
        QFile::remove(folder + name);
}

// What an office has written into the file of limits must not be dropped in silence.
TEST_F(OfficeFiles, WrongLimitsAreToldAtTheStart)
{
    const QString path = here(QStringLiteral("aggressiveness.txt"));
    const QByteArray shipped = content(path);
    ASSERT_TRUE(shipped.contains("W4")) << "the file of limits stands beside the program";
    const auto told = [&] {
        const MessageAnswers answers({QMessageBox::Ok});
        tellOfficeFiles(shell.mainWindow.get());
        return answers.boxes();
    };
    // Links may be all that stands there, so the file is made anew.
    const auto write = [&](const QByteArray& text) {
        QFile::remove(path);
        QFile file(path);
        return file.open(QIODevice::WriteOnly) && file.write(text) == text.size();
    };
    ASSERT_TRUE(write(QByteArray(shipped).replace(">1000; >2000; >3000", ">1000; 2000; >3000")));
    const int line = shipped.left(shipped.indexOf(">1000; >2000; >3000")).count('\n') + 1;
    const auto boxes = told();
    ASSERT_EQ(boxes.size(), 1U);
    EXPECT_NE(boxes[0].find(L"Строка " + std::to_wstring(line) + L": предел «2000»"), std::wstring::npos)
        << qPrintable(QString::fromStdWString(boxes[0]));
    EXPECT_TRUE(write(shipped));
}
