// Figures for the history: opening an exercise menu (which asks for the level's best scores) with
// 10,000 attempts in the history against the same with an empty history. The figure that matters
// is the difference, which should stay within a few milliseconds.

#include "frame/core/services.h"
#include "frame/core/state.h"
#include "frame/navigator.h"
#include "frame/registry.h"
#include "progress/core/sqlhistory.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QSqlDatabase>
#include <QSqlQuery>
#include <QTemporaryDir>
#include <QVariant>

#include <algorithm>
#include <cstdio>

using namespace sd;

namespace {

/// 10,000 practice attempts over every kind, level and exercise, ten answers each, in one transaction.
void fill(const QString &path)
{
    {
        QSqlDatabase d = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), QStringLiteral("fill"));
        d.setDatabaseName(path);
        d.open();
        d.transaction();
        QSqlQuery a(d), n(d);
        a.prepare(QStringLiteral("INSERT INTO attempts(finished_at, mode, paper, kind, level, exercise, score, max, seconds)"
                                 " VALUES('2024-03-04T09:00:00Z', 'practice', ?, ?, ?, ?, ?, 10, 300)"));
        n.prepare(QStringLiteral("INSERT INTO answers(attempt_id, question, given, expected, correct) VALUES(?, ?, 'x', 'y', ?)"));
        for (int i = 0; i < 10000; ++i) {
            const int kind = 1 + i % 10, level = 1 + (i / 10) % 3, exercise = 1 + (i / 30) % 10;
            a.addBindValue(historyPaperName(paperOfKind(kind)));
            a.addBindValue(historyKindName(kind));
            a.addBindValue(level);
            a.addBindValue(QString::number(level * 100 + exercise));
            a.addBindValue(i % 11);
            a.exec();
            const QVariant id = a.lastInsertId();
            for (int q = 1; q <= 10; ++q) {
                n.addBindValue(id);
                n.addBindValue(q);
                n.addBindValue(int((i + q) % 2));
                n.exec();
            }
        }
        d.commit();
    }
    QSqlDatabase::removeDatabase(QStringLiteral("fill"));
}

/// Median time to open the multiple-choice menu of level 1 and lay it out, over 21 openings.
double menuMs(const QString &historyPath)
{
    RecordingSound sound;
    FakeSeedSource seeds;
    ProgramState state(sound, seeds);
    state.Clock.setAutomatic(false);
    state.History = std::make_unique<SqlHistory>(historyPath, [] { return QDateTime::currentDateTimeUtc(); });
    state.History->bestScores(2, 1); // opened once, as the first menu of a run would have done
    Navigator nav(state);
    registerFrameScreens(nav);
    nav.open(QStringLiteral("Introback"));
    nav.open(QStringLiteral("Intro"));
    state.PracticeMode = true;
    state.ActivityIndex = 1;
    state.ExerciseKind = 2;
    state.PaperIndex = 1;
    state.LevelCode = QStringLiteral("1");
    QList<double> runs;
    for (int i = 0; i < 21; ++i) {
        QElapsedTimer t;
        t.start();
        ui::Screen *menu = nav.open(QStringLiteral("Pracchoice"));
        QCoreApplication::processEvents();
        runs.append(double(t.nsecsElapsed()) / 1e6);
        nav.close(menu);
        QCoreApplication::processEvents();
    }
    std::sort(runs.begin(), runs.end());
    return runs[runs.size() / 2];
}

} // namespace

int main(int argc, char **argv)
{
    QApplication app(argc, argv);
    QTemporaryDir dir;
    const QString empty = dir.filePath(QStringLiteral("empty.sqlite")), full = dir.filePath(QStringLiteral("full.sqlite"));
    SqlHistory(full, [] { return QDateTime(); }).bestScores(1, 1); // makes the tables
    fill(full);
    const double emptyMs = menuMs(empty), fullMs = menuMs(full);
    std::printf("exercise menu, empty history: %.2f ms; with 10,000 attempts: %.2f ms (median of 21)\n", emptyMs, fullMs);
    std::printf("exercise menu with 10,000 attempts: %+.2f ms over the empty history (ratio %.2f); the aim is within 5 ms\n",
                fullMs - emptyMs, fullMs / emptyMs);
    return 0;
}
