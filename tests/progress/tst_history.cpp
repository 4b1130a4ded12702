// The history on a temporary database: what is recorded and what the menus and the progress screen
// get back, an old file migrated, a damaged file set aside, faults reported, the CSV export, and the
// unfinished test kept and put back.

#include "frame/core/services.h"
#include "frame/core/state.h"
#include "progress/core/pausedtest.h"
#include "progress/core/sqlhistory.h"

#include <QBuffer>
#include <QDir>
#include <QSqlDatabase>
#include <QSqlQuery>
#include <QTemporaryDir>
#include <QTest>

using namespace sd;
using namespace Qt::StringLiterals;

namespace {
const QDateTime start(QDate(2024, 3, 4), QTime(9, 0), Qt::UTC);

AttemptRecord attempt(int kind, int level, int exercise, double score, double max, int minutesIn = 0)
{
    AttemptRecord a;
    a.finishedAt = start.addSecs(60 * minutesIn);
    a.kind = kind;
    a.level = level;
    a.exercise = QString::number(level * 100 + exercise);
    a.score = score;
    a.max = max;
    a.seconds = 300;
    return a;
}

/// Runs SQL on the file through a connection of its own.
struct RawFile
{
    explicit RawFile(const QString &path) : name(u"raw-"_s + path)
    {
        QSqlDatabase d = QSqlDatabase::addDatabase(u"QSQLITE"_s, name);
        d.setDatabaseName(path);
        d.open();
    }
    ~RawFile()
    {
        QSqlDatabase::database(name).close();
        QSqlDatabase::removeDatabase(name);
    }
    bool run(const QString &sql) { return QSqlQuery(QSqlDatabase::database(name)).exec(sql); }
    QVariant value(const QString &sql)
    {
        QSqlQuery q(QSqlDatabase::database(name));
        return q.exec(sql) && q.next() ? q.value(0) : QVariant();
    }
    QString name;
};
} // namespace

class TestHistory : public QObject
{
    Q_OBJECT

    std::unique_ptr<QTemporaryDir> dir;
    std::unique_ptr<SqlHistory> history;
    QString path() const { return dir->filePath(u"history.sqlite"_s); }
    void reopen(const QString &file = {})
    {
        history.reset();
        history = std::make_unique<SqlHistory>(file.isEmpty() ? path() : file, [] { return start; });
    }

private Q_SLOTS:
    void init()
    {
        dir = std::make_unique<QTemporaryDir>();
        reopen();
    }
    void cleanup()
    {
        history.reset();
        dir.reset();
    }

    void openedOnlyWhenFirstUsed()
    {
        QVERIFY(!QFileInfo::exists(path()));
        QVERIFY(history->bestScores(2, 1).isEmpty());
        QVERIFY(history->isOpen());
        RawFile raw(path());
        QCOMPARE(raw.value(u"PRAGMA user_version"_s).toInt(), SqlHistory::SchemaVersion);
    }

    void bestScorePerExercise_data()
    {
        QTest::addColumn<QList<QPointF>>("attempts"); // score, max of exercise 3, in order
        QTest::addColumn<QString>("best");
        QTest::newRow("one attempt") << QList<QPointF>{{4, 6}} << u"4/6"_s;
        QTest::newRow("a worse attempt later keeps the best") << QList<QPointF>{{7, 10}, {5, 10}} << u"7/10"_s;
        QTest::newRow("a better attempt later replaces it") << QList<QPointF>{{5, 10}, {9, 10}} << u"9/10"_s;
        QTest::newRow("compared as a share, not in points") << QList<QPointF>{{6, 12}, {5, 8}} << u"5/8"_s;
        QTest::newRow("half points kept") << QList<QPointF>{{6.5, 10}} << u"6.5/10"_s;
    }
    void bestScorePerExercise()
    {
        QFETCH(QList<QPointF>, attempts);
        QFETCH(QString, best);
        for (const QPointF &a : attempts)
            QVERIFY(history->recordAttempt(attempt(2, 1, 3, a.x(), a.y())));
        // Other kinds, levels and tests never count for the menu of kind 2, level 1.
        QVERIFY(history->recordAttempt(attempt(2, 2, 3, 10, 10)));
        QVERIFY(history->recordAttempt(attempt(6, 1, 3, 10, 10)));
        AttemptRecord section = attempt(2, 0, 3, 6, 6);
        section.test = true;
        section.exercise = u"x03"_s;
        QVERIFY(history->recordAttempt(section));
        const QMap<int, BestScore> scores = history->bestScores(2, 1);
        QCOMPARE(scores.keys(), QList<int>{3});
        QCOMPARE(QString::number(scores[3].score) + u'/' + QString::number(scores[3].max), best);
    }

    void averagesPerKindAndAgreement()
    {
        QVERIFY(history->recordAttempt(attempt(2, 1, 1, 3, 6)));
        QVERIFY(history->recordAttempt(attempt(2, 1, 2, 6, 6)));
        QVERIFY(history->recordAttempt(attempt(6, 2, 1, 5, 10)));
        // Twelve gradings: the two oldest agree, then of the last ten only every third does.
        for (int i = 0; i < 12; ++i)
            QVERIFY(history->recordGrading({start.addSecs(i), u"Sample1%1"_s.arg(i % 3), u"pass"_s,
                                            i < 2 || i % 3 == 0 ? u"pass"_s : u"fail"_s}));
        const ProgressSummary s = history->summary();
        QCOMPARE(s.kinds.size(), 2);
        QCOMPARE(s.kinds[0].kind, 2);
        QCOMPARE(s.kinds[0].count, 2);
        QCOMPARE(s.kinds[0].percent, 75.0);
        QCOMPARE(s.kinds[1].percent, 50.0);
        QCOMPARE(s.gradingsCounted, 10);
        QCOMPARE(s.gradingsAgreed, 3); // 3, 6, 9 among 2..11
        QCOMPARE(s.points.size(), 3);
    }

    void testsWithTheirSections()
    {
        TestRecord t;
        t.finishedAt = start.addSecs(3600);
        t.paper = 3;
        t.test = 4;
        t.percent = 62;
        t.minutes = 70;
        AttemptRecord section = attempt(6, 0, 0, 9, 15);
        section.test = true;
        section.exercise = u"x04"_s;
        section.finishedAt = t.finishedAt;
        QVERIFY(history->keepPausedTest({3, 4, "{}", 600, start}));
        QVERIFY(history->recordTest(t, u"OK - a pass"_s, {section, section}));
        const ProgressSummary s = history->summary();
        QCOMPARE(s.tests.size(), 1);
        QCOMPARE(s.tests[0].percent, std::optional<int>(62));
        QCOMPARE(s.tests[0].sectionsDone, 2);
        QCOMPARE(s.tests[0].seconds, 4200);
        QCOMPARE(s.tests[0].verdict, u"OK - a pass"_s);
        QVERIFY(!history->pausedTest(3)); // a finished test is no longer kept
        QVERIFY(history->bestScores(6, 0).isEmpty());
    }

    void mistakesListTheLastWrongAnswers()
    {
        AttemptRecord first = attempt(6, 1, 2, 1, 3, 0);
        first.answers = {{1, u"out"_s, u"up"_s, false}, {2, u"on"_s, u"on"_s, true}, {3, u"a"_s, u"the"_s, false}};
        AttemptRecord second = attempt(6, 1, 2, 2, 3, 5);
        second.answers = {{1, u"up"_s, u"up"_s, true}, {2, u"in"_s, u"on"_s, false}, {3, u"an"_s, u"the"_s, false}};
        QVERIFY(history->recordAttempt(first));
        QVERIFY(history->recordAttempt(second));
        const QList<Mistake> m = history->mistakes();
        QCOMPARE(m.size(), 2); // question 1 was answered right later
        QCOMPARE(m[0].question, 2);
        QCOMPARE(m[0].given, u"in"_s);
        QCOMPARE(m[1].question, 3);
        QCOMPARE(m[1].given, u"an"_s); // the latest wrong answer
        QCOMPARE(m[1].expected, u"the"_s);
    }

    void migratesVersionOne()
    {
        {
            RawFile raw(path());
            for (const QString &sql :
                 {u"CREATE TABLE attempts(id INTEGER PRIMARY KEY, finished_at TEXT NOT NULL, mode TEXT NOT NULL,"
                  " paper TEXT NOT NULL, kind TEXT NOT NULL, level INTEGER, exercise TEXT NOT NULL, score REAL NOT NULL,"
                  " max REAL NOT NULL)"_s,
                  u"CREATE TABLE answers(attempt_id INTEGER NOT NULL, question INTEGER NOT NULL, given TEXT,"
                  " expected TEXT, correct INTEGER NOT NULL)"_s,
                  u"CREATE TABLE tests(id INTEGER PRIMARY KEY, finished_at TEXT NOT NULL, paper TEXT NOT NULL,"
                  " test INTEGER NOT NULL, percent INTEGER, verdict TEXT)"_s,
                  u"INSERT INTO attempts VALUES(1, '2023-01-01T10:00:00Z', 'practice', 'reading', 'rcmc', 1, '104', 5, 6)"_s,
                  u"PRAGMA user_version = 1"_s})
                QVERIFY2(raw.run(sql), qPrintable(sql));
        }
        QCOMPARE(history->bestScores(2, 1).value(4).score, 5.0);
        QVERIFY(history->recordGrading({start, u"Sample11"_s, u"pass"_s, u"pass"_s}));
        QVERIFY(history->recordAttempt(attempt(2, 1, 4, 6, 6)));
        QCOMPARE(history->bestScores(2, 1).value(4).score, 6.0);
        history.reset();
        RawFile raw(path());
        QCOMPARE(raw.value(u"PRAGMA user_version"_s).toInt(), 2);
        QCOMPARE(raw.value(u"SELECT seconds FROM attempts WHERE id = 2"_s).toInt(), 300);
    }

    void damagedFileSetAside()
    {
        QFile f(path());
        QVERIFY(f.open(QIODevice::WriteOnly));
        const QByteArray junk = QByteArray("this was never a database\n").repeated(400);
        f.write(junk);
        f.close();
        QVERIFY(history->recordAttempt(attempt(2, 1, 1, 3, 6)));
        QFile aside(dir->filePath(u"history-damaged-2024-03-04.sqlite"_s));
        QVERIFY(aside.open(QIODevice::ReadOnly));
        QCOMPARE(aside.readAll(), junk);
        QVERIFY(history->problem().contains(u"history-damaged-2024-03-04.sqlite"_s));
        QCOMPARE(history->bestScores(2, 1).size(), 1);
    }

    void faultsReported_data()
    {
        QTest::addColumn<QString>("fault");
        QTest::addColumn<QString>("reason");
        QTest::newRow("the folder's place is a file") << u"folder is a file"_s << u"cannot be made"_s;
        QTest::newRow("the file's place is a folder") << u"file is a folder"_s << u"Your history could not"_s;
        QTest::newRow("another program holds the file") << u"locked"_s << u"in use by another program"_s;
    }
    void faultsReported()
    {
        QFETCH(QString, fault);
        QFETCH(QString, reason);
        std::unique_ptr<RawFile> holder;
        if (fault == u"folder is a file") {
            QFile block(dir->filePath(u"blocked"_s));
            QVERIFY(block.open(QIODevice::WriteOnly));
            reopen(dir->filePath(u"blocked/history.sqlite"_s));
        } else if (fault == u"file is a folder") {
            QVERIFY(QDir(dir->path()).mkdir(u"history.sqlite"_s));
        } else {
            QVERIFY(history->recordAttempt(attempt(2, 1, 1, 3, 6)));
            holder = std::make_unique<RawFile>(path());
            QVERIFY(holder->run(u"BEGIN EXCLUSIVE"_s));
        }
        QVERIFY(!history->recordAttempt(attempt(2, 1, 2, 3, 6)));
        QVERIFY2(history->problem().contains(reason), qPrintable(history->problem()));
        QVERIFY(history->problem().startsWith(u"Your history could not"_s));
        if (holder) {
            // Once the other program lets go, the next write works and the message goes.
            holder->run(u"COMMIT"_s);
            holder.reset();
            QVERIFY(history->recordAttempt(attempt(2, 1, 2, 3, 6)));
            QCOMPARE(history->problem(), QString());
        }
    }

    void exportsEveryRecord()
    {
        AttemptRecord a = attempt(7, 2, 5, 1, 2);
        a.answers = {{1, u"on, \"at\""_s, u"on"_s, false}, {2, u"so"_s, u"so"_s, true}};
        QVERIFY(history->recordAttempt(a));
        TestRecord t;
        t.finishedAt = start.addSecs(60);
        t.paper = 2;
        t.test = 1;
        t.minutes = 80;
        QVERIFY(history->recordTest(t, QString(), {}));
        QVERIFY(history->recordGrading({start, u"Sample21"_s, u"pass"_s, u"fail"_s}));
        QVERIFY(history->recordComposition({start, u"Narrative"_s, u"A day to remember"_s, 212, u"/home/s/day.txt"_s}));
        QBuffer out;
        QVERIFY(out.open(QIODevice::WriteOnly));
        QVERIFY(history->exportCsv(out));
        const QStringList lines = QString::fromUtf8(out.data()).split(u"\r\n"_s);
        QCOMPARE(lines, (QStringList{
            u"record,when,mode,paper,kind,level,exercise,test,question,given,expected,correct,score,max,percent,verdict,"
            "seconds,sample,student,examiner,title,words,file"_s,
            u"attempt,2024-03-04T09:00:00Z,practice,useofenglish,uecb,2,205,,,,,,1,2,,,300,,,,,,"_s,
            u"answer,2024-03-04T09:00:00Z,practice,useofenglish,uecb,2,205,,1,\"on, \"\"at\"\"\",on,0,,,,,,,,,,,"_s,
            u"answer,2024-03-04T09:00:00Z,practice,useofenglish,uecb,2,205,,2,so,so,1,,,,,,,,,,,"_s,
            u"test,2024-03-04T09:01:00Z,,writing,,,,1,,,,,,,,,4800,,,,,,"_s,
            u"grading,2024-03-04T09:00:00Z,,,,,,,,,,,,,,,,Sample21,pass,fail,,,"_s,
            u"composition,2024-03-04T09:00:00Z,,,Narrative,,,,,,,,,,,,,,,,A day to remember,212,/home/s/day.txt"_s,
            QString()}));
    }

    void unfinishedTestKeptAndPutBack()
    {
        RecordingSound sound;
        FakeSeedSource seeds;
        ProgramState before(sound, seeds), after(sound, seeds);
        before.History = std::make_unique<SqlHistory>(path(), [] { return start; });
        before.TestMode = true;
        before.PaperIndex = 3;
        before.TestNumber = 3;
        before.TargetMinutes = 75;
        before.ElapsedMinutes = 32;
        for (int kind = 6; kind <= 10; ++kind)
            for (int i = 1; i <= 15; ++i)
                before.SavedAnswer[kind][i] = u"k%1 a%2"_s.arg(kind).arg(i);
        before.SectionDone[1] = before.SectionDone[4] = true;
        before.SectionVisited[2] = true;
        before.SectionScore[4] = 11;
        before.LetterText = u"Dear Sir,\nI am writing"_s;
        KeepTestInHand(before);

        const std::optional<PausedTest> kept = before.History->pausedTest(3);
        QVERIFY(kept);
        QCOMPARE(ContinueQuestion(*kept), u"Continue Test 3 (32 minutes used)?"_s);
        after.TargetMinutes = 75;
        QVERIFY(RestoreTestState(after, kept->state));
        for (int kind = 6; kind <= 10; ++kind)
            for (int i = 1; i <= 20; ++i)
                QCOMPARE(after.SavedAnswer[kind][i], before.SavedAnswer[kind][i]);
        for (int n = 1; n <= 5; ++n) {
            QCOMPARE(after.SectionDone[n], before.SectionDone[n]);
            QCOMPARE(after.SectionVisited[n], before.SectionVisited[n]);
            QCOMPARE(int(after.SectionScore[n]), int(before.SectionScore[n]));
        }
        QCOMPARE(after.LetterText, before.LetterText);
        QCOMPARE(int(after.ElapsedMinutes), 32);
        QCOMPARE(int(after.RemainingMinutes), 43);

        // A kept state that is not one is refused and changes nothing.
        QVERIFY(!RestoreTestState(after, "{\"minutes\": \"many\"}"));
        QVERIFY(!RestoreTestState(after, "not json"));
        QCOMPARE(int(after.ElapsedMinutes), 32);
        QVERIFY(before.History->dropPausedTest(3));
        QVERIFY(!before.History->pausedTest(3));
    }
};

QTEST_GUILESS_MAIN(TestHistory)
#include "tst_history.moc"
