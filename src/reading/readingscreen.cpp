#include "readingscreen.h"

#include "core/readingscore.h"
#include "frame/core/state.h"
#include "ui/richtextbox.h"
#include "ui/webpagebox.h"

#include <QApplication>
#include <QPaintEvent>
#include <QPointer>

namespace sd {

namespace {
/// The hourglass pointer while answers are taken.
struct BusyPointer
{
    BusyPointer() { QApplication::setOverrideCursor(Qt::WaitCursor); }
    ~BusyPointer() { QApplication::restoreOverrideCursor(); }
    BusyPointer(const BusyPointer &) = delete;
    BusyPointer &operator=(const BusyPointer &) = delete;
};
} // namespace

ReadingScreen::ReadingScreen(const QString &code, ProgramState &s, Navigator &nav, int kind, DataFile file, int boxes)
    : ExerciseScreen(code, s, nav, kind), m_file(file)
{
    m_boxes.reserve(boxes);
}

void ReadingScreen::placeInstruction(QRect rect, qreal fontPt)
{
    place(lblInstruction, rect, fontPt);
    lblInstruction->setAlignment(Qt::AlignLeft | Qt::AlignTop);
}

void ReadingScreen::layOutWithSheet(int boxes)
{
    placeInstruction(QRect(84, 86, 840, 66), 10);
    addPassage(QRect(16, 156, 560, 504));
    addSheet(QRect(592, 156, 416, 384));
    const int step = 416 / boxes;
    const int w = std::min(step - 8, 52);
    for (int i = 1; i <= boxes; ++i) {
        const int x = 592 + (i - 1) * step + (step - w) / 2;
        addAnswerRow(i, QRect(x, 548, w, 22), QRect(x, 572, w, 34), QRect(x, 612, w, 30));
    }
}

void ReadingScreen::addPassage(QRect rect)
{
    RichTextBox1 = new RichTextBox(this);
    RichTextBox1->setObjectName(QStringLiteral("RichTextBox1"));
    place(RichTextBox1, rect, 11);
    WebBrowser1 = new WebPageBox(this);
    WebBrowser1->setObjectName(QStringLiteral("WebBrowser1"));
    place(WebBrowser1, rect, 11);
    WebBrowser1->hide();
}

void ReadingScreen::addSheet(QRect rect)
{
    RichTextBox2 = new RichTextBox(this);
    RichTextBox2->setObjectName(QStringLiteral("RichTextBox2"));
    place(RichTextBox2, rect, 11);
}

void ReadingScreen::addAnswerRow(int i, QRect number, QRect box, QRect answer, qreal fontPt)
{
    m_numbers.append(addLabel(numberLabelName(i), QString::number(i), number, fontPt, true, Qt::AlignCenter));
    auto *edit = new QLineEdit(this);
    edit->setObjectName(QStringLiteral("Text%1").arg(i));
    place(edit, box, fontPt);
    m_boxes.append(edit);
    // The correct answer sits on a small plate of the system's window colours.
    QLabel *key = addLabel(QStringLiteral("lblAnswer%1").arg(i), QString(), answer, fontPt, true, Qt::AlignCenter);
    key->setAutoFillBackground(true);
    QPalette pal = key->palette();
    pal.setColor(QPalette::Window, QGuiApplication::palette().color(QPalette::Window));
    key->setPalette(pal);
    key->hide();
    m_answers.append(key);
    // Right and wrong are told by a mark as well as by colour.
    const int side = answer.height() * 3 / 4;
    QLabel *mark = addPicture(QStringLiteral("imgMark%1").arg(i), QStringLiteral("tick"),
                              QRect(answer.right() + 3, answer.center().y() - side / 2, side, side));
    mark->hide();
    m_marks.append(mark);
}

QStringList ReadingScreen::splitKey(const QString &key) const
{
    return splitLetterKey(key);
}

ReadingScreen::Exercise ReadingScreen::readExercise()
{
    const auto r = readRecord<RecordA>(m_file);
    return {r.Name, r.Text[1], r.Answers};
}

void ReadingScreen::load()
{
    setHeadings();
    QString text = instruction();
    lblInstruction->setText(ui::lineBreaks(text));
    setExerciseId();
    const Exercise ex = readExercise();

    QString key = ex.key;
    if (!extraLine().isEmpty()) {
        bool extra = false;
        key = splitLetterKey(key, true, &extra).join(QString());
        state.ExtraSection = extra;
        if (extra) {
            text += u'\r' + extraLine();
            lblInstruction->setText(ui::lineBreaks(text));
        }
    }

    loadPassage(ex.passage);
    if (RichTextBox2 && !RichTextBox2->loadDataFile(state.DataDir, ex.sheet + QStringLiteral(".rtf")))
        throw ProgramError(QStringLiteral("No file"));

    hideScoreAndAnswers();
    state.SeeCorrectAnswers = false;

    m_keys = splitKey(key);
    if (m_keys.isEmpty())
        throw ProgramError(QStringLiteral("No answers"));
    if (m_keys.size() > readingStoreSize(kind()))
        throw RangeError(QStringLiteral("Subscript out of range: %1 questions").arg(m_keys.size()));
    m_total = scoreReading({}, m_keys).total;
    state.QuestionCount = m_total;
    for (int i = 1; i <= state.ReadingKeys.last; ++i)
        state.ReadingKeys[i] = m_keys.value(i - 1);

    const int shown = std::max(questionCount(), alwaysShown());
    for (int i = 1; i <= boxCount(); ++i) {
        const bool visible = i <= shown;
        box(i)->setVisible(visible);
        numberLabel(i)->setVisible(visible);
        for (QWidget *w : rowExtras(i))
            w->setVisible(visible);
    }

    if (state.TestMode) {
        for (int i = 1; i <= boxCount(); ++i)
            box(i)->setText(state.SavedAnswer[kind()][i]);
        if (!state.TestScored)
            state.SectionVisited[section()] = true;
    }
    if (state.TestMode && state.ShowSectionAnswers)
        showCorrectAnswers();
    else
        hideScoreAndAnswers();

    ResetButtons();
    showModeButtons();
    startClock();
}

void ReadingScreen::loadPassage(const QString &base)
{
    if (!RichTextBox1->loadDataFile(state.DataDir, base + QStringLiteral(".rtf")))
        throw ProgramError(QStringLiteral("No file"));
    // A missing web page leaves the rich-text passage in view.
    const bool web = state.ShowWebPages && WebBrowser1->loadDataFile(state.DataDir, base + QStringLiteral(".htm"));
    RichTextBox1->setVisible(!web);
    WebBrowser1->setVisible(web);
}

void ReadingScreen::lockAnswerBoxes()
{
    for (QLineEdit *b : std::as_const(m_boxes))
        b->setReadOnly(true);
}

void ReadingScreen::showCorrectAnswers()
{
    lockAnswerBoxes();
    // Once the answers are shown a check can no longer mean anything.
    Check->hide();
    lblCheck->hide();
    const QColor windowText = QGuiApplication::palette().color(QPalette::WindowText);
    for (int i = 1; i <= std::min(questionCount(), boxCount()); ++i) {
        const bool right = state.ReadingResults.at(kind(), i);
        QLabel *l = answerLabel(i);
        l->setText(m_keys.at(i - 1));
        QPalette pal = l->palette();
        pal.setColor(QPalette::WindowText, right ? windowText : ui::wrongAnswerColour());
        l->setPalette(pal);
        l->setAccessibleName(QStringLiteral("Correct answer to question %1: %2, %3")
                                 .arg(i)
                                 .arg(m_keys.at(i - 1), right ? QStringLiteral("you were right")
                                                              : QStringLiteral("you were wrong")));
        l->show();
        QLabel *mark = m_marks.at(i - 1);
        setPicture(mark, right ? QStringLiteral("tick") : QStringLiteral("cross"));
        mark->setAccessibleName(right ? QStringLiteral("Right") : QStringLiteral("Wrong"));
        mark->show();
        mark->raise();
    }
    showScoreLine();
}

void ReadingScreen::hideScoreAndAnswers()
{
    lblScore->hide();
    for (QLabel *l : std::as_const(m_answers))
        l->hide();
    for (QLabel *m : std::as_const(m_marks))
        m->hide();
}

void ReadingScreen::showScoreLine()
{
    const int score = state.TestMode ? int(state.SectionScore[section()]) : int(state.Score);
    lblScore->setText(QStringLiteral("Score: %1 out of %2").arg(score).arg(m_total));
    lblScore->show();
}

void ReadingScreen::takeAnswers()
{
    for (int i = 1; i <= state.ReadingAnswers.last; ++i) {
        const QString typed = i <= boxCount() ? box(i)->text() : QString();
        // Practice never writes the test answer store, so a test section starts clean of it.
        if (state.TestMode && i <= boxCount())
            state.SavedAnswer[kind()][i] = typed;
        state.ReadingAnswers[i] = readingAnswer(typed);
    }
}

void ReadingScreen::keepTestAnswers()
{
    if (state.TestMode && !state.TestScored && !loadFailed())
        takeAnswers();
}

void ReadingScreen::onCheck()
{
    if (loadFailed())
        return;
    BusyPointer busy;
    takeAnswers();
    if (state.TestMode)
        return;
    nav().openModal(readingCheckScreenCode(kind()), [&s = state] { s.LastExerciseScore = s.Score; });
    // The check window has scored the answers.
    QList<AnswerRecord> answers;
    for (int i = 1; i <= std::min(questionCount(), boxCount()); ++i)
        answers.append({i, box(i)->text(), m_keys.at(i - 1), state.ReadingResults.at(kind(), i)});
    recordFirstCheck(state.Score, state.QuestionCount, answers);
}

void ReadingScreen::onHelp()
{
    state.HelpCaller = kind();
    openHelp(readingHelpTopic(kind()));
}

void ReadingScreen::onQuit()
{
    // A test section is scored silently as it is left; once the test is scored nothing changes.
    if (state.TestMode && !loadFailed() && !state.TestScored) {
        takeAnswers();
        ScoreReadingAnswers(state, kind());
        storeSectionScore();
    }
    ExerciseScreen::onQuit();
}

int ReadingScreen::section() const
{
    return ProgramState::sectionOfKind(kind());
}

void ReadingScreen::storeSectionScore()
{
    state.SectionScore[section()] = state.Score;
    state.SectionQuestions[section()] = state.QuestionCount;
    state.SectionDone[section()] = true;
}

QList<QTextDocument *> ReadingScreen::printableDocuments()
{
    QList<QTextDocument *> docs{RichTextBox1->document()};
    if (RichTextBox2)
        docs.append(RichTextBox2->document());
    return docs;
}

} // namespace sd
