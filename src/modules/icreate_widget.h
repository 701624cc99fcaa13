#pragma once

#include "dictionaries/modes.h"

class QWidget;

// Makes the screen of a mode. Modules call these operations by their position.
class ICreateWidget
{
public:
    // Null where the mode has no library, or the library no createWidget. The caller owns the widget.
    virtual QWidget* createWidget(const TX_Modes& mode) = 0;

    virtual ~ICreateWidget() = default;
};
