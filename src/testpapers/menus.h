#pragma once

#include "frame/appscreen.h"

#include <QLabel>

namespace sd {

/// "SELECT THE PAPER": Reading, Writing or Use of English, each with its time.
class Examtype : public AppScreen
{
    Q_OBJECT
public:
    Examtype(ProgramState &state, Navigator &nav);

private:
    void choose(int paper);
};

/// The question offered when a paper with a kept, unfinished test is chosen: MessageText
/// ("Continue Test 3 (32 minutes used)?") in `lblMessage`, `Continue` and `Startagain`.
class continuetest : public AppScreen
{
    Q_OBJECT
public:
    continuetest(ProgramState &state, Navigator &nav);
};

/// "SELECT A TEST": Test 1 to Test 10 of the paper chosen; choosing one starts its clock.
class Examnumber : public AppScreen
{
    Q_OBJECT
public:
    Examnumber(ProgramState &state, Navigator &nav);
};

/// The sections of the test in hand, each with a done mark once answered; the final score,
/// the Writing test's save and print, and leaving the test.
class Examsection : public AppScreen
{
    Q_OBJECT
public:
    Examsection(ProgramState &state, Navigator &nav);

protected:
    void showEvent(QShowEvent *e) override;
    bool eventFilter(QObject *watched, QEvent *e) override;

private:
    void refresh();
    void openSection(int section);
    void openWritingPart(int section);
    void seeFinalScore();

    QLabel *m_instruct = nullptr, *m_move = nullptr, *m_review = nullptr, *m_saveHint = nullptr;
    ui::ImageButton *m_save = nullptr;
};

} // namespace sd
