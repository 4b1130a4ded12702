// The multiple-choice cloze screen and the shared check screen, driven offscreen by objectName.

#include "gapfixtures.h"

#include <QComboBox>
#include <QSignalSpy>

using namespace sd;
using namespace sd::test;
using namespace Qt::StringLiterals;

namespace {

const QStringList items{u"decided/thought/wanted/planned"_s, u"out/up/off/"_s, u"feet/legs/heels/toes"_s,
                        u"give/put/take/set"_s, u"keep/hold/stay/remain"_s, u"get/make/do/earn"_s,
                        u"from/off/away/out"_s, u"love/like/heart/passion"_s, u"mind/care/worry/object"_s,
                        u"so/such/too/very"_s};

QString key(int n) { return items.at(n - 1).section(u'/', 0, 0); }
QString wrong(int n) { return items.at(n - 1).section(u'/', 1, 1); }

} // namespace

class TestUeca : public QObject
{
    Q_OBJECT

    DataDir dir;
    std::unique_ptr<App> app;

    void open(int exercise = 1)
    {
        app->openPractice(u"lblueca"_s, 1, exercise);
        QCOMPARE(app->topCode(), u"ueca"_s);
    }
    /// The key for every gap, another alternative for the wrong ones.
    void answer(const QList<int> &wrongGaps)
    {
        for (int n = 1; n <= 10; ++n)
            app->choose(u"Combo%1"_s.arg(n), wrongGaps.contains(n) ? wrong(n) : key(n));
    }

private Q_SLOTS:
    void initTestCase()
    {
        dir.writeRecords(DataFile::Ueca, {gapRecord(u"101"_s, u"surf"_s, items), gapRecord(u"102"_s, u"none"_s, items),
                                          gapRecord(u"x01"_s, u"surf"_s, items)});
        dir.writeRtf(u"surf"_s, u"Last summer my cousin (1) me to try surfing."_s);
    }
    void init() { app = std::make_unique<App>(dir.path()); }
    void cleanup() { app.reset(); }

    void loadsTenGaps()
    {
        open();
        QCOMPARE(app->text(u"lblExid"_s), u"LEVEL 1   Exercise 1"_s);
        QCOMPARE(app->text(u"lblInstruction"_s), u"Complete the passage by selecting one alternative for each gap."_s);
        QVERIFY(app->text(u"RichTextBox1"_s).contains(u"my cousin (1)"_s));
        QVERIFY(app->get<QComboBox>(u"Combo1"_s)->findText(key(1)) >= 0);
        QCOMPARE(app->get<QComboBox>(u"Combo1"_s)->count(), 4);
        QCOMPARE(app->get<QComboBox>(u"Combo2"_s)->count(), 3);
        QCOMPARE(app->text(u"Combo1"_s), QString());
        for (int n = 1; n <= 15; ++n) {
            QCOMPARE(shows(*app, u"Combo%1"_s.arg(n)), n <= 10);
            QCOMPARE(shows(*app, u"Label%1"_s.arg(n)), n <= 10);
            QVERIFY(!shows(*app, u"Text%1"_s.arg(n)));
        }
        QVERIFY(marksShown(*app).isEmpty() && !shows(*app, u"Label16"_s) && !shows(*app, u"lblScore"_s));
        QVERIFY(shows(*app, u"Check"_s) && shows(*app, u"Help"_s) && shows(*app, u"Printing"_s));
        for (int n = 1; n < 10; ++n)
            QCOMPARE(nextTabStop(app->control(u"Combo%1"_s.arg(n))), app->control(u"Combo%1"_s.arg(n + 1)));
        QCOMPARE(nextTabStop(app->control(u"Combo10"_s)), app->control(u"Check"_s));
        app->click(u"Help"_s);
        QCOMPARE(app->topCode(), u"Helpform"_s);
        QCOMPARE(app->state.HelpTopic, u"helpueca"_s);
        QCOMPARE(int(app->state.HelpCaller), 6);
    }

    void verdict_data()
    {
        QTest::addColumn<QList<int>>("wrongGaps");
        QTest::addColumn<QString>("score");
        QTest::addColumn<QString>("comment");
        QTest::addColumn<QString>("sound");
        QTest::newRow("perfect") << QList<int>{} << u"10 out of 10"_s << u"Well done!"_s << u"fanfare1.wav"_s;
        QTest::newRow("one wrong") << QList<int>{4} << u"9 out of 10"_s << u"A near miss - only one wrong"_s
                                   << u"happychime.wav"_s;
        QTest::newRow("7 right") << QList<int>{1, 2, 3} << u"7 out of 10"_s << u"OK - a pass"_s << u"chimes.wav"_s;
    }
    void verdict()
    {
        QFETCH(QList<int>, wrongGaps);
        QFETCH(QString, score);
        QFETCH(QString, comment);
        QFETCH(QString, sound);
        open();
        answer(wrongGaps);
        app->sound.events.clear();
        app->click(u"Check"_s);
        QCOMPARE(app->topCode(), u"uecheck"_s);
        QCOMPARE(app->text(u"lblScore"_s), score);
        QCOMPARE(app->text(u"Label4"_s), comment);
        QCOMPARE(soundsPlayed(*app), QStringList{sound});
    }

    void closeAfterAllCorrect()
    {
        open();
        answer({});
        app->click(u"Check"_s);
        app->click(u"back"_s);
        QCOMPARE(app->topCode(), u"ueca"_s);
        QCOMPARE(app->text(u"Text1"_s), key(1));
        QVERIFY(shows(*app, u"Text10"_s) && !shows(*app, u"Text11"_s) && shows(*app, u"Label16"_s));
        QCOMPARE(app->text(u"lblScore"_s), u"Score: 10 out of 10"_s);
        QVERIFY(!shows(*app, u"Check"_s) && marksShown(*app).isEmpty());
    }

    void missingPassageFailsTheLoad()
    {
        open(2);
        QCOMPARE(app->text(u"lblExid"_s), u"ERROR"_s);
        QCOMPARE(app->text(u"lblInstruction"_s), u"NO TEXT"_s);
    }

    void clockFollowsSetting_data()
    {
        QTest::addColumn<bool>("test");
        QTest::addColumn<bool>("clockShown");
        QTest::newRow("practice, off") << false << false;
        QTest::newRow("test, on") << true << true;
        QTest::newRow("test, off") << true << false;
    }
    void clockFollowsSetting()
    {
        QFETCH(bool, test);
        QFETCH(bool, clockShown);
        app->state.ClockShown = clockShown;
        if (test)
            openTestSection(*app, 6, u"ueca"_s);
        else
            open();
        QCOMPARE(shows(*app, u"imgTime"_s), clockShown);
        QCOMPARE(shows(*app, u"Check"_s), !test);
        QCOMPARE(shows(*app, u"Help"_s), !test);
    }

    void testSectionKeepsAnswersAndScoresSilently()
    {
        QSignalSpy shown(&app->nav, &Navigator::screenShown);
        openTestSection(*app, 6, u"ueca"_s);
        QCOMPARE(app->text(u"lblExid"_s), u"TEST 1"_s);
        QVERIFY(app->state.SectionVisited[1]);
        answer({2});
        app->sound.events.clear();
        app->click(u"Quit"_s);
        QVERIFY(app->sound.events.isEmpty());
        for (const auto &args : shown)
            QVERIFY(args.at(0).toString() != u"uecheck");
        QCOMPARE(int(app->state.SectionScore[1]), 9);

        openTestSection(*app, 6, u"ueca"_s);
        QCOMPARE(app->text(u"Combo2"_s), wrong(2));
        QCOMPARE(app->text(u"Combo3"_s), key(3));
        app->click(u"Quit"_s);

        app->state.TestScored = true;
        openTestSection(*app, 6, u"ueca"_s);
        QCOMPARE(app->text(u"Text2"_s), key(2));
        QCOMPARE(app->text(u"lblScore"_s), u"Score: 9 out of 10"_s);
        QCOMPARE(marksShown(*app), QList<int>{2});
        app->choose(u"Combo3"_s, wrong(3));
        app->click(u"Quit"_s);
        QCOMPARE(app->state.SavedAnswer[6][3], key(3)); // nothing saved or scored once the test is scored
        QCOMPARE(int(app->state.SectionScore[1]), 9);
    }
};

QTEST_MAIN(TestUeca)
#include "tst_ueca.moc"
