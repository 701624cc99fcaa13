#pragma once

#include <QObject>
#include <QTimer>

#include <chrono>
#include <functional>
#include <optional>

struct RecoveryPace {
    std::chrono::milliseconds interval{60000};
    std::chrono::milliseconds quiet{2000}; // without a key or a mouse event
    std::chrono::milliseconds longestWait{30000}; // for the quiet
};

// Says when it is time for a copy: at each interval, in a moment when the user does not type or point. The
// work tells what it took; it gets a hundredth of the time.
class RecoveryClock : public QObject
{
public:
    using Work = std::function<std::chrono::milliseconds()>;

    RecoveryClock(Work work, QObject* parent, RecoveryPace pace = {});

protected:
    // Over the application, for the moment of the last input.
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    using Clock = std::chrono::steady_clock;
    void tick();

    Work work_;
    RecoveryPace pace_;
    QTimer timer_;
    Clock::time_point lastInput_;
    std::optional<Clock::time_point> dueSince_;
};
