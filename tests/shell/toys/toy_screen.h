#pragma once

#include "modules/tx_widget.h"

// The screen of a toy module. Its property "log" lists the signals that it got, by name; "given" tells what
// createWidget was given; "storable" is its answer to signalUpdateDB; "throwsOn" is a signal at which it
// throws.
class ToyScreen : public TXWidget
{
    Q_OBJECT

public:
    explicit ToyScreen(const QString& given);

private Q_SLOTS:
    void note();
};
