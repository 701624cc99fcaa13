#pragma once

#include <QMdiArea>

#include <functional>
#include <utility>

// The central area. Which screen is on top is the shell's affair alone: Ctrl+Tab would switch screens without
// it knowing, so the key goes on to the screen instead. While the window is minimised the area activates
// none; it tells when it is on view again.
class ModeArea : public QMdiArea
{
public:
    ModeArea(std::function<void()> onView, QWidget* parent)
        : QMdiArea(parent)
        , onView_(std::move(onView))
    {
    }

protected:
    bool event(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    std::function<void()> onView_;
};
