#include "uecheck.h"

#include "core/gapscoring.h"
#include "frame/core/state.h"
#include "frame/core/verdicts.h"
#include "gapexercise.h"

namespace sd {

uecheck::uecheck(ProgramState &s, Navigator &nav) : AppScreen(QStringLiteral("uecheck"), s, nav)
{
    setCaptionColours(ui::ImageButton::highlightColour(), ui::ImageButton::captionColour());
    setDesignSize(QSize(560, 400));
    addLabel(QStringLiteral("lblHead"), QStringLiteral("Score"), QRect(20, 12, 520, 30), 16, true, Qt::AlignCenter);
    addLabel(QStringLiteral("lblTopdots"), s.Separator, QRect(20, 44, 520, 16), 8, false, Qt::AlignCenter);
    lblScore = addLabel(QStringLiteral("lblScore"), QString(), QRect(20, 62, 520, 34), 18, true, Qt::AlignCenter);
    Image1 = addPicture(QStringLiteral("Image1"), QStringLiteral("verdict1"), QRect(230, 100, 100, 100));
    Label4 = addLabel(QStringLiteral("Label4"), QStringLiteral("Comment"), QRect(20, 204, 520, 30), 13, true,
                      Qt::AlignCenter);
    addLabel(QStringLiteral("lblBottomdots"), s.Separator, QRect(20, 238, 520, 16), 8, false, Qt::AlignCenter);

    struct ButtonDef { const char *name, *icon, *caption, *text; void (uecheck::*act)(); };
    const ButtonDef buttons[] = {
        {"seecorrect", "seecorrect", "lblSeecorrect", "See correct answers", &uecheck::seeCorrect},
        {"seewrong", "seewrong", "lblSeewrong", "See wrong answers", &uecheck::seeWrong},
        {"tryagain", "tryagain", "lblAgain", "Try again", &uecheck::tryAgain},
        {"back", "back", "lblBack", "Close", &uecheck::closeCheck},
    };
    int x = 54;
    for (const ButtonDef &b : buttons) {
        ui::ImageButton *button = addButton(QString::fromLatin1(b.name), QString::fromLatin1(b.icon), QRect(x, 266, 52, 52),
                                            QString::fromLatin1(b.caption), QString::fromLatin1(b.text),
                                            QRect(x - 38, 322, 128, 44));
        onClick(button, [this, act = b.act] { (this->*act)(); });
        x += 132;
    }

    guarded([this] {
        ScoreGaps(state, state.ExerciseKind);
        lblScore->setText(QString::number(state.Score) + QStringLiteral(" out of ") + QString::number(state.GapCount));
        setPicture(Image1, QStringLiteral("verdict%1").arg(int(state.VerdictIndex)));
        Label4->setText(state.VerdictTexts[state.VerdictIndex]);
        if (state.PracticeMode)
            PlaySound(state, state.VerdictIndex);
    });
}

void uecheck::seeCorrect()
{
    if (GapCheckTarget *t = findGapScreen(nav(), state.ExerciseKind)) {
        t->ShowCorrectAnswers();
        t->HideMarks();
        t->ShowWrongMarks();
        t->HideCheck();
    }
    closeScreen();
}

void uecheck::seeWrong()
{
    if (GapCheckTarget *t = findGapScreen(nav(), state.ExerciseKind)) {
        t->HideMarks();
        t->ShowWrongMarks();
        t->ResetButtons();
    }
    closeScreen();
}

void uecheck::tryAgain()
{
    if (GapCheckTarget *t = findGapScreen(nav(), state.ExerciseKind))
        t->ResetButtons();
    closeScreen();
}

void uecheck::closeCheck()
{
    if (GapCheckTarget *t = findGapScreen(nav(), state.ExerciseKind)) {
        if (state.Score >= state.GapCount) {
            t->AllCorrectClose();
        } else {
            t->ShowCorrectAnswers();
            t->HideMarks();
            t->ShowWrongMarks();
        }
        t->HideCheck();
    }
    closeScreen();
}

} // namespace sd
