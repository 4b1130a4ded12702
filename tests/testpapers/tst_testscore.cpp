// The final score of a test paper: weights, fixed maxima, sections not done and rounding.

#include "testpapers/core/testpaper.h"

#include <QTest>

using namespace sd;
using namespace Qt::StringLiterals;
using Sections = std::array<SectionResult, 6>;
Q_DECLARE_METATYPE(Sections)

namespace {
Sections results(std::initializer_list<std::pair<int, int>> results)
{
    // {score, questions}; a score below 0 marks a section not done.
    Sections out;
    int n = 1;
    for (auto [score, questions] : results) {
        out[std::size_t(n)] = SectionResult{score >= 0, std::max(score, 0), questions};
        ++n;
    }
    return out;
}
constexpr int NotDone = -1;
} // namespace

class TestTestScore : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void score_data()
    {
        QTest::addColumn<int>("paper");
        QTest::addColumn<Sections>("results");
        QTest::addColumn<int>("total");
        QTest::addColumn<int>("maximum");
        QTest::addColumn<int>("percent");
        QTest::addColumn<QString>("row3");

        QTest::newRow("use of English, sections 3 and 5 not done")
            << 3 << results({{12, 15}, {10, 15}, {NotDone, 10}, {13, 15}, {NotDone, 10}}) << 35 << 45 << 78 << u"Not done"_s;
        QTest::newRow("use of English, only section 5 at 10")
            << 3 << results({{NotDone, 0}, {NotDone, 0}, {NotDone, 0}, {NotDone, 0}, {10, 10}}) << 10 << 10 << 100
            << u"Not done"_s;
        QTest::newRow("use of English, only section 5 at 4")
            << 3 << results({{NotDone, 0}, {NotDone, 0}, {NotDone, 0}, {NotDone, 0}, {4, 10}}) << 4 << 10 << 40
            << u"Not done"_s;
        QTest::newRow("use of English 58 of 65") << 3 << results({{15, 0}, {15, 0}, {10, 0}, {10, 0}, {8, 0}}) << 58 << 65
                                                 << 89 << u"10 out of 10"_s;
        QTest::newRow("use of English 45 of 65") << 3 << results({{10, 0}, {10, 0}, {8, 0}, {10, 0}, {7, 0}}) << 45 << 65
                                                 << 69 << u"8 out of 10"_s;
        QTest::newRow("use of English 32 of 65") << 3 << results({{8, 0}, {8, 0}, {5, 0}, {6, 0}, {5, 0}}) << 32 << 65
                                                 << 49 << u"5 out of 10"_s;
        QTest::newRow("use of English 13 of 40: a half goes up")
            << 3 << results({{7, 0}, {NotDone, 0}, {NotDone, 0}, {6, 0}, {0, 0}}) << 13 << 40 << 33 << u"Not done"_s;
        QTest::newRow("use of English, a section of 12 gaps is still out of 15")
            << 3 << results({{12, 12}, {NotDone, 0}, {NotDone, 0}, {NotDone, 0}, {NotDone, 0}}) << 12 << 15 << 80
            << u"Not done"_s;
        QTest::newRow("use of English, nothing done") << 3 << results({{NotDone, 0}, {NotDone, 0}, {NotDone, 0},
                                                                         {NotDone, 0}, {NotDone, 0}})
                                                      << 0 << 0 << 0 << u"Not done"_s;
        QTest::newRow("reading, sections 1 and 2 count double")
            << 1 << results({{4, 5}, {3, 5}, {NotDone, 6}, {NotDone, 7}}) << 14 << 20 << 70 << u"Not done"_s;
        QTest::newRow("reading, section 4 counts once")
            << 1 << results({{4, 5}, {3, 5}, {NotDone, 6}, {2, 7}}) << 16 << 27 << 59 << u"Not done"_s;
        QTest::newRow("reading, every section") << 1 << results({{8, 8}, {7, 7}, {6, 7}, {13, 13}}) << 55 << 57 << 96
                                                << u"6 out of 7"_s;
        QTest::newRow("writing scores nothing") << 2 << results({{NotDone, 0}, {0, 0}, {NotDone, 0}, {0, 0}}) << 0 << 0
                                                << 0 << QString();
    }
    void score()
    {
        QFETCH(int, paper);
        QFETCH(Sections, results);
        QFETCH(int, total);
        QFETCH(int, maximum);
        QFETCH(int, percent);
        QFETCH(QString, row3);
        const TestScore s = ScoreTest(paper, results);
        QCOMPARE(s.total, total);
        QCOMPARE(s.maximum, maximum);
        QCOMPARE(s.percent, percent);
        QCOMPARE(s.rows[3], row3);
    }

    void sections_data()
    {
        QTest::addColumn<int>("paper");
        QTest::addColumn<QList<int>>("kinds");
        QTest::newRow("reading") << 1 << QList<int>{1, 2, 3, 4, 0};
        QTest::newRow("writing: parts 1 and 2 only") << 2 << QList<int>{0, 5, 0, 5, 0};
        QTest::newRow("use of English") << 3 << QList<int>{6, 7, 8, 9, 10};
    }
    void sections()
    {
        QFETCH(int, paper);
        QFETCH(QList<int>, kinds);
        for (int n = 1; n <= 5; ++n)
            QCOMPARE(SectionKind(paper, n), kinds.at(n - 1));
        QCOMPARE(TestKey(1), u"x01"_s);
        QCOMPARE(TestKey(10), u"x10"_s);
    }
};

QTEST_GUILESS_MAIN(TestTestScore)
#include "tst_testscore.moc"
