#pragma once

#include "testrecord.h"

#include <QDateTime>
#include <QList>
#include <QMap>
#include <QString>

#include <optional>

class QIODevice;

namespace sd {

/// One judged question of an attempt.
struct AnswerRecord
{
    int question = 0; ///< the gap or question number; for one-item kinds the item's record number
    QString given, expected;
    bool correct = false;
};

/// One checked exercise, or one section of a test.
struct AttemptRecord
{
    QDateTime finishedAt;
    bool test = false;
    int kind = 0;  ///< ExerciseKind 1..10
    int level = 0; ///< 1..3 in practice; 0 in a test
    QString exercise; ///< the record key: "203", or "x04" in a test
    double score = 0, max = 0;
    int seconds = -1; ///< -1 when not known (a test's sections)
    QList<AnswerRecord> answers;
};

/// A sample composition the student scored against the examiner.
struct GradingRecord
{
    QDateTime at;
    QString sample;   ///< the sample's name, e.g. "Sample21"
    QString student;  ///< "pass", "borderline" or "fail"
    QString examiner;
};

/// A composition the student saved.
struct CompositionRecord
{
    QDateTime savedAt;
    QString kind; ///< the composition type's name, or "Test N Part 1" in a test
    QString title;
    int words = 0;
    QString file;
};

/// The test in hand, kept until it is finished or left with "Exit test".
struct PausedTest
{
    int paper = 0, test = 0;
    QByteArray state; ///< JSON of the test's answers, done marks and clock
    int seconds = 0;  ///< time used so far
    QDateTime savedAt;
};

/// The best score of one exercise.
struct BestScore
{
    double score = 0, max = 0;
};

/// What the progress screen shows.
struct ProgressSummary
{
    struct Point
    {
        QDateTime at;
        int paper = 0;
        bool test = false;
        double percent = 0;
    };
    struct KindAverage
    {
        int kind = 0;
        double percent = 0;
        int count = 0;
    };
    struct TestRow
    {
        QDateTime at;
        int paper = 0, test = 0, seconds = 0, sectionsDone = 0;
        std::optional<int> percent;
        QString verdict;
    };
    struct CompositionRow
    {
        QString title;
        int words = 0;
        QDateTime savedAt;
    };
    QList<Point> points;             ///< oldest first
    QList<KindAverage> kinds;        ///< practice only, by kind
    QList<TestRow> tests;            ///< newest first
    int gradingsAgreed = 0, gradingsCounted = 0; ///< over the last ten gradings
    QList<CompositionRow> compositions; ///< newest first
};

/// An item the student last answered wrong in practice.
struct Mistake
{
    QDateTime at;
    int kind = 0, level = 0;
    QString exercise;
    int question = 0;
    QString given, expected;
};

/// The student's history: every exercise checked, test sat, sample scored and composition saved,
/// and the unfinished test. Writes never throw and never stop an exercise: a write that fails
/// returns false and leaves the reason in problem(), which the progress screen shows.
class StudentHistory
{
public:
    virtual ~StudentHistory() = default;

    virtual bool recordAttempt(const AttemptRecord &attempt) = 0;
    /// A finished test and its sections, in one transaction; the paper's unfinished test goes.
    virtual bool recordTest(const TestRecord &test, const QString &verdict, const QList<AttemptRecord> &sections) = 0;
    virtual bool recordGrading(const GradingRecord &grading) = 0;
    virtual bool recordComposition(const CompositionRecord &composition) = 0;

    /// Best practice score of each exercise of a kind and level, by exercise number (1..10).
    virtual QMap<int, BestScore> bestScores(int kind, int level) = 0;
    virtual ProgressSummary summary() = 0;
    /// Newest first.
    virtual QList<Mistake> mistakes() = 0;
    /// The whole history as CSV; false when it could not be read or written.
    virtual bool exportCsv(QIODevice &out) = 0;

    /// Keeps the unfinished test of a paper (one per paper), replacing what was kept.
    virtual bool keepPausedTest(const PausedTest &paused) = 0;
    /// The unfinished test of a paper, if one is kept.
    virtual std::optional<PausedTest> pausedTest(int paper) = 0;
    virtual bool dropPausedTest(int paper) = 0;

    /// "Your history could not be saved: ..." after a fault; empty while all is well.
    virtual QString problem() const = 0;
};

/// A history that keeps nothing: the program state's until start-up sets the real one.
class NoHistory final : public StudentHistory
{
public:
    bool recordAttempt(const AttemptRecord &) override { return true; }
    bool recordTest(const TestRecord &, const QString &, const QList<AttemptRecord> &) override { return true; }
    bool recordGrading(const GradingRecord &) override { return true; }
    bool recordComposition(const CompositionRecord &) override { return true; }
    QMap<int, BestScore> bestScores(int, int) override { return {}; }
    ProgressSummary summary() override { return {}; }
    QList<Mistake> mistakes() override { return {}; }
    bool exportCsv(QIODevice &) override { return false; }
    bool keepPausedTest(const PausedTest &) override { return true; }
    std::optional<PausedTest> pausedTest(int) override { return std::nullopt; }
    bool dropPausedTest(int) override { return true; }
    QString problem() const override { return {}; }
};

/// Names used in the history for papers and kinds: "reading", "writing", "useofenglish"; the
/// kind's screen code ("rcmc", "ueca", "comp" ...).
QString historyPaperName(int paper);
int historyPaperNumber(const QString &name);
QString historyKindName(int kind);
int historyKindNumber(const QString &name);
int paperOfKind(int kind);

} // namespace sd
