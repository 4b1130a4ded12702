// The test papers offscreen: choosing a paper and a test, moving between sections with their answers
// kept apart, one clock for the whole test, the done marks, the final score and leaving a test; then
// a Use of English test sat in the real program on the bundled content.

#include "../useofenglish/gapfixtures.h"

#include "progress/core/sqlhistory.h"

#include "progress/core/sqlhistory.h"

#include <QJsonArray>

using namespace sd;
using namespace sd::test;
using namespace Qt::StringLiterals;

class TestTestPapers : public QObject
{
    Q_OBJECT

    DataDir dir;
    std::unique_ptr<App> app;

    /// Start screen -> test papers -> Use of English -> the test.
    void openTest(int test)
    {
        app->click(u"lblTest"_s);
        app->click(u"Label3"_s);
        QCOMPARE(app->topCode(), u"Examnumber"_s);
        app->click(u"Label%1"_s.arg(test));
    }
    void openSection(int n, const QString &screen)
    {
        QCOMPARE(app->topCode(), u"Examsection"_s);
        app->click(u"Label%1"_s.arg(n));
        QCOMPARE(app->topCode(), screen);
    }
    QString balloon()
    {
        app->click(u"imgTime"_s);
        return app->text(u"lblShowtime"_s);
    }

private Q_SLOTS:
    void initTestCase()
    {
        dir.writeRecords(DataFile::Ueca, {gapRecord(u"x01"_s, u"surf"_s, choiceItems)});
        dir.writeRtf(u"surf"_s, u"My cousin (1) me to try surfing."_s);
        dir.writeRecords(DataFile::Uecb, {gapRecord(u"x01"_s, u"sign"_s, openItems)});
        dir.writeRtf(u"sign"_s, u"I was not very keen (1) the idea."_s);
    }
    void init() { app = std::make_unique<App>(dir.path()); }
    void cleanup() { app.reset(); }

    void answersKeptPerSectionAndDoneMarks()
    {
        QTemporaryDir folder;
        app->state.History = std::make_unique<SqlHistory>(folder.filePath(u"history.sqlite"_s), [] { return QDateTime(); });
        openTest(1);
        QVERIFY(!shows(*app, u"imgDone1"_s));
        openSection(1, u"ueca"_s);
        app->choose(u"Combo1"_s, u"decided"_s);
        app->click(u"Quit"_s);
        openSection(2, u"uecb"_s);
        QCOMPARE(app->text(u"Text1"_s), QString()); // nothing of section 1 here
        app->type(u"Text1"_s, u"on"_s);
        app->type(u"Text2"_s, u"Sooner"_s);
        app->click(u"Quit"_s);
        QVERIFY(shows(*app, u"imgDone1"_s));
        QVERIFY(shows(*app, u"imgDone2"_s));
        QVERIFY(!shows(*app, u"imgDone3"_s));
        openSection(1, u"ueca"_s);
        QCOMPARE(app->text(u"Combo1"_s), u"decided"_s);
        app->click(u"Quit"_s);
        openSection(2, u"uecb"_s);
        QCOMPARE(app->text(u"Text2"_s), u"Sooner"_s); // exactly as typed
        app->click(u"Quit"_s);

        // The final score: sections 3 to 5 not done, so the maximum is 65 - 10 - 15 - 10.
        app->click(u"Check"_s);
        QCOMPARE(app->topCode(), u"Examscore"_s);
        QCOMPARE(app->text(u"lblScore1"_s), u"1 out of 15"_s);
        QCOMPARE(app->text(u"lblScore2"_s), u"2 out of 15"_s);
        QCOMPARE(app->text(u"lblScore3"_s), u"Not done"_s);
        QCOMPARE(app->text(u"lblPercent"_s), u"10%"_s);
        QVERIFY(soundsPlayed(*app).isEmpty()); // the verdict sounds only when every section is done
        const ProgressSummary kept = app->state.History->summary();
        QCOMPARE(kept.tests.size(), 1);
        QCOMPARE(kept.tests.last().percent, std::optional<int>(10));
        QCOMPARE(kept.tests.last().sectionsDone, 2);
        app->click(u"Quit"_s);

        // Reviewing: the section shows the answers against the keys and the marks.
        QCOMPARE(app->text(u"lblInstruct"_s), u"REVIEW YOUR ANSWERS"_s);
        openSection(2, u"uecb"_s);
        QVERIFY(shows(*app, u"Correct1"_s));
        QCOMPARE(app->text(u"lblScore"_s), u"Score: 2 out of 15"_s);
    }

    void oneClockForTheWholeTest()
    {
        app->state.ClockShown = false; // a test shows its clock whatever the setting
        openTest(1);
        openSection(1, u"ueca"_s);
        app->state.Clock.advance(3 * MinuteClock::TickMs);
        QVERIFY(balloon().contains(u"3'"_s));
        app->click(u"Quit"_s);
        app->state.Clock.advance(2 * MinuteClock::TickMs);
        openSection(2, u"uecb"_s);
        const QString shown = balloon();
        QVERIFY2(shown.contains(u"5'"_s) && shown.contains(u"70'"_s), qPrintable(shown));
    }

    void exitTestLeavesNothing()
    {
        openTest(1);
        openSection(2, u"uecb"_s);
        app->type(u"Text1"_s, u"on"_s);
        app->click(u"Quit"_s);
        app->click(u"Quit"_s);
        QCOMPARE(app->topCode(), u"Examexit"_s);
        QCOMPARE(app->text(u"Label1"_s),
                 u"Are you sure you want to exit this test?\n(Your answers and scores will be eliminated.)"_s);
        QTest::keyClick(app->top(), Qt::Key_Escape); // the least committal answer: back to the test
        app->settle();
        QCOMPARE(app->topCode(), u"Examsection"_s);
        app->click(u"Quit"_s);
        app->click(u"imgQuit"_s);
        QCOMPARE(app->topCode(), u"Examnumber"_s);
        app->click(u"Label1"_s);
        QVERIFY(!shows(*app, u"imgDone2"_s));
        openSection(2, u"uecb"_s);
        QCOMPARE(app->text(u"Text1"_s), QString());
    }

    void missingSections_data()
    {
        QTest::addColumn<int>("test");
        QTest::addColumn<int>("section");
        QTest::addColumn<QString>("error");
        QTest::newRow("no record x02") << 2 << 1 << u"Not found"_s;
        QTest::newRow("test 10 looks for x10") << 10 << 2 << u"Not found"_s;
        QTest::newRow("no error-correction file") << 1 << 4 << u"No file"_s;
        QTest::newRow("no sentence-conversion file") << 1 << 3 << u"No file"_s;
    }
    void missingSections()
    {
        QFETCH(int, test);
        QFETCH(int, section);
        QFETCH(QString, error);
        openTest(test);
        app->click(u"Label%1"_s.arg(section));
        QCOMPARE(app->topCode(), u"Error"_s);
        QCOMPARE(app->text(u"Label1"_s), error);
        QCOMPARE(app->sound.events.count(u"beep"_s), 1);
        app->click(u"Continue"_s);
        QCOMPARE(app->topCode(), u"Examsection"_s);
        QVERIFY(!shows(*app, u"imgDone%1"_s.arg(section)));
    }

    // The Writing parts keep the name, the question number and the text when they are left and
    // opened again; "Exit test" takes them away.
    void writingPartsKeepTheWork()
    {
        const QString data = QCoreApplication::applicationDirPath() + u"/data/"_s;
        if (!QFileInfo::exists(data + u"praccomp.dat"_s))
            QSKIP("the bundled data has not been built");
        app = std::make_unique<App>(data);
        app->click(u"lblTest"_s);
        app->click(u"Label2"_s);
        app->click(u"Label1"_s);
        QVERIFY(!shows(*app, u"Label1"_s) && !shows(*app, u"Check"_s) && shows(*app, u"Save"_s));
        openSection(2, u"writetheleta"_s);
        app->type(u"txtName"_s, u"Ana Lopez"_s);
        app->type(u"Text2"_s, u"Dear Jamie, yes, count me in!"_s);
        app->click(u"Quit"_s);
        openSection(4, u"writethecomp"_s);
        QCOMPARE(app->text(u"txtName"_s), u"Ana Lopez"_s);
        app->type(u"txtTitle"_s, u"3"_s);
        app->type(u"Text2"_s, u"It was a dark night."_s);
        app->click(u"Quit"_s);
        QVERIFY(shows(*app, u"imgDone2"_s) && shows(*app, u"imgDone4"_s));
        openSection(2, u"writetheleta"_s);
        QCOMPARE(app->text(u"Text2"_s), u"Dear Jamie, yes, count me in!"_s);
        app->click(u"Quit"_s);
        openSection(4, u"writethecomp"_s);
        QCOMPARE(app->text(u"txtTitle"_s), u"3"_s);
        QCOMPARE(app->text(u"Text2"_s), u"It was a dark night."_s);
        app->click(u"Quit"_s);

        // Saving both parts keeps the test and its two compositions in the history, once.
        QTemporaryDir home;
        app->state.History = std::make_unique<SqlHistory>(home.filePath(u"history.sqlite"_s),
                                                          [this] { return app->state.Time.now(); });
        auto *dialog = static_cast<QueuedSaveDialog *>(app->state.SaveAs.get());
        dialog->answers = {home.filePath(u"answers"_s), home.filePath(u"again.txt"_s)};
        app->click(u"Save"_s);
        QCOMPARE(app->text(u"Text1"_s), u"Dear Jamie, yes, count me in!"_s);
        app->click(u"Savetext"_s);
        app->click(u"Savetext"_s);
        QVERIFY(QFileInfo::exists(home.filePath(u"answers.txt"_s)));
        const ProgressSummary summary = app->state.History->summary();
        QCOMPARE(summary.tests.size(), 1);
        QVERIFY(!summary.tests.first().percent.has_value());
        QCOMPARE(summary.compositions.size(), 4);
        QCOMPARE(summary.compositions.first().words, 5);
        app->click(u"Quit"_s);

        app->click(u"Quit"_s);
        QCOMPARE(app->text(u"Label1"_s), u"Are you sure you want to exit this test?\n(Your answers will be eliminated.)"_s);
        app->click(u"imgQuit"_s);
        app->click(u"Label1"_s);
        openSection(2, u"writetheleta"_s);
        QCOMPARE(app->text(u"Text2"_s), QString());
        QCOMPARE(app->text(u"txtName"_s), QString());
    }

    // A Writing test written, printed and saved in the real program: both parts in one file.
    void writingTestScripted()
    {
        const QString data = QCoreApplication::applicationDirPath() + u"/data"_s;
        if (!QFileInfo::exists(data + u"/praccomp.dat"_s))
            QSKIP("the bundled data has not been built");
        QTemporaryDir out;
        const QString saved = out.filePath(u"answers.txt"_s);
        const QString pdf = out.filePath(u"letter.pdf"_s);
        const ScriptRun run = runScript(data, u"click lblTest\nclick Label2\nclick Label1\n"
                                              u"click Label2\ntype txtName Ana\ntype Text2 Dear Jamie,\nclick Quit\n"
                                              u"click Label4\ntype txtTitle 2\ntype Text2 My street\nclick Quit\n"
                                              u"click Save\nclick imgPrint\nsave-as "_s + saved + u"\nclick Savetext\ndump\n"_s,
                                        {u"--print-to"_s, pdf});
        QCOMPARE(run.exitCode, 0);
        QVERIFY2(QFileInfo(pdf).size() > 0, qPrintable(run.errors));
        QFile f(saved);
        QVERIFY(f.open(QIODevice::ReadOnly));
        const QList<QByteArray> lines = f.readAll().split('\n');
        QCOMPARE(lines.size(), 17); // eight lines a part, each ended by CR LF
        QCOMPARE(lines.at(3), QByteArray("Dear Jamie,\r"));
        QCOMPARE(lines.at(9), QByteArray("Test paper 1 B   Topic number: 2\r"));
        QCOMPARE(lines.at(11), QByteArray("My street\r"));
        QCOMPARE(lines.at(14), QByteArray("Ana\r"));
    }

    // A whole test in the real program: two sections answered, the others left, the final score,
    // one section reviewed.
    void useOfEnglishTestScripted()
    {
        const QString data = QCoreApplication::applicationDirPath() + u"/data"_s;
        if (!QFileInfo::exists(data + u"/pracuecb.dat"_s))
            QSKIP("the bundled data has not been built");
        const ScriptRun run = runScript(data, u"click lblTest\nclick Label3\nclick Label1\n"
                                              u"click Label2\ntype Text1 wrong\nclick Quit\n"
                                              u"click Label4\nclick Quit\n"
                                              u"click Check\ndump\nclick Quit\nclick Label2\ndump\n"_s);
        QCOMPARE(run.exitCode, 0);
        QCOMPARE(run.control(u"Examscore"_s, u"lblScore1"_s, 0)[u"text"_s].toString(), u"Not done"_s);
        QVERIFY(run.control(u"Examscore"_s, u"lblScore2"_s, 0)[u"text"_s].toString().endsWith(u" out of 15"_s));
        QCOMPARE(run.control(u"Examscore"_s, u"lblScore3"_s, 0)[u"text"_s].toString(), u"Not done"_s);
        QVERIFY(!run.control(u"uecb"_s, u"Correct1"_s)[u"text"_s].toString().isEmpty());
        QCOMPARE(run.control(u"uecb"_s, u"Text1"_s)[u"text"_s].toString(), u"wrong"_s);
        QCOMPARE(run.control(u"uecb"_s, u"Image1"_s)[u"picture"_s].toString(), u"cross"_s);
    }
};

QTEST_MAIN(TestTestPapers)
#include "tst_testpapers.moc"
