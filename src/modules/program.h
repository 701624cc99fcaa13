#pragma once

#include <QString>

// What the program is called, in titles and in the names of its files, and words that shell and modules
// share. The version stands in the names of the modules too (dictionaries/modes.h).

inline const QString applicationName = QStringLiteral("Tellurix");
inline const QString organisationName = QStringLiteral("Tellurix Group");
inline const QString applicationVersion = QStringLiteral("19");
inline constexpr int productYear = 2019;

inline const QString logFileName = QStringLiteral("tellurix") + applicationVersion + QStringLiteral(".log");
inline const QString settingsFileName =
    QStringLiteral("tellurix") + applicationVersion + QStringLiteral(".ini");
inline const QString convertorName =
    QStringLiteral("convertor") + applicationVersion + QStringLiteral(".exe");
inline const QString columnConvertorName =
    QStringLiteral("convertorColumn") + applicationVersion + QStringLiteral(".exe");
inline const QString archiverName = QStringLiteral("Rar.exe");
inline const QString hatchLibraryName = QStringLiteral("hatch/gl/hatch.dat");
inline const QString igkPresetLibraryName = QStringLiteral("igkPreset/igkPreset.dat");
// Folder of the projects below the work folder.
inline const QString projectsFolder = QStringLiteral("Проекты");
inline const QString registryPath = QStringLiteral("HKEY_LOCAL_MACHINE\\SOFTWARE\\Tellurix_19\\CurBuild");
// A library of the family that is never loaded, and a folder that nothing of ours reads.
inline const QString columnLibraryName = QStringLiteral("str") + applicationVersion + QStringLiteral(".dll");
inline const QString supportFolder = QStringLiteral("\\Support\\");

// For a graphics card that does not do all that the drawings of the section ask for. The shell says the
// first, a module that draws may say the second.
inline constexpr const wchar_t* limitedOpenGlText =
    L"На выбранной видеокарте ограничена поддержка технологии OpenGL.\n"
    L"Не все режимы программы будут работать корректно!";
inline constexpr const wchar_t* singleThreadedOpenGlText =
    L"Выбранная видеокарта не поддерживает многопоточность OpenGL.\n"
    L"Большие модели в редакторе разреза будут обрабатываться медленно!";
