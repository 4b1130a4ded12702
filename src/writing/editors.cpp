#include "editors.h"

#include "core/composition.h"
#include "core/titles.h"
#include "core/wordcount.h"

#include "frame/core/history.h"
#include "frame/core/minuteclock.h"
#include "frame/core/programtime.h"
#include "frame/core/state.h"
#include "frame/printing.h"
#include "ui/richtextbox.h"
#include "ui/webpagebox.h"

#include <QDir>
#include <QFrame>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QStandardPaths>

namespace sd {

namespace {
constexpr int DraftDelayMs = 2000;

QString boxText(const QString &kept)
{
    QString t = kept;
    t.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    return t;
}
} // namespace

CompositionEditor *openEditor(Navigator &nav)
{
    for (const char *code : {"writethecomp", "writetheleta"})
        if (auto *e = qobject_cast<CompositionEditor *>(nav.find(QString::fromLatin1(code))))
            return e;
    return nullptr;
}

CompositionEditor::CompositionEditor(const QString &code, ProgramState &s, Navigator &nav, bool letter)
    : WritingScreen(code, s, nav), m_letter(letter)
{
    addHeadings(s.TestMode ? (letter ? QStringLiteral("PART 1") : QStringLiteral("PART 2")) : QString());
    QString instruction = QStringLiteral("With this screen you can write and print your composition.  ")
                          + QStringLiteral("You can also save compositions.");
    if (letter)
        instruction += u' ' + QString::fromUtf16(NoAddresses) + QString::fromUtf16(WordCountRule);
    lblInstruction = addLabel(QStringLiteral("lblInstruction"), instruction, QRect(84, 60, 856, 40), 11);

    // The writing side: the left half beside a sheet, or the whole width.
    const bool beside = letter || s.TestMode;
    const int left = 16, width = beside ? 500 : 992;
    if (letter) {
        lblPartAtitle = addLabel(QStringLiteral("lblPartAtitle"), QString(), QRect(left, 104, width, 120), 11, true,
                                 Qt::AlignLeft | Qt::AlignTop);
    }
    QLabel *nameLabel = addLabel(QStringLiteral("lblName"), QStringLiteral("Write your name here."),
                                 QRect(left, 236, 220, 30), 12, true);
    txtName = new QLineEdit(this);
    txtName->setObjectName(QStringLiteral("txtName"));
    txtName->setAccessibleName(QStringLiteral("Your name"));
    place(txtName, QRect(left + 224, 236, width - 224, 30), 12);
    nameLabel->setBuddy(txtName);
    QLabel *boxLabel = addLabel(QStringLiteral("lblComposition"), QStringLiteral("Write the composition here."),
                                QRect(left, 272, width, 26), 12, true);
    Text2 = new QPlainTextEdit(this);
    Text2->setObjectName(QStringLiteral("Text2"));
    Text2->setAccessibleName(letter ? QStringLiteral("Your letter") : QStringLiteral("Your composition"));
    Text2->setTabChangesFocus(true);
    place(Text2, QRect(left, 300, width, 330), 12);
    boxLabel->setBuddy(Text2);
    lblLivecount = addLabel(QStringLiteral("lblLivecount"), liveCountText(0), QRect(left, 634, 300, 26), 11);
    shpWordcount = new QFrame(this);
    shpWordcount->setObjectName(QStringLiteral("shpWordcount"));
    shpWordcount->setFrameShape(QFrame::Box);
    place(shpWordcount, QRect(left + 320, 632, 110, 30));
    lblWordcount = addLabel(QStringLiteral("lblWordcount"), QString(), QRect(left + 324, 634, 102, 26), 12, true,
                            Qt::AlignCenter);
    lblWordcount->setAccessibleName(QStringLiteral("Words counted"));
    shpWordcount->hide();
    lblWordcount->hide();

    const int y = 676;
    ui::ImageButton *count = addCaptioned(QStringLiteral("imgCountwords"), QStringLiteral("count"), QRect(120, y, 52, 52),
                                          QStringLiteral("lblCountwords"), QStringLiteral("Count words"));
    ui::ImageButton *printText = addCaptioned(QStringLiteral("Printtext"), QStringLiteral("print"), QRect(280, y, 52, 52),
                                              QStringLiteral("lblPrinttext"), QStringLiteral("Print"));
    Savetext = addCaptioned(QStringLiteral("Savetext"), QStringLiteral("save"), QRect(440, y, 52, 52),
                            QStringLiteral("lblSavetext"), QStringLiteral("Save"));
    Help = addCaptioned(QStringLiteral("Help"), QStringLiteral("help"), QRect(600, y, 52, 52), QStringLiteral("lblHelp"),
                        QStringLiteral("Help"));
    ui::ImageButton *quitButton = addCaptioned(QStringLiteral("Quit"), QStringLiteral("exit"), QRect(760, y, 52, 52),
                                               QStringLiteral("lblQuit"), QStringLiteral("Exit"));
    imgTime = addCaptioned(QStringLiteral("imgTime"), QStringLiteral("time"), QRect(950, 10, 48, 48),
                           QStringLiteral("lblTime"), QStringLiteral("Time"));
    lblTimeballoon = addLabel(QStringLiteral("lblTimeballoon"), QString(), QRect(760, 62, 240, 44), 10, true,
                              Qt::AlignCenter);
    lblTimeballoon->hide();
    onClick(count, [this] { CountWords(); });
    onClick(printText, [this] { print(); });
    onClick(Savetext, [this] { SaveComposition(); });
    onClick(Help, [this] { openWritingHelp(QStringLiteral("helpwrite")); });
    onClick(quitButton, [this] { quit(); });
    onClick(imgTime, [this] { showTimeBalloon(); });

    // The sheet beside the letter: the topic's in practice, the test's Part 1 sheet in a test.
    if (letter)
        WebBrowser1 = addPage(QStringLiteral("WebBrowser1"), QStringLiteral("Task sheet"), QRect(528, 104, 480, 556),
                              (s.TestMode ? s.TestLetterSheet : s.CurrentSheet) + QStringLiteral(".htm"));
    m_draftDelay = new Delay(s.Time, DraftDelayMs, [this] { keepDraft(); }, this);
    if (s.TestMode)
        buildTest();
    else
        buildPractice();
    s.CompositionSaved = true;
    lblLivecount->setText(liveCountText(sd::CountWords(withCrLf(Text2->toPlainText()))));
    connect(Text2, &QPlainTextEdit::textChanged, this, &CompositionEditor::textChanged);
    // The name alone does not make the work unsaved, but the draft keeps it.
    connect(txtName, &QLineEdit::textEdited, this, &CompositionEditor::scheduleDraft);
}

CompositionEditor::~CompositionEditor()
{
    // Leaving by any way keeps unsaved work in its draft.
    if (m_draftDelay->isPending())
        keepDraft();
}

void CompositionEditor::buildPractice()
{
    const int n = state.CurrentTitle;
    for (QWidget *w : {static_cast<QWidget *>(imgTime), static_cast<QWidget *>(imgTime->caption())})
        w->hide();
    if (m_letter) {
        state.LetterHeading = letterHeading(state.Titles[n], state.TitleNotes[n]);
        lblPartAtitle->setText(state.LetterHeading);
    } else {
        Label1 = addLabel(QStringLiteral("Label1"), QStringLiteral("Subject number: ") + QString::number(n),
                          QRect(16, 104, 400, 24), 12, true);
        Label2 = addLabel(QStringLiteral("Label2"), state.Titles[n], QRect(16, 128, 992, 70), 12, false,
                          Qt::AlignLeft | Qt::AlignTop);
        Label3 = addLabel(QStringLiteral("Label3"), state.TitleNotes[n], QRect(16, 198, 992, 22), 12);
        Label4 = addLabel(QStringLiteral("Label4"), QString::fromUtf16(WordCountRule), QRect(560, 236, 448, 30), 11, true,
                          Qt::AlignRight | Qt::AlignVCenter);
    }
    Text2->clear();
    txtName->clear();
}

void CompositionEditor::buildTest()
{
    Savetext->hide();
    Savetext->caption()->hide();
    Help->hide();
    Help->caption()->hide();
    if (m_letter) {
        // Part 1: the sheet of the test beside the letter, its task above it.
        const QString key = state.TestLetterSheet.mid(4);
        try {
            state.LetterHeading = LoadTestTask(state, key);
        } catch (const ProgramError &) {
            state.LetterHeading = QString::fromUtf16(NoTextError);
        }
        lblPartAtitle->setText(state.LetterHeading);
        Text2->setPlainText(boxText(state.LetterText));
    } else {
        lblTitle = addLabel(QStringLiteral("lblTitle"), QStringLiteral("Write the number of the composition:"),
                            QRect(16, 150, 330, 30), 12, true);
        txtTitle = new QLineEdit(this);
        txtTitle->setObjectName(QStringLiteral("txtTitle"));
        txtTitle->setAccessibleName(QStringLiteral("Number of the composition"));
        place(txtTitle, QRect(350, 150, 80, 30), 12);
        lblTitle->setBuddy(txtTitle);
        state.PaperLabel = paperLabelFor(state.TestNumber);
        lblPaper = addLabel(QStringLiteral("lblPaper"), state.PaperLabel, QRect(16, 110, 500, 30), 12, true);
        RichTextBox1 = addRichText(QStringLiteral("RichTextBox1"), QStringLiteral("Part 2 questions"),
                                   QRect(528, 104, 480, 556), state.TestQuestionFile);
        Text2->setPlainText(boxText(state.CompositionText));
        txtTitle->setText(state.CompositionNumber);
    }
    txtName->setText(state.StudentName);
}

void CompositionEditor::showEvent(QShowEvent *e)
{
    WritingScreen::showEvent(e);
    if (!m_offered) {
        m_offered = true;
        Text2->setFocus(Qt::OtherFocusReason);
        if (!state.TestMode)
            offerDraft();
    }
}

QString CompositionEditor::draftKey() const
{
    return DraftStore::keyFor(m_letter ? QStringLiteral("leta") : state.CompositionType, state.CurrentTitle);
}

void CompositionEditor::offerDraft()
{
    m_offeredDraft = DraftStore().read(draftKey());
    if (!m_offeredDraft)
        return;
    state.MessageText = DraftStore::question(m_offeredDraft->started);
    this->nav().openModal(QStringLiteral("continuedraft"));
}

void CompositionEditor::answerDraft(bool continueDraft)
{
    if (!m_offeredDraft)
        return;
    const Draft draft = *m_offeredDraft;
    m_offeredDraft.reset();
    // Starting afresh leaves the old draft where it is until the new work replaces it.
    if (!continueDraft)
        return;
    m_draftStarted = draft.started;
    txtName->setText(draft.name);
    Text2->setPlainText(draft.text);
    m_draftDelay->stop();
}

void CompositionEditor::textChanged()
{
    state.CompositionSaved = false;
    lblLivecount->setText(liveCountText(sd::CountWords(withCrLf(Text2->toPlainText()))));
    scheduleDraft();
}

void CompositionEditor::scheduleDraft()
{
    if (state.TestMode)
        return;
    if (!m_draftStarted.isValid())
        m_draftStarted = state.Time.now();
    m_draftDelay->start();
}

void CompositionEditor::keepDraft()
{
    m_draftDelay->stop();
    if (state.TestMode)
        return;
    // A name alone is no work to lose.
    if (Text2->toPlainText().trimmed().isEmpty()) {
        DraftStore().remove(draftKey());
        return;
    }
    DraftStore().write(draftKey(), Draft{Text2->toPlainText(), txtName->text(), m_draftStarted});
}

void CompositionEditor::removeDraft()
{
    m_draftDelay->stop();
    m_draftStarted = QDateTime();
    DraftStore().remove(draftKey());
}

void CompositionEditor::CollectComposition()
{
    state.StudentName = txtName->text();
    const QString text = withCrLf(Text2->toPlainText());
    if (m_letter) {
        state.LetterText = text;
        state.LetterHeading = lblPartAtitle->text();
        return;
    }
    state.CompositionText = text;
    if (state.TestMode) {
        state.CompositionNumber = txtTitle->text();
        state.CompositionHeading = testHeading(lblPaper->text(), state.CompositionNumber);
    } else {
        state.CompositionHeading = practiceHeading(Label2->text(), Label3->text());
    }
}

void CompositionEditor::CountWords()
{
    lblWordcount->setText(u' ' + QString::number(sd::CountWords(withCrLf(Text2->toPlainText()))));
    shpWordcount->show();
    lblWordcount->show();
}

void CompositionEditor::print()
{
    CollectComposition();
    if (m_letter)
        printLetterPage(state, this);
    else
        printCompositionPage(state, this);
}

void CompositionEditor::SaveComposition()
{
    CollectComposition();
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    const QString proposed = (m_letter ? QStringLiteral("Letter ") : state.CompositionTypeNames[state.CompositionTypeNumber] + u' ')
                             + QString::number(state.CurrentTitle) + QStringLiteral(".txt");
    QString path = state.SaveAs->askSaveFile(QStringLiteral("Save your composition as a text file"),
                                             QDir(folder.isEmpty() ? QDir::homePath() : folder).filePath(proposed),
                                             QStringLiteral("Text File (*.txt)"));
    if (path.isEmpty()) {
        // Cancelled: nothing written, the work counts as saved, and its draft stays.
        state.CompositionSaved = true;
        return;
    }
    path = withTextExtension(path);
    const QByteArray bytes = m_letter ? compositionFileBytes(state.LetterHeading, state.LetterText, state.StudentName)
                                      : compositionFileBytes(state.CompositionHeading, state.CompositionText,
                                                             state.StudentName);
    if (!writeFileAtomically(path, bytes)) {
        this->nav().showMessage(QString::fromUtf16(SaveErrorText));
        return;
    }
    state.CompositionSaved = true;
    removeDraft();
    state.History->recordComposition({state.Time.now().toUTC(),
                                      state.CompositionTypeNames[state.CompositionTypeNumber],
                                      m_letter ? state.LetterHeading : state.CompositionHeading,
                                      sd::CountWords(m_letter ? state.LetterText : state.CompositionText), path});
}

void CompositionEditor::quit()
{
    CollectComposition();
    if (state.TestMode || state.CompositionSaved) {
        closeScreen();
        return;
    }
    keepDraft();
    this->nav().openModal(QStringLiteral("savethecomp"));
}

void CompositionEditor::leaveWithoutSaving()
{
    state.CompositionSaved = true;
    removeDraft();
    closeScreen();
}

void CompositionEditor::showTimeBalloon()
{
    lblTimeballoon->setText(ui::lineBreaks(QStringLiteral("Time spent: %1'\r(Time remaining: %2')")
                                               .arg(int(state.ElapsedMinutes))
                                               .arg(int(state.RemainingMinutes))));
    lblTimeballoon->setVisible(!lblTimeballoon->isVisible());
}

writethecomp::writethecomp(ProgramState &s, Navigator &nav) : CompositionEditor(QStringLiteral("writethecomp"), s, nav, false)
{
}

writetheleta::writetheleta(ProgramState &s, Navigator &nav) : CompositionEditor(QStringLiteral("writetheleta"), s, nav, true)
{
}

savethecomp::savethecomp(ProgramState &s, Navigator &nav) : WritingScreen(QStringLiteral("savethecomp"), s, nav)
{
    setDesignSize(QSize(520, 280));
    setBackgroundPicture(QString());
    addLabel(QStringLiteral("lblMessage"), QStringLiteral("Do you want to save your composition?"),
             QRect(20, 20, 480, 60), 15, true, Qt::AlignCenter);
    QString time;
    if (s.TestMode) {
        const int taken = std::max(1, int(s.ElapsedMinutes));
        time = QStringLiteral("Time Taken: %1'  (Target time: %2')").arg(taken).arg(int(s.TargetMinutes));
    }
    addLabel(QStringLiteral("lblTime"), time, QRect(20, 84, 480, 30), 12, false, Qt::AlignCenter);
    ui::ImageButton *save = addButton(QStringLiteral("Save"), QStringLiteral("save"), QRect(130, 140, 52, 52),
                                      QStringLiteral("lblSave"), QStringLiteral("Save"), QRect(76, 196, 160, 40));
    ui::ImageButton *leave = addButton(QStringLiteral("Exitnosave"), QStringLiteral("exit"), QRect(338, 140, 52, 52),
                                       QStringLiteral("lblExitnosave"), QStringLiteral("Exit without saving"),
                                       QRect(284, 196, 160, 40));
    onClick(save, [this] {
        if (CompositionEditor *e = editor())
            e->SaveComposition();
        state.CompositionSaved = true;
        closeScreen();
    });
    onClick(leave, [this] {
        closeScreen();
        if (CompositionEditor *e = editor())
            e->leaveWithoutSaving();
    });
}

CompositionEditor *savethecomp::editor()
{
    return openEditor(this->nav());
}

continuedraft::continuedraft(ProgramState &s, Navigator &nav) : AppScreen(QStringLiteral("continuedraft"), s, nav)
{
    setDesignSize(QSize(520, 260));
    addLabel(QStringLiteral("lblMessage"), s.MessageText, QRect(20, 20, 480, 90), 14, true, Qt::AlignCenter);
    ui::ImageButton *yes = addButton(QStringLiteral("Yes"), QStringLiteral("continue"), QRect(130, 124, 52, 52),
                                     QStringLiteral("lblYes"), QStringLiteral("Yes, continue it"), QRect(66, 180, 180, 40));
    ui::ImageButton *no = addButton(QStringLiteral("No"), QStringLiteral("close"), QRect(338, 124, 52, 52),
                                    QStringLiteral("lblNo"), QStringLiteral("No, start afresh"), QRect(274, 180, 180, 40));
    const auto answer = [this](bool keep) {
        closeScreen();
        if (CompositionEditor *e = openEditor(this->nav()))
            e->answerDraft(keep);
    };
    onClick(yes, [answer] { answer(true); });
    onClick(no, [answer] { answer(false); });
}

} // namespace sd
