#include "programtime.h"

#include <QTimeZone>

namespace sd {

QDateTime ProgramTime::fakeStart()
{
    return QDateTime(QDate(2024, 3, 4), QTime(9, 0), Qt::UTC);
}

QDateTime ProgramTime::now() const
{
    return m_fake ? fakeStart().addMSecs(m_ms) : QDateTime::currentDateTime();
}

void ProgramTime::advance(qint64 ms)
{
    if (!m_fake || ms <= 0)
        return;
    m_ms += ms;
    Q_EMIT advanced();
}

Delay::Delay(ProgramTime &time, int ms, std::function<void()> action, QObject *parent)
    : QObject(parent), m_time(time), m_ms(ms), m_action(std::move(action))
{
    m_timer.setSingleShot(true);
    connect(&m_timer, &QTimer::timeout, this, &Delay::fire);
    connect(&time, &ProgramTime::advanced, this, [this] {
        if (m_pending && m_time.isFake() && m_time.fakeMs() >= m_due)
            fire();
    });
}

void Delay::start()
{
    if (m_pending)
        return;
    m_pending = true;
    if (m_time.isFake())
        m_due = m_time.fakeMs() + m_ms;
    else
        m_timer.start(m_ms);
}

void Delay::stop()
{
    m_pending = false;
    m_timer.stop();
}

void Delay::fire()
{
    if (!m_pending)
        return;
    stop();
    m_action();
}

} // namespace sd
