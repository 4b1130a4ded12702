#include "readingscore.h"

#include "frame/core/state.h"

namespace sd {

namespace {
const char *const screenCodes[] = {"rche", "rcmc", "rcre", "rcma"};

bool isReadingKind(int kind)
{
    return kind >= 1 && kind <= 4;
}
} // namespace

QString readingScreenCode(int kind)
{
    return isReadingKind(kind) ? QString::fromLatin1(screenCodes[kind - 1]) : QString();
}

QString readingCheckScreenCode(int kind)
{
    if (!isReadingKind(kind))
        return {};
    return kind == 1 ? QStringLiteral("rchecheck") : QStringLiteral("rc2check");
}

QString readingHelpTopic(int kind)
{
    return isReadingKind(kind) ? QStringLiteral("help") + readingScreenCode(kind) : QString();
}

int readingStoreSize(int kind)
{
    return kind == 4 ? 13 : 8;
}

QStringList splitLetterKey(QString key, bool allowExtra, bool *extra)
{
    const bool marked = allowExtra && key.endsWith(u'*');
    if (marked)
        key.chop(1);
    if (extra)
        *extra = marked;
    QStringList out;
    for (const QChar c : std::as_const(key))
        out.append(QString(c));
    return out;
}

QStringList splitSlashKey(const QString &key)
{
    return key.isEmpty() ? QStringList() : key.split(u'/');
}

int scoreReadingAnswer(const QString &typed, const QString &keyText, bool *right)
{
    // Blanks around an answer never make it wrong, and a letter is a letter in either case.
    const QString answer = typed.trimmed().toUpper();
    const QString key = keyText.trimmed().toUpper();
    if (right)
        *right = false;
    const qsizetype letters = key.size();
    if (letters == 1) {
        if (answer != key)
            return 0;
        if (right)
            *right = true;
        return 1;
    }
    if (letters != 2 && letters != 3)
        return 0;
    // Each of the first `letters` characters counts once: a repeat of an earlier one is ignored.
    int hits = 0;
    for (qsizetype i = 0; i < letters && i < answer.size(); ++i) {
        const QChar a = answer.at(i);
        if (answer.left(i).contains(a))
            continue;
        if (key.contains(a))
            ++hits;
    }
    if (right)
        *right = hits == letters;
    return hits;
}

int readingKeyPoints(const QString &key)
{
    return key.size() >= 1 && key.size() <= 3 ? int(key.size()) : 0;
}

ReadingScore scoreReading(const QStringList &answers, const QStringList &keys)
{
    ReadingScore out;
    for (qsizetype i = 0; i < keys.size(); ++i) {
        bool right = false;
        out.score += scoreReadingAnswer(answers.value(i), keys.at(i), &right);
        out.total += readingKeyPoints(keys.at(i));
        out.right.append(right);
    }
    return out;
}

ReadingVerdict readingVerdict(int total, int score)
{
    const double t = total;
    if (score == total)
        return {QStringLiteral("Well done!"), 1, 1};
    if (score == total - 1)
        return {QStringLiteral("A near miss - only one wrong"), 2, 2};
    if (score > t * 74 / 100)
        return {QStringLiteral("A good pass"), 4, 3}; // same sound as "OK - a pass", on purpose
    if (score > t * 59 / 100)
        return {QStringLiteral("OK - a pass"), 4, 4};
    if (score > t * 25 / 100)
        return {QStringLiteral("Sorry, only some answers correct."), 6, 6};
    return {QStringLiteral("What happened?"), 7, 7};
}

int readingKeyCount(const ProgramState &s)
{
    int n = 0;
    while (n + 1 <= s.ReadingKeys.last && !s.ReadingKeys[n + 1].isEmpty())
        ++n;
    return n;
}

void ScoreReadingAnswers(ProgramState &s, int kind)
{
    const int n = readingKeyCount(s);
    QStringList answers, keys;
    for (int i = 1; i <= n; ++i) {
        answers.append(s.ReadingAnswers[i]);
        keys.append(s.ReadingKeys[i]);
    }
    const ReadingScore r = scoreReading(answers, keys);
    s.ReadingResult.fill(false);
    for (int i = 1; i <= n; ++i)
        s.ReadingResult[i] = r.right.at(i - 1);
    for (int i = 0; i <= readingStoreSize(kind); ++i)
        s.ReadingResults.at(kind, i) = false;
    for (int i = 1; i <= n; ++i)
        s.ReadingResults.at(kind, i) = s.ReadingResult[i];
    s.Score = r.score;
    s.QuestionCount = r.total;
}

} // namespace sd
