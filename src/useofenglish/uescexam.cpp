#include "uescexam.h"

#include "core/conversion.h"
#include "frame/core/state.h"
#include "frame/core/verdicts.h"

#include <QTimer>

namespace sd {

namespace {
QString scoreText(int score)
{
    return QStringLiteral("%1 out of %2").arg(score).arg(ConversionTestMaximum);
}
} // namespace

uescexam::uescexam(ProgramState &s, Navigator &nav) : ExerciseScreen(QStringLiteral("uescexam"), s, nav, 8)
{
    Printing->hide();
    lblPrint->hide();
    const QRect area = contentArea();
    QWidget *previous = nullptr;
    for (int n = 1; n <= 10; ++n) {
        const int x = area.x() + ((n - 1) / 5) * (area.width() / 2);
        const int y = area.y() + ((n - 1) % 5) * 106;
        const int w = area.width() / 2 - 16;
        lblFirst[n] = addLabel(QStringLiteral("lblFirst%1").arg(n), QString(), QRect(x, y, w, 34), 10);
        lblFirst[n]->setWordWrap(true);
        lblSecond[n] = addLabel(QStringLiteral("lblSecond%1").arg(n), QString(), QRect(x, y + 34, w, 34), 10, true);
        lblSecond[n]->setWordWrap(true);
        Text[n] = new QLineEdit(this);
        Text[n]->setObjectName(QStringLiteral("Text%1").arg(n));
        Text[n]->setAccessibleName(QStringLiteral("Item %1").arg(n));
        place(Text[n], QRect(x + 20, y + 70, 250, 26), 10);
        Image[n] = addPicture(QStringLiteral("Image%1").arg(n), QStringLiteral("tick"), QRect(x + 274, y + 71, 24, 24));
        Image[n]->hide();
        lblKey[n] = addLabel(QStringLiteral("lblKey%1").arg(n), QString(), QRect(x + 302, y + 70, w - 302, 26), 9, true);
        lblKey[n]->hide();
        for (QLabel *l : {lblFirst[n], lblSecond[n], lblKey[n]})
            l->setTextFormat(Qt::PlainText); // text from data, never markup
        if (previous)
            QWidget::setTabOrder(previous, Text[n]);
        previous = Text[n];
    }
    QWidget::setTabOrder(previous, Quit);
}

void uescexam::load()
{
    setHeadings();
    setExerciseId();
    showModeButtons();
    lblInstruction->setText(QStringLiteral("Complete the second sentence so that it means the same as the first,") + u'\n'
                            + QStringLiteral("using the word given.  (You must not use more than 5 words.)"));
    lblScore->hide();
    m_items = ReadConversionItems(state, QStringLiteral("x") + state.LevelCode);
    if (m_items.isEmpty())
        throw ProgramError(QStringLiteral("Not found"));
    for (int n = 1; n <= 10; ++n) {
        const bool used = n <= m_items.size();
        for (QWidget *w : {static_cast<QWidget *>(lblFirst[n]), static_cast<QWidget *>(lblSecond[n]),
                           static_cast<QWidget *>(Text[n])})
            w->setVisible(used);
        if (!used)
            continue;
        const OneItem &item = m_items.at(n - 1);
        lblFirst[n]->setText(QStringLiteral("%1. ").arg(n) + item.prompt);
        lblSecond[n]->setText(item.start + QStringLiteral(" ....... ") + item.end + QStringLiteral("  (") + item.word + u')');
        lblKey[n]->setText(item.answer);
        Text[n]->setText(state.SavedAnswer[kind()][n]);
    }
    if (!state.TestScored)
        state.SectionVisited[section()] = true;
    startClock();
    if (state.TestScored && state.SectionVisited[section()]) {
        state.SectionScore[section()] = scoreAnswers();
        for (int n = 1; n <= m_items.size() && n <= 10; ++n) {
            Text[n]->setReadOnly(true);
            setPicture(Image[n], m_items.at(n - 1).right ? QStringLiteral("tick") : QStringLiteral("cross"));
            Image[n]->show();
        }
        lblScore->setText(QStringLiteral("Score: ") + scoreText(state.SectionScore[section()]));
        lblScore->show();
        // Over the section once it shows.
        QTimer::singleShot(0, this, [this] { nav().openModal(QStringLiteral("uescexamcheck")); });
    }
}

int uescexam::scoreAnswers()
{
    int score = 0;
    for (int n = 1; n <= m_items.size() && n <= 10; ++n) {
        OneItem &item = m_items[n - 1];
        item.right = JudgeItemAnswer(Text[n]->text(), item.answer, item.alternatives);
        if (item.right)
            ++score;
    }
    return std::min(score, ConversionTestMaximum);
}

void uescexam::showCorrectAnswers()
{
    for (int n = 1; n <= m_items.size() && n <= 10; ++n)
        lblKey[n]->show();
}

void uescexam::onQuit()
{
    if (!loadFailed() && !state.TestScored) {
        for (int n = 1; n <= 10; ++n)
            state.SavedAnswer[kind()][n] = n <= m_items.size() ? RemoveCarriageReturns(Text[n]->text()) : QString();
        state.SectionScore[section()] = scoreAnswers();
        state.SectionDone[section()] = true;
    }
    ExerciseScreen::onQuit();
}

uescexamcheck::uescexamcheck(ProgramState &s, Navigator &nav) : AppScreen(QStringLiteral("uescexamcheck"), s, nav)
{
    setDesignSize(QSize(520, 340));
    const int score = s.SectionScore[ProgramState::sectionOfKind(8)];
    const int verdict = VerdictRuleB(ConversionTestMaximum, score);
    addLabel(QStringLiteral("lblScore"), QStringLiteral("Score: ") + scoreText(score), QRect(20, 16, 480, 36), 18, true,
             Qt::AlignCenter);
    addPicture(QStringLiteral("Image1"), QStringLiteral("verdict%1").arg(verdict), QRect(210, 60, 100, 100));
    addLabel(QStringLiteral("Comment"), s.VerdictTexts[verdict], QRect(20, 166, 480, 36), 14, true, Qt::AlignCenter);
    ui::ImageButton *see = addButton(QStringLiteral("seecorrect"), QStringLiteral("seecorrect"), QRect(130, 220, 52, 52),
                                     QStringLiteral("lblSeecorrect"), QStringLiteral("See correct answers"),
                                     QRect(92, 276, 128, 44));
    ui::ImageButton *close = addButton(QStringLiteral("back"), QStringLiteral("back"), QRect(330, 220, 52, 52),
                                       QStringLiteral("lblBack"), QStringLiteral("Close"), QRect(292, 276, 128, 44));
    onClick(see, [this] {
        if (auto *exam = dynamic_cast<uescexam *>(this->nav().find(QStringLiteral("uescexam"))))
            exam->showCorrectAnswers();
        closeScreen();
    });
    onClick(close, [this] { closeScreen(); });
}

uescfinalscore::uescfinalscore(ProgramState &s, Navigator &nav) : AppScreen(QStringLiteral("uescfinalscore"), s, nav)
{
    setDesignSize(QSize(400, 220));
    addLabel(QStringLiteral("lblHead"), s.KindNames[8], QRect(20, 16, 360, 30), 14, true, Qt::AlignCenter);
    addLabel(QStringLiteral("lblScore"), scoreText(s.SectionScore[ProgramState::sectionOfKind(8)]), QRect(20, 56, 360, 40),
             18, true, Qt::AlignCenter);
    ui::ImageButton *close = addButton(QStringLiteral("back"), QStringLiteral("back"), QRect(174, 110, 52, 52),
                                       QStringLiteral("lblBack"), QStringLiteral("Close"), QRect(136, 166, 128, 40));
    onClick(close, [this] { closeScreen(); });
}

} // namespace sd
