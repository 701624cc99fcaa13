#pragma once

#include <QString>

#include <memory>

class QHeaderView;
class QSettings;

// How the user has arranged the screens: widths, splitters, chosen views. They stand in a file of their own
// beside the program's settings, which hold preferences alone.
std::unique_ptr<QSettings> viewSettings();

// Gives the columns of a table the widths that they had under this name, and keeps them from now on.
void keepColumnWidths(QHeaderView* header, const QString& name);
