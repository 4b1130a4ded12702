// Verdict rules, the minute clock and the random record picker.

#include "frame/core/minuteclock.h"
#include "frame/core/random.h"
#include "frame/core/services.h"
#include "frame/core/state.h"
#include "frame/core/verdicts.h"

#include <QSet>
#include <QTest>

using namespace sd;

class TestVerdicts : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void ruleA_data();
    void ruleA();
    void ruleB_data();
    void ruleB();
    void ruleC_data();
    void ruleC();
    void verdictPlaysItsOwnSound_data();
    void verdictPlaysItsOwnSound();
    void clockRunsIntoNegativeTime();
    void clockOverflowIsAnError();
    void randomPickerDrawsEachRecordOnce();
    void randomPickerIsReproducibleWithFakeTime();
};

void TestVerdicts::ruleA_data()
{
    QTest::addColumn<int>("total");
    QTest::addColumn<int>("score");
    QTest::addColumn<int>("verdict");
    const int ten[] = {7, 7, 7, 6, 6, 5, 4, 4, 3, 2, 1}; // scores 0..10 of ten questions
    for (int s = 0; s <= 10; ++s)
        QTest::addRow("T=10 S=%d", s) << 10 << s << ten[s];
    QTest::newRow("T=1 S=1 all correct") << 1 << 1 << 1;
    QTest::newRow("T=1 S=0 counts as one wrong") << 1 << 0 << 2;
    QTest::newRow("T=4 S=2 borderline") << 4 << 2 << 5;
    QTest::newRow("T=4 S=1 what happened") << 4 << 1 << 7;
    QTest::newRow("T=15 S=12 good pass") << 15 << 12 << 3;
    QTest::newRow("T=15 S=11 is a pass, not a good pass") << 15 << 11 << 4;
}

void TestVerdicts::ruleA()
{
    QFETCH(int, total);
    QFETCH(int, score);
    QFETCH(int, verdict);
    bool all = false;
    QCOMPARE(VerdictRuleA(total, score, &all), verdict);
    QCOMPARE(all, score == total);
}

void TestVerdicts::ruleB_data()
{
    QTest::addColumn<int>("score");
    QTest::addColumn<int>("verdict");
    const int ten[] = {7, 7, 7, 6, 6, 5, 4, 4, 3, 2, 1};
    for (int s = 0; s <= 10; ++s)
        QTest::addRow("T=10 S=%d", s) << s << ten[s];
}

void TestVerdicts::ruleB()
{
    QFETCH(int, score);
    QFETCH(int, verdict);
    QCOMPARE(VerdictRuleB(10, score), verdict);
}

void TestVerdicts::ruleC_data()
{
    QTest::addColumn<int>("percent");
    QTest::addColumn<int>("verdict");
    QTest::newRow("100") << 100 << 1;
    QTest::newRow("90") << 90 << 1;
    QTest::newRow("89") << 89 << 2;
    QTest::newRow("80") << 80 << 2;
    QTest::newRow("70") << 70 << 3;
    QTest::newRow("69") << 69 << 4;
    QTest::newRow("60") << 60 << 4;
    QTest::newRow("59 skips verdict 5") << 59 << 6;
    QTest::newRow("50") << 50 << 6;
    QTest::newRow("49") << 49 << 7;
    QTest::newRow("0") << 0 << 7;
}

void TestVerdicts::ruleC()
{
    QFETCH(int, percent);
    QFETCH(int, verdict);
    QCOMPARE(VerdictRuleC(percent), verdict);
}

void TestVerdicts::verdictPlaysItsOwnSound_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("clip");
    QTest::newRow("1") << 1 << QStringLiteral("Well done!") << QStringLiteral("fanfare1.wav");
    QTest::newRow("2") << 2 << QStringLiteral("A near miss - only one wrong") << QStringLiteral("happychime.wav");
    QTest::newRow("3") << 3 << QStringLiteral("A good pass") << QStringLiteral("happychime.wav");
    QTest::newRow("4") << 4 << QStringLiteral("OK - a pass") << QStringLiteral("chimes.wav");
    QTest::newRow("5") << 5 << QStringLiteral("Borderline - keep trying") << QStringLiteral("chimes.wav");
    QTest::newRow("6") << 6 << QStringLiteral("Sorry, only some answers correct") << QStringLiteral("chord.wav");
    QTest::newRow("7") << 7 << QStringLiteral("What happened?") << QStringLiteral("ohdear.wav");
}

void TestVerdicts::verdictPlaysItsOwnSound()
{
    QFETCH(int, index);
    QFETCH(QString, text);
    QFETCH(QString, clip);
    RecordingSound sound;
    FakeSeedSource seeds;
    ProgramState s(sound, seeds);
    s.setDataDir(QStringLiteral("/data"));
    QCOMPARE(s.VerdictTexts[index], text);
    PlaySound(s, index);
    QCOMPARE(sound.events, QStringList{QStringLiteral("/data/") + clip});
    QVERIFY_THROWS_EXCEPTION(RangeError, PlaySound(s, 11));
}

void TestVerdicts::clockRunsIntoNegativeTime()
{
    RecordingSound sound;
    FakeSeedSource seeds;
    ProgramState s(sound, seeds);
    s.Clock.setAutomatic(false);
    s.TargetMinutes = 75;
    s.Clock.start();
    for (int i = 0; i < 80; ++i)
        s.Clock.tick();
    QCOMPARE(clockBalloonText(s.ElapsedMinutes, s.RemainingMinutes),
             QStringLiteral("Time so far: 80'\rTime remaining: -5'"));
    const ClockTimes t = ShowClockTimes(s.ElapsedMinutes, s.RemainingMinutes, s.TargetMinutes);
    QCOMPARE(t.spent, QStringLiteral("Spent: 80"));
    QCOMPARE(t.remaining, QStringLiteral("Remaining: -5"));
    QCOMPARE(t.target, QStringLiteral("Target: 75"));
    // Fake time ticks once per 59,220 ms, not per minute.
    s.Clock.start();
    s.Clock.advance(59219);
    QCOMPARE(int(s.ElapsedMinutes), 0);
    s.Clock.advance(1 + 2 * MinuteClock::TickMs);
    QCOMPARE(int(s.ElapsedMinutes), 3);
    QCOMPARE(int(s.RemainingMinutes), 72);
}

void TestVerdicts::clockOverflowIsAnError()
{
    RecordingSound sound;
    FakeSeedSource seeds;
    ProgramState s(sound, seeds);
    s.Clock.setAutomatic(false);
    s.Clock.start();
    s.ElapsedMinutes = 32767;
    QVERIFY_THROWS_EXCEPTION(OverflowError, s.Clock.tick());
}

void TestVerdicts::randomPickerDrawsEachRecordOnce()
{
    RecordingSound sound;
    FakeSeedSource seeds;
    ProgramState s(sound, seeds);
    s.SearchRecordCount = 12;
    ClearPicks(s);
    QSet<int> drawn;
    s.CurrentRecord = 5; // a first candidate not yet used is taken as it is
    for (int i = 0; i < 12; ++i) {
        PickRandomRecord(s);
        QVERIFY(s.CurrentRecord >= 1 && s.CurrentRecord <= 12);
        drawn.insert(s.CurrentRecord);
        QCOMPARE(int(s.PickOrder[s.PickCount]), int(s.CurrentRecord));
    }
    QCOMPARE(int(s.PickOrder[1]), 5);
    QCOMPARE(drawn.size(), 12);
    QCOMPARE(int(s.LastPickIndex), 12);
    s.CurrentRecord = 21;
    QVERIFY_THROWS_EXCEPTION(RangeError, PickRandomRecord(s));
}

void TestVerdicts::randomPickerIsReproducibleWithFakeTime()
{
    auto run = [] {
        RecordingSound sound;
        FakeSeedSource seeds;
        ProgramState s(sound, seeds);
        s.SearchRecordCount = 20;
        ClearPicks(s);
        QList<int> order;
        s.CurrentRecord = 1;
        for (int i = 0; i < 20; ++i) {
            PickRandomRecord(s);
            order.append(s.CurrentRecord);
        }
        return order;
    };
    const QList<int> first = run();
    QCOMPARE(run(), first);
    QVERIFY(first != QList<int>({1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16, 17, 18, 19, 20}));
}

QTEST_GUILESS_MAIN(TestVerdicts)
#include "tst_verdicts.moc"
