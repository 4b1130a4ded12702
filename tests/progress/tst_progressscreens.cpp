// The history as the student meets it: the marks on the exercise menus, the progress screen (its
// charts loaded only when it opens), the mistakes list, and a test kept when the program closes and
// continued with its clock; then the same across runs of the real program, ending in --export-history.

#include "../useofenglish/gapfixtures.h"
#include "progress/core/sqlhistory.h"

#include <QFile>
#include <QProcess>
#include <QTableWidget>

using namespace sd;
using namespace sd::test;
using namespace Qt::StringLiterals;

namespace {
/// Whether this process has mapped Qt Charts.
bool chartsLoaded()
{
    QFile maps(u"/proc/self/maps"_s);
    return maps.open(QIODevice::ReadOnly) && maps.readAll().contains("libQt6Charts");
}

QStringList column(QTableWidget *t, int c)
{
    QStringList out;
    for (int row = 0; row < t->rowCount(); ++row)
        out.append(t->item(row, c)->text());
    return out;
}
} // namespace

class TestProgressScreens : public QObject
{
    Q_OBJECT

    DataDir data;
    std::unique_ptr<QTemporaryDir> home;
    std::unique_ptr<App> app;

    void startApp()
    {
        app = std::make_unique<App>(data.path());
        app->state.History = std::make_unique<SqlHistory>(home->filePath(u"history.sqlite"_s),
                                                          [this] { return app->state.Time.now(); });
    }
    /// One check of exercise 1 at level 1 of the cloze with the first `right` gaps answered right
    /// and the others left empty or answered with the second alternative.
    void answerCloze(int right, int wrongFrom = 0)
    {
        for (int n = 1; n <= 10; ++n) {
            const QStringList alternatives = choiceItems.at(n - 1).split(u'/');
            if (n <= right)
                app->choose(u"Combo%1"_s.arg(n), alternatives.at(0));
            else if (wrongFrom && n >= wrongFrom)
                app->choose(u"Combo%1"_s.arg(n), alternatives.at(1));
        }
        app->click(u"Check"_s);
        QCOMPARE(app->topCode(), u"uecheck"_s);
    }
    void closeCheckAndExercise()
    {
        app->click(u"back"_s);
        app->click(u"Quit"_s);
        QCOMPARE(app->topCode(), u"Pracchoice"_s);
    }

private Q_SLOTS:
    void initTestCase()
    {
        data.writeRecords(DataFile::Ueca, {gapRecord(u"101"_s, u"surf"_s, choiceItems), gapRecord(u"x01"_s, u"surf"_s, choiceItems)});
        data.writeRtf(u"surf"_s, u"My cousin (1) me to try surfing."_s);
        data.writeRecords(DataFile::Uecb, {gapRecord(u"x01"_s, u"sign"_s, openItems)});
        data.writeRtf(u"sign"_s, u"I was not very keen (1) the idea."_s);
    }
    void init()
    {
        home = std::make_unique<QTemporaryDir>();
        startApp();
    }
    void cleanup()
    {
        app.reset();
        home.reset();
    }

    // First: no other test of this program has opened the progress screen yet.
    void chartsLoadOnlyWithTheProgressScreen()
    {
        QCOMPARE(app->topCode(), u"Intro"_s);
        QVERIFY(!chartsLoaded());
        QVERIFY(!QFileInfo::exists(home->filePath(u"history.sqlite"_s))); // nor is the history opened
        app->click(u"lblProgress"_s);
        QCOMPARE(app->topCode(), u"Progress"_s);
        for (int n = 1; n <= 4; ++n)
            QVERIFY(app->text(u"lblNothing%1"_s.arg(n)).endsWith(u"Nothing here yet: do an exercise and come back."_s));
        app->click(u"Quit"_s);

        app->openPractice(u"lblueca"_s, 1, 1);
        answerCloze(4);
        closeCheckAndExercise();
        app->click(u"Back"_s);
        app->click(u"Back"_s);
        app->click(u"lblProgress"_s);
        QVERIFY(chartsLoaded());
        QVERIFY(app->control(u"chtPaper3"_s)->isVisible()); // the Use of English chart has a point
        QVERIFY(app->control(u"chtKinds"_s)->isVisible());
        QVERIFY(app->text(u"lblNothing1"_s).startsWith(u"Reading"_s));
        QVERIFY(!shows(*app, u"lblProblem"_s));
    }

    void menuMarksKeepTheBest()
    {
        app->openPractice(u"lblueca"_s, 1, 1);
        answerCloze(2);
        app->click(u"tryagain"_s); // a second check of the same run does not count
        answerCloze(5);
        closeCheckAndExercise();
        QCOMPARE(app->text(u"lblBest1"_s), u"2/10"_s);
        QCOMPARE(app->text(u"lblBest2"_s), u"new"_s);
        app->click(u"lblEx1"_s);
        answerCloze(1);
        closeCheckAndExercise();
        QCOMPARE(app->text(u"lblBest1"_s), u"2/10"_s);
        app->click(u"lblLevel2"_s);
        QCOMPARE(app->text(u"lblBest1"_s), u"new"_s); // another level, nothing done there
        QCOMPARE(app->text(u"lblEx1"_s), u" Exercise 1"_s);
    }

    void mistakeAnsweredRightLeavesTheList()
    {
        app->openPractice(u"lblueca"_s, 1, 1);
        answerCloze(2, 3); // 1 and 2 right, 3 to 10 wrong
        closeCheckAndExercise();
        app->click(u"Back"_s);
        app->click(u"Back"_s);
        app->click(u"lblProgress"_s);
        app->click(u"Mistakes"_s);
        auto *table = app->get<QTableWidget>(u"tblMistakes"_s);
        QCOMPARE(column(table, 1), (QStringList{u"3"_s, u"4"_s, u"5"_s, u"6"_s, u"7"_s, u"8"_s, u"9"_s, u"10"_s}));
        QCOMPARE(table->item(0, 0)->text(), u"MC Cloze, level 1, exercise 1"_s);
        QCOMPARE(table->item(0, 2)->text(), u"legs"_s);
        QCOMPARE(table->item(0, 3)->text(), u"feet"_s);

        // The first mistake opens its exercise; answered right there, it leaves the list.
        app->click(u"Open"_s);
        QCOMPARE(app->topCode(), u"ueca"_s);
        QCOMPARE(app->text(u"lblExid"_s), u"LEVEL 1   Exercise 1"_s);
        answerCloze(3, 4);
        closeCheckAndExercise();
        app->click(u"Back"_s);
        QCOMPARE(app->topCode(), u"Mistakes"_s);
        QCOMPARE(column(table, 1), (QStringList{u"4"_s, u"5"_s, u"6"_s, u"7"_s, u"8"_s, u"9"_s, u"10"_s}));
    }

    void keptTestContinuedWithItsClock()
    {
        app->click(u"lblTest"_s);
        app->click(u"Label3"_s);
        app->click(u"Label1"_s);
        app->click(u"Label2"_s);
        app->type(u"Text1"_s, u"on"_s);
        app->click(u"Quit"_s);
        app->click(u"Label1"_s);
        app->choose(u"Combo1"_s, u"decided"_s);
        app->state.Clock.advance(32LL * MinuteClock::TickMs);
        // The program ends in the middle of section 1, without its Quit.
        app.reset();

        startApp();
        app->click(u"lblTest"_s);
        app->click(u"Label3"_s);
        QCOMPARE(app->topCode(), u"continuetest"_s);
        QCOMPARE(app->text(u"lblMessage"_s), u"Continue Test 1 (32 minutes used)?"_s);
        app->click(u"Continue"_s);
        QCOMPARE(app->topCode(), u"Examsection"_s);
        QVERIFY(shows(*app, u"imgDone2"_s));
        QVERIFY(!shows(*app, u"imgDone1"_s));
        app->click(u"Label2"_s);
        QCOMPARE(app->text(u"Text1"_s), u"on"_s);
        app->click(u"imgTime"_s);
        QVERIFY2(app->text(u"lblShowtime"_s).contains(u"32'"_s), qPrintable(app->text(u"lblShowtime"_s)));
        app->click(u"Quit"_s);
        app->click(u"Check"_s);
        QCOMPARE(app->topCode(), u"Examscore"_s);
        QCOMPARE(app->text(u"lblScore2"_s), u"1 out of 15"_s);
        app->click(u"Quit"_s);

        // Finished, it is no longer offered.
        app.reset();
        startApp();
        app->click(u"lblTest"_s);
        app->click(u"Label3"_s);
        QCOMPARE(app->topCode(), u"Examnumber"_s);
    }

    void startAgainForgetsTheKeptTest()
    {
        app->click(u"lblTest"_s);
        app->click(u"Label3"_s);
        app->click(u"Label4"_s);
        app.reset();
        startApp();
        app->click(u"lblTest"_s);
        app->click(u"Label3"_s);
        QCOMPARE(app->text(u"lblMessage"_s), u"Continue Test 4 (0 minutes used)?"_s);
        app->click(u"Startagain"_s);
        QCOMPARE(app->topCode(), u"Examnumber"_s);
        app->click(u"Quit"_s);
        app->click(u"Label3"_s);
        QCOMPARE(app->topCode(), u"Examnumber"_s);
    }

    void historyAcrossRunsAndExported()
    {
        const QString bundled = QCoreApplication::applicationDirPath() + u"/data"_s;
        if (!QFileInfo::exists(bundled + u"/pracueca.dat"_s))
            QSKIP("the bundled data has not been built");
        const QString folder = home->path();
        const ScriptRun first = runScript(bundled,
                                          u"click lblPrac\nclick lblueca\nclick lblLevel1\nclick lblEx1\nclick Check\n"
                                          "dump\nclick back\nclick Quit\nclick Back\nclick Back\n"
                                          "click lblTest\nclick Label3\nclick Label1\nclick Label2\ntype Text1 hello\n"
                                          "click Quit\nwait 600000\nquit\n"_s,
                                          {}, folder);
        QCOMPARE(first.exitCode, 0);
        const QString gaps = first.control(u"uecheck"_s, u"lblScore"_s).value(u"text").toString().section(u' ', -1);
        const ScriptRun second = runScript(bundled,
                                           u"click lblTest\nclick Label3\ndump\nclick Continue\nclick Label2\ndump\n"
                                           "click Quit\nclick Check\ndump\nquit\n"_s,
                                           {}, folder);
        QCOMPARE(second.exitCode, 0);
        QCOMPARE(second.control(u"continuetest"_s, u"lblMessage"_s, 0).value(u"text").toString(),
                 u"Continue Test 1 (10 minutes used)?"_s);
        QCOMPARE(second.control(u"uecb"_s, u"Text1"_s, 1).value(u"text").toString(), u"hello"_s);
        const QString percent = second.control(u"Examscore"_s, u"lblPercent"_s).value(u"text").toString().chopped(1);
        QString verdict = second.control(u"Examscore"_s, u"lblVerdict"_s).value(u"text").toString();
        if (verdict.contains(u',') || verdict.contains(u'"'))
            verdict = u'"' + verdict.replace(u"\""_s, u"\"\""_s) + u'"';
        const QString score = second.control(u"Examscore"_s, u"lblScore2"_s).value(u"text").toString().section(u' ', 0, 0);

        QProcess exporter;
        QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
        for (const char *var : {"XDG_DATA_HOME", "XDG_CONFIG_HOME", "HOME"})
            env.insert(QString::fromLatin1(var), folder);
        exporter.setProcessEnvironment(env);
        const QString csv = home->filePath(u"history.csv"_s);
        exporter.start(QStringLiteral(STUDYDESK_BINARY_DIR "/bin/studydesk"), {u"--export-history"_s, csv});
        QVERIFY(exporter.waitForFinished(60000));
        QCOMPARE(exporter.exitCode(), 0);
        QFile f(csv);
        QVERIFY(f.open(QIODevice::ReadOnly));
        QStringList records;
        for (const QString &line : QString::fromUtf8(f.readAll()).split(u"\r\n"_s))
            if (!line.startsWith(u"answer,"_s) && !line.isEmpty())
                records.append(line);
        QCOMPARE(records, (QStringList{
            u"record,when,mode,paper,kind,level,exercise,test,question,given,expected,correct,score,max,percent,verdict,"
            "seconds,sample,student,examiner,title,words,file"_s,
            u"attempt,2024-03-04T09:00:00Z,practice,useofenglish,ueca,1,101,,,,,,0,%1,,,0,,,,,,"_s.arg(gaps),
            u"attempt,2024-03-04T09:00:00Z,test,useofenglish,uecb,,x01,,,,,,%1,15,,,,,,,,,"_s.arg(score),
            u"test,2024-03-04T09:00:00Z,,useofenglish,,,,1,,,,,,,%1,%2,600,,,,,,"_s.arg(percent, verdict)}));
    }
};

QTEST_MAIN(TestProgressScreens)
#include "tst_progressscreens.moc"
