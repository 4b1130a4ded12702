#pragma once

#include "checked.h"

#include <QObject>
#include <QTimer>

namespace sd {

/// The minute clock of exercise and test screens. Ticks every 59,220 ms (a little under a minute,
/// deliberately), each tick counting as one minute, and runs on into negative remaining time.
/// In scripts and tests the timer is off and time moves only by tick() and advance().
class MinuteClock : public QObject
{
    Q_OBJECT

public:
    static constexpr int TickMs = 59220;

    MinuteClock(Int16 &target, Int16 &elapsed, Int16 &remaining);

    void setAutomatic(bool automatic) { m_automatic = automatic; }
    /// StartClock: ElapsedMinutes = 0, RemainingMinutes = TargetMinutes, and the clock runs.
    void start();
    void stop();
    bool isRunning() const { return m_running; }
    void tick();
    /// Moves fake time on by ms, ticking once per full interval while the clock runs.
    void advance(qint64 ms);

Q_SIGNALS:
    void ticked();

private:
    Int16 &m_target, &m_elapsed, &m_remaining;
    QTimer m_timer;
    bool m_automatic = true;
    bool m_running = false;
    qint64 m_pendingMs = 0;
};

/// "Spent: ", "Remaining: ", "Target: " texts of ShowClockTimes.
struct ClockTimes
{
    QString spent, remaining, target;
};
ClockTimes ShowClockTimes(int elapsed, int remaining, int target);
/// The balloon text: "Time so far: 80'" CR "Time remaining: -5'".
QString clockBalloonText(int elapsed, int remaining);

} // namespace sd
