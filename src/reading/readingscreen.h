#pragma once

#include "frame/core/datafiles.h"
#include "frame/exercisescreen.h"

#include <QLineEdit>

namespace sd {

class RichTextBox;
class WebPageBox;

/// What the score window asks of the exercise screen of the current kind.
class ReadingExercise
{
public:
    virtual ~ReadingExercise() = default;
    virtual void resetButtonImages() = 0;
    virtual void lockAnswerBoxes() = 0;
    /// Locks the boxes, shows each key (window-text colour when right, red when wrong) and the score line.
    virtual void showCorrectAnswers() = 0;
    virtual void hideScoreAndAnswers() = 0;
    virtual void showScoreLine() = 0;
    /// Fills the shared answer list from the boxes (and, in a test, the test answer store).
    virtual void takeAnswers() = 0;
};

/// Common part of the four Reading exercise screens: passage (rich text or web page), answer boxes
/// with their numbers and correct answers, the key, checking and the test-mode steps.
class ReadingScreen : public ExerciseScreen, public ReadingExercise
{
    Q_OBJECT

public:
    /// `file` is the kind's data file; `boxes` the number of answer boxes.
    ReadingScreen(const QString &code, ProgramState &state, Navigator &nav, int kind, DataFile file, int boxes);

    void resetButtonImages() override { ResetButtons(); }
    void lockAnswerBoxes() override;
    void showCorrectAnswers() override;
    void hideScoreAndAnswers() override;
    void showScoreLine() override;
    void takeAnswers() override;
    void keepTestAnswers() override;

    int questionCount() const { return int(m_keys.size()); }
    /// Points available: one per key letter.
    int total() const { return m_total; }

protected:
    /// What the record gives the screen; readExercise() reads it and closes file 1.
    struct Exercise
    {
        QString passage; ///< base name of the passage
        QString sheet;   ///< base name of the sheet shown in RichTextBox2 (empty: none)
        QString key;
    };

    void load() override;
    void onCheck() override;
    void onHelp() override;
    void onQuit() override;
    QList<QTextDocument *> printableDocuments() override;

    virtual QString instruction() const = 0;
    /// Default: a layout A record (Name the passage, Text1 the sheet, Answers the key).
    virtual Exercise readExercise();
    /// The sentence added to the instruction when the key ends in "*"; empty where "*" means nothing.
    virtual QString extraLine() const { return {}; }
    virtual QStringList splitKey(const QString &key) const;
    /// Boxes shown whatever the number of questions.
    virtual int alwaysShown() const { return 0; }
    /// Controls beside box i that show and hide with it (besides its number label).
    virtual QList<QWidget *> rowExtras(int) const { return {}; }
    virtual QString numberLabelName(int i) const { return QStringLiteral("Answerlbl%1").arg(i); }

    void addPassage(QRect rect);
    void addSheet(QRect rect);
    /// Answer row i: number label, answer box and the label of its correct answer.
    void addAnswerRow(int i, QRect number, QRect box, QRect answer, qreal fontPt = 12);
    /// Instruction line area: taller than the frame's so that four lines fit.
    void placeInstruction(QRect rect, qreal fontPt);
    /// The layout of the screens with a sheet: passage on the left, sheet on the right and the
    /// answer boxes in a row under the sheet.
    void layOutWithSheet(int boxes);

    int boxCount() const { return int(m_boxes.size()); }
    QLineEdit *box(int i) const { return m_boxes.at(i - 1); }
    QLabel *numberLabel(int i) const { return m_numbers.at(i - 1); }
    QLabel *answerLabel(int i) const { return m_answers.at(i - 1); }
    DataFile dataFile() const { return m_file; }

    RichTextBox *RichTextBox1 = nullptr, *RichTextBox2 = nullptr;
    WebPageBox *WebBrowser1 = nullptr;

private:
    void loadPassage(const QString &base);
    void storeSectionScore();
    int section() const;

    DataFile m_file;
    QList<QLineEdit *> m_boxes;
    QList<QLabel *> m_numbers, m_answers, m_marks;
    QStringList m_keys;
    int m_total = 0;
};

} // namespace sd
