// The gap exercise screens (multiple-choice cloze, open cloze, error correction) and the shared check
// screen, driven offscreen by objectName.

#include "gapfixtures.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QSignalSpy>

using namespace sd;
using namespace sd::test;
using namespace Qt::StringLiterals;

using Answers = QMap<QString, QString>; // control -> text chosen or typed
Q_DECLARE_METATYPE(Answers)

namespace {

QString key(int n) { return choiceItems.at(n - 1).section(u'/', 0, 0); }
QString wrong(int n) { return choiceItems.at(n - 1).section(u'/', 1, 1); }

/// The key for every multiple-choice gap, another alternative for the wrong ones.
Answers choices(const QList<int> &wrongGaps)
{
    Answers a;
    for (int n = 1; n <= 10; ++n)
        a.insert(u"Combo%1"_s.arg(n), wrongGaps.contains(n) ? wrong(n) : key(n));
    return a;
}

Answers typed(const QStringList &texts)
{
    Answers a;
    for (int n = 1; n <= texts.size(); ++n)
        a.insert(u"Text%1"_s.arg(n), texts.at(n - 1));
    return a;
}

const QStringList openAnswers{u"on"_s,  u"SOONER"_s, u"That"_s, u"like"_s, u"so"_s, u"this"_s,
                              u"for"_s, u"up"_s,     u"not"_s,  u"its"_s,  u"as"_s, u"into"_s};

/// Fifteen lines; the third is blank. Lines 2 and 4 hold an extra word.
const QStringList lineItems{QString(), u"Have"_s, QString(), u"more"_s};

QString letter()
{
    QStringList lines{u"Dear Sam, I am sorry I have not written"_s, u"since we have moved to Bristol."_s, u"  "_s,
                      u"Our house is much more bigger than before."_s};
    for (int i = 5; i <= 15; ++i)
        lines.append(u"Line %1 of the letter."_s.arg(i));
    return lines.join(u"\r\n"_s) + u"\r\n"_s;
}

} // namespace

class TestGapScreens : public QObject
{
    Q_OBJECT

    DataDir dir;
    std::unique_ptr<App> app;

    void enter(const Answers &answers)
    {
        for (auto it = answers.cbegin(); it != answers.cend(); ++it) {
            if (qobject_cast<QComboBox *>(app->control(it.key())))
                app->choose(it.key(), it.value());
            else
                app->type(it.key(), it.value());
        }
    }

private Q_SLOTS:
    void initTestCase()
    {
        dir.writeRecords(DataFile::Ueca, {gapRecord(u"101"_s, u"surf"_s, choiceItems),
                                          gapRecord(u"102"_s, u"none"_s, choiceItems),
                                          gapRecord(u"x01"_s, u"surf"_s, choiceItems)});
        dir.writeRtf(u"surf"_s, u"Last summer my cousin (1) me to try surfing."_s);
        dir.writeRecords(DataFile::Uecb, {gapRecord(u"101"_s, u"sign"_s, openItems),
                                          gapRecord(u"x01"_s, u"sign"_s, openItems)});
        dir.writeRtf(u"sign"_s, u"I was not very keen (1) the idea."_s);
        dir.writeRecords(DataFile::Ueec, {gapRecord(u"101"_s, u"letter"_s, lineItems),
                                          gapRecord(u"102"_s, QString(), lineItems),
                                          gapRecord(u"103"_s, u"long"_s, lineItems),
                                          gapRecord(u"x01"_s, u"letter"_s, lineItems)});
        dir.writeText(u"letter.txt"_s, letter());
        dir.writeText(u"long.txt"_s, u"a line\r\n"_s.repeated(21));
    }
    void init() { app = std::make_unique<App>(dir.path()); }
    void cleanup() { app.reset(); }

    void choiceClozeLoadsTenGaps()
    {
        app->openPractice(u"lblueca"_s, 1, 1);
        QCOMPARE(app->topCode(), u"ueca"_s);
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

    void choiceClozeCheckAndClose_data()
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
    void choiceClozeCheckAndClose()
    {
        QFETCH(QList<int>, wrongGaps);
        QFETCH(QString, score);
        app->openPractice(u"lblueca"_s, 1, 1);
        enter(choices(wrongGaps));
        app->sound.events.clear();
        app->click(u"Check"_s);
        QCOMPARE(app->topCode(), u"uecheck"_s);
        QCOMPARE(app->text(u"lblScore"_s), score);
        QTEST(app->text(u"Label4"_s), "comment");
        QTEST(soundsPlayed(*app).value(0), "sound");
        QCOMPARE(app->sound.events.size(), 1);

        // Closing shows the keys in place of the lists, and a mark on each wrong gap.
        app->click(u"back"_s);
        QCOMPARE(app->topCode(), u"ueca"_s);
        QCOMPARE(app->text(u"Text1"_s), key(1));
        QVERIFY(shows(*app, u"Text10"_s) && !shows(*app, u"Text11"_s) && shows(*app, u"Label16"_s));
        QCOMPARE(app->text(u"lblScore"_s), u"Score: "_s + score);
        QVERIFY(!shows(*app, u"Check"_s));
        QCOMPARE(marksShown(*app), wrongGaps);
    }

    void loadFailures_data()
    {
        QTest::addColumn<QString>("kindLabel");
        QTest::addColumn<int>("exercise");
        QTest::addColumn<QString>("error"); // on the error screen, if any
        QTest::addColumn<QString>("exid");
        QTest::newRow("choice cloze: missing passage") << u"lblueca"_s << 2 << QString() << u"ERROR"_s;
        QTest::newRow("error correction: no file name") << u"lblueec"_s << 2 << u"No file name"_s << u"ERROR"_s;
        QTest::newRow("error correction: a text of 21 lines") << u"lblueec"_s << 3 << QString() << u"ERROR"_s;
    }
    void loadFailures()
    {
        QFETCH(QString, kindLabel);
        QFETCH(int, exercise);
        QFETCH(QString, error);
        QFETCH(QString, exid);
        app->openPractice(kindLabel, 1, exercise);
        if (!error.isEmpty()) {
            QCOMPARE(app->topCode(), u"Error"_s);
            QCOMPARE(app->text(u"Label1"_s), error);
            QCOMPARE(app->sound.events, QStringList{u"beep"_s});
            app->click(u"Continue"_s);
        }
        QCOMPARE(app->topCode(), kindLabel.mid(3));
        QCOMPARE(app->text(u"lblExid"_s), exid);
        QCOMPARE(app->text(u"lblInstruction"_s).startsWith(u"NO TEXT"_s), exid == u"ERROR");
        // An exercise that was not shown can never be scored.
        QCOMPARE(shows(*app, u"Check"_s), exid != u"ERROR");
    }

    // Practice follows the clock setting; a test section always shows the test's clock.
    void clockFollowsSetting_data()
    {
        QTest::addColumn<bool>("test");
        QTest::addColumn<bool>("clockShown");
        QTest::addColumn<bool>("shown");
        QTest::newRow("practice, on") << false << true << true;
        QTest::newRow("practice, off") << false << false << false;
        QTest::newRow("test, off") << true << false << true;
    }
    void clockFollowsSetting()
    {
        QFETCH(bool, test);
        QFETCH(bool, clockShown);
        QFETCH(bool, shown);
        app->state.ClockShown = clockShown;
        if (test)
            app->openTestSection(6, u"ueca"_s, u"01"_s);
        else
            app->openPractice(u"lblueca"_s, 1, 1);
        QCOMPARE(shows(*app, u"imgTime"_s), shown);
        QCOMPARE(shows(*app, u"Check"_s), !test);
        QCOMPARE(shows(*app, u"Help"_s), !test);
    }

    void buttonsStayLitUntilTheBackground()
    {
        app->openPractice(u"lblueca"_s, 1, 1);
        auto *check = app->get<QLabel>(u"Check"_s);
        auto *caption = app->get<QLabel>(u"lblCheck"_s);
        const QColor pale(169, 191, 222);
        QCOMPARE(caption->palette().color(QPalette::WindowText), pale);
        app->hover(u"Check"_s);
        QTest::mouseMove(check, check->rect().topLeft() + QPoint(2, 2));
        QCOMPARE(check->property("picture").toString(), u"check-lit"_s);
        QCOMPARE(caption->palette().color(QPalette::WindowText), QColor(Qt::white));
        app->hover(u"lblCheck"_s);
        QCOMPARE(check->property("picture").toString(), u"check-lit"_s);
        // Only the screen's own background puts it back.
        QTest::mouseMove(app->top(), QPoint(4, 700));
        QCOMPARE(check->property("picture").toString(), u"check"_s);
        QCOMPARE(caption->palette().color(QPalette::WindowText), pale);
    }

    void clockBalloonFollowsTheClock()
    {
        app->state.ClockShown = true;
        app->openPractice(u"lblueca"_s, 1, 1);
        app->click(u"imgTime"_s);
        QCOMPARE(app->text(u"lblShowtime"_s), u"Time so far: 0'\nTime remaining: 15'"_s);
        app->state.Clock.tick();
        app->state.Clock.tick();
        QCOMPARE(app->text(u"lblShowtime"_s), u"Time so far: 2'\nTime remaining: 13'"_s);
        // The balloon covers neither the score nor an answer.
        const QRect balloon = app->control(u"imgTimeballoon"_s)->geometry();
        QVERIFY(!balloon.intersects(app->control(u"lblScore"_s)->geometry()));
        for (int n = 1; n <= 15; ++n)
            if (QWidget *box = app->top()->findChild<QWidget *>(u"Text%1"_s.arg(n)))
                QVERIFY(!balloon.intersects(box->geometry()));
    }

    void testSectionKeepsAnswersAndScoresSilently_data()
    {
        QTest::addColumn<int>("kind");
        QTest::addColumn<int>("section");
        QTest::addColumn<Answers>("answers");
        QTest::addColumn<int>("score");
        QTest::addColumn<QString>("scoreLine"); // once the test is scored
        QTest::addColumn<QList<int>>("marks");
        QTest::addColumn<Answers>("scoredShows");
        QStringList open = openAnswers;
        open[5] = u"these"_s;
        QTest::newRow("choice cloze") << 6 << 1 << choices({2}) << 9 << u"Score: 9 out of 10"_s << QList<int>{2}
                                      << Answers{{u"Text2"_s, key(2)}};
        QTest::newRow("open cloze counts out of 15") << 7 << 2 << typed(open) << 11 << u"Score: 11 out of 15"_s
                                                     << QList<int>{6} << Answers{{u"Text6"_s, u"these"_s}};
        QTest::newRow("error correction") << 9 << 4 << Answers{{u"Text2"_s, u"have"_s}} << 14
                                          << u"Score: 14 out of 15"_s << QList<int>{4} << Answers{};
    }
    void testSectionKeepsAnswersAndScoresSilently()
    {
        QFETCH(int, kind);
        QFETCH(int, section);
        QFETCH(Answers, answers);
        QFETCH(int, score);
        QFETCH(Answers, scoredShows);
        const QString code = kind == 6 ? u"ueca"_s : kind == 7 ? u"uecb"_s : u"ueec"_s;
        for (int other = 1; other <= 5; ++other)
            app->state.SectionScore[other] = 7;
        QSignalSpy shown(&app->nav, &Navigator::screenShown);
        app->openTestSection(kind, code, u"01"_s);
        QCOMPARE(app->text(u"lblExid"_s), u"TEST 1"_s);
        QVERIFY(app->state.SectionVisited[section]);
        enter(answers);
        app->sound.events.clear();
        app->click(u"Quit"_s);
        QVERIFY(app->sound.events.isEmpty());
        for (const auto &args : shown)
            QVERIFY(args.at(0).toString() != u"uecheck");
        for (int other = 1; other <= 5; ++other)
            QCOMPARE(int(app->state.SectionScore[other]), other == section ? score : 7);

        // Back in the section: the answers are there.
        app->openTestSection(kind, code, u"01"_s);
        for (auto it = answers.cbegin(); it != answers.cend(); ++it)
            QCOMPARE(app->text(it.key()), it.value());
        app->click(u"Quit"_s);

        // Once the test is scored: the score and the marks show, and nothing is saved or scored any more.
        app->state.TestScored = true;
        app->openTestSection(kind, code, u"01"_s);
        QTEST(app->text(u"lblScore"_s), "scoreLine");
        QTEST(marksShown(*app), "marks");
        for (auto it = scoredShows.cbegin(); it != scoredShows.cend(); ++it)
            QCOMPARE(app->text(it.key()), it.value());
        const auto saved = app->state.SavedAnswer[kind];
        enter({{answers.firstKey(), kind == 6 ? wrong(1) : u"zzz"_s}});
        app->click(u"Quit"_s);
        for (int n = 1; n <= 15; ++n)
            QCOMPARE(app->state.SavedAnswer[kind][n], saved[n]);
        QCOMPARE(int(app->state.SectionScore[section]), score);
    }

    void openClozeLoads()
    {
        app->openPractice(u"lbluecb"_s, 1, 1);
        QCOMPARE(app->topCode(), u"uecb"_s);
        QCOMPARE(app->text(u"lblInstruction"_s), u"Complete the passage by writing ONE word\nin each box."_s);
        QCOMPARE(app->text(u"lblHead3"_s), u"OPEN CLOZE"_s);
        for (int n = 1; n <= 15; ++n) {
            QCOMPARE(shows(*app, u"Text%1"_s.arg(n)), n <= 12);
            QCOMPARE(app->text(u"Text%1"_s.arg(n)), QString());
            QVERIFY(!shows(*app, u"Correct%1"_s.arg(n)));
        }
        QVERIFY(!shows(*app, u"lblNote"_s) && !shows(*app, u"lblScore"_s));
        QVERIFY(shows(*app, u"Printing"_s));
        QCOMPARE(nextTabStop(app->control(u"Text1"_s)), app->control(u"Text2"_s));
        app->click(u"Help"_s);
        QCOMPARE(app->state.HelpTopic, u"helpuecb"_s);
    }

    void errorCorrectionLoads()
    {
        app->openPractice(u"lblueec"_s, 1, 1);
        QCOMPARE(app->topCode(), u"ueec"_s);
        QCOMPARE(app->text(u"lblInstruction"_s),
                 u"If you think the line contains an extra word, type it in the box on the left."_s);
        QCOMPARE(app->text(u"lblInstruction2"_s), u"If you think the line is correct, click on the box on the right."_s);
        QCOMPARE(app->text(u"lbl1"_s), u"1. Dear Sam, I am sorry I have not written"_s);
        QCOMPARE(app->text(u"lbl3"_s), QString());
        QCOMPARE(app->text(u"lbl4"_s), u"4. Our house is much more bigger than before."_s);
        QCOMPARE(app->text(u"lbl15"_s), u"15. Line 15 of the letter."_s);
        QVERIFY(!shows(*app, u"Printing"_s));
        QVERIFY(!app->get<QCheckBox>(u"Check1"_s)->isChecked());
        QCOMPARE(nextTabStop(app->control(u"Text1"_s)), app->control(u"Check1"_s));
        QCOMPARE(nextTabStop(app->control(u"Check1"_s)), app->control(u"Text2"_s));
        app->click(u"Help"_s);
        QCOMPARE(app->state.HelpTopic, u"helpueec"_s);
    }

    void errorCorrectionTicksAndCheck()
    {
        app->openPractice(u"lblueec"_s, 1, 1);
        app->type(u"Text1"_s, u"since"_s);
        app->click(u"Check1"_s); // ticking clears and disables the box; unticking enables it
        auto *box = app->get<QLineEdit>(u"Text1"_s);
        QVERIFY(box->text().isEmpty() && !box->isEnabled());
        app->click(u"Check1"_s);
        QVERIFY(box->isEnabled());
        enter({{u"Text2"_s, u"HAVE"_s}, {u"Text4"_s, u"more"_s}});
        app->click(u"Check"_s);
        QCOMPARE(app->text(u"lblScore"_s), u"15 out of 15"_s);
        app->click(u"back"_s);
        QCOMPARE(app->text(u"Correct2"_s), u"have"_s);
        QCOMPARE(app->text(u"Correct1"_s), QString());
    }
};

QTEST_MAIN(TestGapScreens)
#include "tst_gapscreens.moc"
