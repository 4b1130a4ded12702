#pragma once

#include <QDateTime>
#include <QObject>
#include <QTimer>

#include <functional>

namespace sd {

/// The program's calendar and its short delays. A real run reads the wall clock and runs timers;
/// scripts and tests use a fake calendar that starts at fakeStart() and moves only by advance(), so
/// dates shown and delays that fall due are the same on every run.
class ProgramTime : public QObject
{
    Q_OBJECT

public:
    /// Monday 4 March 2024, 09:00 UTC: where the fake calendar starts.
    static QDateTime fakeStart();

    void setFake(bool fake) { m_fake = fake; }
    bool isFake() const { return m_fake; }
    QDateTime now() const;
    /// Milliseconds of fake time since fakeStart().
    qint64 fakeMs() const { return m_ms; }
    /// Moves the fake calendar on; delays that fall due on the way run.
    void advance(qint64 ms);

Q_SIGNALS:
    void advanced();

private:
    bool m_fake = false;
    qint64 m_ms = 0;
};

/// A one-shot delay on the program's time: a timer in a real run, the fake calendar in scripts.
/// start() on a delay already under way keeps its due time, so a stream of starts runs the action
/// at most `ms` after the first of them.
class Delay : public QObject
{
    Q_OBJECT

public:
    Delay(ProgramTime &time, int ms, std::function<void()> action, QObject *parent = nullptr);
    void start();
    void stop();
    bool isPending() const { return m_pending; }

private:
    void fire();

    ProgramTime &m_time;
    int m_ms;
    std::function<void()> m_action;
    QTimer m_timer;
    bool m_pending = false;
    qint64 m_due = 0;
};

} // namespace sd
