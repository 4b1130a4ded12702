#pragma once

#include "writingscreen.h"

class QPlainTextEdit;

namespace sd {

class RichTextBox;

/// The samples of one type: the example subject, a sample answer the student scores as pass,
/// borderline or fail, then the examiner's verdict ticked, the comment and a sound that says how
/// close the two scores were.
class compsamples : public WritingScreen
{
    Q_OBJECT

public:
    compsamples(ProgramState &state, Navigator &nav);

private:
    void showSample();
    void score(int studentScore);
    void page(int step);

    RichTextBox *rtfTitle = nullptr, *rtfSample = nullptr;
    QList<ui::MenuLabel *> m_scores;
    QList<QLabel *> m_ticks;
    QLabel *lblSampleno = nullptr, *lblVerdict = nullptr;
    QPlainTextEdit *Text2 = nullptr;
    bool m_sampleLoaded = false;
};

/// The writing help screen: a topic, and a menu of the writing topics and the sample compositions.
class infocomp : public AppScreen
{
    Q_OBJECT

public:
    infocomp(ProgramState &state, Navigator &nav);

private:
    void showTopic(const QString &topic);
    RichTextBox *RichTextBox1 = nullptr;
};

} // namespace sd
