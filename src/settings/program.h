#pragma once

#include <QString>

// What the program is called, in titles and in the names of its files. The version stands in the names of the
// modules too (dictionaries/modes.h).

inline const QString applicationName = QStringLiteral("Tellurix");
inline const QString organisationName = QStringLiteral("Tellurix Group");
inline const QString applicationVersion = QStringLiteral("19");
inline constexpr int productYear = 2019;

inline const QString logFileName = QStringLiteral("tellurix") + applicationVersion + QStringLiteral(".log");
inline const QString settingsFileName =
    QStringLiteral("tellurix") + applicationVersion + QStringLiteral(".ini");
inline const QString convertorName =
    QStringLiteral("convertor") + applicationVersion + QStringLiteral(".exe");
inline const QString archiverName = QStringLiteral("Rar.exe");
inline const QString hatchLibraryName = QStringLiteral("hatch/gl/hatch.dat");
inline const QString igkPresetLibraryName = QStringLiteral("igkPreset/igkPreset.dat");
// Folder of the projects below the work folder.
inline const QString projectsFolder = QStringLiteral("Проекты");
inline const QString registryPath = QStringLiteral("HKEY_LOCAL_MACHINE\\SOFTWARE\\Tellurix_19\\CurBuild");
