#pragma once

#include "appscreen.h"
#include "core/datafiles.h"

#include <QLabel>

#include <functional>

namespace sd {

/// Background screen over which the start screen and the menus open.
class Introback : public AppScreen
{
    Q_OBJECT
public:
    Introback(ProgramState &state, Navigator &nav);
};

/// Start screen: fills the shared state once and offers the four ways in.
class Intro : public AppScreen
{
    Q_OBJECT
public:
    Intro(ProgramState &state, Navigator &nav);

private:
    void goOn(const QString &next);
};

/// Choose the type of exercise: three papers, ten kinds.
class Practype : public AppScreen
{
    Q_OBJECT
public:
    Practype(ProgramState &state, Navigator &nav);
    /// The label of each kind, in kind order.
    static const char *kindLabel(int kind);

private:
    void choose(int kind);
};

/// A level-and-exercise menu that another screen (the mistakes list) can drive.
class ExerciseMenu
{
public:
    virtual ~ExerciseMenu() = default;
    /// Chooses the level, then the exercise, as the student would.
    virtual void openExercise(int level, int exercise) = 0;
};

/// What every level-and-exercise menu shows: the heading plates of activity, paper and kind,
/// "SELECT LEVEL AND EXERCISE", the level captions `lblLevel1`..`lblLevel3`, the exercise captions
/// `lblEx1`..`lblEx10` in two columns of five, and beside each exercise its mark `lblBest1`..
/// `lblBest10`: the best score so far ("7/10") or "new" for an exercise not yet done. The screen
/// says what choosing a level or an exercise does.
class LevelMenuRows
{
public:
    void add(AppScreen *screen, const ProgramState &state, int kind, const QString &levelCaption,
             const QString &exerciseCaption, const std::function<void(int)> &chooseLevel,
             const std::function<void(int)> &chooseExercise);
    /// The level of LevelCode looks chosen, the others not.
    void showChosenLevel(const QString &levelCode);
    /// Shows the level's best scores, asked of the history in one query.
    void showBest(ProgramState &state, int kind, int level);
    /// "7/10", "6.5/10"
    static QString markText(double score, double max);

private:
    QList<ui::MenuLabel *> m_levels;
    QList<QLabel *> m_marks;
};
/// Sets the paper, data directory and data file of a practice kind, as choosing it on `Practype` does.
void ChoosePracticeKind(ProgramState &state, int kind);
/// The level-and-exercise menu of a practice kind.
QString practiceMenuScreen(int kind);

/// Choose level and exercise; finds the exercise's record and opens its screen.
class Pracchoice : public AppScreen, public ExerciseMenu
{
    Q_OBJECT
public:
    Pracchoice(ProgramState &state, Navigator &nav);
    /// Screen code of each kind's exercise screen.
    static QString exerciseScreen(int kind);
    void openExercise(int level, int exercise) override;

protected:
    void showEvent(QShowEvent *e) override;

private:
    void chooseLevel(int level);
    void chooseExercise(int n);
    void showChosenLevel();

    LevelMenuRows m_rows;
    QLabel *m_code = nullptr;
};

/// Message screen: beeps, shows ErrorText and closes on "Continue".
class ErrorScreen : public AppScreen
{
    Q_OBJECT
public:
    ErrorScreen(ProgramState &state, Navigator &nav);
};

/// The student's settings: the clock, sounds and volume, passages as web pages, the size of the
/// reading text. Every change takes effect at once and is kept for the next run.
class Settings : public AppScreen
{
    Q_OBJECT
public:
    Settings(ProgramState &state, Navigator &nav);

private:
    void changed();
    void showTextSize();
    QLabel *m_textSize = nullptr;
};

/// A message box: MessageText in `lblMessage` and one button, `OK`. Used where the student is told
/// something that is not an error of the program (a failed print or save).
class MessageBox : public AppScreen
{
    Q_OBJECT
public:
    MessageBox(ProgramState &state, Navigator &nav);
};

/// Runs a record search. A missing key ("Not found"), a missing or unreadable file ("No file") or a
/// file over its size limit shows the error screen and gives false.
bool FindOrShowError(Navigator &nav, const std::function<SearchResult()> &search);

/// Shows a plain message when a part of the program is not available in this version.
void showNotAvailable(Navigator &nav, ProgramState &state, const QString &what);

} // namespace sd
