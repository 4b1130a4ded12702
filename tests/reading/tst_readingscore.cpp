// Scoring, keys and verdicts of the Reading score window, without screens.

#include "frame/core/services.h"
#include "frame/core/state.h"
#include "reading/core/readingscore.h"

#include <QTest>

using namespace sd;
using namespace Qt::StringLiterals;

class TestReadingScore : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void answerPoints_data()
    {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("key");
        QTest::addColumn<int>("points");
        QTest::addColumn<bool>("right");
        QTest::newRow("letter") << u"B"_s << u"B"_s << 1 << true;
        QTest::newRow("lower case typed") << u"b"_s << u"B"_s << 1 << true;
        // Blanks around an answer and the case of a letter never make it wrong.
        QTest::newRow("trailing blank") << u"b "_s << u"B"_s << 1 << true;
        QTest::newRow("leading blank") << u" B"_s << u"B"_s << 1 << true;
        QTest::newRow("blanks around two letters") << u" da "_s << u"AD"_s << 2 << true;
        QTest::newRow("empty box") << u""_s << u"B"_s << 0 << false;
        QTest::newRow("blanks only") << u"   "_s << u"B"_s << 0 << false;
        QTest::newRow("lower-case key") << u"b"_s << u"b"_s << 1 << true;
        QTest::newRow("key with a blank after it") << u"C"_s << u"C "_s << 1 << true;
        QTest::newRow("two letters, any order") << u"da"_s << u"AD"_s << 2 << true;
        QTest::newRow("two letters, repeated letter counts once") << u"AA"_s << u"AD"_s << 1 << false;
        QTest::newRow("two letters, only the first two count") << u"ABD"_s << u"AD"_s << 1 << false;
        QTest::newRow("key with a repeated letter never fully right") << u"AB"_s << u"AA"_s << 1 << false;
        QTest::newRow("three letters") << u"CAB"_s << u"ABC"_s << 3 << true;
        QTest::newRow("three letters, repeats ignored") << u"AAB"_s << u"ABC"_s << 2 << false;
        QTest::newRow("three letters, only two typed") << u"CB"_s << u"ABC"_s << 2 << false;
        QTest::newRow("four-letter key scores nothing") << u"ABCD"_s << u"ABCD"_s << 0 << false;
    }
    void answerPoints()
    {
        QFETCH(QString, typed);
        QFETCH(QString, key);
        QFETCH(bool, right);
        bool isRight = !right;
        QTEST(scoreReadingAnswer(readingAnswer(typed), key, &isRight), "points");
        QCOMPARE(isRight, right);
    }

    void verdicts_data()
    {
        QTest::addColumn<int>("total");
        QTest::addColumn<int>("score");
        QTest::addColumn<QString>("comment");
        QTest::addColumn<int>("index");
        QTest::addColumn<int>("picture");
        const QString well = QStringLiteral("Well done!"), near = QStringLiteral("A near miss - only one wrong"),
                      good = QStringLiteral("A good pass"), ok = QStringLiteral("OK - a pass"),
                      sorry = QStringLiteral("Sorry, only some answers correct."), what = QStringLiteral("What happened?");
        QTest::newRow("7: 7") << 7 << 7 << well << 1 << 1;
        QTest::newRow("7: 6") << 7 << 6 << near << 2 << 2;
        QTest::newRow("7: 5 (> 5.18 fails, > 4.13)") << 7 << 5 << ok << 4 << 4;
        QTest::newRow("7: 4") << 7 << 4 << sorry << 6 << 6;
        QTest::newRow("7: 2 (> 1.75)") << 7 << 2 << sorry << 6 << 6;
        QTest::newRow("7: 1") << 7 << 1 << what << 7 << 7;
        QTest::newRow("6: 4 (> 3.54)") << 6 << 4 << ok << 4 << 4;
        QTest::newRow("6: 1 (1.5 not passed)") << 6 << 1 << what << 7 << 7;
        QTest::newRow("5: 3 (> 2.95)") << 5 << 3 << ok << 4 << 4;
        QTest::newRow("4: 2 (2.36 not passed)") << 4 << 2 << sorry << 6 << 6;
        QTest::newRow("4: 1 (exactly 1.0, not above)") << 4 << 1 << what << 7 << 7;
        QTest::newRow("8: 6 good pass, sound of 4, own picture") << 8 << 6 << good << 4 << 3;
        QTest::newRow("20: 14 (not > 14.8, > 11.8)") << 20 << 14 << ok << 4 << 4;
        QTest::newRow("20: 5 (exactly 5.0)") << 20 << 5 << what << 7 << 7;
    }
    void verdicts()
    {
        QFETCH(int, total);
        QFETCH(int, score);
        const ReadingVerdict v = readingVerdict(total, score);
        QTEST(v.comment, "comment");
        QTEST(v.verdictIndex, "index");
        QTEST(v.picture, "picture");
    }

    void tooManyQuestionsForTheStoreIsAnError()
    {
        RecordingSound sound;
        FakeSeedSource seeds;
        ProgramState s(sound, seeds);
        for (int i = 1; i <= 9; ++i)
            s.ReadingKeys[i] = QStringLiteral("A");
        QVERIFY_THROWS_EXCEPTION(RangeError, ScoreReadingAnswers(s, 2));
    }
};

QTEST_GUILESS_MAIN(TestReadingScore)
#include "tst_readingscore.moc"
