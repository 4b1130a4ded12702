// The open cloze and error correction screens with the shared check screen, driven offscreen.

#include "gapfixtures.h"

#include <QCheckBox>
#include <QLineEdit>

using namespace sd;
using namespace sd::test;
using namespace Qt::StringLiterals;

namespace {

const QStringList openItems{u"on///"_s,  u"rather/sooner//"_s, u"who/that//"_s, u"like///"_s,
                            u"so///"_s,  u"that/this//"_s,     u"for///"_s,    u"up///"_s,
                            u"not///"_s, u"its///"_s,          u"as///"_s,     u"into///"_s};
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

class TestUecbUeec : public QObject
{
    Q_OBJECT

    DataDir dir;
    std::unique_ptr<App> app;

    void typeAll(const QStringList &answers)
    {
        for (int n = 1; n <= answers.size(); ++n)
            app->type(u"Text%1"_s.arg(n), answers.at(n - 1));
    }

private Q_SLOTS:
    void initTestCase()
    {
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

    void openClozeLoads()
    {
        app->openPractice(u"lbluecb"_s, 1, 1);
        QCOMPARE(app->topCode(), u"uecb"_s);
        QCOMPARE(app->text(u"lblInstruction"_s), u"Complete the passage by writing ONE word\rin each box."_s);
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

    void openClozeAcceptsAlternatives()
    {
        app->openPractice(u"lbluecb"_s, 1, 1);
        typeAll(openAnswers);
        app->click(u"Check"_s);
        QCOMPARE(app->text(u"lblScore"_s), u"12 out of 12"_s);
        QCOMPARE(app->text(u"Label4"_s), u"Well done!"_s);
        app->click(u"back"_s);
        QCOMPARE(app->text(u"lblScore"_s), u"Score: 12 out of 12"_s);
        QCOMPARE(app->text(u"lblNote"_s), u" One correct answer is given. There may be alternatives. "_s);
        QVERIFY(shows(*app, u"lblNote"_s) && shows(*app, u"Correct12"_s) && !shows(*app, u"Correct13"_s));
        QCOMPARE(app->text(u"Correct1"_s), u"on"_s);
        QCOMPARE(app->text(u"Correct2"_s), u"sooner"_s); // the accepted answer that matched
        QCOMPARE(app->text(u"Correct3"_s), u"that"_s);
    }

    void openClozeTestCountsOutOfFifteen()
    {
        app->state.SectionScore[1] = 7;
        openTestSection(*app, 7, u"uecb"_s);
        QVERIFY(app->state.SectionVisited[2]);
        QStringList answers = openAnswers;
        answers[5] = u"these"_s;
        typeAll(answers);
        app->click(u"Quit"_s);
        QCOMPARE(int(app->state.SectionScore[2]), 11);
        QCOMPARE(int(app->state.SectionScore[1]), 7); // the multiple-choice section keeps its own
        app->state.TestScored = true;
        openTestSection(*app, 7, u"uecb"_s);
        QCOMPARE(app->text(u"Text6"_s), u"these"_s);
        QCOMPARE(app->text(u"lblScore"_s), u"Score: 11 out of 15"_s);
        QCOMPARE(marksShown(*app), QList<int>{6});
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
        app->type(u"Text2"_s, u"HAVE"_s);
        app->type(u"Text4"_s, u"more"_s);
        app->click(u"Check"_s);
        QCOMPARE(app->text(u"lblScore"_s), u"15 out of 15"_s);
        app->click(u"back"_s);
        QCOMPARE(app->text(u"Correct2"_s), u"have"_s);
        QCOMPARE(app->text(u"Correct1"_s), QString());
    }

    void errorCorrectionLoadFailures()
    {
        app->openPractice(u"lblueec"_s, 1, 2);
        QCOMPARE(app->topCode(), u"Error"_s);
        QCOMPARE(app->text(u"Label1"_s), u"No file name"_s);
        QVERIFY(app->sound.events.contains(u"beep"_s));
        app->click(u"Continue"_s);
        QCOMPARE(app->topCode(), u"ueec"_s);
        app->click(u"Quit"_s);
        app->click(u"lblEx3"_s); // a text of 21 lines
        QCOMPARE(app->text(u"lblExid"_s), u"ERROR"_s);
        QCOMPARE(app->text(u"lblInstruction"_s), u"NO TEXT"_s);
    }

    void errorCorrectionTest()
    {
        openTestSection(*app, 9, u"ueec"_s);
        app->type(u"Text2"_s, u"have"_s);
        app->click(u"Quit"_s);
        QCOMPARE(int(app->state.SectionScore[4]), 14);
        app->state.TestScored = true;
        openTestSection(*app, 9, u"ueec"_s);
        QCOMPARE(app->text(u"lblScore"_s), u"Score: 14 out of 15"_s);
        QCOMPARE(marksShown(*app), QList<int>{4});
    }
};

QTEST_MAIN(TestUecbUeec)
#include "tst_uecb_ueec.moc"
