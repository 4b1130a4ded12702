#pragma once

// Small helpers shared by the Use of English screen tests: records of the gap layouts and a test
// section opened the way the test paper's section menu opens it.

#include "common/fixtures.h"

#include <QLabel>
#include <QTest>

namespace sd::test {

/// Code, Name, Title, Item1..15, Answers: the field order of layouts D and F.
inline QStringList gapRecord(const QString &code, const QString &name, const QStringList &items)
{
    QStringList r{code, name, QStringLiteral("Title")};
    for (int i = 0; i < 15; ++i)
        r.append(items.value(i));
    r.append(QString());
    return r;
}

/// Opens the kind's screen on test 1 in test mode, as the section menu does.
inline void openTestSection(App &app, int kind, const QString &code)
{
    ProgramState &s = app.state;
    s.PracticeMode = false;
    s.TestMode = true;
    s.ActivityIndex = 2;
    s.PaperIndex = 3;
    s.ExerciseKind = kind;
    s.LevelCode = QStringLiteral("01");
    s.DataDir = s.UseOfEnglishDir;
    SelectDataFile(s, kind);
    QCOMPARE(FindTestRecord(s), SearchResult::Found);
    app.nav.open(code);
    app.settle();
    QCOMPARE(app.topCode(), code);
}

/// Whether the student sees the control (on the topmost screen).
inline bool shows(const App &app, const QString &name)
{
    return app.control(name)->isVisibleTo(app.top());
}

/// The gaps whose mark shows.
inline QList<int> marksShown(const App &app)
{
    QList<int> out;
    for (int n = 1; n <= 15; ++n)
        if (shows(app, QStringLiteral("Image%1").arg(n)))
            out.append(n);
    return out;
}

/// The control that Tab moves to from w.
inline QWidget *nextTabStop(QWidget *w)
{
    for (QWidget *n = w->nextInFocusChain(); n && n != w; n = n->nextInFocusChain())
        if ((n->focusPolicy() & Qt::TabFocus) && n->isVisibleTo(n->window()) && n->isEnabled())
            return n;
    return nullptr;
}

/// The sound files played so far, without their directory.
inline QStringList soundsPlayed(const App &app)
{
    QStringList out;
    for (const QString &e : app.sound.events)
        out.append(e.section(u'/', -1));
    return out;
}

} // namespace sd::test
