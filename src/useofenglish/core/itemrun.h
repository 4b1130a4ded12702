#pragma once

#include "gaprules.h"

#include <QList>
#include <QString>

namespace sd {

struct ProgramState;

/// One sentence of word formation or one item of sentence conversion.
struct OneItem
{
    QString prompt;             ///< the sentence (word formation) or the first sentence
    QString start, end;         ///< sentence conversion: the second sentence around the gap
    QString word;               ///< the base word or the word given
    QString answer;             ///< the correct answer shown to the student
    Alternatives alternatives;  ///< the correct answer, then up to three more accepted ones
    QString typed;              ///< the student's answer at the last check
    QString normalised;         ///< the answer as the review keeps it
    bool right = false;         ///< right at the last check
    bool counted = false;       ///< already added to the score
};

/// The practice sentences of word formation: DataDir & "wb" & level & exercise, a record each.
/// Throws ProgramError("No file") when the file is missing or empty; never creates it.
QList<OneItem> ReadWordSentences(ProgramState &s, const QString &level, const QString &exercise);
/// The items of a sentence-conversion exercise: the records of "pracuesc.dat" keyed `key`, in
/// file order. Throws ProgramError("No file") when the file cannot be read.
QList<OneItem> ReadConversionItems(ProgramState &s, const QString &key);

/// A run of one-item questions: up to `most` items drawn at random, each once, judged one at a
/// time; an item adds to the score at most once however often it is checked. Sized to the item
/// count, so a file of any length asks `most` of its items without repeats.
class ItemRun
{
public:
    /// Starts a run on the items; the first item is drawn at once. No items: an empty run.
    void start(ProgramState &s, QList<OneItem> items, int most = 10);
    bool isEmpty() const { return m_order.isEmpty(); }
    /// Items asked in the run: the item count, at most `most`.
    int questionCount() const { return m_asked; }
    /// Position of the current item, 1 to questionCount().
    int position() const { return int(m_order.size()); }
    bool atEnd() const { return position() >= m_asked; }
    OneItem &current() { return m_items[m_order.last()]; }
    /// The item asked at position p (1-based).
    OneItem &askedAt(int p) { return m_items[m_order.at(p - 1)]; }
    /// Record numbers (1-based) in the order asked.
    QList<int> order() const;
    /// Judges the answer for the current item; true when right.
    bool check(const QString &typed);
    /// Draws the next item not yet asked; false at the end of the run.
    bool next(ProgramState &s);
    int score() const { return m_score; }

private:
    QList<OneItem> m_items;
    QList<bool> m_used;
    QList<int> m_order; ///< indexes into m_items
    int m_asked = 0;
    int m_score = 0;
};

/// "Question k of N".
QString QuestionLine(int k, int count);
/// The end-of-exercise score line "Score: S out of N".
QString ItemScoreLine(int score, int count);

} // namespace sd
