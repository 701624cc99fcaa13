#pragma once

#include <QList>
#include <QString>

#include <memory>

class QHeaderView;
class QSettings;
class QSplitter;

// How the user has arranged the screens: widths, splitters, chosen views. They stand in a file of their own
// beside the program's settings, which hold preferences alone.
std::unique_ptr<QSettings> viewSettings();

// Gives the columns of a table the widths that they had under this name, and keeps them from now on.
void keepColumnWidths(QHeaderView* header, const QString& name);

// The same for a splitter; the sizes are those of the first time.
void keepSplitter(QSplitter* splitter, const QString& name, const QList<int>& sizes);
