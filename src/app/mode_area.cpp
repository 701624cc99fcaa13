#include "app/mode_area.h"

#include <QKeyEvent>

bool ModeArea::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::KeyPress || event->type() == QEvent::KeyRelease) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (key == Qt::Key_Tab || key == Qt::Key_Backtab || key == Qt::Key_Control)
            return false;
    }
    return QMdiArea::eventFilter(watched, event);
}

bool ModeArea::event(QEvent* event)
{
    const bool isTaken = QMdiArea::event(event);
    if (event->type() == QEvent::Show)
        onView_();
    return isTaken;
}
