#pragma once

#include <QString>

#include <string>

class IDBProject;
class ISettings;

// What stands at the top of a project: its code, its title and the file that it is saved to,
// <work folder>/Проекты/<file name without extension>/<file name>.
struct ProjectHead {
    std::wstring code;
    std::wstring title;
    std::wstring file;

    bool operator==(const ProjectHead&) const = default;
};

ProjectHead headOf(IDBProject& project);
// The short name, and with it the folder, follows from the file name.
void putHead(const ProjectHead& head, IDBProject& project);

// A new project has a name that the next new project will have too, and would overwrite.
bool isUnnamed(const ProjectHead& head);

// The file name with the extension of projects, where it lacks that.
QString withProjectSuffix(const QString& fileName);

// A file name for a project of this code, free of signs that no file name may have; empty for an empty code.
QString proposedFileName(const QString& code);

// Why a project cannot be saved under this name, as withProjectSuffix gives it; empty where it can. The
// project's present file does not stand in its way.
QString fileNameProblem(const QString& fileName, const ProjectHead& present, ISettings& settings);
