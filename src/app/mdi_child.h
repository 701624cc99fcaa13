#pragma once

#include "dictionaries/modes.h"

#include <QMdiSubWindow>

class QMdiArea;

// The frameless sub-window of an open mode, and the only place that knows which modes are open. It owns the
// module's widget; closed, it deletes itself and the widget with it. Its own title stays empty, since the
// main window's would take it up.
class MdiChild : public QMdiSubWindow
{
public:
    MdiChild(QMdiArea* area, TX_Modes mode, QWidget* widget);

    TX_Modes mode() const { return mode_; }

protected:
    bool event(QEvent* event) override;

private:
    TX_Modes mode_;
};
