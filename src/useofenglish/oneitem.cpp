#include "oneitem.h"

#include "core/conversion.h"
#include "core/gapscoring.h"
#include "frame/core/state.h"
#include "frame/core/verdicts.h"

namespace sd {

namespace {
constexpr int kMostAsked = 10;

/// Text from data is shown as it is written, never read as markup.
void plainText(std::initializer_list<QLabel *> labels)
{
    for (QLabel *l : labels)
        l->setTextFormat(Qt::PlainText);
}
const QString kGap = QStringLiteral(".......................");
} // namespace

ItemScreens itemScreens(int kind)
{
    if (kind == 10)
        return {QStringLiteral("uewbchoice"), QStringLiteral("uewb"), QStringLiteral("uewbreview"), QStringLiteral("helpuewb")};
    return {QStringLiteral("uescchoice"), QStringLiteral("uesc"), QStringLiteral("uescreview"), QStringLiteral("helpuesc")};
}

ItemRun *findItemRun(const Navigator &nav, int kind)
{
    auto *choice = dynamic_cast<ItemChoiceScreen *>(nav.find(itemScreens(kind).choice));
    return choice ? &choice->run() : nullptr;
}

// ---- the menus ----

ItemChoiceScreen::ItemChoiceScreen(const QString &code, ProgramState &s, Navigator &nav, int kind)
    : AppScreen(code, s, nav), m_kind(kind)
{
    setBackgroundPicture(QStringLiteral("background"));
    m_rows.add(this, s, kind, QStringLiteral("LEVEL %1"), QStringLiteral("Exercise %1"),
               [this](int level) { chooseLevel(level); }, [this](int n) { chooseExercise(n); });
    lblPrompt = addLabel(QStringLiteral("lblPrompt"), QString(), QRect(112, 520, 800, 40), 14, true, Qt::AlignCenter);
    ui::ImageButton *quit = addButton(QStringLiteral("Quit"), QStringLiteral("back"), QRect(486, 650, 52, 52),
                                      QStringLiteral("lblQuit"), QStringLiteral("Close"));
    onClick(quit, [this] { closeScreen(); });

    // A level left from a test ("03") or anything else starts at level 1.
    static const QStringList kept{QStringLiteral("1"), QStringLiteral("2"), QStringLiteral("3")};
    if (!kept.contains(s.LevelCode))
        s.LevelCode = QStringLiteral("1");
    s.ExerciseCode.clear();
    showChosenLevel();
}

void ItemChoiceScreen::showChosenLevel()
{
    m_rows.showChosenLevel(state.LevelCode);
}

void ItemChoiceScreen::chooseLevel(int level)
{
    state.LevelCode = QString::number(level);
    showChosenLevel();
    m_rows.showBest(state, m_kind, level);
}

void ItemChoiceScreen::showEvent(QShowEvent *e)
{
    m_rows.showBest(state, m_kind, state.LevelCode.toInt());
    AppScreen::showEvent(e);
}

void ItemChoiceScreen::openExercise(int level, int exercise)
{
    chooseLevel(level);
    chooseExercise(exercise);
}

void ItemChoiceScreen::chooseExercise(int n)
{
    state.ExerciseCode = QStringLiteral("%1").arg(n, 2, 10, QLatin1Char('0'));
    if (state.ExerciseCode.isEmpty()) { // kept as a defensive check
        state.Sound.beep();
        lblPrompt->setText(QStringLiteral("Select an exercise!"));
        return;
    }
    lblPrompt->clear();
    QList<OneItem> items;
    try {
        items = readItems();
    } catch (const ProgramError &e) {
        nav().showError(e.message());
        return;
    }
    m_run.start(state, std::move(items), kMostAsked);
    state.Score = 0;
    state.QuestionCount = m_run.questionCount();
    state.GapCount = m_run.questionCount();
    state.CurrentRecord = m_run.order().constFirst();
    nav().open(itemScreens(m_kind).exercise);
}

uewbchoice::uewbchoice(ProgramState &s, Navigator &nav) : ItemChoiceScreen(QStringLiteral("uewbchoice"), s, nav, 10) {}

QList<OneItem> uewbchoice::readItems()
{
    return ReadWordSentences(state, state.LevelCode, state.ExerciseCode);
}

uescchoice::uescchoice(ProgramState &s, Navigator &nav) : ItemChoiceScreen(QStringLiteral("uescchoice"), s, nav, 8) {}

QList<OneItem> uescchoice::readItems()
{
    QList<OneItem> items = ReadConversionItems(state, state.LevelCode + state.ExerciseCode);
    if (items.isEmpty())
        throw ProgramError(QStringLiteral("Not found"));
    return items;
}

// ---- the exercise screens ----

ItemExerciseScreen::ItemExerciseScreen(const QString &code, ProgramState &s, Navigator &nav, int kind)
    : ExerciseScreen(code, s, nav, kind)
{
    Printing->hide();
    lblPrint->hide();
    lblCheck->setText(QStringLiteral("Check answer"));
    Text1 = new QLineEdit(this);
    Text1->setObjectName(QStringLiteral("Text1"));
    Text1->setAccessibleName(QStringLiteral("Your answer"));
    place(Text1, QRect(84, 420, 520, 34), 14);
    lblCorrectanswer = addLabel(QStringLiteral("lblCorrectanswer"), QString(), QRect(84, 470, 860, 34), 13, true);
    continueButton = addButton(QStringLiteral("continue"), QStringLiteral("continue"), QRect(180, 560, 52, 52),
                               QStringLiteral("lblContinue"), QStringLiteral("Continue"));
    lblContinue = findChild<QLabel *>(QStringLiteral("lblContinue"));
    onClick(continueButton, [this] { moveOn(); });
}

void ItemExerciseScreen::load()
{
    run = findItemRun(nav(), kind());
    if (!run || run->isEmpty())
        throw ProgramError(QStringLiteral("No file"));
    setHeadings();
    setExerciseId();
    showModeButtons();
    showItem(run->current());
    showScore();
    Text1->clear();
    Text1->setFocus();
    lblCorrectanswer->hide();
    continueButton->hide();
    lblContinue->hide();
    startClock();
}

void ItemExerciseScreen::showScore()
{
    lblScore->setText(GapScoreLine(run->score(), QString::number(run->questionCount())));
    lblScore->show();
}

void ItemExerciseScreen::onCheck()
{
    if (!run)
        return;
    run->check(Text1->text());
    state.Score = run->score();
    showScore();
    nav().openModal(QStringLiteral("uesccheck"));
}

void ItemExerciseScreen::onHelp()
{
    state.HelpCaller = kind();
    openHelp(itemScreens(kind()).help);
}

void ItemExerciseScreen::moveOn()
{
    if (!run)
        return;
    if (!run->next(state)) {
        state.Clock.stop();
        nav().openModal(QStringLiteral("uescscore"));
        return;
    }
    state.CurrentRecord = run->order().constLast();
    showItem(run->current());
    Text1->clear();
    Text1->setReadOnly(false);
    Text1->setFocus();
    lblCorrectanswer->hide();
    Check->show();
    lblCheck->show();
    continueButton->hide();
    lblContinue->hide();
}

void ItemExerciseScreen::showCorrectAnswer()
{
    lblCorrectanswer->show();
    Check->hide();
    lblCheck->hide();
    Text1->setReadOnly(true);
    continueButton->show();
    lblContinue->show();
    continueButton->setFocus();
}

uewb::uewb(ProgramState &s, Navigator &nav) : ItemExerciseScreen(QStringLiteral("uewb"), s, nav, 10)
{
    Label3 = addLabel(QStringLiteral("Label3"), QString(), QRect(84, 140, 400, 30), 13, true);
    Label1 = addLabel(QStringLiteral("Label1"), QString(), QRect(84, 200, 860, 90), 15);
    Label1->setWordWrap(true);
    Label2 = addLabel(QStringLiteral("Label2"), QString(), QRect(84, 320, 400, 40), 16, true);
    lblInfo = addLabel(QStringLiteral("lblInfo"), QString(), QRect(20, 740, 400, 20), 8);
    lblInfo->hide();
    plainText({Label1, Label2, lblCorrectanswer});
    setTabOrder(Text1, Check);
}

void uewb::showItem(const OneItem &item)
{
    lblInstruction->setText(QStringLiteral("Use the word given to form a word which will complete the sentence."));
    Label1->setText(item.prompt);
    Label2->setText(item.word);
    Label3->setText(QuestionLine(run->position(), run->questionCount()));
    lblCorrectanswer->setText(QStringLiteral("Correct answer: ") + item.answer);
    QStringList asked;
    for (int r : run->order())
        asked << QString::number(r);
    lblInfo->setText(asked.join(u' '));
}

uesc::uesc(ProgramState &s, Navigator &nav) : ItemExerciseScreen(QStringLiteral("uesc"), s, nav, 8)
{
    lblQuestionnumber = addLabel(QStringLiteral("lblQuestionnumber"), QString(), QRect(84, 140, 400, 30), 13, true);
    Label1 = addLabel(QStringLiteral("Label1"), QString(), QRect(84, 190, 860, 60), 15);
    Label1->setWordWrap(true);
    Label2 = addLabel(QStringLiteral("Label2"), QString(), QRect(84, 270, 860, 80), 15, true);
    Label2->setWordWrap(true);
    Label7 = addLabel(QStringLiteral("Label7"), QString(), QRect(84, 360, 400, 30), 12);
    Label8 = addLabel(QStringLiteral("Label8"), QString(), QRect(500, 360, 440, 30), 12);
    for (QLabel *l : {Label7, Label8})
        l->hide();
    plainText({Label1, Label2, Label7, Label8, lblCorrectanswer});
    setTabOrder(Text1, Check);
}

void uesc::showItem(const OneItem &item)
{
    lblInstruction->setText(QStringLiteral("Complete the second sentence so that it means the same as the first,") + u'\n'
                            + QStringLiteral("using the word given.  (You must not use more than 5 words.)")
                            + QStringLiteral(" One correct answer is given. There may be alternatives."));
    lblQuestionnumber->setText(QStringLiteral("%1 of %2").arg(run->position()).arg(run->questionCount()));
    Label1->setText(item.prompt);
    Label2->setText(item.start + kGap + item.end + QStringLiteral("    (") + item.word + u')');
    Label7->setText(item.start);
    Label8->setText(item.end);
    lblCorrectanswer->setText(item.answer);
}

// ---- the check and score windows ----

uesccheck::uesccheck(ProgramState &s, Navigator &nav) : AppScreen(QStringLiteral("uesccheck"), s, nav)
{
    setDesignSize(QSize(520, 320));
    ItemRun *run = findItemRun(nav, s.ExerciseKind);
    const bool right = run && !run->isEmpty() && run->current().right;
    QLabel *tick = addPicture(QStringLiteral("imgTick"), QStringLiteral("tick"), QRect(210, 20, 100, 100));
    QLabel *cross = addPicture(QStringLiteral("imgCross"), QStringLiteral("cross"), QRect(210, 20, 100, 100));
    tick->setVisible(right);
    cross->setVisible(!right);
    addLabel(QStringLiteral("Comment"), right ? QStringLiteral("Correct") : QStringLiteral("Sorry, not correct"),
             QRect(20, 130, 480, 40), 16, true, Qt::AlignCenter);
    struct ButtonDef { const char *name, *icon, *caption, *text; };
    const ButtonDef buttons[] = {{"tryagain", "tryagain", "lblAgain", "Try again"},
                                 {"continue", "continue", "lblContinue", "Continue"},
                                 {"seecorrect", "seecorrect", "lblSeecorrect", "See correct answer"}};
    int x = 70;
    for (const ButtonDef &b : buttons) {
        ui::ImageButton *button = addButton(QString::fromLatin1(b.name), QString::fromLatin1(b.icon), QRect(x, 190, 52, 52),
                                            QString::fromLatin1(b.caption), QString::fromLatin1(b.text),
                                            QRect(x - 38, 246, 128, 44));
        const QString name = QString::fromLatin1(b.name);
        onClick(button, [this, name] {
            ItemExerciseScreen *ex = exercise();
            closeScreen();
            if (!ex)
                return;
            if (name == QStringLiteral("continue"))
                ex->moveOn();
            else if (name == QStringLiteral("seecorrect"))
                ex->showCorrectAnswer();
        });
        x += 150;
    }
}

ItemExerciseScreen *uesccheck::exercise()
{
    return dynamic_cast<ItemExerciseScreen *>(nav().find(itemScreens(state.ExerciseKind).exercise));
}

uescscore::uescscore(ProgramState &s, Navigator &nav) : AppScreen(QStringLiteral("uescscore"), s, nav)
{
    setDesignSize(QSize(520, 360));
    ItemRun *run = findItemRun(nav, s.ExerciseKind);
    const int total = run ? run->questionCount() : 0;
    const int score = run ? run->score() : 0;
    s.Score = score;
    s.VerdictIndex = VerdictRuleA(total, score);
    // The run is over: it goes into the history, an item under its record number.
    if (auto *ex = dynamic_cast<ExerciseScreen *>(nav.find(itemScreens(s.ExerciseKind).exercise)); ex && run) {
        QList<AnswerRecord> answers;
        const QList<int> records = run->order();
        for (int p = 1; p <= records.size(); ++p) {
            const OneItem &item = run->askedAt(p);
            answers.append({records.at(p - 1), item.typed, item.answer, item.right});
        }
        ex->recordFirstCheck(score, total, answers);
    }
    addLabel(QStringLiteral("lblScore"), ItemScoreLine(score, total), QRect(20, 16, 480, 36), 18, true, Qt::AlignCenter);
    addPicture(QStringLiteral("smileys"), QStringLiteral("verdict%1").arg(int(s.VerdictIndex)), QRect(210, 60, 100, 100));
    addLabel(QStringLiteral("Comment"), s.VerdictTexts[s.VerdictIndex], QRect(20, 166, 480, 36), 14, true, Qt::AlignCenter);
    ui::ImageButton *review = addButton(QStringLiteral("review"), QStringLiteral("seecorrect"), QRect(130, 220, 52, 52),
                                        QStringLiteral("lblReview"), QStringLiteral("Review answers"), QRect(92, 276, 128, 44));
    ui::ImageButton *quit = addButton(QStringLiteral("Quit"), QStringLiteral("back"), QRect(330, 220, 52, 52),
                                      QStringLiteral("lblQuit"), QStringLiteral("Close"), QRect(292, 276, 128, 44));
    onClick(review, [this] {
        const QString code = itemScreens(state.ExerciseKind).review;
        leave();
        this->nav().open(code);
    });
    onClick(quit, [this] { leave(); });
    PlaySound(s, s.VerdictIndex);
}

void uescscore::leave()
{
    ui::Screen *ex = nav().find(itemScreens(state.ExerciseKind).exercise);
    closeScreen();
    if (ex)
        nav().close(ex);
}

// ---- the reviews ----

ItemReviewScreen::ItemReviewScreen(const QString &code, ProgramState &s, Navigator &nav, int k)
    : AppScreen(code, s, nav), kind(k)
{
    setBackgroundPicture(QStringLiteral("background"));
    run = findItemRun(nav, k);
    addLabel(QStringLiteral("lblInstruction"), QStringLiteral("Click on the arrows to review your answers."),
             QRect(84, 40, 860, 30), 14, true);
    lblQnumber = addLabel(QStringLiteral("lblQnumber"), QStringLiteral("Question"), QRect(84, 90, 400, 30), 13, true);
    Label1 = addLabel(QStringLiteral("Label1"), QString(), QRect(84, 140, 860, 90), 15);
    Label1->setWordWrap(true);
    Label2 = addLabel(QStringLiteral("Label2"), QString(), QRect(84, 240, 860, 60), 15, true);
    Label2->setWordWrap(true);
    Text1 = new QLineEdit(this);
    Text1->setObjectName(QStringLiteral("Text1"));
    Text1->setAccessibleName(QStringLiteral("Your answer"));
    place(Text1, QRect(84, 320, 520, 34), 14);
    Image4 = addPicture(QStringLiteral("Image4"), QStringLiteral("tick"), QRect(620, 314, 44, 44));
    lblAnswer = addLabel(QStringLiteral("lblAnswer"), QStringLiteral("Answers"), QRect(84, 380, 860, 60), 13, true);
    lblAnswer->setWordWrap(true);
    lblScore = addLabel(QStringLiteral("lblScore"), QStringLiteral("Score:"), QRect(84, 460, 400, 30), 13, true);
    ui::ImageButton *prev = addButton(QStringLiteral("Previousq"), QStringLiteral("previous"), QRect(280, 600, 52, 52),
                                      QStringLiteral("lblPrevious"), QStringLiteral(" Previous question"));
    ui::ImageButton *next = addButton(QStringLiteral("Image2"), QStringLiteral("next"), QRect(480, 600, 52, 52),
                                      QStringLiteral("lblNext"), QStringLiteral("Next question"));
    ui::ImageButton *quit = addButton(QStringLiteral("Quit"), QStringLiteral("exit"), QRect(680, 600, 52, 52),
                                      QStringLiteral("lblQuit"), QStringLiteral("Exit"));
    plainText({Label1, Label2, lblAnswer});
    onClick(prev, [this] { step(-1); });
    onClick(next, [this] { step(1); });
    onClick(quit, [this] { closeScreen(); });
}

void ItemReviewScreen::showPosition()
{
    if (!run || run->isEmpty())
        return;
    OneItem &item = run->askedAt(position);
    lblQnumber->setText(QuestionLine(position, run->questionCount()));
    Text1->setText(item.typed);
    setPicture(Image4, item.right ? QStringLiteral("tick") : QStringLiteral("cross"));
    showItem(item);
}

void ItemReviewScreen::step(int by)
{
    if (!run || run->isEmpty())
        return;
    if (by < 0)
        run->askedAt(position).normalised = NormaliseAnswer(Text1->text());
    const int to = position + by;
    if (to < 1 || to > run->position()) {
        PlayNamedSound(state, QStringLiteral("start.wav")); // no further question that way
        return;
    }
    if (by < 0)
        PlayNamedSound(state, QStringLiteral("oopshort.wav"));
    position = to;
    showPosition();
}

uewbreview::uewbreview(ProgramState &s, Navigator &nav) : ItemReviewScreen(QStringLiteral("uewbreview"), s, nav, 10)
{
    showPosition();
}

void uewbreview::showItem(const OneItem &item)
{
    Label1->setText(item.prompt);
    Label2->setText(item.word);
    lblAnswer->setText(QStringLiteral("Correct answer: ") + item.answer);
    lblScore->setText(QStringLiteral("Score: %1 / %2").arg(run->score()).arg(run->position()));
}

uescreview::uescreview(ProgramState &s, Navigator &nav) : ItemReviewScreen(QStringLiteral("uescreview"), s, nav, 8)
{
    for (const char *name : {"Clean", "Dirty"}) {
        QLabel *l = addLabel(QString::fromLatin1(name), QString(), QRect(20, 740, 100, 20), 8);
        l->hide();
    }
    showPosition();
}

void uescreview::showItem(const OneItem &item)
{
    Label1->setText(item.prompt);
    Label2->setText(item.start + kGap + item.end + QStringLiteral("    (") + item.word + u')');
    QStringList answers;
    for (const QString &a : item.alternatives)
        if (!a.isEmpty())
            answers << a;
    lblAnswer->setText(QStringLiteral("Correct answers: ") + answers.join(QStringLiteral(" / ")));
    lblScore->setText(ItemScoreLine(run->score(), run->questionCount()));
}

} // namespace sd
