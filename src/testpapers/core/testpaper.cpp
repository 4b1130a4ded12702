#include "testpaper.h"

#include "frame/core/state.h"
#include "frame/core/verdicts.h"

namespace sd {

int PaperTargetMinutes(int paper)
{
    return paper == WritingPaper ? 90 : 75;
}

int SectionKind(int paper, int section)
{
    if (section < 1 || section > 5)
        return 0;
    switch (paper) {
    case ReadingPaper: return section <= 4 ? section : 0;
    case WritingPaper: return section == 2 || section == 4 ? 5 : 0;
    case UseOfEnglishPaper: return section + 5;
    default: return 0;
    }
}

QString SectionCaption(const ProgramState &s, int paper, int section)
{
    const int kind = SectionKind(paper, section);
    if (kind == 0)
        return {};
    if (kind == 5)
        return section == 2 ? QStringLiteral("Part 1") : QStringLiteral("Part 2");
    return s.KindNames[kind];
}

QString TestKey(int test)
{
    return QStringLiteral("x%1").arg(test, 2, 10, QLatin1Char('0'));
}

int UseOfEnglishSectionMaximum(int section)
{
    return section == 3 || section == 5 ? 10 : 15;
}

namespace {
/// total / maximum x 100, rounded to the nearest whole number with halves going up, in whole
/// numbers so that 13 of 40 gives 33 and not a hair under.
int roundedPercent(int total, int maximum)
{
    if (maximum <= 0 || total <= 0)
        return 0;
    return int((200LL * total + maximum) / (2LL * maximum));
}
} // namespace

TestScore ScoreTest(int paper, const std::array<SectionResult, 6> &sections)
{
    TestScore out;
    if (paper == UseOfEnglishPaper)
        out.maximum = 65;
    for (int n = 1; n <= 5; ++n) {
        if (SectionKind(paper, n) == 0)
            continue;
        const SectionResult &r = sections[std::size_t(n)];
        if (!r.done) {
            out.allDone = false;
            out.rows[std::size_t(n)] = QStringLiteral("Not done");
            if (paper == UseOfEnglishPaper)
                out.maximum -= UseOfEnglishSectionMaximum(n);
            continue;
        }
        if (paper == ReadingPaper) {
            const int weight = n <= 3 ? 2 : 1;
            out.total += weight * r.score;
            out.maximum += weight * r.questions;
            out.rows[std::size_t(n)] = QStringLiteral("%1 out of %2").arg(r.score).arg(r.questions);
        } else if (paper == UseOfEnglishPaper) {
            out.total += r.score;
            out.rows[std::size_t(n)] = QStringLiteral("%1 out of %2").arg(r.score).arg(UseOfEnglishSectionMaximum(n));
        }
    }
    if (paper == WritingPaper)
        out.maximum = 0;
    out.percent = roundedPercent(out.total, out.maximum);
    return out;
}

namespace {
std::array<SectionResult, 6> sectionsOf(const ProgramState &s)
{
    std::array<SectionResult, 6> out;
    for (int n = 1; n <= 5; ++n) {
        out[std::size_t(n)].done = s.SectionDone[n];
        out[std::size_t(n)].score = s.SectionScore[n];
        out[std::size_t(n)].questions = s.SectionQuestions[n];
    }
    return out;
}
} // namespace

TestScore ComputeTestScore(ProgramState &s)
{
    TestScore score = ScoreTest(s.PaperIndex, sectionsOf(s));
    s.ScorePercent = score.percent;
    s.VerdictIndex = VerdictRuleC(score.percent);
    return score;
}

void ClearTest(ProgramState &s)
{
    s.Clock.stop();
    s.ElapsedMinutes = 0;
    s.RemainingMinutes = s.TargetMinutes;
    for (int n = 0; n <= 5; ++n) {
        s.SectionDone[n] = false;
        s.SectionVisited[n] = false;
        s.SectionScore[n] = 0;
        s.SectionQuestions[n] = 0;
    }
    for (int kind = 0; kind <= 10; ++kind)
        for (int i = 0; i <= 20; ++i)
            s.SavedAnswer[kind][i].clear();
    s.TestScored = false;
    s.ShowSectionAnswers = false;
    s.SectionIndex = 0;
    s.CompositionHeading.clear();
    s.CompositionText.clear();
    s.LetterHeading.clear();
    s.LetterText.clear();
    s.StudentName.clear();
    s.CompositionNumber.clear();
    s.PaperLabel.clear();
    s.CompositionSaved = true;
    s.TestLetterSheet.clear();
    s.TestQuestionFile.clear();
}

void StartTest(ProgramState &s, int test)
{
    ClearTest(s);
    s.TestNumber = test;
    s.LevelCode = QStringLiteral("%1").arg(test, 2, 10, QLatin1Char('0'));
    s.TargetMinutes = PaperTargetMinutes(s.PaperIndex);
    s.Clock.start();
}

TestRecord FinishedTestRecord(const ProgramState &s, const TestScore &score)
{
    TestRecord r;
    r.finishedAt = s.Time.now().toUTC();
    r.paper = s.PaperIndex;
    r.test = s.TestNumber;
    r.percent = score.percent;
    r.verdict = s.PaperIndex == WritingPaper ? 0 : VerdictRuleC(score.percent);
    r.minutes = s.ElapsedMinutes;
    r.sections = sectionsOf(s);
    return r;
}

} // namespace sd

namespace sd {

QList<AttemptRecord> SectionAttempts(const TestRecord &test)
{
    QList<AttemptRecord> out;
    for (int n = 1; n <= 5; ++n) {
        const int kind = SectionKind(test.paper, n);
        const SectionResult &r = test.sections[std::size_t(n)];
        if (kind == 0 || kind == 5 || !r.done)
            continue;
        AttemptRecord a;
        a.finishedAt = test.finishedAt;
        a.test = true;
        a.kind = kind;
        a.exercise = TestKey(test.test);
        a.score = r.score;
        a.max = test.paper == UseOfEnglishPaper ? UseOfEnglishSectionMaximum(n) : r.questions;
        out.append(a);
    }
    return out;
}

} // namespace sd
