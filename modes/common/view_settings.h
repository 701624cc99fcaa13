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
