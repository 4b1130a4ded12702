#pragma once

#include "frame/core/checked.h"
#include "frame/core/datafiles.h"
#include "frame/exercisescreen.h"

#include <QComboBox>
#include <QLineEdit>

namespace sd {

class RichTextBox;

/// What the check screen asks of the gap exercise it has scored.
class GapCheckTarget
{
public:
    virtual ~GapCheckTarget() = default;
    virtual void ShowCorrectAnswers() = 0;
    virtual void ShowWrongMarks() = 0;
    virtual void HideMarks() = 0;
    virtual void ResetButtons() = 0;
    virtual void HideCheck() = 0;
    /// "Close" after a check with every gap right.
    virtual void AllCorrectClose() = 0;
};

/// Screen code of the gap exercise of a kind (6 ueca, 7 uecb, 9 ueec, 10 uewbx); empty otherwise.
QString gapScreenCode(int kind);
/// The open gap exercise of a kind, or null.
GapCheckTarget *findGapScreen(const Navigator &nav, int kind);

/// Common part of the gap exercise screens: numbered rows with a mark ("mark" picture, `Image`N)
/// and a correct-answer box laid over the student's control, `Label16` "Correct answers", the
/// check routine with `uecheck`, the test-mode steps (saved answers, visited section, silent
/// scoring on leaving an unscored section) and the help topic "help" + code.
class GapExerciseScreen : public ExerciseScreen, public GapCheckTarget
{
    Q_OBJECT

public:
    GapExerciseScreen(const QString &code, ProgramState &state, Navigator &nav, int kind);

    void ShowCorrectAnswers() override;
    void ShowWrongMarks() override;
    void HideMarks() override;
    void ResetButtons() override { ui::Screen::ResetButtons(); }
    void HideCheck() override;
    void AllCorrectClose() override;
    void keepTestAnswers() override;

protected:
    /// Anything else shown together with the correct answers.
    virtual void showAnswerExtras() {}

    void onCheck() override;
    void onQuit() override;
    void onHelp() override;
    QList<QTextDocument *> printableDocuments() override;

    /// Headings, exercise id, instruction, the buttons of the mode, the clock picture by the clock
    /// setting, the visited section of a test, and the row numbers "1." to "15.".
    void beginLoad(const QString &instruction);
    /// Marks hidden; in a test the saved answers back, and after the test's scoring the correct
    /// answers and marks of this section; otherwise no correct-answer boxes. Starts the clock.
    void finishLoad();
    /// Loads DataDir & name & ".rtf" into the passage; fails the load when it cannot.
    void loadPassage(const QString &name);
    /// Lists and boxes of gaps 11..15 beyond GapCount are hidden; 1..10 always stay.
    void hideUnusedRows();
    /// Adds the passage box, the "Correct answers" caption and rows of number, input, answer box
    /// and mark in the column to the right of the passage.
    /// The answer boxes are named keyPrefix + N.
    void buildPassageAndColumn(const std::function<QWidget *(int n)> &makeInput, QRect passage,
                               const QString &keyPrefix);
    /// The passage and a column of typed boxes `Text1`..`Text15` (into `boxes`), their correct
    /// answers named keyPrefix + N, in gap order for Tab.
    void buildTypedColumn(Array<QLineEdit *, 1, 15> &boxes, const QString &keyPrefix);
    /// Tab order: the passage (if any), the given controls in gap order, then the buttons.
    void setGapTabOrder(const QList<QWidget *> &chain);

    int section() const;
    /// A carriage return in the instruction starts a new line, as the student should see it.
    bool eventFilter(QObject *watched, QEvent *e) override;
    /// The answer box of gap n that shows its correct answer.
    QLineEdit *addAnswerBox(const QString &name, QRect rect);

    RichTextBox *RichTextBox1 = nullptr;
    QLabel *Label16 = nullptr;
    Array<QLabel *, 1, 15> Label;      ///< row numbers "1." .. "15."
    Array<QWidget *, 1, 15> Input;     ///< the student's control of each row
    Array<QLineEdit *, 1, 15> KeyBox;  ///< the correct answers
    Array<QLabel *, 1, 15> Image;      ///< marks
    /// A test shows the score "out of 15" whatever the number of gaps (open cloze, error correction).
    bool testOutOfFifteen = false;

private:
    /// The student's answers of gaps 1..15 as the lists and boxes show them.
    QStringList shownAnswers() const;
    /// Puts the section's saved answers back into the lists and boxes (test).
    void restoreAnswers();
    void scoreSilently();
};

} // namespace sd
