#pragma once

#include <QString>
#include <QStringList>
#include <QtGlobal>

namespace sd {

/// Plays sound clips and the system beep. The program has a real one and tests a recording one.
class SoundOutput
{
public:
    virtual ~SoundOutput() = default;
    virtual void play(const QString &path) = 0;
    /// A clip that was asked for but is missing or unreadable: nothing plays.
    virtual void missing(const QString &fileName) { Q_UNUSED(fileName); }
    /// Loudness of the clips, 0 to 100.
    virtual void setVolume(int volume) { Q_UNUSED(volume); }
    virtual void stop() = 0;
    virtual void beep() = 0;
};

/// Where seeds come from: a clock fine enough that successive readings differ.
class SeedSource
{
public:
    virtual ~SeedSource() = default;
    virtual quint64 seed() = 0;
};

/// Seeds from the monotonic clock in nanoseconds.
class SystemSeedSource final : public SeedSource
{
public:
    quint64 seed() override;
};

/// Fake time for scripts and tests: moves by `wait` and by one millisecond at each seed reading,
/// so runs are reproducible and successive draws still differ.
class FakeSeedSource final : public SeedSource
{
public:
    quint64 seed() override { return ++m_ms; }
    void advance(qint64 ms) { m_ms += quint64(ms); }
    quint64 now() const { return m_ms; }

private:
    quint64 m_ms = 0;
};

/// Asks the student where to save a file. The program uses the desktop's save dialog; tests and
/// scripts answer from a queue, and an unanswered dialog is cancelled.
class SaveDialog
{
public:
    virtual ~SaveDialog() = default;
    /// The path chosen, or empty when the student cancelled. `proposed` is the file offered.
    virtual QString askSaveFile(const QString &title, const QString &proposed, const QString &filter) = 0;
};

class QueuedSaveDialog final : public SaveDialog
{
public:
    QString askSaveFile(const QString &title, const QString &proposed, const QString &) override
    {
        asked.append(title + QStringLiteral(" | ") + proposed);
        return answers.isEmpty() ? QString() : answers.takeFirst();
    }
    QStringList answers; ///< the next answers, in order; "" cancels
    QStringList asked;   ///< every dialog shown: its title and the file it proposed
};

/// Records what would have been played; used by tests and the script mode.
class RecordingSound final : public SoundOutput
{
public:
    void play(const QString &path) override { events.append(path); }
    void missing(const QString &fileName) override { events.append(QStringLiteral("missing:") + fileName); }
    void stop() override {}
    void beep() override { events.append(QStringLiteral("beep")); }
    QStringList events;
};

} // namespace sd
