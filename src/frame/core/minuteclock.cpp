#include "minuteclock.h"

namespace sd {

MinuteClock::MinuteClock(Int16 &target, Int16 &elapsed, Int16 &remaining)
    : m_target(target), m_elapsed(elapsed), m_remaining(remaining)
{
    m_timer.setInterval(TickMs);
    m_timer.setTimerType(Qt::CoarseTimer);
    connect(&m_timer, &QTimer::timeout, this, &MinuteClock::tick);
}

void MinuteClock::start()
{
    m_elapsed = 0;
    m_remaining = m_target;
    m_pendingMs = 0;
    m_running = true;
    if (m_automatic)
        m_timer.start();
}

void MinuteClock::stop()
{
    m_running = false;
    m_timer.stop();
}

void MinuteClock::tick()
{
    m_elapsed = m_elapsed + 1;
    m_remaining = m_target - m_elapsed;
    Q_EMIT ticked();
}

void MinuteClock::advance(qint64 ms)
{
    if (!m_running)
        return;
    m_pendingMs += ms;
    while (m_pendingMs >= TickMs && m_running) {
        m_pendingMs -= TickMs;
        tick();
    }
}

ClockTimes ShowClockTimes(int elapsed, int remaining, int target)
{
    return {QStringLiteral("Spent: %1").arg(elapsed), QStringLiteral("Remaining: %1").arg(remaining),
            QStringLiteral("Target: %1").arg(target)};
}

QString clockBalloonText(int elapsed, int remaining)
{
    return QStringLiteral("Time so far: %1'\rTime remaining: %2'").arg(elapsed).arg(remaining);
}

} // namespace sd
