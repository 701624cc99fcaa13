#include "app/combo_box_visual_style.h"

#include <QHelpEvent>
#include <QToolTip>

bool ComboBoxVisualStyle::event(QEvent* event)
{
    if (event->type() == QEvent::ToolTip)
        QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(),
            QStringLiteral("Изменение визуального стиля"),
            this);
    return QComboBox::event(event);
}
