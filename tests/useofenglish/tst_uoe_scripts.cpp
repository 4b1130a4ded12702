// End-to-end runs of the real program: one exercise of each gap kind is checked, tried again,
// checked once more, and shown with its correct answers and wrong marks.

#include "gapfixtures.h"
#include "reading/readingdata.h"

#include <QJsonArray>

using namespace sd;
using namespace sd::test;
using namespace Qt::StringLiterals;

using Texts = QMap<QString, QString>;
Q_DECLARE_METATYPE(Texts)

class TestUoeScripts : public QObject
{
    Q_OBJECT

    DataDir dir;

private Q_SLOTS:
    void initTestCase()
    {
        test::writeReadingExercises(dir);
        dir.writeRecords(DataFile::Ueca, {gapRecord(u"101"_s, u"surf"_s, choiceItems)});
        dir.writeRtf(u"surf"_s, u"My cousin (1) me to try surfing."_s);
        dir.writeRecords(DataFile::Uecb, {gapRecord(u"101"_s, u"sign"_s, openItems.mid(0, 10))});
        dir.writeRtf(u"sign"_s, u"I was not very keen (1) the idea."_s);
        dir.writeRecords(DataFile::Ueec, {gapRecord(u"101"_s, u"letter"_s, {QString(), u"have"_s, u"more"_s})});
        QString letter;
        for (int i = 1; i <= 15; ++i)
            letter += u"Line %1 of the letter.\r\n"_s.arg(i);
        dir.writeText(u"letter.txt"_s, letter);
        // Word formation and sentence conversion: every item has the same answer, so the random
        // order does not change the run.
        QByteArray wb;
        for (int i = 1; i <= 3; ++i)
            wb += encodeRecord(dataFileInfo(DataFile::Uewb).layout,
                               {u"101"_s, u"Sentence %1 brought great .........."_s.arg(i), u"HAPPY"_s, u"happiness"_s});
        dir.writeFile(u"wb101"_s, wb);
        QList<QStringList> items;
        for (int i = 1; i <= 2; ++i)
            items << QStringList{u"101"_s, u"It's a pity I didn't bring an umbrella %1."_s.arg(i), u"I"_s, u"an umbrella."_s,
                                 u"WISH"_s, u"wish I had brought"_s, u"wish I'd brought"_s, QString(), QString(), QString()};
        dir.writeRecords(DataFile::Uesc, items);
    }

    void oneItemKindsThroughTheMenus_data()
    {
        QTest::addColumn<QString>("kind");
        QTest::addColumn<QString>("answer");
        QTest::addColumn<int>("count");
        QTest::addColumn<QString>("review");
        QTest::newRow("word formation") << u"uewb"_s << u"Happiness"_s << 3 << u"Score: 2 / 3"_s;
        QTest::newRow("sentence conversion") << u"uesc"_s << u"wish I had brought"_s << 2 << u"Score: 1 out of 2"_s;
    }
    void oneItemKindsThroughTheMenus()
    {
        QFETCH(QString, kind);
        QFETCH(QString, answer);
        QFETCH(int, count);
        QFETCH(QString, review);
        // The first item is answered wrongly, seen with its answer, then every other one rightly.
        QString script = u"click lblPrac\nclick lbl%1\nclick lblLevel1\nclick lblEx1\n"
                         "type Text1 wrong\nclick Check\nclick seecorrect\nclick continue\n"_s.arg(kind);
        for (int k = 2; k <= count; ++k)
            script += u"type Text1 %1\nclick Check\nclick continue\n"_s.arg(answer);
        script += u"dump\nclick review\ndump\nquit\n"_s;
        const ScriptRun run = runScript(dir.path(), script);
        QVERIFY2(run.exitCode == 0, qPrintable(run.errors + run.eventNames(u"error"_s).join(u' ')));
        QCOMPARE(run.eventNames(u"shown"_s).count(u"uesccheck"_s), count);
        QCOMPARE(run.control(u"uescscore"_s, u"lblScore"_s, 0).value(u"text"_s).toString(),
                 u"Score: %1 out of %2"_s.arg(count - 1).arg(count));
        QCOMPARE(run.control(kind + u"review"_s, u"lblScore"_s).value(u"text"_s).toString(), review);
    }

    void checkTryAgainAndSeeAnswers_data()
    {
        QTest::addColumn<QString>("screen");
        QTest::addColumn<QString>("answers");     // script lines before the first check
        QTest::addColumn<QString>("secondTry");   // changes before the second check
        QTest::addColumn<QList<int>>("marks");
        QTest::addColumn<Texts>("texts");

        QString mc = u"choose Combo1 decided\nchoose Combo2 up\nchoose Combo3 feet\nchoose Combo4 give\n"
                     "choose Combo5 keep\nchoose Combo6 get\nchoose Combo7 from\nchoose Combo8 love\n"
                     "choose Combo9 mind\nchoose Combo10 so\n"_s;
        QTest::newRow("multiple-choice cloze")
            << u"ueca"_s << mc << u"choose Combo2 out\nchoose Combo3 legs\nchoose Combo4 put\n"_s
            << QList<int>{}
            << Texts{{u"Text3"_s, u"feet"_s}, {u"lblScore"_s, u"Score: 8 out of 10"_s}};

        QTest::newRow("open cloze")
            << u"uecb"_s
            << u"type Text1 on\ntype Text2 Sooner\ntype Text3 which\ntype Text4 like\ntype Text5 so\n"
               "type Text6 this\ntype Text7 for\ntype Text8 up\ntype Text9 no\ntype Text10 its\n"_s
            << u"type Text9 not\ntype Text1 in\n"_s
            << QList<int>{3}
            << Texts{{u"Correct2"_s, u"sooner"_s}, {u"Correct3"_s, u"who"_s}, {u"lblScore"_s, u"Score: 8 out of 10"_s},
                     {u"lblNote"_s, u" One correct answer is given. There may be alternatives. "_s}};

        QTest::newRow("error correction")
            << u"ueec"_s << u"type Text2 have\ntype Text3 most\ntype Text5 a\nclick Check1\n"_s << u"type Text3 MORE\n"_s
            << QList<int>{5}
            << Texts{{u"Correct3"_s, u"more"_s}, {u"lblScore"_s, u"Score: 14 out of 15"_s}};
    }
    void checkTryAgainAndSeeAnswers()
    {
        QFETCH(QString, screen);
        QFETCH(QString, answers);
        QFETCH(QString, secondTry);
        QFETCH(QList<int>, marks);
        QFETCH(Texts, texts);

        const QString script = u"click lblPrac\nclick lbl%1\nclick lblLevel1\nclick lblEx1\n"_s.arg(screen) + answers
                               + u"click Check\nclick tryagain\n"_s + secondTry
                               + u"click Check\nclick seewrong\nclick Check\nclick seecorrect\ndump\nquit\n"_s;
        const ScriptRun run = runScript(dir.path(), script);
        QVERIFY2(run.exitCode == 0, qPrintable(run.errors + run.eventNames(u"error"_s).join(u' ')));
        QCOMPARE(run.eventNames(u"shown"_s).count(u"uecheck"_s), 3);
        QCOMPARE(run.eventNames(u"sound"_s), QStringList(3, u"happychime.wav"_s)); // a near miss or a good pass
        QVERIFY(!run.screen(screen).isEmpty());
        QVERIFY(run.screen(u"uecheck"_s).isEmpty());
        // A cross on each wrong gap, a tick on each right one.
        for (int n = 1; n <= 15; ++n) {
            const QJsonObject mark = run.control(screen, u"Image%1"_s.arg(n));
            if (mark.value(u"visible"_s).toBool())
                QVERIFY2((mark.value(u"picture"_s).toString() == u"cross"_s) == marks.contains(n),
                         qPrintable(u"mark %1"_s.arg(n)));
            else
                QVERIFY2(!marks.contains(n), qPrintable(u"mark %1"_s.arg(n)));
        }
        for (auto it = texts.cbegin(); it != texts.cend(); ++it) {
            const QJsonObject c = run.control(screen, it.key());
            QCOMPARE(c.value(u"text"_s).toString(), it.value());
            QVERIFY2(c.value(u"visible"_s).toBool(), qPrintable(it.key()));
        }
        QVERIFY(!run.control(screen, u"Check"_s).value(u"visible"_s).toBool());
    }

    void keyboardOnly()
    {
        // From the start screen to a checked Reading exercise and a checked cloze and back, with keys alone.
        const auto typed = [](const QStringList &words) {
            QString out;
            for (const QString &w : words) {
                for (const QChar c : w)
                    out += u"key "_s + c.toUpper() + u'\n';
                out += u"key Tab\n"_s;
            }
            return out;
        };
        const QString toExercise1 = u"key Return\nkey Down\nkey Down\nkey Down\nkey Return\n"_s;
        // Escape closes the score window; the focus is back on Check (Reading) or, with Check gone
        // once the answers show, on the next button (Use of English); then on to Exit and Back.
        const QString leave = u"key Escape\nkey Tab\nkey Tab\nkey Tab\nkey Return\nkey Up\nkey Return\n"_s;
        const QString leaveCloze = u"key Escape\nkey Tab\nkey Tab\nkey Return\nkey Up\nkey Return\n"_s;
        const test::ScriptRun run = test::runScript(
            dir.path(), u"key Tab\nkey Down\nkey Down\nkey Return\n"      // practice exercises
                        u"key Down\nkey Return\n"_s                          // multiple choice
                        + toExercise1 + typed({u"a"_s, u"b"_s, u"c"_s, u"d"_s}) + u"key Return\ndump\n"_s + leave
                        + u"key Down\nkey Down\nkey Down\nkey Down\nkey Down\nkey Down\nkey Return\n"_s // open cloze
                        + toExercise1
                        + typed({u"on"_s, u"rather"_s, u"who"_s, u"like"_s, u"so"_s, u"that"_s, u"for"_s, u"up"_s,
                                 u"not"_s, u"its"_s})
                        + u"key Return\ndump\n"_s + leaveCloze + u"key Up\nkey Return\ndump\n"_s);
        QCOMPARE(run.exitCode, 0);
        QCOMPARE(run.control(u"rc2check"_s, u"lblScore"_s, 0).value(u"text"_s).toString(), u"4 out of 4"_s);
        QCOMPARE(run.control(u"uecheck"_s, u"lblScore"_s, 1).value(u"text"_s).toString(), u"10 out of 10"_s);
        QVERIFY(!run.screen(u"Intro"_s, 2).isEmpty());
        QCOMPARE(run.events.last().value(u"screens"_s).toArray().last().toObject().value(u"name"_s).toString(),
                 u"Intro"_s);
    }
};

QTEST_GUILESS_MAIN(TestUoeScripts)
#include "tst_uoe_scripts.moc"
