// The program as a process of its own, for what would keep a test from going on.

#include "program/program_test.h"

#include <QProcess>

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
