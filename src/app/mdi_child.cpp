#include "app/mdi_child.h"

#include <QEvent>
#include <QMdiArea>

MdiChild::MdiChild(QMdiArea* area, TX_Modes mode, QWidget* widget)
    : QMdiSubWindow(area)
    , mode_(mode)
{
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    setWindowFlags(windowFlags() | Qt::FramelessWindowHint);
    setAttribute(Qt::WA_DeleteOnClose);
    // Who clicks beside the fields of a screen goes on typing where he was.
    setFocusPolicy(Qt::NoFocus);
    showMaximized();
    widget->setParent(this);
    setWidget(widget);
}

// The sub-window takes up the title of the screen in it, whenever that changes: every form made in a designer
// has one.
bool MdiChild::event(QEvent* event)
{
    if (event->type() != QEvent::WindowTitleChange || windowTitle().isEmpty())
        return QMdiSubWindow::event(event);
    setWindowTitle(QString());
    return true;
}
