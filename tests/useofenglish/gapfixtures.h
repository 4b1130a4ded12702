#pragma once

// Small helpers shared by the Use of English screen tests: records of the gap layouts, their items,
// and what the student sees.

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

/// A multiple-choice cloze of ten gaps (the second of three alternatives) and an open cloze of twelve
/// (some with a second accepted answer): the first alternative is the key.
inline const QStringList choiceItems{
    QStringLiteral("decided/thought/wanted/planned"), QStringLiteral("out/up/off/"), QStringLiteral("feet/legs/heels/toes"),
    QStringLiteral("give/put/take/set"), QStringLiteral("keep/hold/stay/remain"), QStringLiteral("get/make/do/earn"),
    QStringLiteral("from/off/away/out"), QStringLiteral("love/like/heart/passion"),
    QStringLiteral("mind/care/worry/object"), QStringLiteral("so/such/too/very")};
inline const QStringList openItems{
    QStringLiteral("on///"),  QStringLiteral("rather/sooner//"), QStringLiteral("who/that//"), QStringLiteral("like///"),
    QStringLiteral("so///"),  QStringLiteral("that/this//"),     QStringLiteral("for///"),    QStringLiteral("up///"),
    QStringLiteral("not///"), QStringLiteral("its///"),          QStringLiteral("as///"),     QStringLiteral("into///")};

/// Whether the student sees the control (on the topmost screen).
inline bool shows(const App &app, const QString &name)
{
    return app.control(name)->isVisibleTo(app.top());
}

/// The gaps whose mark shows.
/// The gaps marked wrong (a cross); every other gap shown with marks has a tick.
inline QList<int> marksShown(const App &app)
{
    QList<int> out;
    for (int n = 1; n <= 15; ++n)
        if (shows(app, QStringLiteral("Image%1").arg(n))
            && app.control(QStringLiteral("Image%1").arg(n))->property("picture").toString() == QStringLiteral("cross"))
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
