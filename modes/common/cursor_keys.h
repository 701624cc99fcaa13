#pragma once

#include <QKeyEvent>

// Arrows, Home, End and the pages: what moves the cursor of a table.
inline bool movesCursor(const QKeyEvent& event)
{
    return event.key() >= Qt::Key_Home && event.key() <= Qt::Key_PageDown;
}
