#include "examscore.h"

#include "core/testpaper.h"
#include "frame/core/state.h"
#include "frame/core/verdicts.h"

namespace sd {

Examscore::Examscore(ProgramState &s, Navigator &nav) : AppScreen(QStringLiteral("Examscore"), s, nav)
{
    setBackgroundPicture(QStringLiteral("background"));
    addHeadingPlate(1, s.ActivityHeadings[2].toUpper(), QRect(230, 20, 272, 42));
    addHeadingPlate(2, s.PaperHeadings[s.PaperIndex].toUpper(), QRect(522, 20, 272, 42));
    addLabel(QStringLiteral("lblTitle"), QStringLiteral("FINAL SCORE  -  TEST %1").arg(int(s.TestNumber)),
             QRect(112, 80, 800, 44), 22, true, Qt::AlignCenter);

    const TestScore score = ComputeTestScore(s);
    for (int n = 1; n <= 5; ++n) {
        const QString caption = SectionCaption(s, s.PaperIndex, n);
        const QRect row(150, 150 + (n - 1) * 50, 0, 40);
        QLabel *name = addLabel(QStringLiteral("lblSection%1").arg(n), caption, row.adjusted(0, 0, 300, 0), 16, true);
        QLabel *result = addLabel(QStringLiteral("lblScore%1").arg(n), score.rows[std::size_t(n)],
                                  row.adjusted(320, 0, 520, 0), 16);
        name->setVisible(!caption.isEmpty());
        result->setVisible(!caption.isEmpty());
    }
    addPicture(QStringLiteral("imgCup"), QStringLiteral("cup"), QRect(730, 160, 150, 150));
    addLabel(QStringLiteral("lblPercent"), QStringLiteral("%1%").arg(int(s.ScorePercent)), QRect(700, 320, 210, 50), 28, true,
             Qt::AlignCenter);
    addPicture(QStringLiteral("imgVerdict"), QStringLiteral("verdict%1").arg(int(s.VerdictIndex)), QRect(150, 420, 100, 100));
    addLabel(QStringLiteral("lblVerdict"), s.VerdictTexts[s.VerdictIndex], QRect(270, 440, 600, 60), 18, true);
    if (!score.allDone)
        addLabel(QStringLiteral("lblNotAll"), QStringLiteral("(Sections not done are left out of the score.)"),
                 QRect(270, 500, 600, 30), 12);

    ui::ImageButton *quit = addButton(QStringLiteral("Quit"), QStringLiteral("back"), QRect(486, 590, 52, 52),
                                      QStringLiteral("lblQuit"), QStringLiteral("Close"));
    onClick(quit, [this] { closeScreen(); });
    if (score.allDone)
        PlaySound(s, s.VerdictIndex);
}

Examexit::Examexit(ProgramState &s, Navigator &nav) : AppScreen(QStringLiteral("Examexit"), s, nav)
{
    setDesignSize(QSize(520, 260));
    setWindowTitle(QStringLiteral("StudyDesk"));
    const QString consequence = s.PaperIndex == WritingPaper ? QStringLiteral("(Your answers will be eliminated.)")
                                                            : QStringLiteral("(Your answers and scores will be eliminated.)");
    addLabel(QStringLiteral("Label1"), QStringLiteral("Are you sure you want to exit this test?\n") + consequence,
             QRect(20, 20, 480, 110), 14, true, Qt::AlignCenter);
    ui::ImageButton *exit = addButton(QStringLiteral("imgQuit"), QStringLiteral("exit"), QRect(130, 150, 52, 52),
                                      QStringLiteral("lblQuit"), QStringLiteral("Exit test"), QRect(86, 204, 140, 40));
    ui::ImageButton *again = addButton(QStringLiteral("imgAgain"), QStringLiteral("back"), QRect(338, 150, 52, 52),
                                       QStringLiteral("lblAgain"), QStringLiteral("Return to test"), QRect(294, 204, 140, 40));
    onClick(exit, [this] {
        ClearTest(state);
        state.TestNumber = 0;
        state.History->dropPausedTest(state.PaperIndex);
        // Back to the test menu: the question, the score screen and the section menu all close.
        Navigator &n = this->nav();
        closeScreen();
        for (const char *code : {"Examscore", "Examsection"})
            if (ui::Screen *screen = n.find(QString::fromLatin1(code)); screen && n.showing().contains(screen))
                n.close(screen);
    });
    onClick(again, [this] { closeScreen(); });
}

} // namespace sd
