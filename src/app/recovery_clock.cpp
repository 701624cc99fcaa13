#include "app/recovery_clock.h"

#include <QCoreApplication>
#include <QEvent>

#include <algorithm>

using namespace std::chrono;

RecoveryClock::RecoveryClock(Work work, QObject* parent, RecoveryPace pace)
    : QObject(parent)
    , work_(std::move(work))
    , pace_(pace)
{
    timer_.setSingleShot(true);
    connect(&timer_, &QTimer::timeout, this, &RecoveryClock::tick);
    QCoreApplication::instance()->installEventFilter(this);
    timer_.start(pace_.interval);
}

bool RecoveryClock::eventFilter(QObject*, QEvent* event)
{
    switch (event->type()) {
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
    case QEvent::InputMethod:
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseMove:
    case QEvent::Wheel:
        lastInput_ = Clock::now();
        break;
    default:
        break;
    }
    return false;
}

void RecoveryClock::tick()
{
    const auto now = Clock::now();
    if (!dueSince_)
        dueSince_ = now;
    if (now - lastInput_ < pace_.quiet && now - *dueSince_ < pace_.longestWait) {
        timer_.start(std::min(pace_.quiet, milliseconds(1000)));
        return;
    }
    dueSince_.reset();
    // Before the work, so that one which fails does not stop the clock.
    timer_.start(pace_.interval);
    constexpr int share = 100;
    timer_.start(std::max(pace_.interval, work_() * share));
}
