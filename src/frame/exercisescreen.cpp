#include "exercisescreen.h"

#include "core/minuteclock.h"
#include "core/state.h"
#include "printing.h"

#include <QMouseEvent>

#include <algorithm>

namespace sd {

ExerciseScreen::ExerciseScreen(const QString &code, ProgramState &s, Navigator &nav, int kind)
    : AppScreen(code, s, nav), m_kind(kind)
{
    // Exercise screens and their score windows: pale blue captions at rest, white under the pointer.
    setCaptionColours(ui::ImageButton::highlightColour(), ui::ImageButton::captionColour());
    logo = addPicture(QStringLiteral("logo"), QStringLiteral("logo"), QRect(16, 8, 56, 56));
    lblHead1 = addHeadingPlate(1, QString(), QRect(84, 12, 272, 42));
    lblHead2 = addHeadingPlate(2, QString(), QRect(368, 12, 272, 42));
    lblHead3 = addHeadingPlate(3, QString(), QRect(652, 12, 272, 42));
    lblExid = addLabel(QStringLiteral("lblExid"), QStringLiteral("ERROR"), QRect(84, 62, 560, 24), 12, true);
    lblInstruction = addLabel(QStringLiteral("lblInstruction"), QStringLiteral("NO TEXT"), QRect(84, 86, 760, 36), 11);
    lblScore = addLabel(QStringLiteral("lblScore"), QStringLiteral("Score"), QRect(560, 62, 300, 24), 12, true,
                        Qt::AlignRight | Qt::AlignVCenter);
    lblScore->hide();

    const int y = 676;
    Check = addButton(QStringLiteral("Check"), QStringLiteral("check"), QRect(180, y, 52, 52), QStringLiteral("lblCheck"),
                      QStringLiteral("Check answers"));
    Printing = addButton(QStringLiteral("Printing"), QStringLiteral("print"), QRect(380, y, 52, 52),
                         QStringLiteral("lblPrint"), QStringLiteral("Print text"));
    Help = addButton(QStringLiteral("Help"), QStringLiteral("help"), QRect(580, y, 52, 52), QStringLiteral("lblHelp"),
                     QStringLiteral("Help"));
    Quit = addButton(QStringLiteral("Quit"), QStringLiteral("exit"), QRect(780, y, 52, 52), QStringLiteral("lblQuit"),
                     QStringLiteral("Exit"));
    lblCheck = Check->caption();
    lblPrint = Printing->caption();
    lblHelp = Help->caption();
    lblQuit = Quit->caption();

    // Over the heading plates, beside the clock: never over the score or an answer.
    imgTimeballoon = addPicture(QStringLiteral("imgTimeballoon"), QStringLiteral("balloon"), QRect(716, 0, 228, 62));
    lblShowtime = addLabel(QStringLiteral("lblShowtime"), QString(), QRect(730, 4, 200, 50), 10, true, Qt::AlignCenter);
    QPalette pal = lblShowtime->palette();
    pal.setColor(QPalette::WindowText, QColor(0, 0, 64));
    lblShowtime->setPalette(pal);
    imgTimeballoon->hide();
    lblShowtime->hide();
    imgTimeballoon->installEventFilter(this);
    lblShowtime->installEventFilter(this);
    imgTime = addButton(QStringLiteral("imgTime"), QStringLiteral("time"), QRect(950, 10, 48, 48), QStringLiteral("lblTime"),
                        QStringLiteral("Time"), QRect(930, 58, 88, 20));
    lblTime = imgTime->caption();
    imgTime->setToolTip(QStringLiteral("Time so far and time remaining"));

    // An exercise that was never shown is never scored.
    onClick(Check, [this] {
        if (!m_loadFailed)
            onCheck();
    });
    onClick(Printing, [this] { onPrint(); });
    onClick(Help, [this] { onHelp(); });
    onClick(Quit, [this] { onQuit(); });
    onClick(imgTime, [this] { showClockBalloon(); });
    // A balloon that is open shows the time as it is now.
    connect(&state.Clock, &MinuteClock::ticked, this, [this] {
        if (lblShowtime->isVisible())
            lblShowtime->setText(ui::lineBreaks(clockBalloonText(state.ElapsedMinutes, state.RemainingMinutes)));
    });
}

ExerciseScreen::~ExerciseScreen()
{
    // A practice clock belongs to its exercise; a test's clock runs on between sections.
    if (!state.TestMode)
        state.Clock.stop();
}

void ExerciseScreen::runLoad()
{
    m_loading = true;
    m_loadFailed = false;
    m_checkRecorded = false;
    m_openedAt = state.Time.now();
    guarded([this] { load(); });
    m_loading = false;
    ResetButtons();
}

void ExerciseScreen::showEvent(QShowEvent *e)
{
    AppScreen::showEvent(e);
    if (m_shownOnce)
        return;
    m_shownOnce = true;
    for (const QString &first : {QStringLiteral("Text1"), QStringLiteral("Combo1")}) {
        auto *w = findChild<QWidget *>(first);
        if (w && w->isVisibleTo(this) && w->isEnabled()) {
            w->setFocus(Qt::OtherFocusReason);
            return;
        }
    }
}

void ExerciseScreen::handleError(const ProgramError &e)
{
    if (m_loading) {
        showLoadError();
        return;
    }
    AppScreen::handleError(e);
}

void ExerciseScreen::showLoadError()
{
    m_loadFailed = true;
    lblExid->setText(QStringLiteral("ERROR"));
    lblInstruction->setText(QStringLiteral("NO TEXT"));
    Check->hide();
    lblCheck->hide();
}

QString ExerciseScreen::dropLeadingZero(const QString &code)
{
    return code.startsWith(u'0') ? code.mid(1) : code;
}

QString ExerciseScreen::exerciseId(const QString &levelCode, const QString &exerciseCode, bool testMode)
{
    if (testMode)
        return QStringLiteral("TEST ") + dropLeadingZero(levelCode);
    return QStringLiteral("LEVEL ") + dropLeadingZero(levelCode) + QStringLiteral("   Exercise ")
           + dropLeadingZero(exerciseCode);
}

void ExerciseScreen::setHeadings()
{
    lblHead1->setText(state.ActivityHeadings[state.ActivityIndex].toUpper());
    lblHead2->setText(state.PaperHeadings[state.PaperIndex].toUpper());
    lblHead3->setText(state.KindNames[m_kind].toUpper());
}

void ExerciseScreen::setExerciseId()
{
    lblExid->setText(exerciseId(state.LevelCode, state.ExerciseCode, state.TestMode));
    if (!state.TestMode)
        state.ExerciseCode = dropLeadingZero(state.ExerciseCode);
}

void ExerciseScreen::startClock()
{
    // A test has one clock, started when the test was chosen: its sections never restart it.
    if (state.TestMode)
        return;
    const int paper = m_kind <= 4 ? 1 : m_kind == 5 ? 2 : 3;
    state.TargetMinutes = paper == 1 ? ReadingPracticeMinutes : paper == 2 ? WritingPracticeMinutes : UseOfEnglishPracticeMinutes;
    state.Clock.start();
}

void ExerciseScreen::showModeButtons()
{
    const bool practice = !state.TestMode;
    for (QWidget *w : {static_cast<QWidget *>(Help), static_cast<QWidget *>(lblHelp), static_cast<QWidget *>(Check),
                       static_cast<QWidget *>(lblCheck)})
        w->setVisible(practice);
    imgTime->setVisible(state.ClockShown || state.TestMode);
    lblTime->setVisible(state.ClockShown || state.TestMode);
}

void ExerciseScreen::showClockBalloon()
{
    lblShowtime->setText(ui::lineBreaks(clockBalloonText(state.ElapsedMinutes, state.RemainingMinutes)));
    imgTimeballoon->show();
    lblShowtime->show();
    imgTimeballoon->raise();
    lblShowtime->raise();
}

bool ExerciseScreen::eventFilter(QObject *watched, QEvent *e)
{
    // A click on the balloon puts it away.
    if ((watched == imgTimeballoon || watched == lblShowtime) && e->type() == QEvent::MouseButtonRelease) {
        imgTimeballoon->hide();
        lblShowtime->hide();
        return true;
    }
    return AppScreen::eventFilter(watched, e);
}

void ExerciseScreen::recordFirstCheck(double score, double max, const QList<AnswerRecord> &answers)
{
    if (state.TestMode || m_checkRecorded || m_loadFailed)
        return;
    m_checkRecorded = true;
    AttemptRecord a;
    a.finishedAt = state.Time.now();
    a.kind = m_kind;
    a.level = state.LevelCode.toInt();
    a.exercise = QString::number(a.level * 100 + state.ExerciseCode.toInt());
    a.score = score;
    a.max = max;
    a.seconds = int(std::max<qint64>(0, m_openedAt.secsTo(a.finishedAt)));
    a.answers = answers;
    state.History->recordAttempt(a);
}

void ExerciseScreen::onPrint()
{
    printRichText(state, this, printableDocuments());
}

void ExerciseScreen::onQuit()
{
    if (!state.TestMode)
        state.Clock.stop();
    closeScreen();
}

} // namespace sd
