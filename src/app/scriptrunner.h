#pragma once

#include "frame/core/services.h"

#include <QJsonValue>
#include <QObject>
#include <QPointer>
#include <QStringList>
#include <QTextStream>

class QWidget;

namespace sd {

struct ProgramState;
class Navigator;

/// Sound output of the script mode: every clip and beep becomes a JSON line.
class ScriptSound final : public SoundOutput
{
public:
    explicit ScriptSound(QTextStream &out) : m_out(out) {}
    void play(const QString &path) override;
    void missing(const QString &fileName) override;
    void stop() override {}
    void beep() override;

private:
    QTextStream &m_out;
};

/// Runs an automation script one line at a time, each once the previous line's effects have
/// settled, and reports events as JSON lines. Controls are named by objectName on the topmost
/// showing screen.
class ScriptRunner : public QObject
{
    Q_OBJECT

public:
    ScriptRunner(ProgramState &state, Navigator &nav, FakeSeedSource &time, QTextStream &out);
    /// Reads the script FILE; "-" reads lines from standard input as they come, so that a test can
    /// hold the program at a point of its choosing (and kill it there).
    bool loadFile(const QString &path, QString *error);
    void setLines(const QStringList &lines) { m_lines = lines; }
    /// Starts after the event loop has begun; ends the application with 0, or 2 on an error.
    void start();
    void emitEvent(const QList<QPair<QString, QJsonValue>> &fields);
    /// A print job ended: {"event":"print","file":...,"pages":N}.
    void reportPrint(const QString &file, int pages);

    /// Parses the text argument of `type`: the rest of the line, or a double-quoted string with
    /// \" \\ \n escapes.
    static QString parseText(const QString &rest, bool *ok);
    /// JSON description of a screen and its named controls.
    static QString describeScreen(QWidget *screen, bool modal);

private:
    void next();
    void readInput();
    void run(const QString &line);
    void fail(const QString &message);
    QWidget *control(const QString &name);
    /// The control when it is showing and enabled; otherwise the script fails (`verb` says why).
    QWidget *usable(const QString &name, const QString &verb);
    void moveOnto(QWidget *w);
    void settle();

    ProgramState &m_state;
    Navigator &m_nav;
    FakeSeedSource &m_time;
    QTextStream &m_out;
    QStringList m_lines;
    int m_lineNo = 0;
    bool m_done = false;
    bool m_fromInput = false;  ///< lines come from standard input
    bool m_inputEnded = false;
    bool m_waiting = false;    ///< every line so far has run; more may come
    QByteArray m_partial;      ///< the start of a line not ended yet
    QPointer<QWidget> m_hovered;
};

} // namespace sd
