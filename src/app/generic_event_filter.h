#pragma once

#include <QObject>

#include <functional>
#include <utility>

// An event filter that asks a callable; true from it stops the event.
class GenericQEventFilter : public QObject
{
public:
    using Callable = std::function<bool(QObject*, QEvent*)>;

    GenericQEventFilter(QObject* parent, Callable callable)
        : QObject(parent)
        , callable_(std::move(callable))
    {
    }

    bool eventFilter(QObject* watched, QEvent* event) override { return callable_(watched, event); }

private:
    Callable callable_;
};
