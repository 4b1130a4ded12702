#include "gapscoring.h"

#include "frame/core/state.h"

namespace sd {

namespace {
/// Practice starts every opening afresh; a test keeps the section's saved answers.
void clearPracticeGap(ProgramState &s, int kind, int n)
{
    if (s.TestMode)
        return;
    s.SavedAnswer[kind][n].clear();
    s.GapEverCorrect[n] = false;
}
} // namespace

void PrepareChoiceGaps(ProgramState &s, int kind, const Array<QString, 1, 15> &items)
{
    s.GapCount = MaxGaps;
    s.Random.reseed();
    for (int n = 1; n <= MaxGaps; ++n) {
        s.GapAnswer[n].clear();
        const Alternatives a = SplitAlternatives(items[n]);
        s.GapKey[n] = a[0];
        if (s.GapKey[n].isEmpty())
            --s.GapCount;
        const Alternatives shown = ShuffleGap(s, a);
        for (int j = 1; j <= 4; ++j)
            s.GapAlternatives[n][j] = shown[std::size_t(j - 1)];
        clearPracticeGap(s, kind, n);
    }
}

void PrepareOpenGaps(ProgramState &s, int kind, const Array<QString, 1, 15> &items)
{
    s.GapCount = MaxGaps;
    for (int n = 1; n <= MaxGaps; ++n) {
        s.GapAnswer[n].clear();
        if (items[n].trimmed().isEmpty() || items[n] == u"///")
            --s.GapCount;
        const Alternatives a = SplitAlternatives(items[n]);
        for (int j = 1; j <= 4; ++j)
            s.GapAccepted[n][j] = a[std::size_t(j - 1)];
        s.GapKey[n] = a[0];
        clearPracticeGap(s, kind, n);
    }
}

void PrepareLineGaps(ProgramState &s, int kind, const Array<QString, 1, 15> &items)
{
    for (int n = 1; n <= MaxGaps; ++n) {
        s.GapAnswer[n].clear();
        s.GapKey[n] = items[n].toLower();
        clearPracticeGap(s, kind, n);
    }
    s.GapCount = MaxGaps;
}

void TakeAnswers(ProgramState &s, int kind, const QStringList &answers)
{
    for (int n = 1; n <= MaxGaps; ++n) {
        s.GapAnswer[n] = n <= answers.size() ? answers.at(n - 1) : QString();
        s.SavedAnswer[kind][n] = s.GapAnswer[n];
    }
}

void ScoreGaps(ProgramState &s, int kind)
{
    const int count = s.GapCount;
    for (int n = 1; n <= count; ++n) {
        s.GapCorrect[n] = false;
        s.GapWrong[n] = true;
        s.GapAnswerShown[n] = s.GapAnswer[n];
        s.GapAnswer[n] = RemoveCommas(CollapseSpaces(s.GapAnswer[n]));
        if (kind == 10) // a word typed with a blank before or after it is still the word
            s.GapAnswer[n] = s.GapAnswer[n].trimmed();
        s.GapKey[n] = RemoveCommas(s.GapKey[n]);
    }
    s.Score = 0;
    const bool open = kind == 7 || kind == 8;
    for (int n = 1; n <= count; ++n) {
        int matches = 0;
        if (open) {
            Alternatives accepted;
            for (int j = 1; j <= 4; ++j)
                accepted[std::size_t(j - 1)] = s.GapAccepted[n][j];
            matches = OpenClozeMatches(s.GapAnswer[n], accepted);
            // The key becomes the accepted answer that matched, so it is the one shown.
            for (const QString &a : accepted)
                if (!s.GapAnswer[n].isEmpty() && SameAnswer(s.GapAnswer[n], a))
                    s.GapKey[n] = a;
        } else if (SameAnswer(s.GapAnswer[n], s.GapKey[n])) {
            matches = 1;
        }
        if (matches > 0) {
            s.Score += matches;
            s.GapCorrect[n] = true;
            s.GapWrong[n] = false;
        } else {
            s.WrongAnswerList += QString::number(n) + u'.' + s.GapAnswerShown[n] + QStringLiteral("  ");
        }
    }
    for (int n = 1; n <= MaxGaps; ++n)
        if (s.GapCorrect[n])
            s.GapEverCorrect[n] = true;
    s.VerdictIndex = GapVerdict(s.Score, s.GapCount);
}

QString GapScoreLine(int score, const QString &outOf)
{
    return QStringLiteral("Score: ") + QString::number(score) + QStringLiteral(" out of ") + outOf;
}

} // namespace sd
