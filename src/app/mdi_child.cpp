#include "app/mdi_child.h"

#include <QMdiArea>

MdiChild::MdiChild(QMdiArea* area, TX_Modes mode, QWidget* widget)
    : QMdiSubWindow(area)
    , mode_(mode)
{
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    setWindowFlags(windowFlags() | Qt::FramelessWindowHint);
    setAttribute(Qt::WA_DeleteOnClose);
    showMaximized();
    widget->setParent(this);
    setWidget(widget);
}
