#include "ueec.h"

#include "core/gapscoring.h"
#include "frame/core/state.h"

#include <QTimer>

namespace sd {

ueec::ueec(ProgramState &s, Navigator &nav) : GapExerciseScreen(QStringLiteral("ueec"), s, nav, 9)
{
    place(lblInstruction, QRect(84, 86, 860, 18), 10);
    lblInstruction2 = addLabel(QStringLiteral("lblInstruction2"), QString(), QRect(84, 104, 860, 18), 10);
    Label16 = addLabel(QStringLiteral("Label16"), QStringLiteral("Correct answers"), QRect(24, 124, 170, 22), 10, true);
    Label16->hide();
    QList<QWidget *> chain;
    for (int n = 1; n <= 15; ++n) {
        const int y = 150 + (n - 1) * 34;
        Text[n] = new QLineEdit(this);
        Text[n]->setObjectName(QStringLiteral("Text%1").arg(n));
        Text[n]->setAccessibleName(QStringLiteral("Extra word in line %1").arg(n));
        place(Text[n], QRect(24, y, 170, 28), 11);
        KeyBox[n] = addAnswerBox(QStringLiteral("Correct%1").arg(n), QRect(24, y, 170, 28));
        Image[n] = addPicture(QStringLiteral("Image%1").arg(n), QStringLiteral("mark"), QRect(198, y + 2, 24, 24));
        Image[n]->hide();
        lbl[n] = addLabel(QStringLiteral("lbl%1").arg(n), QString(), QRect(230, y, 700, 28), 11);
        lbl[n]->setWordWrap(false);
        CheckBox[n] = new QCheckBox(this);
        CheckBox[n]->setObjectName(QStringLiteral("Check%1").arg(n));
        CheckBox[n]->setAccessibleName(QStringLiteral("Line %1 is correct").arg(n));
        place(CheckBox[n], QRect(950, y + 2, 26, 26));
        connect(CheckBox[n], &QCheckBox::toggled, this, [this, n](bool on) { guarded([=, this] { tick(n, on); }); });
        Input[n] = Text[n];
        chain.append({Text[n], CheckBox[n]});
    }
    m_markedCorrect.fill(false);
    testOutOfFifteen = true;
    // The lines are plain text: nothing to print here.
    Printing->hide();
    lblPrint->hide();
    setGapTabOrder(chain);
}

void ueec::load()
{
    const RecordF r = readRecord<RecordF>(DataFile::Ueec);
    beginLoad(QStringLiteral("If you think the line contains an extra word, type it in the box on the left."));
    lblInstruction2->setText(QStringLiteral("If you think the line is correct, click on the box on the right."));
    if (r.Name.isEmpty()) {
        QTimer::singleShot(0, this, [this] { nav().showError(QStringLiteral("No file name")); });
        throw ProgramError(QStringLiteral("No file name"));
    }
    const QStringList lines = ReadNumberedLines(state.DataDir, r.Name + QStringLiteral(".txt"));
    if (lines.isEmpty())
        throw ProgramError(QStringLiteral("No text"));
    for (int n = 1; n <= 15; ++n)
        lbl[n]->setText(n <= lines.size() ? lines.at(n - 1) : QString());
    PrepareLineGaps(state, kind(), r.Item);
    for (int n = 1; n <= 15; ++n) {
        CheckBox[n]->setChecked(false);
        Text[n]->clear();
    }
    finishLoad();
}

void ueec::tick(int n, bool on)
{
    if (on)
        Text[n]->clear();
    Text[n]->setEnabled(!on);
    m_markedCorrect[n] = on;
}

} // namespace sd
