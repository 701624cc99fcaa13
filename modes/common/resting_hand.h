#pragma once

#include <QEvent>
#include <QTimer>
#include <QWidget>

#include <functional>
#include <utility>

// A drag reports every pixel; the file follows when the hand rests, or at once when what was dragged goes out
// of view: a closed screen is deleted before the hand has rested.
class RestingHand : public QObject
{
public:
    RestingHand(QWidget* dragged, std::function<void()> save)
        : QObject(dragged)
        , save_(std::move(save))
    {
        rest_.setSingleShot(true);
        rest_.setInterval(400);
        connect(&rest_, &QTimer::timeout, this, [this] { save_(); });
        dragged->installEventFilter(this);
    }
    void wait() { rest_.start(); }

protected:
    bool eventFilter(QObject* dragged, QEvent* event) override
    {
        if (event->type() == QEvent::Hide && rest_.isActive()) {
            rest_.stop();
            save_();
        }
        return QObject::eventFilter(dragged, event);
    }

private:
    std::function<void()> save_;
    QTimer rest_;
};
