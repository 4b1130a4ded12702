#include "samplescreens.h"

#include "core/composition.h"
#include "core/samples.h"

#include "frame/core/history.h"
#include "frame/core/state.h"
#include "frame/core/verdicts.h"
#include "frame/printing.h"
#include "ui/richtextbox.h"

#include <QPlainTextEdit>

namespace sd {

namespace {
constexpr int SampleCount = 3;
const char *const ScoreNames[] = {"Pass", "Borderline", "Fail"};
} // namespace

compsamples::compsamples(ProgramState &s, Navigator &nav) : WritingScreen(QStringLiteral("compsamples"), s, nav)
{
    addHeadings(QStringLiteral("SAMPLES"));
    addLabel(QStringLiteral("lblIntro1"),
             QStringLiteral("In the sample compositions the grammatical mistakes have been eliminated, so that you can "
                            "concentrate on the content."),
             QRect(84, 60, 856, 24), 11);
    addLabel(QStringLiteral("lblIntro2"), QStringLiteral("There are three samples of each type of composition."),
             QRect(84, 84, 856, 22), 11);
    addLabel(QStringLiteral("lblSubject"), QStringLiteral("Here is an example of a subject for this type:"),
             QRect(16, 110, 600, 22), 11, true);
    rtfTitle = addRichText(QStringLiteral("rtfTitle"), QStringLiteral("Example subject"), QRect(16, 134, 700, 120), {});
    addLabel(QStringLiteral("lblSample"), QStringLiteral("Here is a sample answer. Read the composition and score it."),
             QRect(16, 260, 700, 22), 11, true);
    rtfSample = addRichText(QStringLiteral("rtfSample"), QStringLiteral("Sample answer"), QRect(16, 284, 700, 380), {});
    lblSampleno = addLabel(QStringLiteral("lblSampleno"), QString(), QRect(16, 668, 200, 24), 12, true);

    addLabel(QStringLiteral("lblScorebutton"), ui::lineBreaks(QStringLiteral("CLICK BELOW TO SCORE\rAND SEE COMMENTS")),
             QRect(736, 110, 272, 50), 12, true, Qt::AlignCenter);
    const char *const labels[] = {"lblPass", "lblBorder", "lblFail"};
    const char *const ticks[] = {"imgTick1", "lblTick2", "imgTick3"};
    for (int i = 0; i < SampleCount; ++i) {
        ui::MenuLabel *l = addMenuLabel(QString::fromLatin1(labels[i]), QString::fromLatin1(ScoreNames[i]),
                                        QRect(800, 170 + i * 50, 180, 40), 16);
        l->setAccessibleName(QStringLiteral("Score it: ") + QString::fromLatin1(ScoreNames[i]));
        onClick(l, [this, i] { score(i + 1); });
        m_scores.append(l);
        QLabel *tick = addPicture(QString::fromLatin1(ticks[i]), QStringLiteral("tick"), QRect(750, 172 + i * 50, 36, 36));
        tick->setAccessibleName(QStringLiteral("The examiner's verdict: ") + QString::fromLatin1(ScoreNames[i]));
        tick->hide();
        m_ticks.append(tick);
    }
    // The verdict in words as well as by the tick.
    lblVerdict = addLabel(QStringLiteral("lblVerdict"), QString(), QRect(736, 326, 272, 26), 12, true, Qt::AlignCenter);
    Text2 = new QPlainTextEdit(this);
    Text2->setObjectName(QStringLiteral("Text2"));
    Text2->setReadOnly(true);
    Text2->setAccessibleName(QStringLiteral("The examiner's comment"));
    place(Text2, QRect(736, 356, 272, 308), 11);
    Text2->hide();

    ui::ImageButton *previous = addButton(QStringLiteral("Previous"), QStringLiteral("previous"), QRect(300, 680, 52, 52),
                                          QStringLiteral("lblPrevious"), QStringLiteral("Previous sample"));
    ui::ImageButton *next = addButton(QStringLiteral("Following"), QStringLiteral("next"), QRect(460, 680, 52, 52),
                                      QStringLiteral("lblNext"), QStringLiteral("Next sample"));
    ui::ImageButton *quit = addButton(QStringLiteral("Quit"), QStringLiteral("back"), QRect(860, 680, 52, 52),
                                      QStringLiteral("lblQuit"), QStringLiteral("Back"));
    onClick(previous, [this] { page(-1); });
    onClick(next, [this] { page(+1); });
    onClick(quit, [this] { closeScreen(); });

    s.SampleNumber = 1;
    showSample();
}

void compsamples::showSample()
{
    const int type = state.CompositionTypeNumber;
    if (type == 1)
        showFile(rtfTitle, QStringLiteral("letasample.rtf"));
    else
        rtfTitle->setPlainMessage(exampleSubject(type));
    m_sampleLoaded = showFile(rtfSample, sampleFileName(state.CompositionType, state.SampleNumber));
    lblSampleno->setText(QStringLiteral("Sample %1 of 3").arg(int(state.SampleNumber)));
    for (int i = 0; i < SampleCount; ++i) {
        m_ticks[i]->hide();
        m_scores[i]->setChosen(false);
    }
    lblVerdict->clear();
    Text2->clear();
    Text2->hide();
    state.SampleScored = false;
}

void compsamples::score(int studentScore)
{
    // One score a sample; a sample that could not be shown is not scored at all.
    if (state.SampleScored || !m_sampleLoaded)
        return;
    m_scores[studentScore - 1]->setChosen(true);
    state.StudentScore = studentScore;
    const int key = commentKey(state.CompositionTypeNumber, state.SampleNumber);
    const ExaminerComment comment = examinerComments().value(key);
    Text2->setPlainText(comment.text);
    Text2->show();
    if (comment.verdict >= ScorePass && comment.verdict <= ScoreFail) {
        state.ExaminerScore = comment.verdict;
        m_ticks[comment.verdict - 1]->show();
        lblVerdict->setText(QStringLiteral("Examiner: ") + QString::fromLatin1(ScoreNames[comment.verdict - 1]));
        PlaySound(state, sampleSoundIndex(state.StudentScore, state.ExaminerScore));
        const auto name = [](int score) { return QString::fromLatin1(ScoreNames[score - 1]).toLower(); };
        state.History->recordGrading({state.Time.now().toUTC(),
                                      sampleFileName(state.CompositionType, state.SampleNumber).chopped(4),
                                      name(state.StudentScore), name(state.ExaminerScore)});
    }
    state.SampleScored = true;
}

void compsamples::page(int step)
{
    const int n = state.SampleNumber;
    if ((step > 0 && n >= SampleCount) || (step < 0 && n <= 1)) {
        playRefusal();
        return;
    }
    state.SampleNumber = n + step;
    showSample();
}

infocomp::infocomp(ProgramState &s, Navigator &nav) : AppScreen(QStringLiteral("infocomp"), s, nav)
{
    setDesignSize(QSize(900, 620));
    setWindowTitle(QStringLiteral("StudyDesk - Writing help"));
    RichTextBox1 = new RichTextBox(this);
    RichTextBox1->setObjectName(QStringLiteral("RichTextBox1"));
    RichTextBox1->setAccessibleName(QStringLiteral("Help text"));
    place(RichTextBox1, QRect(250, 20, 630, 500));
    struct Entry
    {
        const char *name, *text;
    };
    const Entry entries[] = {{"lblAbout", "About Writing"},
                             {"lblGeneral", "Writing - general"},
                             {"lblComposition", "Writing a composition"},
                             {"lblSamples", "Sample compositions"},
                             {"lblBack", "BACK TO MAIN HELP MENU"}};
    QList<ui::MenuLabel *> menu;
    for (int i = 0; i < 5; ++i)
        menu.append(addMenuLabel(QString::fromLatin1(entries[i].name), QString::fromLatin1(entries[i].text),
                                 QRect(20, 30 + i * 64, 220, 52), 13));
    onClick(menu[0], [this] { showTopic(QStringLiteral("helpcomp")); });
    onClick(menu[1], [this] { showTopic(QStringLiteral("helpwrite")); });
    onClick(menu[2], [this] { showTopic(compositionHelpTopic(state.CompositionIndex)); });
    onClick(menu[3], [this] {
        state.SamplesFlag = true;
        state.CompositionIndex = samplesIndex(state.CompositionIndex);
        Navigator &n = this->nav();
        closeScreen();
        n.open(QStringLiteral("compoptionsample"));
    });
    onClick(menu[4], [this] { closeScreen(); });
    ui::ImageButton *print = addButton(QStringLiteral("Printing"), QStringLiteral("print"), QRect(460, 536, 52, 52),
                                       QStringLiteral("lblPrint"), QStringLiteral("Print text"));
    ui::ImageButton *quit = addButton(QStringLiteral("Quit"), QStringLiteral("exit"), QRect(660, 536, 52, 52),
                                      QStringLiteral("lblQuit"), QStringLiteral("Exit"));
    onClick(print, [this] { printHelpText(state, this, state.HelpTopic + QStringLiteral(".txt")); });
    onClick(quit, [this] { closeScreen(); });
    showTopic(s.HelpTopic);
}

void infocomp::showTopic(const QString &topic)
{
    state.HelpTopic = topic;
    if (!RichTextBox1->loadDataFile(state.DataDir, topic + QStringLiteral(".rtf")))
        RichTextBox1->setPlainMessage(QStringLiteral("ERROR - File not found"));
}

} // namespace sd
