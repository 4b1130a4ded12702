#pragma once

// Test support: small data directories written by the tests, an in-process program harness that
// drives the real screens by objectName, and a runner for end-to-end scripts of the real binary.

#include "frame/core/datafiles.h"
#include "frame/core/services.h"
#include "frame/core/state.h"
#include "frame/navigator.h"

#include <QJsonObject>
#include <QList>
#include <QTemporaryDir>
#include <QWidget>

#include <memory>

namespace sd::test {

/// A temporary data directory with helpers to write data files and text files into it.
class DataDir
{
public:
    DataDir();
    QString path() const; ///< with a trailing separator
    /// Writes the data file of `file` with one record per field list (fields in layout order).
    void writeRecords(DataFile file, const QList<QStringList> &records);
    void writeFile(const QString &name, const QByteArray &bytes);
    void writeText(const QString &name, const QString &text); ///< Windows-1252
    /// A minimal RTF file holding the text.
    void writeRtf(const QString &baseName, const QString &text);

private:
    QTemporaryDir m_dir;
};

/// The program in-process: program state with recording sound and fake time, the navigator with
/// every screen registered, started on the start screen.
class App
{
public:
    explicit App(const QString &dataDir);
    ~App();

    RecordingSound sound;
    FakeSeedSource seeds;
    ProgramState state;
    Navigator nav;

    ui::Screen *top() const { return nav.topmost(); }
    QString topCode() const;
    /// A control of the topmost screen; fails the test when missing.
    QWidget *control(const QString &name) const;
    template<typename T>
    T *get(const QString &name) const
    {
        return qobject_cast<T *>(control(name));
    }
    QString text(const QString &name) const;
    /// Press and release on the control, as the student would.
    void click(const QString &name);
    void hover(const QString &name);
    /// Clears the box and types the text.
    void type(const QString &name, const QString &text);
    void choose(const QString &name, const QString &itemText);
    /// Start screen -> practice -> kind label -> level -> exercise.
    void openPractice(const QString &kindLabel, int level, int exercise);
    /// The kind's screen on test number `test` ("03") in test mode, as the section menu opens it.
    void openTestSection(int kind, const QString &code, const QString &test);
    void settle();
};

/// One run of `studydesk --script` on a data directory.
struct ScriptRun
{
    int exitCode = -1;
    QList<QJsonObject> events;
    QString errors;

    QStringList eventNames(const QString &event) const;
    /// A screen of the n-th dump (from 0; the last dump when n < 0), and a control of it.
    QJsonObject screen(const QString &name, int dump = -1) const;
    QJsonObject control(const QString &screenName, const QString &controlName, int dump = -1) const;
};
/// `home` keeps the student's folders (settings, history) from one run to the next; by default each
/// run has folders of its own.
ScriptRun runScript(const QString &dataDir, const QString &script, const QStringList &extraArgs = {},
                    const QString &home = {});

} // namespace sd::test
