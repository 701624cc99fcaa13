#pragma once

#include <QList>
#include <QString>

#include <memory>

class QCheckBox;
class QComboBox;
class QSettings;
class QSplitter;

// How the user has arranged the screens: widths, splitters, chosen views. They stand in a file of their own
// beside the program's settings, which hold preferences alone.
std::unique_ptr<QSettings> viewSettings();

// Gives the splitter the sizes that it had under this name, the first time these, and keeps them from now on.
void keepSplitter(QSplitter* splitter, const QString& name, const QList<int>& sizes);

// Gives the box the choice that it had under this name, where it still has it, and keeps each that the user
// makes.
void keepChoice(QComboBox* box, const QString& name);
void keepChoice(QCheckBox* box, const QString& name);

// The folder that the user took for this the last time ("export": papers and drawings; "import", "column");
// the first time, or where it has gone, that of his documents.
QString lastFolder(const QString& purpose);
void keepFolder(const QString& purpose, const QString& file);
// There a file of this name, which may hold what no file's can: the name of a borehole.
QString proposedFile(const QString& name);
