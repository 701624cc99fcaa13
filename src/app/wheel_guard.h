#pragma once

#include <QObject>

// The wheel scrolls; over a choice or a number it changes the value only where the user works in that field.
// Else a page that is scrolled would change the project at whatever comes under the pointer. For all windows
// of the program, those of modules too.
class WheelGuard : public QObject
{
public:
    explicit WheelGuard(QObject* parent);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
};
