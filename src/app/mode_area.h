#pragma once

#include <QMdiArea>

// The central area. Which screen is on top is the shell's affair alone: Ctrl+Tab would switch screens without
// it knowing, so the key goes on to the screen instead.
class ModeArea : public QMdiArea
{
public:
    using QMdiArea::QMdiArea;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
};
