#include "app/project_reading.h"

#include "app/main_window.h"
#include "core/base/mexception.h"
#include "modules/program.h"
#include "persistence/project_file.h"
#include "platform/files.h"

#include <QApplication>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QStatusBar>

static constexpr int statusMilliseconds = 2000;

static QString systemText(const std::wstring& path)
{
    return QString::fromStdWString(systemPath(path));
}

static void showStatus(const QString& text)
{
    const auto windows = QApplication::topLevelWidgets();
    for (QWidget* window : windows)
        if (auto* mainWindow = dynamic_cast<MainWindow*>(window))
            mainWindow->statusBar()->showMessage(text, statusMilliseconds);
}

// Full path of a program beside ours.
static QString programBeside(const QString& name)
{
    QString path = QCoreApplication::applicationDirPath() + QLatin1Char('/') + name;
    if (!QFileInfo::exists(path))
        throw MException(
            name.toStdWString() + L" не найден.\nПроверьте наличие файла по пути установки Tellurix.");
    return path;
}

void backupOldFile(const std::wstring& path)
{
    const QFileInfo file(systemText(path));
    QFile::copy(file.filePath(), file.path() + QLatin1Char('/') + file.baseName() + QStringLiteral(".old"));
}

// The convertor tells success by a code that is not zero; a crash and a start that failed count as done too,
// and the next look at the file decides.
static void convert(const std::wstring& path)
{
    programBeside(archiverName);
    const QString convertor = programBeside(convertorName);
    backupOldFile(path);
    showStatus(QStringLiteral("Конвертация проекта..."));
    if (QProcess::execute(convertor, {QLatin1Char('-') + systemText(path)}) == 0)
        throw MException(L"Неизвестная ошибка при конвертации проекта!.");
}

static Reference<DBProject> readOrConvert(const std::wstring& path, ReadReport& report)
{
    std::vector<std::uint8_t> bytes;
    for (;;) {
        const ProjectFileState state = lookAtProjectFile(path, bytes);
        if (state == ProjectFileState::current)
            break;
        // Gone or renamed while the convertor had it.
        if (state != ProjectFileState::otherVersion)
            throw MException(L"Can't open file " + path);
        convert(path);
    }
    showStatus(QStringLiteral("Чтение проекта..."));
    Reference<DBProject> project = readProject(path, bytes, report);
    showStatus(QStringLiteral("Готово."));
    return project;
}

Reference<DBProject> readProjectFile(const std::wstring& path, ReadReport& report)
{
    const QFileInfo file(systemText(path));
    if (!file.exists() || file.suffix().toUpper() != QLatin1String("TLX"))
        return {};
    try {
        return readOrConvert(path, report);
    } catch (const MException&) {
        throw;
    } catch (...) {
        throw MException(L"Неизвестная ошибка при чтении файла проекта!");
    }
}

Reference<DBProject> readProjectFile(const std::wstring& path)
{
    ReadReport report;
    return readProjectFile(path, report);
}
