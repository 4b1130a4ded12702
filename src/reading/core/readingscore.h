#pragma once

#include <QList>
#include <QString>
#include <QStringList>

namespace sd {

struct ProgramState;

/// Screen codes, check screens and help topics of the four Reading kinds (1 headings,
/// 2 multiple choice, 3 text reconstruction, 4 matching); empty for any other kind.
QString readingScreenCode(int kind);
QString readingCheckScreenCode(int kind);
QString readingHelpTopic(int kind);
/// Highest question number the Reading result store keeps for a kind (8, or 13 for matching).
int readingStoreSize(int kind);

/// One letter per question. With allowExtra a trailing "*" (one extra section or heading that
/// belongs nowhere) is removed and reported in *extra.
QStringList splitLetterKey(QString key, bool allowExtra = false, bool *extra = nullptr);
/// Keys separated by "/" (matching: "B/A/AD/C").
QStringList splitSlashKey(const QString &key);

/// An answer as the score window compares it: upper-cased, never trimmed.
inline QString readingAnswer(const QString &typed)
{
    return typed.toUpper();
}

/// Points of one answer against its key. One letter: the whole answer must equal it. Two or three
/// letters: the first two or three characters of the answer each count once when they are one of
/// the key's letters and differ from the characters before them. Any other key length scores
/// nothing. *right is true only when every letter of the key was hit.
int scoreReadingAnswer(const QString &answer, const QString &key, bool *right = nullptr);
/// The most an answer to the key can score.
int readingKeyPoints(const QString &key);

struct ReadingScore
{
    int score = 0;
    int total = 0;      ///< points available: one per key letter
    QList<bool> right;  ///< per question, in question order
};
ReadingScore scoreReading(const QStringList &answers, const QStringList &keys);

/// The score window's own verdict: comment, VerdictIndex (which chooses the sound) and the
/// picture of the row. "A good pass" shares index 4 with "OK - a pass" but keeps its own picture.
struct ReadingVerdict
{
    QString comment;
    int verdictIndex = 7;
    int picture = 7;
};
/// Thresholds T x 74, 59 and 25 over 100, in floating point, compared strictly.
ReadingVerdict readingVerdict(int total, int score);

/// Number of questions of the exercise in hand: the keys filled from ReadingKeys(1) on.
int readingKeyCount(const ProgramState &s);
/// Scores ReadingAnswers against ReadingKeys: sets Score, QuestionCount, ReadingResult and the
/// result store list of the kind. Throws RangeError for more questions than the store holds.
void ScoreReadingAnswers(ProgramState &s, int kind);

} // namespace sd
