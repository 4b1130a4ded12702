#pragma once

#include "core/itemrun.h"
#include "frame/appscreen.h"
#include "frame/exercisescreen.h"
#include "frame/menus.h"

#include <QLabel>
#include <QLineEdit>

namespace sd {

/// The level-and-exercise menu of a one-item kind (word formation or sentence conversion). It owns
/// the run that its exercise screen, the check screen, the score screen and the review share; the
/// run lives while the menu is open and is replaced by the next exercise chosen.
class ItemChoiceScreen : public AppScreen, public ExerciseMenu
{
    Q_OBJECT

public:
    ItemChoiceScreen(const QString &code, ProgramState &state, Navigator &nav, int kind);
    ItemRun &run() { return m_run; }
    void openExercise(int level, int exercise) override;

protected:
    /// The items of the exercise LevelCode & ExerciseCode; throws ProgramError with the error text.
    virtual QList<OneItem> readItems() = 0;
    void showEvent(QShowEvent *e) override;

private:
    void chooseLevel(int level);
    void chooseExercise(int n);
    void showChosenLevel();

    int m_kind;
    ItemRun m_run;
    QLabel *lblPrompt = nullptr;
    LevelMenuRows m_rows;
};

class uewbchoice : public ItemChoiceScreen
{
    Q_OBJECT
public:
    uewbchoice(ProgramState &state, Navigator &nav);
protected:
    QList<OneItem> readItems() override;
};

class uescchoice : public ItemChoiceScreen
{
    Q_OBJECT
public:
    uescchoice(ProgramState &state, Navigator &nav);
protected:
    QList<OneItem> readItems() override;
};

/// Screen codes of a one-item kind: the menu, the exercise screen and the review.
struct ItemScreens
{
    QString choice, exercise, review, help;
};
ItemScreens itemScreens(int kind);
/// The run of the one-item kind in hand, or null when its menu is not open.
ItemRun *findItemRun(const Navigator &nav, int kind);

/// One item at a time: the answer box, "Check answer" (judged on `uesccheck`), "Continue" after
/// the check screen was closed with "See correct answer", and the end-of-exercise score.
class ItemExerciseScreen : public ExerciseScreen
{
    Q_OBJECT

public:
    ItemExerciseScreen(const QString &code, ProgramState &state, Navigator &nav, int kind);

    /// The check screen's "Continue": the next item, or the score at the end.
    void moveOn();
    /// The check screen's "See correct answer": the answer shown, only "Continue" left.
    void showCorrectAnswer();

protected:
    void load() override;
    void onCheck() override;
    void onHelp() override;
    /// Shows the current item in the labels.
    virtual void showItem(const OneItem &item) = 0;
    void showScore();

    ItemRun *run = nullptr;
    QLineEdit *Text1 = nullptr;
    QLabel *lblCorrectanswer = nullptr;
    ui::ImageButton *continueButton = nullptr;
    QLabel *lblContinue = nullptr;
};

class uewb : public ItemExerciseScreen
{
    Q_OBJECT
public:
    uewb(ProgramState &state, Navigator &nav);
protected:
    void showItem(const OneItem &item) override;
private:
    QLabel *Label1 = nullptr, *Label2 = nullptr, *Label3 = nullptr, *lblInfo = nullptr;
};

class uesc : public ItemExerciseScreen
{
    Q_OBJECT
public:
    uesc(ProgramState &state, Navigator &nav);
protected:
    void showItem(const OneItem &item) override;
private:
    QLabel *lblQuestionnumber = nullptr, *Label1 = nullptr, *Label2 = nullptr, *Label7 = nullptr, *Label8 = nullptr;
};

/// The judgement of one item, modal over `uewb` or `uesc`.
class uesccheck : public AppScreen
{
    Q_OBJECT
public:
    uesccheck(ProgramState &state, Navigator &nav);
private:
    ItemExerciseScreen *exercise();
};

/// The end-of-exercise score of both one-item kinds, modal over the exercise screen.
class uescscore : public AppScreen
{
    Q_OBJECT
public:
    uescscore(ProgramState &state, Navigator &nav);
private:
    /// Closes this window and the exercise screen below it: back to the menu.
    void leave();
};

/// Steps through the asked items in the order asked, with the student's and the correct answers.
class ItemReviewScreen : public AppScreen
{
    Q_OBJECT
public:
    ItemReviewScreen(const QString &code, ProgramState &state, Navigator &nav, int kind);
protected:
    void showPosition();
    void step(int by);
    virtual void showItem(const OneItem &item) = 0;

    int kind;
    ItemRun *run = nullptr;
    int position = 1;
    QLabel *Label1 = nullptr, *Label2 = nullptr, *lblQnumber = nullptr, *lblAnswer = nullptr, *lblScore = nullptr;
    QLabel *Image4 = nullptr;
    QLineEdit *Text1 = nullptr;
};

class uewbreview : public ItemReviewScreen
{
    Q_OBJECT
public:
    uewbreview(ProgramState &state, Navigator &nav);
protected:
    void showItem(const OneItem &item) override;
};

class uescreview : public ItemReviewScreen
{
    Q_OBJECT
public:
    uescreview(ProgramState &state, Navigator &nav);
protected:
    void showItem(const OneItem &item) override;
};

} // namespace sd
