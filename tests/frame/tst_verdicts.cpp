// Verdict rules, the minute clock and the random record picker.

#include "frame/core/minuteclock.h"
#include "frame/core/random.h"
#include "frame/core/services.h"
#include "frame/core/state.h"
#include "frame/core/verdicts.h"

#include <QFile>
#include <QSet>
#include <QTemporaryDir>
#include <QTest>

#include <algorithm>

using namespace sd;

namespace {
struct Program
{
    RecordingSound sound;
    FakeSeedSource seeds;
    ProgramState s{sound, seeds};
};
} // namespace

class TestVerdicts : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void rulesAB_data()
    {
        QTest::addColumn<char>("rule");
        QTest::addColumn<int>("total");
        QTest::addColumn<int>("score");
        QTest::addColumn<int>("verdict");
        const int ten[] = {7, 7, 7, 6, 6, 5, 4, 4, 3, 2, 1}; // scores 0..10 of ten questions, by either rule
        for (char rule : {'A', 'B'})
            for (int s = 0; s <= 10; ++s)
                QTest::addRow("%c T=10 S=%d", rule, s) << rule << 10 << s << ten[s];
        QTest::newRow("A T=1 S=1 all correct") << 'A' << 1 << 1 << 1;
        QTest::newRow("A T=1 S=0 counts as one wrong") << 'A' << 1 << 0 << 2;
        QTest::newRow("A T=4 S=2 borderline") << 'A' << 4 << 2 << 5;
        QTest::newRow("A T=4 S=1 what happened") << 'A' << 4 << 1 << 7;
        QTest::newRow("A T=15 S=12 good pass") << 'A' << 15 << 12 << 3;
        QTest::newRow("A T=15 S=11 is a pass, not a good pass") << 'A' << 15 << 11 << 4;
        QTest::newRow("B T=15 S=13 good pass") << 'B' << 15 << 13 << 3;
        QTest::newRow("B T=15 S=12 is a pass (A: good pass)") << 'B' << 15 << 12 << 4;
        QTest::newRow("B T=15 S=10 borderline") << 'B' << 15 << 10 << 5;
        QTest::newRow("B T=15 S=9") << 'B' << 15 << 9 << 6;
        QTest::newRow("B T=15 S=3") << 'B' << 15 << 3 << 6;
        QTest::newRow("B T=15 S=2") << 'B' << 15 << 2 << 7;
    }
    void rulesAB()
    {
        QFETCH(char, rule);
        QFETCH(int, total);
        QFETCH(int, score);
        QFETCH(int, verdict);
        if (rule == 'B') {
            QCOMPARE(VerdictRuleB(total, score), verdict);
            return;
        }
        bool all = false;
        QCOMPARE(VerdictRuleA(total, score, &all), verdict);
        QCOMPARE(all, score == total);
    }

    void ruleC_data()
    {
        QTest::addColumn<int>("percent");
        QTest::addColumn<int>("verdict");
        // 59 and 50 skip verdict 5.
        const int rows[][2] = {{100, 1}, {90, 1}, {89, 2}, {80, 2}, {70, 3}, {69, 4}, {60, 4}, {59, 6}, {50, 6}, {49, 7}, {0, 7}};
        for (const auto &r : rows)
            QTest::addRow("P=%d", r[0]) << r[0] << r[1];
    }
    void ruleC()
    {
        QFETCH(int, percent);
        QTEST(VerdictRuleC(percent), "verdict");
    }

    void verdictPlaysItsOwnSound_data()
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
    void verdictPlaysItsOwnSound()
    {
        QFETCH(int, index);
        QFETCH(QString, clip);
        Program p;
        QTemporaryDir dir;
        p.s.setDataDir(dir.path());
        QTEST(p.s.VerdictTexts[index], "text");
        // A clip that is not there plays nothing and says so.
        PlaySound(p.s, index);
        QCOMPARE(p.sound.events, QStringList{QStringLiteral("missing:") + clip});
        p.sound.events.clear();
        QFile f(dir.filePath(clip));
        QVERIFY(f.open(QIODevice::WriteOnly));
        f.write(QByteArray("RIFF\x24\0\0\0WAVE", 12));
        f.close();
        PlaySound(p.s, index);
        QCOMPARE(p.sound.events, QStringList{dir.filePath(clip)});
        QVERIFY_THROWS_EXCEPTION(RangeError, PlaySound(p.s, 11));
    }

    void clockRunsIntoNegativeTimeUntilOverflow()
    {
        Program p;
        ProgramState &s = p.s;
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
        s.ElapsedMinutes = 32767;
        QVERIFY_THROWS_EXCEPTION(OverflowError, s.Clock.tick());
    }

    void randomPickerDrawsEachRecordOnce()
    {
        // Fake time re-seeds the same way in every run, so two runs draw the same order.
        const auto draw = [](Program &p) {
            p.s.SearchRecordCount = 12;
            ClearPicks(p.s);
            p.s.CurrentRecord = 5; // a first candidate not yet used is taken as it is
            QList<int> order;
            for (int i = 0; i < 12; ++i) {
                PickRandomRecord(p.s);
                order.append(p.s.CurrentRecord);
            }
            return order;
        };
        Program one, two;
        const QList<int> order = draw(one);
        QCOMPARE(order.first(), 5);
        QCOMPARE(QSet<int>(order.begin(), order.end()), QSet<int>({1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12}));
        for (int i = 1; i <= 12; ++i)
            QCOMPARE(int(one.s.PickOrder[i]), order.at(i - 1));
        QCOMPARE(int(one.s.LastPickIndex), 12);
        QCOMPARE(draw(two), order);
        QVERIFY(!std::is_sorted(order.begin() + 1, order.end())); // drawn, not taken in turn
        one.s.CurrentRecord = 21;
        QVERIFY_THROWS_EXCEPTION(RangeError, PickRandomRecord(one.s));
    }
};

QTEST_GUILESS_MAIN(TestVerdicts)
#include "tst_verdicts.moc"
