// Word formation and sentence conversion on their screens, offscreen: the menus, one item at a
// time with the check window, the end-of-exercise score and the reviews.

#include "gapfixtures.h"

#include <QLineEdit>

using namespace sd;
using namespace sd::test;
using namespace Qt::StringLiterals;

namespace {

/// A word-formation exercise of n sentences, every one answered "happiness", so that the random
/// order does not matter to the test.
QList<QStringList> sentences(const QString &key, int n)
{
    QList<QStringList> out;
    for (int i = 1; i <= n; ++i)
        out << QStringList{key, u"Sentence %1 brought us great .........."_s.arg(i), u"HAPPY"_s, u"happiness"_s};
    return out;
}

void writeWordFile(DataDir &dir, const QString &name, const QList<QStringList> &records)
{
    QByteArray bytes;
    for (const QStringList &r : records)
        bytes += encodeRecord(dataFileInfo(DataFile::Uewb).layout, r);
    dir.writeFile(name, bytes);
}

QStringList conversionItem(const QString &key, const QString &first)
{
    return {key, first, u"I"_s, u"an umbrella."_s, u"WISH"_s, u"wish I had brought"_s, u"wish I'd brought"_s,
            QString(), QString(), QString()};
}

} // namespace

class TestItemScreens : public QObject
{
    Q_OBJECT

    DataDir dir;
    std::unique_ptr<App> app;
    QList<QStringList> m_practice;

    /// The test section as the section menu opens it; sentence conversion reads its items itself,
    /// so there is no record to look for first.
    void openConversionTest()
    {
        app->state.PracticeMode = false;
        app->state.TestMode = true;
        app->state.ActivityIndex = 2;
        app->state.PaperIndex = 3;
        app->state.ExerciseKind = 8;
        app->state.LevelCode = u"01"_s;
        SelectDataFile(app->state, 8);
        app->nav.open(u"uescexam"_s);
        app->settle();
    }

    /// Answers every question of the run in hand, the first `right` of them correctly.
    void answerAll(int right, int count)
    {
        for (int k = 1; k <= count; ++k) {
            app->type(u"Text1"_s, k <= right ? u" Happiness "_s : u"happy"_s);
            app->click(u"Check"_s);
            QCOMPARE(app->topCode(), u"uesccheck"_s);
            app->click(u"continue"_s);
        }
    }

private Q_SLOTS:
    void initTestCase()
    {
        writeWordFile(dir, u"wb101"_s, sentences(u"101"_s, 7));
        writeWordFile(dir, u"wb102"_s, sentences(u"102"_s, 10));
        QList<QStringList> many = sentences(u"103"_s, 25);
        for (int i = 0; i < 25; ++i)
            many[i][1] = u"Sentence %1 .........."_s.arg(i + 1);
        writeWordFile(dir, u"wb103"_s, many);
        m_practice = {conversionItem(u"101"_s, u"One."_s), conversionItem(u"102"_s, u"Other."_s),
                      conversionItem(u"101"_s, u"Two."_s)};
        dir.writeRecords(DataFile::Uesc, m_practice);
        QStringList text{u"x01"_s, u"cooltext"_s, u"Keeping cool"_s};
        for (int n = 1; n <= 10; ++n)
            text << u"WORD%1/answer%1"_s.arg(n);
        text << QString() << QString();
        dir.writeRecords(DataFile::ExamUewb, {text});
        dir.writeRtf(u"cooltext"_s, u"The city stays (1) .......... at night."_s);
    }
    void init() { app = std::make_unique<App>(dir.path()); }
    void cleanup() { app.reset(); }

    void menusShowTheirCaptions()
    {
        app->click(u"lblPrac"_s);
        app->click(u"lbluewb"_s);
        QCOMPARE(app->topCode(), u"uewbchoice"_s);
        QCOMPARE(app->text(u"lblLevel1"_s), u"LEVEL 1"_s);
        QCOMPARE(app->text(u"lblEx10"_s), u"Exercise 10"_s);
        QCOMPARE(app->text(u"lblQuit"_s), u"Close"_s);
        app->click(u"Quit"_s);
        QCOMPARE(app->topCode(), u"Practype"_s);
    }

    void sevenSentencesAskSeven()
    {
        app->openPractice(u"lbluewb"_s, 1, 1);
        QCOMPARE(app->topCode(), u"uewb"_s);
        QCOMPARE(app->text(u"lblExid"_s), u"LEVEL 1   Exercise 1"_s);
        QCOMPARE(app->text(u"Label2"_s), u"HAPPY"_s);
        for (int k = 1; k < 7; ++k) {
            QCOMPARE(app->text(u"Label3"_s), u"Question %1 of 7"_s.arg(k));
            app->type(u"Text1"_s, u"happiness"_s);
            app->click(u"Check"_s);
            app->click(u"continue"_s);
        }
        QCOMPARE(app->text(u"Label3"_s), u"Question 7 of 7"_s);
    }

    void twentyFiveSentencesAskTenNoneTwice()
    {
        app->openPractice(u"lbluewb"_s, 1, 3);
        QSet<QString> asked;
        for (int k = 1; k <= 10; ++k) {
            QCOMPARE(app->text(u"Label3"_s), u"Question %1 of 10"_s.arg(k));
            asked.insert(app->text(u"Label1"_s));
            app->click(u"Check"_s);
            app->click(u"continue"_s);
        }
        QCOMPARE(asked.size(), 10);
        QCOMPARE(app->topCode(), u"uescscore"_s);
        QCOMPARE(app->text(u"lblScore"_s), u"Score: 0 out of 10"_s);
    }

    void rightAnswerCheckedTwiceScoresOnce()
    {
        app->openPractice(u"lbluewb"_s, 1, 1);
        app->type(u"Text1"_s, u"happiness"_s);
        app->click(u"Check"_s);
        QCOMPARE(app->text(u"Comment"_s), u"Correct"_s);
        QVERIFY(shows(*app, u"imgTick"_s) && !shows(*app, u"imgCross"_s));
        app->click(u"tryagain"_s);
        app->click(u"Check"_s);
        app->click(u"tryagain"_s);
        QVERIFY(shows(*app, u"lblScore"_s));
        QCOMPARE(app->text(u"lblScore"_s), u"Score: 1 out of 7"_s);
        app->type(u"Text1"_s, u"happily"_s);
        app->click(u"Check"_s);
        QCOMPARE(app->text(u"Comment"_s), u"Sorry, not correct"_s);
        app->click(u"seecorrect"_s);
        QVERIFY(shows(*app, u"lblCorrectanswer"_s));
        QCOMPARE(app->text(u"lblCorrectanswer"_s), u"Correct answer: happiness"_s);
        QVERIFY(!shows(*app, u"Check"_s));
        QVERIFY(shows(*app, u"continue"_s));
        app->click(u"continue"_s);
        QCOMPARE(app->text(u"Label3"_s), u"Question 2 of 7"_s);
        QVERIFY(shows(*app, u"Check"_s));
    }

    void endScreenVerdict_data()
    {
        QTest::addColumn<int>("right");
        QTest::addColumn<QString>("verdict");
        QTest::addColumn<QString>("sound");
        QTest::newRow("T = 10") << 10 << u"Well done!"_s << u"fanfare1.wav"_s;
        QTest::newRow("T = 7") << 7 << u"OK - a pass"_s << u"chimes.wav"_s;
        QTest::newRow("T = 5") << 5 << u"Borderline - keep trying"_s << u"chimes.wav"_s;
        QTest::newRow("T = 4") << 4 << u"Sorry, only some answers correct"_s << u"chord.wav"_s;
        QTest::newRow("T = 1") << 1 << u"What happened?"_s << u"ohdear.wav"_s;
    }
    void endScreenVerdict()
    {
        QFETCH(int, right);
        app->openPractice(u"lbluewb"_s, 1, 2);
        answerAll(right, 10);
        QCOMPARE(app->topCode(), u"uescscore"_s);
        QCOMPARE(app->text(u"lblScore"_s), u"Score: %1 out of 10"_s.arg(right));
        QTEST(app->text(u"Comment"_s), "verdict");
        QTEST(soundsPlayed(*app).constLast(), "sound");
        QCOMPARE(app->text(u"lblReview"_s), u"Review answers"_s);
        app->click(u"Quit"_s);
        QCOMPARE(app->topCode(), u"uewbchoice"_s);
    }

    void reviewStepsThroughTheAnswers()
    {
        app->openPractice(u"lbluewb"_s, 1, 1);
        answerAll(3, 7);
        app->click(u"review"_s);
        QCOMPARE(app->topCode(), u"uewbreview"_s);
        QCOMPARE(app->text(u"lblQnumber"_s), u"Question 1 of 7"_s);
        QCOMPARE(app->get<QLineEdit>(u"Text1"_s)->text(), u"Happiness"_s);
        QCOMPARE(app->text(u"lblAnswer"_s), u"Correct answer: happiness"_s);
        QCOMPARE(app->text(u"lblScore"_s), u"Score: 3 / 7"_s);
        const qsizetype before = app->sound.events.size();
        app->click(u"lblPrevious"_s);
        QCOMPARE(soundsPlayed(*app).mid(before), QStringList{u"start.wav"_s});
        for (int p = 2; p <= 7; ++p)
            app->click(u"lblNext"_s);
        QCOMPARE(app->text(u"lblQnumber"_s), u"Question 7 of 7"_s);
        QCOMPARE(app->get<QLineEdit>(u"Text1"_s)->text(), u"happy"_s);
        app->click(u"lblPrevious"_s);
        QCOMPARE(soundsPlayed(*app).constLast(), u"oopshort.wav"_s);
        QCOMPARE(app->text(u"lblQnumber"_s), u"Question 6 of 7"_s);
        app->click(u"Quit"_s);
        QCOMPARE(app->topCode(), u"uewbchoice"_s);
    }

    void sentenceConversionOneItemAtATime()
    {
        app->openPractice(u"lbluesc"_s, 1, 1);
        QCOMPARE(app->topCode(), u"uesc"_s);
        QVERIFY(app->text(u"lblInstruction"_s).startsWith(u"Complete the second sentence so that it means the same as the first,\nusing"_s));
        QCOMPARE(app->text(u"Label2"_s), u"I.......................an umbrella.    (WISH)"_s);
        QCOMPARE(app->get<QLabel>(u"Label1"_s)->textFormat(), Qt::PlainText); // data is never markup
        QCOMPARE(app->text(u"lblQuestionnumber"_s), u"1 of 2"_s);
        app->type(u"Text1"_s, u"Wish I'd brought"_s);
        app->click(u"Check"_s);
        QCOMPARE(app->text(u"Comment"_s), u"Correct"_s);
        app->click(u"continue"_s);
        app->type(u"Text1"_s, u"wish I brought"_s);
        app->click(u"Check"_s);
        QCOMPARE(app->text(u"Comment"_s), u"Sorry, not correct"_s);
        app->click(u"continue"_s);
        QCOMPARE(app->topCode(), u"uescscore"_s);
        QCOMPARE(app->text(u"lblScore"_s), u"Score: 1 out of 2"_s);
        app->click(u"review"_s);
        QCOMPARE(app->topCode(), u"uescreview"_s);
        QCOMPARE(app->text(u"lblAnswer"_s), u"Correct answers: wish I had brought / wish I'd brought"_s);
        QVERIFY(!shows(*app, u"Clean"_s) && !shows(*app, u"Dirty"_s));
    }

    void unknownExerciseIsNotFound()
    {
        app->openPractice(u"lbluesc"_s, 3, 10);
        QCOMPARE(app->topCode(), u"Error"_s);
        QCOMPARE(app->text(u"Label1"_s), u"Not found"_s);
        QCOMPARE(app->sound.events, QStringList{u"beep"_s});
    }

    void wordFormationTestText()
    {
        app->openTestSection(10, u"uewbx"_s, u"01"_s);
        QCOMPARE(app->text(u"lblExid"_s), u"TEST 1"_s);
        QCOMPARE(app->text(u"lblInstruction"_s), u"Use the word given to form a word which will complete the text."_s);
        QCOMPARE(app->text(u"Label3"_s), u"3. WORD3"_s);
        QVERIFY(!shows(*app, u"Check"_s) && !shows(*app, u"Text11"_s) && !shows(*app, u"Text15"_s));
        for (int n = 1; n <= 10; ++n)
            app->type(u"Text%1"_s.arg(n), n == 4 ? u"wrong"_s : u" ANSWER%1 "_s.arg(n));
        app->click(u"Quit"_s);
        QCOMPARE(int(app->state.SectionScore[5]), 9);

        app->state.TestScored = true;
        app->openTestSection(10, u"uewbx"_s, u"01"_s);
        QCOMPARE(app->text(u"lblScore"_s), u"Score: 9 out of 10"_s);
        QVERIFY(shows(*app, u"Text14"_s));
        QCOMPARE(app->text(u"Text14"_s), u"answer4"_s);
        QCOMPARE(marksShown(*app), QList<int>{4});
    }

    void sentenceConversionTestSection()
    {
        QList<QStringList> test = m_practice;
        for (int n = 1; n <= 10; ++n)
            test << conversionItem(u"x01"_s, u"Test item %1."_s.arg(n));
        dir.writeRecords(DataFile::Uesc, test);
        openConversionTest();
        QCOMPARE(app->topCode(), u"uescexam"_s);
        QCOMPARE(app->text(u"lblExid"_s), u"TEST 1"_s);
        QCOMPARE(app->text(u"lblFirst10"_s), u"10. Test item 10."_s);
        QVERIFY(!shows(*app, u"Check"_s) && !shows(*app, u"Help"_s) && shows(*app, u"imgTime"_s));
        for (int n = 1; n <= 10; ++n)
            app->type(u"Text%1"_s.arg(n), n <= 7 ? u" Wish I'd brought "_s : u"wish I brought"_s);
        app->sound.events.clear();
        app->click(u"Quit"_s);
        QVERIFY(app->sound.events.isEmpty());
        QCOMPARE(int(app->state.SectionScore[3]), 7);
        QVERIFY(app->state.SectionDone[3]);

        openConversionTest(); // the answers are kept
        QCOMPARE(app->text(u"Text8"_s), u"wish I brought"_s);
        app->click(u"Quit"_s);

        app->state.TestScored = true;
        openConversionTest();
        QCOMPARE(app->topCode(), u"uescexamcheck"_s);
        QCOMPARE(app->text(u"lblScore"_s), u"Score: 7 out of 10"_s);
        QVERIFY(app->sound.events.isEmpty());
        app->click(u"seecorrect"_s);
        QCOMPARE(app->topCode(), u"uescexam"_s);
        QVERIFY(shows(*app, u"lblKey8"_s));
        QCOMPARE(app->text(u"lblKey8"_s), u"wish I had brought"_s);
        app->nav.openModal(u"uescfinalscore"_s);
        QCOMPARE(app->text(u"lblScore"_s), u"7 out of 10"_s);
        dir.writeRecords(DataFile::Uesc, m_practice);
    }

    void levelLeftFromATestBecomesOne()
    {
        app->state.LevelCode = u"03"_s;
        app->click(u"lblPrac"_s);
        app->click(u"lbluesc"_s);
        QCOMPARE(app->state.LevelCode, u"1"_s);
    }
};

QTEST_MAIN(TestItemScreens)
#include "tst_itemscreens.moc"
