#include "menus.h"

#include "core/testpaper.h"
#include "frame/core/state.h"
#include "frame/menus.h"
#include "progress/core/pausedtest.h"
#include "useofenglish/core/itemrun.h"

#include <QEvent>

namespace sd {

namespace {
QLabel *title(ui::Screen *s, const QString &text, QRect r)
{
    return s->addLabel(QStringLiteral("lblSelect"), text, r, 22, true, Qt::AlignCenter);
}

ui::ImageButton *closeButton(AppScreen *s, QRect r)
{
    return s->addButton(QStringLiteral("Quit"), QStringLiteral("back"), r, QStringLiteral("lblQuit"), QStringLiteral("Close"));
}
} // namespace

Examtype::Examtype(ProgramState &s, Navigator &nav) : AppScreen(QStringLiteral("Examtype"), s, nav)
{
    setBackgroundPicture(QStringLiteral("background"));
    addHeadingPlate(1, s.ActivityHeadings[2].toUpper(), QRect(376, 20, 272, 42));
    title(this, QStringLiteral("SELECT THE PAPER"), QRect(112, 110, 800, 50));
    static const char *const captions[] = {"Reading (1h 15m)", "Writing (1h 30m)", "Use of English (1h 15m)"};
    for (int paper = 1; paper <= 3; ++paper) {
        ui::MenuLabel *l = addMenuLabel(QStringLiteral("Label%1").arg(paper), QString::fromLatin1(captions[paper - 1]),
                                        QRect(312, 200 + (paper - 1) * 80, 400, 56), 20, Qt::AlignCenter);
        onClick(l, [this, paper] { choose(paper); });
    }
    ui::ImageButton *quit = closeButton(this, QRect(486, 560, 52, 52));
    onClick(quit, [this] { closeScreen(); });
}

void Examtype::choose(int paper)
{
    state.PaperIndex = paper;
    state.DataDir = paper == ReadingPaper ? state.ReadingDir : paper == WritingPaper ? state.WritingDir : state.UseOfEnglishDir;
    state.TargetMinutes = PaperTargetMinutes(paper);
    if (paper == WritingPaper)
        SelectDataFile(state, 5);
    state.TestNumber = 0;
    if (const std::optional<PausedTest> kept = state.History->pausedTest(paper)) {
        state.MessageText = ContinueQuestion(*kept);
        nav().openModal(QStringLiteral("continuetest"));
        return;
    }
    nav().open(QStringLiteral("Examnumber"));
}

continuetest::continuetest(ProgramState &s, Navigator &nav) : AppScreen(QStringLiteral("continuetest"), s, nav)
{
    setDesignSize(QSize(460, 250));
    setWindowTitle(QStringLiteral("StudyDesk"));
    addLabel(QStringLiteral("lblMessage"), s.MessageText, QRect(20, 20, 420, 100), 15, true, Qt::AlignCenter);
    ui::ImageButton *cont = addButton(QStringLiteral("Continue"), QStringLiteral("continue"), QRect(110, 134, 52, 52),
                                      QStringLiteral("lblContinue"), QStringLiteral("Continue"), QRect(56, 190, 160, 40));
    ui::ImageButton *again = addButton(QStringLiteral("Startagain"), QStringLiteral("tryagain"), QRect(298, 134, 52, 52),
                                       QStringLiteral("lblStartagain"), QStringLiteral("Start again"),
                                       QRect(244, 190, 160, 40));
    onClick(cont, [this] {
        const std::optional<PausedTest> kept = state.History->pausedTest(state.PaperIndex);
        Navigator &n = this->nav();
        closeScreen();
        n.open(QStringLiteral("Examnumber"));
        if (!kept)
            return;
        StartTest(state, kept->test);
        // A kept test that cannot be read starts afresh rather than half restored.
        if (!RestoreTestState(state, kept->state))
            StartTest(state, kept->test);
        n.open(QStringLiteral("Examsection"));
    });
    onClick(again, [this] {
        state.History->dropPausedTest(state.PaperIndex);
        Navigator &n = this->nav();
        closeScreen();
        n.open(QStringLiteral("Examnumber"));
    });
}

Examnumber::Examnumber(ProgramState &s, Navigator &nav) : AppScreen(QStringLiteral("Examnumber"), s, nav)
{
    setBackgroundPicture(QStringLiteral("background"));
    addHeadingPlate(1, s.ActivityHeadings[2].toUpper(), QRect(230, 20, 272, 42));
    addHeadingPlate(2, s.PaperHeadings[s.PaperIndex].toUpper(), QRect(522, 20, 272, 42));
    title(this, QStringLiteral("SELECT A TEST"), QRect(112, 90, 800, 50));
    for (int n = 1; n <= 10; ++n) {
        const QRect r(262 + ((n - 1) / 5) * 280, 180 + ((n - 1) % 5) * 70, 220, 50);
        ui::MenuLabel *l = addMenuLabel(QStringLiteral("Label%1").arg(n), QStringLiteral("Test %1").arg(n), r, 20,
                                        Qt::AlignCenter);
        onClick(l, [this, n] {
            StartTest(state, n);
            this->nav().open(QStringLiteral("Examsection"));
        });
    }
    ui::ImageButton *quit = closeButton(this, QRect(486, 560, 52, 52));
    onClick(quit, [this] { closeScreen(); });
}

Examsection::Examsection(ProgramState &s, Navigator &nav) : AppScreen(QStringLiteral("Examsection"), s, nav)
{
    setBackgroundPicture(QStringLiteral("background"));
    addHeadingPlate(1, s.ActivityHeadings[2].toUpper(), QRect(230, 20, 272, 42));
    addHeadingPlate(2, s.PaperHeadings[s.PaperIndex].toUpper(), QRect(522, 20, 272, 42));
    addLabel(QStringLiteral("lblTest"), QStringLiteral("TEST %1").arg(int(s.TestNumber)), QRect(112, 70, 800, 30), 16, true,
             Qt::AlignCenter);
    m_instruct = addLabel(QStringLiteral("lblInstruct"), QString(), QRect(112, 100, 800, 44), 22, true, Qt::AlignCenter);
    m_move = addLabel(QStringLiteral("lblMove"), QString(), QRect(112, 146, 800, 50), 12, false, Qt::AlignCenter);
    m_move->setWordWrap(true);
    for (int n = 1; n <= 5; ++n) {
        const QString caption = SectionCaption(s, s.PaperIndex, n);
        const QRect r(312, 210 + (n - 1) * 64, 400, 50);
        ui::MenuLabel *l = addMenuLabel(QStringLiteral("Label%1").arg(n), caption, r, 20, Qt::AlignCenter);
        QLabel *done = addPicture(QStringLiteral("imgDone%1").arg(n), QStringLiteral("done"), QRect(720, 218 + (n - 1) * 64, 34, 34));
        done->setAccessibleName(QStringLiteral("%1 done").arg(caption));
        done->hide();
        if (caption.isEmpty()) {
            l->hide();
            continue;
        }
        onClick(l, [this, n] { openSection(n); });
    }
    m_review = addLabel(QStringLiteral("lblReview"), QStringLiteral("(Click on the section to review your answers)"),
                        QRect(112, 530, 800, 28), 12, false, Qt::AlignCenter);

    ui::ImageButton *check = addButton(QStringLiteral("Check"), QStringLiteral("check"), QRect(286, 590, 52, 52),
                                       QStringLiteral("lblCheck"), QStringLiteral("See final score"));
    onClick(check, [this] { seeFinalScore(); });
    m_save = addButton(QStringLiteral("Save"), QStringLiteral("save"), QRect(486, 590, 52, 52), QStringLiteral("lblSave"),
                       QStringLiteral("Save/Print..."));
    m_saveHint = addLabel(QStringLiteral("lblSavehint"), QStringLiteral(" Save or print your answers when you have finished. "),
                          QRect(312, 690, 400, 28), 11, false, Qt::AlignCenter);
    m_saveHint->hide();
    m_save->setAccessibleDescription(m_saveHint->text().trimmed());
    m_save->installEventFilter(this);
    onClick(m_save, [this] {
        state.SectionIndex = 0;
        this->nav().open(QStringLiteral("Examsave"));
    });
    ui::ImageButton *quit = closeButton(this, QRect(686, 590, 52, 52));
    onClick(quit, [this] { this->nav().openModal(QStringLiteral("Examexit")); });
    // The test is kept as it goes: a program closed or killed in the middle of it loses at most a minute.
    connect(&s.Clock, &MinuteClock::ticked, this, [this] { KeepTestInHand(state); });

    const bool writing = s.PaperIndex == WritingPaper;
    check->setVisible(!writing);
    findChild<QLabel *>(QStringLiteral("lblCheck"))->setVisible(!writing);
    m_save->setVisible(writing);
    findChild<QLabel *>(QStringLiteral("lblSave"))->setVisible(writing);
    refresh();
}

void Examsection::showEvent(QShowEvent *e)
{
    refresh();
    AppScreen::showEvent(e);
}

bool Examsection::eventFilter(QObject *watched, QEvent *e)
{
    if (watched == m_save) {
        if (e->type() == QEvent::Enter || e->type() == QEvent::FocusIn)
            m_saveHint->show();
        else if (e->type() == QEvent::Leave || e->type() == QEvent::FocusOut)
            m_saveHint->hide();
    }
    return AppScreen::eventFilter(watched, e);
}

void Examsection::refresh()
{
    KeepTestInHand(state);
    if (state.PaperIndex == WritingPaper) {
        m_instruct->setText(QStringLiteral("SELECT PART 1 OR PART 2"));
        m_move->setText(QStringLiteral("(You can move backwards and forwards between parts.)"));
    } else if (state.TestScored) {
        m_instruct->setText(QStringLiteral("REVIEW YOUR ANSWERS"));
        m_move->setText(QStringLiteral("(Click on the section to compare your answers with the correct answers.)"));
    } else {
        m_instruct->setText(QStringLiteral("SELECT A SECTION"));
        m_move->setText(QStringLiteral("(You can move backwards and forwards between sections. Click on 'See final score' "
                                       "when you have finished.)"));
    }
    m_review->setVisible(state.TestScored && state.PaperIndex != WritingPaper);
    for (int n = 1; n <= 5; ++n)
        findChild<QLabel *>(QStringLiteral("imgDone%1").arg(n))
            ->setVisible(state.SectionDone[n] && SectionKind(state.PaperIndex, n) != 0);
}

void Examsection::openSection(int section)
{
    const int kind = SectionKind(state.PaperIndex, section);
    if (kind == 0)
        return;
    state.SectionIndex = section;
    state.ExerciseKind = kind;
    if (kind == 5) {
        openWritingPart(section);
        return;
    }
    SelectDataFile(state, kind);
    // Sentence conversion keeps a record per item: the section is there when any item has its key.
    const bool found = FindOrShowError(nav(), [this, kind] {
        if (kind != 8)
            return FindTestRecord(state);
        return ReadConversionItems(state, TestKey(state.TestNumber)).isEmpty() ? SearchResult::NotFound
                                                                               : SearchResult::Found;
    });
    if (!found)
        return;
    nav().open(kind == 8 ? QStringLiteral("uescexam") : kind == 10 ? QStringLiteral("uewbx") : Pracchoice::exerciseScreen(kind));
}

void Examsection::openWritingPart(int section)
{
    // Part 1 is the letter beside its sheet, Part 2 a composition beside the test's questions.
    state.TestLetterSheet = QStringLiteral("compx") + state.LevelCode;
    state.TestQuestionFile = state.TestLetterSheet + QStringLiteral("b.rtf");
    ui::Screen *editor = nav().open(section == 2 ? QStringLiteral("writetheleta") : QStringLiteral("writethecomp"));
    if (!editor)
        return;
    connect(editor, &QObject::destroyed, this, [this, section] {
        state.SectionDone[section] = true;
        refresh();
    });
}

void Examsection::seeFinalScore()
{
    if (!state.TestScored) {
        state.Clock.stop();
        const TestScore score = ComputeTestScore(state);
        const TestRecord record = FinishedTestRecord(state, score);
        state.History->recordTest(record, state.PaperIndex == WritingPaper ? QString() : state.VerdictTexts[record.verdict],
                                  SectionAttempts(record));
    }
    state.TestScored = true;
    state.ShowSectionAnswers = true;
    nav().open(QStringLiteral("Examscore"));
}

} // namespace sd
