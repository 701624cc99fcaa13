#include "app/wheel_guard.h"

#include <QAbstractSpinBox>
#include <QComboBox>
#include <QCoreApplication>
#include <QEvent>

WheelGuard::WheelGuard(QObject* parent)
    : QObject(parent)
{
    QCoreApplication::instance()->installEventFilter(this);
}

static QWidget* valueField(QObject* object)
{
    if (auto* choice = qobject_cast<QComboBox*>(object))
        return choice;
    return qobject_cast<QAbstractSpinBox*>(object);
}

bool WheelGuard::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() != QEvent::Polish && event->type() != QEvent::Wheel)
        return false;
    QWidget* field = valueField(watched);
    if (!field)
        return false;
    if (event->type() == QEvent::Wheel && !field->hasFocus()) {
        event->ignore(); // what holds the field may scroll
        return true;
    }
    // By itself the toolkit gives such a field the keyboard when the wheel turns over it.
    if (field->focusPolicy() == Qt::WheelFocus)
        field->setFocusPolicy(Qt::StrongFocus);
    return false;
}
