// The four Reading exercise screens and their score windows, driven as a student would.

#include "frame/core/printerdevice.h"
#include "frame/core/settings.h"
#include "frame/core/verdicts.h"
#include "reading/core/readingscore.h"
#include "readingdata.h"
#include "ui/imagebutton.h"
#include "ui/pictures.h"

#include <QLineEdit>
#include <QSettings>
#include <QTextCursor>
#include <QTextEdit>
#include <QTest>

using namespace sd;
using namespace Qt::StringLiterals;

namespace {
// Instruction lines are shown one under another.
const QString cr = u"\n"_s;
const QString mcNumbers = u"Label1 Label2 Label3 Label5 Answerlbl5 Answerlbl6 Answerlbl7"_s;

void typeAll(test::App &app, const QStringList &typed)
{
    for (int i = 1; i <= typed.size(); ++i)
        app.type(u"Text%1"_s.arg(i), typed.at(i - 1));
}

} // namespace

class TestReadingScreens : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        dir = std::make_unique<test::DataDir>();
        test::writeReadingExercises(*dir);
        app = std::make_unique<test::App>(dir->path());
    }

    void cleanup()
    {
        app.reset();
        dir.reset();
    }

    void opens_data()
    {
        QTest::addColumn<int>("kind");
        QTest::addColumn<int>("level");
        QTest::addColumn<int>("exercise");
        QTest::addColumn<int>("shown");
        QTest::addColumn<QString>("heading");
        QTest::addColumn<QString>("instruction");
        const QString mc = u"Choose the best answer for each question."_s;
        const QString re = u"Some sections of the following text have been removed. "_s + cr
                           + u"Indicate the correct position of each section "_s + cr
                           + u"by writing the appropriate letter in the box."_s;
        const QString he = u"Choose the most suitable heading from the list for each numbered paragraph of the text. "_s
                           + cr + u"Write the letter of the heading in the box with the paragraph's number."_s;
        QTest::newRow("mc: 4 questions hide 5 to 7") << 2 << 1 << 1 << 4 << u"MULTIPLE CHOICE"_s << mc;
        QTest::newRow("mc: 6 questions") << 2 << 2 << 7 << 6 << u"MULTIPLE CHOICE"_s << mc;
        QTest::newRow("mc: 7 questions") << 2 << 3 << 1 << 7 << u"MULTIPLE CHOICE"_s << mc;
        QTest::newRow("re: 5 gaps and an extra section")
            << 3 << 1 << 1 << 5 << u"TEXT RECONSTRUCTION"_s
            << re + cr + u"There is one extra section which you do not need."_s;
        QTest::newRow("re: 6 gaps") << 3 << 1 << 2 << 6 << u"TEXT RECONSTRUCTION"_s << re;
        QTest::newRow("he: 6 paragraphs and an extra heading")
            << 1 << 1 << 1 << 6 << u"HEADINGS"_s << he + cr + u"There is one extra heading which you do not need."_s;
        QTest::newRow("he: 8 paragraphs") << 1 << 1 << 2 << 8 << u"HEADINGS"_s << he;
        QTest::newRow("ma: 4 items, one of two letters")
            << 4 << 1 << 1 << 4 << u"MATCHING"_s
            << u"For each question, choose from the texts and write the letter of the text in the box."_s + cr
                   + u"Where a question asks for two or three, write all their letters in its box (for example AD)."_s;
    }
    void opens()
    {
        QFETCH(int, kind);
        QFETCH(int, level);
        QFETCH(int, exercise);
        QFETCH(int, shown);
        QFETCH(QString, instruction);
        app->state.ExtraSection = true; // left from an earlier exercise
        app->openPractice(test::readingKindLabel(kind), level, exercise);
        QCOMPARE(app->topCode(), readingScreenCode(kind));
        QCOMPARE(app->text(u"lblHead1"_s), u"PRACTICE EXERCISES"_s);
        QCOMPARE(app->text(u"lblHead2"_s), u"READING"_s);
        QTEST(app->text(u"lblHead3"_s), "heading");
        QCOMPARE(app->text(u"lblExid"_s), u"LEVEL %1   Exercise %2"_s.arg(level).arg(exercise));
        QCOMPARE(app->text(u"lblInstruction"_s), instruction);
        if (kind == 1 || kind == 3)
            QCOMPARE(app->state.ExtraSection, instruction.contains(u"extra"_s));
        QVERIFY(!app->control(u"lblScore"_s)->isVisible() && !app->control(u"lblAnswer1"_s)->isVisible());
        QVERIFY(app->control(u"Check"_s)->isVisible());
        QVERIFY(app->state.Clock.isRunning());
        const int boxes = kind == 1 ? 8 : kind == 4 ? 13 : 7;
        for (int i = 1; i <= boxes; ++i) {
            const QString number = kind == 2 || kind == 3 ? mcNumbers.split(u' ').at(i - 1) : u"Answerlbl%1"_s.arg(i);
            QCOMPARE(app->control(u"Text%1"_s.arg(i))->isVisible(), i <= shown);
            QCOMPARE(app->control(number)->isVisible(), i <= shown);
            QCOMPARE(app->text(number), QString::number(i));
        }
        if (kind == 4) {
            QCOMPARE(app->text(u"lblTitle"_s), u"Which person ...?"_s);
            QCOMPARE(app->text(u"lblItem3"_s), u"(two people) mention a family member"_s);
            QVERIFY(!app->control(u"lblItem5"_s)->isVisible());
        }
        app->click(u"Help"_s);
        QCOMPARE(app->topCode(), u"Helpform"_s);
        QCOMPARE(app->state.HelpTopic, u"help"_s + readingScreenCode(kind));
        QCOMPARE(int(app->state.HelpCaller), kind);
    }

    void checkAndSeeCorrectAnswers_data()
    {
        QTest::addColumn<int>("kind");
        QTest::addColumn<int>("exercise");
        QTest::addColumn<QStringList>("typed");
        QTest::addColumn<QString>("score");
        QTest::addColumn<QString>("comment");
        QTest::addColumn<int>("picture");
        QTest::addColumn<QString>("sound");
        QTest::addColumn<QString>("right"); // per question: Y shown in the window-text colour, N in red
        // The typical run, a perfect score and one run of each other kind go end to end through the program.
        QTest::newRow("he good pass: its own picture, the sound of a pass")
            << 1 << 2 << QStringList{u"A"_s, u"B"_s, u"C"_s, u"D"_s, u"E"_s, u"F"_s} << u"6 out of 8"_s
            << u"A good pass"_s << 3 << u"chimes.wav"_s << u"YYYYYYNN"_s;
        QTest::newRow("mc blanks around letters count") << 2 << 7 << QStringList{u"b "_s, u" B"_s, u"A."_s, u"A"_s, u"C"_s}
                                                        << u"4 out of 6"_s << u"OK - a pass"_s << 4 << u"chimes.wav"_s
                                                        << u"YYNYYN"_s;
        QTest::newRow("mc nothing typed") << 2 << 7 << QStringList{} << u"0 out of 6"_s << u"What happened?"_s << 7
                                          << u"ohdear.wav"_s << u"NNNNNN"_s;
        QTest::newRow("ma counts each letter") << 4 << 1 << QStringList{u"b"_s, u"A"_s, u"da"_s, u"D"_s}
                                               << u"4 out of 5"_s << u"A near miss - only one wrong"_s << 2
                                               << u"happychime.wav"_s << u"YYYN"_s;
    }
    void checkAndSeeCorrectAnswers()
    {
        QFETCH(int, kind);
        QFETCH(int, exercise);
        QFETCH(QStringList, typed);
        QFETCH(QString, score);
        QFETCH(int, picture);
        QFETCH(QString, sound);
        QFETCH(QString, right);
        app->openPractice(test::readingKindLabel(kind), exercise == 7 ? 2 : 1, exercise);
        typeAll(*app, typed);
        app->click(u"Check"_s);
        QCOMPARE(app->topCode(), readingCheckScreenCode(kind));
        QCOMPARE(app->text(u"lblHead"_s), u"Score"_s);
        QCOMPARE(app->text(u"lblScore"_s), score);
        QTEST(app->text(u"Label4"_s), "comment");
        QCOMPARE(app->sound.events, QStringList{dir->path() + sound});
        QLabel *smileys = app->get<QLabel>(u"smileys"_s);
        QCOMPARE(smileys->pixmap().toImage(),
                 ui::picture(verdictPicture(picture), smileys->size() * smileys->devicePixelRatioF()).toImage());
        const bool perfect = !right.contains(u'N');
        QCOMPARE(app->control(u"tryagain"_s)->isVisible(), !perfect);
        QCOMPARE(app->control(u"lblAgain"_s)->isVisible(), !perfect);
        QCOMPARE(app->text(u"lblSeecorrect"_s), u"See correct answers"_s);
        QCOMPARE(app->text(u"lblBack"_s), u"Close"_s);

        app->click(u"seecorrect"_s);
        QCOMPARE(app->topCode(), readingScreenCode(kind));
        QVERIFY(app->state.SeeCorrectAnswers);
        QCOMPARE(app->text(u"lblScore"_s), u"Score: "_s + score);
        for (int i = 1; i <= right.size(); ++i) {
            QLabel *key = app->get<QLabel>(u"lblAnswer%1"_s.arg(i));
            QVERIFY(key->isVisible());
            QCOMPARE(key->text(), app->state.ReadingKeys[i]);
            QCOMPARE(key->palette().color(QPalette::WindowText),
                     right.at(i - 1) == u'Y' ? QGuiApplication::palette().color(QPalette::WindowText) : ui::wrongAnswerColour());
            // Right and wrong are marked, not only coloured.
            QLabel *mark = app->get<QLabel>(u"imgMark%1"_s.arg(i));
            QVERIFY(mark->isVisible());
            QCOMPARE(mark->property("picture").toString(), right.at(i - 1) == u'Y' ? u"tick"_s : u"cross"_s);
            QVERIFY(app->get<QLineEdit>(u"Text%1"_s.arg(i))->isReadOnly());
            QCOMPARE(app->state.ReadingResults.at(kind, i), right.at(i - 1) == u'Y');
        }
        if (auto *next = app->top()->findChild<QWidget *>(u"lblAnswer%1"_s.arg(right.size() + 1)))
            QVERIFY(!next->isVisible());
        QCOMPARE(int(app->state.LastExerciseScore), score.section(u' ', 0, 0).toInt());
        // With the answers in view, checking again can mean nothing.
        QVERIFY(!app->control(u"Check"_s)->isVisible());
    }

    void keysWorkWithoutAPointer()
    {
        app->openPractice(test::readingKindLabel(2), 1, 1);
        auto *passage = app->get<QTextEdit>(u"RichTextBox1"_s);
        const auto size = [passage] {
            QTextCursor c(passage->document());
            c.movePosition(QTextCursor::NextCharacter);
            return c.charFormat().fontPointSize();
        };
        const qreal before = size();
        // The reading text grows from the passage itself, and a second Ctrl+0 brings it back.
        QTest::keyClick(passage, Qt::Key_Plus, Qt::ControlModifier);
        QTest::keyClick(passage, Qt::Key_Plus, Qt::ControlModifier);
        QCOMPARE(app->state.TextStep, 2);
        QVERIFY(qAbs(size() - before * 1.2) < 0.01);
        QTest::keyClick(passage, Qt::Key_0, Qt::ControlModifier);
        QVERIFY(qAbs(size() - before) < 0.01);
        // Escape does nothing on an exercise; F1 opens its help and Escape closes it again.
        QTest::keyClick(app->control(u"Text1"_s), Qt::Key_Escape);
        QCOMPARE(app->topCode(), u"rcmc"_s);
        QTest::keyClick(app->control(u"Text1"_s), Qt::Key_F1);
        QCOMPARE(app->topCode(), u"Helpform"_s);
        QTest::keyClick(app->top(), Qt::Key_Escape);
        app->settle();
        QCOMPARE(app->topCode(), u"rcmc"_s);
        // Ctrl+P prints the passage and its questions.
        QTest::keyClick(app->control(u"Text1"_s), Qt::Key_P, Qt::ControlModifier);
        QCOMPARE(static_cast<RecordingPrinter *>(app->state.Printer.get())->jobs.size(), 1);
        QSettings(StudentSettings::storeOrganisation(), StudentSettings::storeApplication()).clear();
    }

    void tryAgainKeepsTheAnswers()
    {
        app->openPractice(u"lblrcmc"_s, 2, 7);
        typeAll(*app, {u"b"_s, u"B"_s, u"a"_s, u"A"_s, u"c"_s, u"D"_s});
        app->click(u"Check"_s);
        app->click(u"tryagain"_s);
        QCOMPARE(app->topCode(), u"rcmc"_s);
        QCOMPARE(app->text(u"Text6"_s), u"D"_s);
        QVERIFY(!app->get<QLineEdit>(u"Text6"_s)->isReadOnly() && !app->control(u"lblAnswer6"_s)->isVisible());
        app->type(u"Text6"_s, u"b"_s);
        app->click(u"Check"_s);
        QCOMPARE(app->text(u"lblScore"_s), u"6 out of 6"_s);
    }

    void loadFailureLeavesTheScreenOpen_data()
    {
        QTest::addColumn<int>("kind");
        QTest::addColumn<int>("exercise");
        // A missing multiple-choice passage runs end to end.
        QTest::newRow("mc: no questions") << 2 << 3;
        QTest::newRow("mc: no key") << 2 << 4;
        QTest::newRow("re: no passage") << 3 << 3;
        QTest::newRow("he: no passage") << 1 << 3;
        QTest::newRow("ma: no passage") << 4 << 3;
        QTest::newRow("ma: four-letter key") << 4 << 4;
    }
    void loadFailureLeavesTheScreenOpen()
    {
        QFETCH(int, kind);
        QFETCH(int, exercise);
        app->openPractice(test::readingKindLabel(kind), 1, exercise);
        QCOMPARE(app->topCode(), readingScreenCode(kind));
        QCOMPARE(app->text(u"lblExid"_s), u"ERROR"_s);
        QCOMPARE(app->text(u"lblInstruction"_s), u"NO TEXT"_s);
        app->click(u"Check"_s);
        QCOMPARE(app->topCode(), readingScreenCode(kind)); // nothing to score, no window
        QVERIFY(app->sound.events.isEmpty());
        app->click(u"Quit"_s);
        QCOMPARE(app->topCode(), u"Pracchoice"_s);
    }

    void passageAsWebPage_data()
    {
        QTest::addColumn<int>("level");
        QTest::addColumn<int>("exercise");
        QTest::addColumn<bool>("web");
        QTest::newRow("page present") << 2 << 7 << true;
        QTest::newRow("no page: the rich text stays") << 1 << 1 << false;
    }
    void passageAsWebPage()
    {
        QFETCH(int, level);
        QFETCH(int, exercise);
        QFETCH(bool, web);
        app->state.ShowWebPages = true;
        app->openPractice(u"lblrcmc"_s, level, exercise);
        QCOMPARE(app->control(u"WebBrowser1"_s)->isVisible(), web);
        QCOMPARE(app->control(u"RichTextBox1"_s)->isVisible(), !web);
        QCOMPARE(app->text(u"WebBrowser1"_s).contains(u"Cooking as a web page."_s), web);
    }

    void printsTextAndQuestions_data()
    {
        QTest::addColumn<int>("kind");
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("questions");
        QTest::newRow("multiple choice") << 2 << u"mc4 text"_s << u"mcq text"_s;
        QTest::newRow("matching: stem and items") << 4 << u"Priya"_s
                                                  << u"Which person ...?\n1  started after a teacher suggested it"_s;
    }
    void printsTextAndQuestions()
    {
        QFETCH(int, kind);
        QFETCH(QString, text);
        QFETCH(QString, questions);
        app->openPractice(test::readingKindLabel(kind), 1, 1);
        app->click(u"Printing"_s);
        const auto &jobs = static_cast<RecordingPrinter *>(app->state.Printer.get())->jobs;
        QCOMPARE(jobs.size(), 1);
        QCOMPARE(jobs.at(0).documents.size(), 2);
        QVERIFY(jobs.at(0).documents.at(0).contains(text));
        QVERIFY(jobs.at(0).documents.at(1).contains(questions));
    }

    void testSection_data()
    {
        QTest::addColumn<int>("kind");
        QTest::addColumn<QStringList>("typed");
        QTest::addColumn<int>("score");
        QTest::addColumn<int>("total");
        QTest::newRow("headings") << 1 << QStringList{u"B"_s, u"D"_s, u"x"_s} << 2 << 6;
        QTest::newRow("multiple choice") << 2 << QStringList{u"b"_s, u"B"_s, u"a"_s, u"A"_s, u"c"_s, u"D"_s} << 5 << 6;
        QTest::newRow("reconstruction") << 3 << QStringList{u"C"_s} << 1 << 5;
        QTest::newRow("matching") << 4 << QStringList{u"B"_s, u"A"_s, u"A"_s} << 3 << 5;
    }
    void testSection()
    {
        QFETCH(int, kind);
        QFETCH(QStringList, typed);
        QFETCH(int, score);
        QFETCH(int, total);
        app->openTestSection(kind, readingScreenCode(kind), u"03"_s);
        QCOMPARE(app->text(u"lblExid"_s), u"TEST 3"_s);
        QCOMPARE(app->text(u"lblHead1"_s), u"TEST PAPERS"_s);
        for (const QString &hidden : {u"Help"_s, u"lblHelp"_s, u"Check"_s, u"lblCheck"_s})
            QVERIFY(!app->control(hidden)->isVisible());
        QVERIFY(app->control(u"imgTime"_s)->isVisible());
        // The score window, opened in a test before any check, offers only "Close" and stays silent.
        app->nav.openModal(readingCheckScreenCode(kind));
        app->settle();
        QCOMPARE(app->text(u"lblScore"_s), u"0 out of %1"_s.arg(total));
        for (const QString &hidden : {u"tryagain"_s, u"lblAgain"_s, u"seecorrect"_s, u"lblSeecorrect"_s})
            QVERIFY(!app->control(hidden)->isVisible());
        app->click(u"back"_s);
        typeAll(*app, typed);
        app->click(u"Quit"_s);
        QCOMPARE(app->topCode(), u"Intro"_s); // no score window
        QVERIFY(app->sound.events.isEmpty());
        QCOMPARE(int(app->state.SectionScore[kind]), score);
        QCOMPARE(int(app->state.SectionQuestions[kind]), total);
        QVERIFY(app->state.SectionDone[kind] && app->state.SectionVisited[kind]);

        // Back in the section: its own answers are there, and no other section's store was touched.
        app->openTestSection(kind, readingScreenCode(kind), u"03"_s);
        for (int i = 1; i <= typed.size(); ++i)
            QCOMPARE(app->text(u"Text%1"_s.arg(i)), typed.at(i - 1));
        for (int other = 1; other <= 4; ++other)
            QCOMPARE(app->state.SavedAnswer[other][1].isEmpty(), other != kind);
        app->click(u"Quit"_s);

        // After the final score the section shows its answers and its stored score, and keeps them.
        app->state.TestScored = true;
        app->state.ShowSectionAnswers = true;
        app->openTestSection(kind, readingScreenCode(kind), u"03"_s);
        QVERIFY(app->control(u"lblAnswer1"_s)->isVisible() && app->get<QLineEdit>(u"Text1"_s)->isReadOnly());
        QCOMPARE(app->get<QLabel>(u"lblAnswer1"_s)->palette().color(QPalette::WindowText),
                 QGuiApplication::palette().color(QPalette::WindowText));
        QCOMPARE(app->text(u"lblScore"_s), u"Score: %1 out of %2"_s.arg(score).arg(total));
        app->get<QLineEdit>(u"Text1"_s)->setText(u"Z"_s);
        app->click(u"Quit"_s);
        QCOMPARE(int(app->state.SectionScore[kind]), score);
        QCOMPARE(app->state.SavedAnswer[kind][1], typed.at(0));
    }

private:
    std::unique_ptr<test::DataDir> dir;
    std::unique_ptr<test::App> app;
};

QTEST_MAIN(TestReadingScreens)
#include "tst_readingscreens.moc"
