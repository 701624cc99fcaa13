#include "listCoords/project_head.h"

#include "dictionaries/captions.h"
#include "modules/idbproject.h"
#include "modules/isettings.h"
#include "persistence/file_stem.h"
#include "platform/code_page.h"
#include "platform/files.h"

#include <QRegularExpression>

#include <algorithm>

static const std::wstring newProjectFile = L"TLXXXXX.TLX";
static const QString suffix = QStringLiteral(".TLX");
static constexpr int longestFileName = 100; // with the folders of the place, below what Windows opens

ProjectHead headOf(IDBProject& project)
{
    return {project.getProjectCode(), project.getProjectName(), project.getFilePath()};
}

void putHead(const ProjectHead& head, IDBProject& project)
{
    project.setProjectCode(head.code);
    project.setProjectName(head.title);
    project.setFilePath(head.file);
    project.setFileStem(fileStem(head.file));
}

bool isUnnamed(const ProjectHead& head)
{
    return head.file == newProjectFile;
}

QString withProjectSuffix(const QString& fileName)
{
    return fileName.isEmpty() || fileName.endsWith(suffix, Qt::CaseInsensitive) ? fileName
                                                                                : fileName + suffix;
}

QString proposedFileName(const QString& code)
{
    QString name = code.trimmed();
    name.replace(QRegularExpression(QStringLiteral("[\\\\/:*?\"<>|\\x00-\\x1f]")), QStringLiteral("-"));
    while (name.endsWith(QLatin1Char('.')) || name.endsWith(QLatin1Char(' ')))
        name.chop(1);
    return withProjectSuffix(name);
}

static bool isDeviceName(const QString& stem)
{
    static const QRegularExpression devices(
        QStringLiteral("^(CON|PRN|AUX|NUL|COM[0-9]|LPT[0-9])$"), QRegularExpression::CaseInsensitiveOption);
    return devices.match(stem.section(QLatin1Char('.'), 0, 0)).hasMatch();
}

// Whether a file system takes the name, for the file and, without the extension, for its folder.
static QString formProblem(const QString& fileName)
{
    static const QRegularExpression forbidden(QStringLiteral("[\\\\/:*?\"<>|\\x00-\\x1f]"));
    const QString stem = fileName.left(fileName.size() - suffix.size());
    const std::wstring text = fileName.toStdWString();
    if (stem.isEmpty())
        return QStringLiteral("Введите имя файла.");
    if (fileName.contains(forbidden))
        return QStringLiteral("В имени файла не может быть знаков \\ / : * ? \" < > |");
    if (stem.endsWith(QLatin1Char('.')) || stem.endsWith(QLatin1Char(' ')))
        return QStringLiteral("Имя файла не может кончаться точкой или пробелом.");
    if (isDeviceName(stem))
        return QStringLiteral("Имя «%1» занято системой. Введите другое.").arg(stem);
    if (fileName.size() > longestFileName)
        return QStringLiteral("Имя файла длиннее %1 знаков.").arg(longestFileName);
    const auto unknown = std::find_if_not(text.begin(), text.end(), codePageHolds);
    if (unknown != text.end())
        return QStringLiteral("Знак «%1» в имени файла не сохранится: его нет в кодировке проекта.")
            .arg(QString::fromStdWString(std::wstring(1, *unknown)));
    return {};
}

static std::wstring placeOf(const std::wstring& file, ISettings& settings)
{
    return settings.projectPath() + L'\\' + std::wstring(captions::projects) + L'\\' + fileStem(file) + L'\\'
        + file;
}

QString fileNameProblem(const QString& fileName, const ProjectHead& present, ISettings& settings)
{
    const std::wstring file = fileName.toStdWString();
    QString problem = formProblem(fileName);
    if (!problem.isEmpty())
        return problem;
    if (fileName.compare(QString::fromStdWString(newProjectFile), Qt::CaseInsensitive) == 0)
        return QStringLiteral("Так называется каждый новый проект. Введите другое имя.");
    if (file != present.file && fileExists(placeOf(file, settings)))
        return QStringLiteral("Проект с файлом «%1» уже есть в рабочей папке. Введите другое имя.")
            .arg(fileName);
    return {};
}
