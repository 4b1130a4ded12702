#pragma once

#include "appscreen.h"
#include "core/datafiles.h"
#include "core/state.h"

#include <QLabel>

class QTextDocument;

namespace sd {

/// Common frame of every exercise screen: the three heading plates (activity, paper, kind), the
/// exercise id and instruction lines, the logo, the picture buttons `Check`, `Printing`, `Help`,
/// `Quit` with their captions, and the clock button with its balloon. Subclasses place their own
/// controls in contentArea() and implement load(); a ProgramError thrown while loading shows
/// "ERROR" / "NO TEXT" and leaves the screen open so that it can be left with `Quit`.
class ExerciseScreen : public AppScreen
{
    Q_OBJECT

public:
    ExerciseScreen(const QString &code, ProgramState &state, Navigator &nav, int kind);
    ~ExerciseScreen() override;

    /// Builds the exercise from the record in hand; call once after construction.
    void runLoad();
    bool loadFailed() const { return m_loadFailed; }

    static QRect contentArea() { return QRect(16, 124, 992, 536); }

    /// "LEVEL 2   Exercise 7" in practice, "TEST 3" in a test; a leading "0" of either code dropped.
    static QString exerciseId(const QString &levelCode, const QString &exerciseCode, bool testMode);
    /// A code that begins with "0" loses that one character ("05" -> "5", "10" stays).
    static QString dropLeadingZero(const QString &code);

    /// Puts the first check of this run of a practice exercise in the student's history; later
    /// checks of the run ("Try again") add nothing. Never in a test: a test is recorded whole.
    void recordFirstCheck(double score, double max, const QList<AnswerRecord> &answers);
    /// A test section puts what is typed into the test's answer store, so that the test can be
    /// kept as it stands (the program is closing). Nothing is scored or marked done.
    virtual void keepTestAnswers() {}

protected:
    virtual void load() = 0;
    virtual void onCheck() {}
    /// Default: prints printableDocuments() as one job.
    virtual void onPrint();
    /// The rich-text documents that "Print text" prints, in order (passage, then questions).
    virtual QList<QTextDocument *> printableDocuments() { return {}; }
    virtual void onHelp() {}
    /// Default: stop the clock and close, back to the menu below.
    virtual void onQuit();

    /// Reads the record in hand (CurrentRecord) from data file 1, then closes the file, whether the
    /// read worked or not: the screen has taken what it needs from it.
    template<typename R>
    R readRecord(DataFile file)
    {
        struct Closer
        {
            ProgramState &s;
            ~Closer() { CloseDataFile(s); }
        } closer{state};
        return ReadRecordAs<R>(state, file, state.CurrentRecord);
    }
    /// Shows the load failure: "ERROR" in lblExid and "NO TEXT" as the instruction.
    void showLoadError();
    /// Headings from the activity, paper and kind names, in capitals.
    void setHeadings();
    /// Sets lblExid; in practice the shortened exercise code is written back to the state.
    void setExerciseId();
    /// Practice: sets the target time of the paper; then starts the clock.
    void startClock();
    /// Practice shows Help and Check; a test hides them. The clock follows ClockShown.
    void showModeButtons();
    void handleError(const ProgramError &e) override;
    /// The first time the exercise shows, the first answer box has the keyboard focus.
    void showEvent(QShowEvent *e) override;
    bool eventFilter(QObject *watched, QEvent *e) override;

    int kind() const { return m_kind; }

    QLabel *lblHead1 = nullptr, *lblHead2 = nullptr, *lblHead3 = nullptr;
    QLabel *lblExid = nullptr, *lblInstruction = nullptr, *lblScore = nullptr;
    ui::ImageButton *Check = nullptr, *Printing = nullptr, *Help = nullptr, *Quit = nullptr, *imgTime = nullptr;
    QLabel *lblCheck = nullptr, *lblPrint = nullptr, *lblHelp = nullptr, *lblQuit = nullptr, *lblTime = nullptr;
    QLabel *lblShowtime = nullptr, *imgTimeballoon = nullptr, *logo = nullptr;

private:
    void showClockBalloon();

    int m_kind;
    bool m_loading = false;
    bool m_shownOnce = false;
    bool m_loadFailed = false;
    bool m_checkRecorded = false;
    QDateTime m_openedAt;
};

} // namespace sd
