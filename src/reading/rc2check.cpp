#include "rc2check.h"

#include "core/readingscore.h"
#include "frame/core/state.h"
#include "frame/core/verdicts.h"
#include "readingscreen.h"

namespace sd {

rc2check::rc2check(ProgramState &s, Navigator &nav, const QString &code) : AppScreen(code, s, nav)
{
    setCaptionColours(ui::ImageButton::highlightColour(), ui::ImageButton::captionColour());
    setDesignSize(QSize(420, 340));
    const QString dots = QStringLiteral("\u00B7 ").repeated(30);
    addLabel(QStringLiteral("lblTopdots"), dots, QRect(20, 8, 380, 16), 10, true, Qt::AlignCenter);
    lblHead = addLabel(QStringLiteral("lblHead"), QStringLiteral("Score"), QRect(20, 26, 380, 30), 16, true,
                       Qt::AlignCenter);
    lblScore = addLabel(QStringLiteral("lblScore"), QString(), QRect(20, 60, 380, 30), 14, true, Qt::AlignCenter);
    smileys = addPicture(QStringLiteral("smileys"), QStringLiteral("verdict7"), QRect(170, 94, 80, 80));
    Label4 = addLabel(QStringLiteral("Label4"), QStringLiteral("Comment"), QRect(20, 178, 380, 40), 12, true,
                      Qt::AlignCenter);
    addLabel(QStringLiteral("lblBottomdots"), dots, QRect(20, 220, 380, 16), 10, true, Qt::AlignCenter);
    // Captions get room for two lines ("See correct answers" wraps in a small window).
    auto button = [this](const QString &name, const QString &icon, int centre, const QString &captionName,
                         const QString &caption) {
        return addButton(name, icon, QRect(centre - 22, 244, 44, 44), captionName, caption,
                         QRect(centre - 65, 290, 130, 40));
    };
    ui::ImageButton *tryagain = button(QStringLiteral("tryagain"), QStringLiteral("tryagain"), 84,
                                       QStringLiteral("lblAgain"), QStringLiteral("Try again"));
    ui::ImageButton *seecorrect = button(QStringLiteral("seecorrect"), QStringLiteral("seecorrect"), 210,
                                         QStringLiteral("lblSeecorrect"), QStringLiteral("See correct answers"));
    ui::ImageButton *back = button(QStringLiteral("back"), QStringLiteral("close"), 336, QStringLiteral("lblBack"),
                                   QStringLiteral("Close"));

    ScoreReadingAnswers(s, s.ExerciseKind);
    const ReadingVerdict v = readingVerdict(s.QuestionCount, s.Score);
    s.VerdictIndex = v.verdictIndex;
    lblScore->setText(QStringLiteral("%1 out of %2").arg(int(s.Score)).arg(int(s.QuestionCount)));
    Label4->setText(v.comment);
    setPicture(smileys, verdictPicture(v.picture));
    if (!s.TestMode)
        PlaySound(s, s.VerdictIndex);

    // Nothing to try again after a perfect score; in a test the answers are not shown yet either.
    const bool perfect = s.Score == s.QuestionCount;
    const bool retry = !perfect && !s.TestMode;
    tryagain->setVisible(retry);
    tryagain->caption()->setVisible(retry);
    seecorrect->setVisible(!s.TestMode);
    seecorrect->caption()->setVisible(!s.TestMode);

    onClick(tryagain, [this] {
        if (ReadingExercise *ex = exercise())
            ex->resetButtonImages();
        closeScreen();
    });
    onClick(seecorrect, [this] {
        state.SeeCorrectAnswers = true;
        ReadingExercise *ex = exercise();
        closeScreen();
        if (ex) {
            ex->showCorrectAnswers();
            ex->resetButtonImages();
        }
    });
    onClick(back, [this] {
        if (ReadingExercise *ex = exercise())
            ex->resetButtonImages();
        closeScreen();
    });
}

ReadingExercise *rc2check::exercise()
{
    return dynamic_cast<ReadingExercise *>(nav().find(readingScreenCode(state.ExerciseKind)));
}

} // namespace sd
