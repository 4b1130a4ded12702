#include "examsave.h"

#include "core/testpaper.h"
#include "frame/core/history.h"
#include "frame/core/services.h"
#include "frame/core/state.h"
#include "frame/printing.h"
#include "writing/core/composition.h"
#include "writing/core/wordcount.h"

#include <QDir>
#include <QPlainTextEdit>
#include <QStandardPaths>

namespace sd {

namespace {
QPlainTextEdit *answerBox(ui::Screen *s, const QString &name, const QString &text, const QString &accessible, QRect r)
{
    auto *box = new QPlainTextEdit(s);
    box->setObjectName(name);
    box->setPlainText(text);
    box->setReadOnly(true);
    box->setAccessibleName(accessible);
    s->place(box, r, 11);
    return box;
}
} // namespace

Examsave::Examsave(ProgramState &s, Navigator &nav) : AppScreen(QStringLiteral("Examsave"), s, nav)
{
    setBackgroundPicture(QStringLiteral("background"));
    addHeadingPlate(1, s.ActivityHeadings[2].toUpper(), QRect(230, 12, 272, 42));
    addHeadingPlate(2, s.PaperHeadings[WritingPaper].toUpper(), QRect(522, 12, 272, 42));
    addLabel(QStringLiteral("lblInstruct"), QStringLiteral("SAVE OR PRINT YOUR ANSWERS  -  TEST %1").arg(int(s.TestNumber)),
             QRect(40, 62, 944, 34), 18, true, Qt::AlignCenter);
    addLabel(QStringLiteral("lblName"), QStringLiteral("Name: ") + s.StudentName, QRect(40, 100, 944, 28), 13, true);

    addLabel(QStringLiteral("lblPart1"), QStringLiteral("PART 1"), QRect(40, 134, 470, 26), 13, true);
    QLabel *heading1 = addLabel(QStringLiteral("lblHeading1"), s.LetterHeading, QRect(40, 160, 470, 60), 10);
    heading1->setWordWrap(true);
    answerBox(this, QStringLiteral("Text1"), s.LetterText, QStringLiteral("Part 1, your letter"), QRect(40, 222, 470, 370));

    addLabel(QStringLiteral("lblPart2"), QStringLiteral("PART 2"), QRect(534, 134, 450, 26), 13, true);
    QLabel *heading2 = addLabel(QStringLiteral("lblHeading2"), s.CompositionHeading, QRect(534, 160, 450, 60), 10);
    heading2->setWordWrap(true);
    answerBox(this, QStringLiteral("Text2"), s.CompositionText, QStringLiteral("Part 2, your composition"),
              QRect(534, 222, 450, 370));

    const QRect row(0, 604, 52, 52);
    ui::ImageButton *print1 = addButton(QStringLiteral("imgPrint"), QStringLiteral("print"), row.translated(236, 0),
                                        QStringLiteral("lblPrint"), QStringLiteral("Print Part 1"));
    ui::ImageButton *print2 = addButton(QStringLiteral("imgPrint2"), QStringLiteral("print"), row.translated(386, 0),
                                        QStringLiteral("lblPrint2"), QStringLiteral("Print Part 2"));
    ui::ImageButton *save = addButton(QStringLiteral("Savetext"), QStringLiteral("save"), row.translated(536, 0),
                                      QStringLiteral("lblSave"), QStringLiteral("Save both parts"));
    ui::ImageButton *quit = addButton(QStringLiteral("Quit"), QStringLiteral("back"), row.translated(736, 0),
                                      QStringLiteral("lblQuit"), QStringLiteral("Close"));
    onClick(print1, [this] {
        if (printLetterPage(state, this))
            keepRecord();
    });
    onClick(print2, [this] {
        if (printCompositionPage(state, this))
            keepRecord();
    });
    onClick(save, [this] { this->save(); });
    onClick(quit, [this] { closeScreen(); });
}

void Examsave::save()
{
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    const QString proposed = QStringLiteral("Writing test %1.txt").arg(int(state.TestNumber));
    QString path = state.SaveAs->askSaveFile(QStringLiteral("Save your answers as a text file"),
                                             QDir(folder.isEmpty() ? QDir::homePath() : folder).filePath(proposed),
                                             QStringLiteral("Text File (*.txt)"));
    if (path.isEmpty())
        return;
    path = withTextExtension(path);
    const QByteArray bytes = compositionFileBytes(state.LetterHeading, state.LetterText, state.StudentName)
                             + compositionFileBytes(state.CompositionHeading, state.CompositionText, state.StudentName);
    if (!writeFileAtomically(path, bytes)) {
        nav().showMessage(QString::fromUtf16(SaveErrorText));
        return;
    }
    const QString test = QStringLiteral("Test %1 ").arg(int(state.TestNumber));
    state.History->recordComposition({state.Time.now().toUTC(), test + QStringLiteral("Part 1"), state.LetterHeading,
                                      CountWords(state.LetterText), path});
    state.History->recordComposition({state.Time.now().toUTC(), test + QStringLiteral("Part 2"),
                                      state.CompositionHeading, CountWords(state.CompositionText), path});
    keepRecord();
}

void Examsave::keepRecord()
{
    if (state.TestScored)
        return;
    state.TestScored = true;
    state.History->recordTest(FinishedTestRecord(state, TestScore{}), QString(), {});
}

} // namespace sd
