#include "core/facade/mode_libraries.h"

#include <QCoreApplication>
#include <QFileInfo>

const std::map<QString, TX_Modes>& modeLibraries()
{
    static const std::map<QString, TX_Modes> libraries = [] {
        std::map<QString, TX_Modes> made;
        for (const ModeRow& row : modeRows)
            if (!row.moduleFile.empty())
                made.emplace(
                    QString::fromWCharArray(row.moduleFile.data(), int(row.moduleFile.size())), row.mode);
        return made;
    }();
    return libraries;
}

QString modeLibraryPath(const QString& fileName)
{
    const QString beside = QCoreApplication::applicationDirPath() + QLatin1Char('/') + fileName;
    return QFileInfo::exists(beside) ? beside : fileName;
}
