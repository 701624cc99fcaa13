#include "app/mdi_child.h"

#include "dictionaries/modes.h"

#include <QMdiArea>

MdiChild::MdiChild(QMdiArea* area, TX_Modes mode, QWidget* widget)
    : QMdiSubWindow(area)
    , mode_(mode)
{
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    setWindowFlags(windowFlags() | Qt::FramelessWindowHint);
    setAttribute(Qt::WA_DeleteOnClose);
    // The title stays empty, or the window would show it beside its own.
    const std::wstring_view* name = modeNames.find(mode);
    setAccessibleName(
        name ? QString::fromWCharArray(name->data(), int(name->size())) : QStringLiteral("Проекты"));
    showMaximized();
    widget->setParent(this);
    setWidget(widget);
}
