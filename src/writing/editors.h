#pragma once

#include "writingscreen.h"

#include "core/drafts.h"

#include <QDateTime>

#include <optional>

class QLineEdit;
class QPlainTextEdit;
class QFrame;

namespace sd {

class Delay;
class RichTextBox;
class WebPageBox;

/// The editor of both screens: the student writes, counts words, prints and saves. In practice the
/// title and its note stand above the box and a draft of the work is kept; in a test the question
/// sheet stands beside it, nothing is saved from here and leaving keeps the work in the state.
class CompositionEditor : public WritingScreen
{
    Q_OBJECT

public:
    CompositionEditor(const QString &code, ProgramState &state, Navigator &nav, bool letter);
    ~CompositionEditor() override;

    /// Copies the name, the text and the heading into the composition state.
    void CollectComposition();
    /// The save dialog, then the file; every outcome but a failed write marks the work saved.
    void SaveComposition();
    void CountWords();
    bool isLetter() const { return m_letter; }
    /// The student's answer to the draft question: continue it, or start afresh (the draft goes).
    void answerDraft(bool continueDraft);
    /// Leaves without writing anything: the draft goes too.
    void leaveWithoutSaving();

protected:
    void showEvent(QShowEvent *e) override;

private:
    void buildPractice();
    void buildTest();
    void offerDraft();
    void textChanged();
    /// The draft is written at most two seconds after the first change not yet in it.
    void scheduleDraft();
    void keepDraft();
    void removeDraft();
    QString draftKey() const;
    void print();
    void quit();
    void showTimeBalloon();

    bool m_letter;
    bool m_offered = false;
    QDateTime m_draftStarted;
    std::optional<Draft> m_offeredDraft;
    Delay *m_draftDelay = nullptr;

    QLineEdit *txtName = nullptr, *txtTitle = nullptr;
    QPlainTextEdit *Text2 = nullptr;
    QLabel *Label1 = nullptr, *Label2 = nullptr, *Label3 = nullptr, *Label4 = nullptr;
    QLabel *lblTitle = nullptr, *lblPaper = nullptr, *lblPartAtitle = nullptr, *lblInstruction = nullptr;
    QLabel *lblWordcount = nullptr, *lblLivecount = nullptr, *lblTimeballoon = nullptr;
    QFrame *shpWordcount = nullptr;
    RichTextBox *RichTextBox1 = nullptr;
    WebPageBox *WebBrowser1 = nullptr;
    ui::ImageButton *Savetext = nullptr, *Help = nullptr, *imgTime = nullptr;
};

/// The composition editor (Paper 2 Part 2 types).
class writethecomp : public CompositionEditor
{
    Q_OBJECT

public:
    writethecomp(ProgramState &state, Navigator &nav);
};

/// The letter editor (the Transactional letter), with the task sheet beside the letter.
class writetheleta : public CompositionEditor
{
    Q_OBJECT

public:
    writetheleta(ProgramState &state, Navigator &nav);
};

/// "Do you want to save your composition?" on leaving an editor with unsaved work.
class savethecomp : public WritingScreen
{
    Q_OBJECT

public:
    savethecomp(ProgramState &state, Navigator &nav);

private:
    CompositionEditor *editor();
};

/// "Continue the draft you started on ...?" when an editor opens on a title that has a draft.
class continuedraft : public AppScreen
{
    Q_OBJECT

public:
    continuedraft(ProgramState &state, Navigator &nav);
};

/// The editor that is open, if any (there is one at a time).
CompositionEditor *openEditor(Navigator &nav);

} // namespace sd
