// Rules of the gap exercises without screens: alternatives, shuffles, normalisers, comparisons,
// verdicts and the check screen's scoring.

#include "frame/core/services.h"
#include "frame/core/state.h"
#include "useofenglish/core/gapscoring.h"

#include <QSet>
#include <QTemporaryDir>
#include <QTest>

using namespace sd;
using namespace Qt::StringLiterals;

namespace {

class CountingSeeds final : public SeedSource
{
public:
    quint64 seed() override { return ++readings; }
    quint64 readings = 0;
};

struct Program
{
    RecordingSound sound;
    CountingSeeds seeds;
    ProgramState state{sound, seeds};
};

Array<QString, 1, 15> items(const QStringList &l)
{
    Array<QString, 1, 15> out;
    for (int i = 0; i < l.size(); ++i)
        out[i + 1] = l.at(i);
    return out;
}

void prepare(ProgramState &s, int kind, const QStringList &l)
{
    if (kind == 6)
        PrepareChoiceGaps(s, kind, items(l));
    else if (kind == 7)
        PrepareOpenGaps(s, kind, items(l));
    else
        PrepareLineGaps(s, kind, items(l));
}

QString joined(const Alternatives &a, int n = 4)
{
    return QStringList(a.begin(), a.begin() + n).join(u'|');
}

} // namespace

class TestGapRules : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void splitAlternatives_data()
    {
        QTest::addColumn<QString>("item");
        QTest::addColumn<QString>("parts");
        QTest::newRow("four") << u"decided/thought/wanted/planned"_s << u"decided|thought|wanted|planned"_s;
        QTest::newRow("three") << u"out/up/off/"_s << u"out|up|off|"_s;
        QTest::newRow("empty") << QString() << u"|||"_s;
        QTest::newRow("begins ///") << u"///spare"_s << u"|||"_s;
        QTest::newRow("// is not ///") << u"//x/y"_s << u"||x|y"_s;
        QTest::newRow("no slash left eats a character") << u"a/b/cd"_s << u"a|b||d"_s;
        QTest::newRow("no slash at all") << u"abcdef"_s << u"|||def"_s;
        QTest::newRow("slash kept in the fourth") << u"a/b/c/d/e"_s << u"a|b|c|d/e"_s;
    }
    void splitAlternatives()
    {
        QFETCH(QString, item);
        QTEST(joined(SplitAlternatives(item)), "parts");
    }

    void shuffleFour()
    {
        const Alternatives abcd{u"A"_s, u"B"_s, u"C"_s, u"D"_s};
        QSet<QString> orders;
        QMap<QString, int> first;
        for (int k = 1; k <= 12; ++k) {
            const Alternatives shown = ShuffleFour(k, abcd);
            QCOMPARE(QSet<QString>(shown.begin(), shown.end()).size(), 4);
            orders.insert(joined(shown));
            ++first[shown[0]];
        }
        QCOMPARE(orders.size(), 12);
        QCOMPARE(first, (QMap<QString, int>{{u"A"_s, 3}, {u"B"_s, 3}, {u"C"_s, 3}, {u"D"_s, 3}}));
        QCOMPARE(joined(ShuffleFour(1, abcd)), u"B|A|D|C"_s);
        QCOMPARE(joined(ShuffleFour(10, abcd)), u"A|B|C|D"_s);
        QVERIFY_THROWS_EXCEPTION(RangeError, ShuffleFour(13, abcd));
    }

    void shuffleThree_data()
    {
        QTest::addColumn<QString>("order");
        QTest::addColumn<QList<int>>("draws");
        QTest::newRow("1 2 3") << u"A|B|C"_s << QList<int>{10, 12};
        QTest::newRow("1 3 2") << u"A|C|B"_s << QList<int>{4, 11};
        QTest::newRow("2 1 3") << u"B|A|C"_s << QList<int>{1, 3};
        QTest::newRow("2 3 1") << u"B|C|A"_s << QList<int>{2, 6};
        QTest::newRow("3 1 2") << u"C|A|B"_s << QList<int>{7, 9};
        QTest::newRow("3 2 1") << u"C|B|A"_s << QList<int>{5, 8};
    }
    void shuffleThree()
    {
        QFETCH(QString, order);
        QList<int> found;
        for (int k = 1; k <= 12; ++k)
            if (joined(ShuffleThree(k, {u"A"_s, u"B"_s, u"C"_s, QString()}), 3) == order)
                found.append(k);
        QTEST(found, "draws");
    }

    void everyDrawReseedsAndKeepsTheKey()
    {
        Program p;
        QSet<QString> firstShown;
        for (int run = 1; run <= 40; ++run) {
            prepare(p.state, 6, {u"decided/thought/wanted/planned"_s, u"out/up/off/"_s});
            QCOMPARE(p.seeds.readings, quint64(run * 16)); // once per opening, then before each gap's draw
            QCOMPARE(p.state.GapKey[1], u"decided"_s);
            QVERIFY(p.state.GapAlternatives[2][4].isEmpty());
            QStringList shown;
            for (int j = 1; j <= 4; ++j)
                shown.append(p.state.GapAlternatives[1][j]);
            QVERIFY(shown.contains(u"decided"_s));
            firstShown.insert(shown.first());
        }
        QCOMPARE(firstShown.size(), 4);
    }

    void gapCount_data()
    {
        QTest::addColumn<int>("kind");
        QTest::addColumn<QStringList>("extra"); // after ten full gaps
        QTest::addColumn<int>("count");
        QTest::newRow("choice: 11-15 empty") << 6 << QStringList{} << 10;
        QTest::newRow("choice: ///x or no key is no gap") << 6 << QStringList{u"///x"_s, u"//x/y"_s} << 10;
        QTest::newRow("open: twelve") << 7 << QStringList{u"in///"_s, u"at/on//"_s} << 12;
        QTest::newRow("open: only blank or exactly /// lose a gap") << 7 << QStringList{u"///"_s, u"//x/y"_s} << 11;
        QTest::newRow("error correction: always 15") << 9 << QStringList{} << 15;
    }
    void gapCount()
    {
        QFETCH(int, kind);
        QFETCH(QStringList, extra);
        Program p;
        QStringList all(10, u"a/b/c/d"_s);
        prepare(p.state, kind, all + extra);
        QTEST(int(p.state.GapCount), "count");
    }

    void normalisers_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("collapsed");
        QTest::addColumn<QString>("noCommas");
        QTest::newRow("runs of spaces") << u"a  b     c"_s << u"a b c"_s << u"a  b     c"_s;
        QTest::newRow("ends keep one space") << u"  x  "_s << u" x "_s << u"  x  "_s;
        QTest::newRow("commas") << u",a,,b,"_s << u",a,,b,"_s << u"ab"_s;
        QTest::newRow("comma between spaces") << u"a , b"_s << u"a , b"_s << u"a  b"_s;
    }
    void normalisers()
    {
        QFETCH(QString, text);
        QTEST(CollapseSpaces(text), "collapsed");
        QTEST(RemoveCommas(text), "noCommas");
    }

    void comparisons_data()
    {
        QTest::addColumn<int>("kind");
        QTest::addColumn<QString>("answer");
        QTest::addColumn<QString>("item");
        QTest::addColumn<int>("score");
        QTest::newRow("choice: case") << 6 << u"DeCided"_s << u"decided/a/b/c"_s << 1;
        QTest::newRow("choice: commas in answer") << 6 << u"de,cided,"_s << u"decided/a/b/c"_s << 1;
        QTest::newRow("choice: comma in key") << 6 << u"well known"_s << u"well, known/a/b/c"_s << 1;
        QTest::newRow("choice: double space") << 6 << u"well  known"_s << u"well known/a/b/c"_s << 1;
        QTest::newRow("choice: trailing space") << 6 << u"decided "_s << u"decided/a/b/c"_s << 1;
        QTest::newRow("choice: no choice") << 6 << QString() << u"decided/a/b/c"_s << 0;
        QTest::newRow("open: second accepted, capitals") << 7 << u"At"_s << u"in/at//"_s << 1;
        QTest::newRow("open: letters spaced apart") << 7 << u"a t"_s << u"in/at//"_s << 0;
        QTest::newRow("open: blanks around") << 7 << u" at "_s << u"in/at//"_s << 1;
        QTest::newRow("open: blanks only") << 7 << u"  "_s << u"in///"_s << 0;
        QTest::newRow("open: empty never matches an empty") << 7 << QString() << u"in///"_s << 0;
        QTest::newRow("open: repeated accepted counts twice") << 7 << u"on"_s << u"on/on//"_s << 2;
        QTest::newRow("lines: empty box, correct line") << 9 << QString() << QString() << 1;
        QTest::newRow("lines: word on a correct line") << 9 << u"the"_s << QString() << 0;
        QTest::newRow("lines: extra word in capitals") << 9 << u"THE"_s << u"The"_s << 1;
        QTest::newRow("lines: extra word with a blank typed after it") << 9 << u"the "_s << u"the"_s << 1;
    }
    void comparisons()
    {
        QFETCH(int, kind);
        QFETCH(QString, answer);
        QFETCH(QString, item);
        QFETCH(int, score);
        Program p;
        prepare(p.state, kind, {item});
        p.state.GapCount = 1;
        TakeAnswers(p.state, kind, {answer});
        ScoreGaps(p.state, kind);
        QCOMPARE(int(p.state.Score), score);
        QCOMPARE(p.state.WrongAnswerList.isEmpty(), score > 0);
    }

    void verdicts_data()
    {
        QTest::addColumn<int>("gaps");
        QTest::addColumn<int>("score");
        QTest::addColumn<int>("verdict");
        const int rows[][3] = {{10, 10, 1}, {10, 9, 2}, {10, 8, 3}, {10, 7, 4}, {10, 5, 5}, {10, 3, 6}, {10, 2, 7},
                               {15, 15, 1}, {15, 14, 2}, {15, 12, 3}, {15, 11, 4}, {15, 8, 5}, {15, 5, 6}, {15, 4, 7},
                               {12, 9, 3}, {12, 8, 4}, {12, 6, 5}, {12, 4, 6}, {12, 3, 7}, {1, 0, 2}};
        for (const auto &r : rows)
            QTest::addRow("%d of %d", r[1], r[0]) << r[0] << r[1] << r[2];
    }
    void verdicts()
    {
        QFETCH(int, gaps);
        QFETCH(int, score);
        QTEST(GapVerdict(score, gaps), "verdict");
    }

    void wrongAnswerListGrowsAcrossChecks()
    {
        Program p;
        prepare(p.state, 6, {u"a/b/c/d"_s, u"e/f/g/h"_s, u"i/j/k/"_s});
        TakeAnswers(p.state, 6, {u"a"_s, u"f, g"_s, QString()});
        ScoreGaps(p.state, 6);
        QCOMPARE(p.state.WrongAnswerList, u"2.f, g  3.  "_s);
        TakeAnswers(p.state, 6, {u"b"_s, u"e"_s, u"i"_s});
        ScoreGaps(p.state, 6);
        QCOMPARE(int(p.state.Score), 2);
        QCOMPARE(p.state.WrongAnswerList, u"2.f, g  3.  1.b  "_s);
        QVERIFY(p.state.GapEverCorrect[1] && p.state.GapEverCorrect[2] && p.state.GapEverCorrect[3]);
    }

    void numberedLines_data()
    {
        QTest::addColumn<QByteArray>("file");
        QTest::addColumn<QStringList>("lines");
        QTest::newRow("blank third line") << QByteArray("one\r\ntwo\r\n   \r\nfour\r\n")
                                          << QStringList{u"1. one"_s, u"2. two"_s, QString(), u"4. four"_s};
        QTest::newRow("blank last line, no CR") << QByteArray("a\n\n") << QStringList{u"1. a"_s, QString()};
        QTest::newRow("single-byte text") << QByteArray("caf\xe9") << QStringList{u"1. caf\u00e9"_s};
        QTest::newRow("twenty lines") << QByteArray("x\n").repeated(20) << QStringList{};
        QTest::newRow("21 lines fail") << QByteArray("x\n").repeated(21) << QStringList{u"fails"_s};
    }
    void numberedLines()
    {
        QFETCH(QByteArray, file);
        QFETCH(QStringList, lines);
        QTemporaryDir dir;
        QFile f(dir.filePath(u"t.txt"_s));
        QVERIFY(f.open(QIODevice::WriteOnly) && f.write(file) == file.size());
        f.close();
        if (lines == QStringList{u"fails"_s})
            QVERIFY_THROWS_EXCEPTION(ProgramError, ReadNumberedLines(dir.path(), u"t.txt"_s));
        else if (lines.isEmpty())
            QCOMPARE(ReadNumberedLines(dir.path(), u"t.txt"_s).size(), 20);
        else
            QCOMPARE(ReadNumberedLines(dir.path(), u"t.txt"_s), lines);
        QVERIFY_THROWS_EXCEPTION(ProgramError, ReadNumberedLines(dir.path(), u"missing.txt"_s));
    }
};

QTEST_GUILESS_MAIN(TestGapRules)
#include "tst_gaprules.moc"
