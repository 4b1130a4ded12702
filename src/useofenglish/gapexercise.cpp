#include "gapexercise.h"

#include "core/gapscoring.h"
#include "frame/core/datafiles.h"
#include "frame/core/state.h"
#include "ui/richtextbox.h"

#include <QGuiApplication>
#include <QPainter>
#include <QPointer>

namespace sd {

QString gapScreenCode(int kind)
{
    switch (kind) {
    case 6: return QStringLiteral("ueca");
    case 7: return QStringLiteral("uecb");
    case 9: return QStringLiteral("ueec");
    case 10: return QStringLiteral("uewbx");
    default: return {};
    }
}

GapCheckTarget *findGapScreen(const Navigator &nav, int kind)
{
    const QString code = gapScreenCode(kind);
    return code.isEmpty() ? nullptr : dynamic_cast<GapCheckTarget *>(nav.find(code));
}

GapExerciseScreen::GapExerciseScreen(const QString &code, ProgramState &s, Navigator &nav, int kind)
    : ExerciseScreen(code, s, nav, kind)
{
    Label.fill(nullptr);
    Input.fill(nullptr);
    KeyBox.fill(nullptr);
    Image.fill(nullptr);
    lblInstruction->installEventFilter(this);
}

bool GapExerciseScreen::eventFilter(QObject *watched, QEvent *e)
{
    // A label draws a carriage return as a blank; the instruction keeps it and shows two lines.
    if (watched == lblInstruction && e->type() == QEvent::Paint && lblInstruction->text().contains(QChar(13))) {
        QPainter p(lblInstruction);
        p.setFont(lblInstruction->font());
        p.setPen(lblInstruction->palette().color(QPalette::WindowText));
        QString shown = lblInstruction->text();
        shown.replace(QChar(13), QChar(10));
        p.drawText(lblInstruction->contentsRect(), int(lblInstruction->alignment()) | Qt::TextWordWrap, shown);
        return true;
    }
    return ExerciseScreen::eventFilter(watched, e);
}

int GapExerciseScreen::section() const
{
    return ProgramState::sectionOfKind(kind());
}

QLineEdit *GapExerciseScreen::addAnswerBox(const QString &name, QRect rect)
{
    auto *box = new QLineEdit(this);
    box->setObjectName(name);
    box->setReadOnly(true);
    box->setFocusPolicy(Qt::NoFocus);
    place(box, rect, 11);
    box->hide();
    return box;
}

void GapExerciseScreen::buildPassageAndColumn(const std::function<QWidget *(int n)> &makeInput, QRect passage,
                                              const QString &keyPrefix)
{
    RichTextBox1 = new RichTextBox(this);
    RichTextBox1->setObjectName(QStringLiteral("RichTextBox1"));
    RichTextBox1->setTabChangesFocus(true);
    place(RichTextBox1, passage, 11);

    const int x = passage.right() + 14;
    Label16 = addLabel(QStringLiteral("Label16"), QStringLiteral("Correct answers"), QRect(x + 40, 124, 250, 22), 10,
                       true);
    Label16->hide();
    for (int n = 1; n <= 15; ++n) {
        const int y = 150 + (n - 1) * 34;
        Label[n] = addLabel(QStringLiteral("Label%1").arg(n), QStringLiteral("%1.").arg(n), QRect(x, y, 36, 28), 11, true,
                            Qt::AlignRight | Qt::AlignVCenter);
        Input[n] = makeInput(n);
        place(Input[n], QRect(x + 40, y, 250, 28), 11);
        KeyBox[n] = addAnswerBox(keyPrefix + QString::number(n), QRect(x + 40, y, 250, 28));
        Image[n] = addPicture(QStringLiteral("Image%1").arg(n), QStringLiteral("mark"), QRect(x + 296, y + 2, 24, 24));
        Image[n]->hide();
    }
}

void GapExerciseScreen::buildTypedColumn(Array<QLineEdit *, 1, 15> &boxes, const QString &keyPrefix)
{
    buildPassageAndColumn(
        [this, &boxes](int n) {
            auto *box = new QLineEdit(this);
            box->setObjectName(QStringLiteral("Text%1").arg(n));
            box->setAccessibleName(QStringLiteral("Gap %1").arg(n));
            boxes[n] = box;
            return box;
        },
        QRect(16, 124, 620, 506), keyPrefix);
    QList<QWidget *> chain;
    for (QLineEdit *box : boxes)
        chain.append(box);
    setGapTabOrder(chain);
}

void GapExerciseScreen::setGapTabOrder(const QList<QWidget *> &chain)
{
    QList<QWidget *> all;
    if (RichTextBox1)
        all.append(RichTextBox1);
    all.append(chain);
    all.append({Check, Printing, Help, Quit});
    for (qsizetype i = 1; i < all.size(); ++i)
        QWidget::setTabOrder(all.at(i - 1), all.at(i));
}

void GapExerciseScreen::beginLoad(const QString &instruction)
{
    setHeadings();
    setExerciseId();
    lblInstruction->setText(ui::lineBreaks(instruction));
    ResetButtons();
    showModeButtons();
    if (state.TestMode && !state.TestScored)
        state.SectionVisited[section()] = true;
    for (int n = 1; n <= 15; ++n)
        if (Label[n])
            Label[n]->setText(QStringLiteral("%1.").arg(n));
}

void GapExerciseScreen::loadPassage(const QString &name)
{
    if (!RichTextBox1->loadDataFile(state.DataDir, name + QStringLiteral(".rtf")))
        throw ProgramError(QStringLiteral("File not found: %1.rtf").arg(name));
}

void GapExerciseScreen::hideUnusedRows()
{
    for (int n = 11; n <= 15; ++n) {
        if (n <= state.GapCount)
            continue;
        for (QWidget *w : {static_cast<QWidget *>(Label[n]), Input[n]})
            if (w)
                w->hide();
    }
}

void GapExerciseScreen::finishLoad()
{
    if (state.GapCount <= 0)
        throw ProgramError(QStringLiteral("No gaps"));
    HideMarks();
    if (state.TestMode) {
        // The marks of a test show this section's last answers only, never another section's.
        for (int n = 1; n <= 15; ++n)
            state.GapEverCorrect[n] = false;
        restoreAnswers();
    }
    if (state.TestMode && state.TestScored && state.SectionVisited[section()]) {
        scoreSilently();
        ShowCorrectAnswers();
        ShowWrongMarks();
    } else {
        for (QLineEdit *box : KeyBox)
            if (box)
                box->hide();
    }
    startClock();
}

void GapExerciseScreen::ShowCorrectAnswers()
{
    for (int n = 1; n <= 15; ++n) {
        if (!KeyBox[n])
            continue;
        KeyBox[n]->hide();
        KeyBox[n]->setText(state.GapKey[n]);
    }
    for (int n = 1; n <= std::min<int>(state.GapCount, 15); ++n)
        if (KeyBox[n])
            KeyBox[n]->show();
    const int score = state.TestMode ? int(state.SectionScore[section()]) : int(state.Score);
    const QString outOf = state.TestMode && testOutOfFifteen ? QStringLiteral("15") : QString::number(state.GapCount);
    lblScore->setText(GapScoreLine(score, outOf));
    lblScore->show();
    if (Label16)
        Label16->show();
    showAnswerExtras();
}

QStringList GapExerciseScreen::shownAnswers() const
{
    QStringList out;
    for (const QWidget *w : Input) {
        if (auto *c = qobject_cast<const QComboBox *>(w))
            out.append(c->currentText());
        else if (auto *e = qobject_cast<const QLineEdit *>(w))
            out.append(e->text());
        else
            out.append(QString());
    }
    return out;
}

void GapExerciseScreen::restoreAnswers()
{
    for (int n = 1; n <= 15; ++n) {
        const QString &saved = state.SavedAnswer[kind()][n];
        if (auto *c = qobject_cast<QComboBox *>(Input[n]))
            c->setCurrentIndex(c->findText(saved));
        else if (auto *e = qobject_cast<QLineEdit *>(Input[n]))
            e->setText(saved);
    }
}

void GapExerciseScreen::ShowWrongMarks()
{
    // Every gap gets its mark, a cross or a tick: right and wrong are never told by colour alone.
    for (int n = 1; n <= 15; ++n) {
        if (!Image[n] || n > state.GapCount)
            continue;
        const bool right = state.GapEverCorrect[n];
        setPicture(Image[n], right ? QStringLiteral("tick") : QStringLiteral("cross"));
        Image[n]->setAccessibleName(right ? QStringLiteral("Gap %1 right").arg(n) : QStringLiteral("Gap %1 wrong").arg(n));
        Image[n]->show();
        Image[n]->raise();
    }
}

void GapExerciseScreen::HideMarks()
{
    for (QLabel *mark : Image)
        if (mark)
            mark->hide();
}

void GapExerciseScreen::HideCheck()
{
    Check->hide();
    lblCheck->hide();
}

void GapExerciseScreen::AllCorrectClose()
{
    ShowCorrectAnswers();
    HideMarks();
    ShowWrongMarks();
}

void GapExerciseScreen::onCheck()
{
    QGuiApplication::setOverrideCursor(Qt::WaitCursor);
    HideMarks();
    const QStringList typed = shownAnswers();
    TakeAnswers(state, kind(), typed);
    QPointer<GapExerciseScreen> self(this);
    nav().openModal(QStringLiteral("uecheck"), [self] {
        if (self)
            self->guarded([s = self.data()] { s->state.SectionScore[s->section()] = s->state.Score; });
    });
    // The check window has scored the gaps.
    QList<AnswerRecord> answers;
    for (int n = 1; n <= std::min(int(state.GapCount), MaxGaps); ++n)
        answers.append({n, typed.value(n - 1), state.GapKey[n], bool(state.GapCorrect[n])});
    recordFirstCheck(state.Score, state.GapCount, answers);
    QGuiApplication::restoreOverrideCursor();
}

void GapExerciseScreen::keepTestAnswers()
{
    if (state.TestMode && !state.TestScored && !loadFailed())
        TakeAnswers(state, kind(), shownAnswers());
}

void GapExerciseScreen::scoreSilently()
{
    TakeAnswers(state, kind(), shownAnswers());
    ScoreGaps(state, kind());
}

void GapExerciseScreen::onQuit()
{
    // Leaving an unscored test section scores it without a check window or a sound.
    if (state.TestMode && !state.TestScored && !loadFailed()) {
        scoreSilently();
        state.SectionScore[section()] = state.Score;
        state.SectionDone[section()] = true;
    }
    ExerciseScreen::onQuit();
}

void GapExerciseScreen::onHelp()
{
    state.HelpCaller = kind();
    openHelp(QStringLiteral("help") + code());
}

QList<QTextDocument *> GapExerciseScreen::printableDocuments()
{
    if (!RichTextBox1)
        return {};
    return {RichTextBox1->document()};
}

} // namespace sd
