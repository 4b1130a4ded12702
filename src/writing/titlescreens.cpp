#include "titlescreens.h"

#include "core/composition.h"
#include "core/titles.h"

#include "frame/core/printtext.h"
#include "frame/core/state.h"
#include "frame/printing.h"
#include "ui/files/datapath.h"
#include "ui/richtextbox.h"
#include "ui/rtf/rtfreader.h"
#include "ui/webpagebox.h"

#include <QApplication>
#include <QPainter>

namespace sd {

namespace {
constexpr int TitleCount = 10;

QString instructionText()
{
    return QStringLiteral("Click on the arrows to see other titles for this type of composition. ")
           + QStringLiteral(" You can print a list of titles if you wish. ")
           + QStringLiteral("You can write one of the compositions now if you like.");
}
} // namespace

seecomptitle::seecomptitle(ProgramState &s, Navigator &nav) : WritingScreen(QStringLiteral("seecomptitle"), s, nav)
{
    addHeadings();
    addLabel(QStringLiteral("lblInstruction"), instructionText(), QRect(84, 70, 856, 50), 12);
    lblTopicno = addLabel(QStringLiteral("lblTopicno"), QString(), QRect(84, 130, 400, 30), 14, true);
    lblTitle = addLabel(QStringLiteral("lblTitle"), QString(), QRect(84, 166, 856, 250), 15, false,
                        Qt::AlignLeft | Qt::AlignTop);
    Label2 = addLabel(QStringLiteral("Label2"), QString(), QRect(84, 420, 856, 50), 14, false, Qt::AlignLeft | Qt::AlignTop);
    Label4 = addLabel(QStringLiteral("Label4"), QString(), QRect(84, 476, 856, 30), 14, true);

    Previousq = addCaptioned(QStringLiteral("Previousq"), QStringLiteral("previous"), QRect(84, 560, 52, 52),
                             QStringLiteral("lblPrevious"), QStringLiteral("Previous title"));
    Following = addCaptioned(QStringLiteral("Following"), QStringLiteral("next"), QRect(244, 560, 52, 52),
                             QStringLiteral("lblNext"), QStringLiteral("Next title"));
    ui::ImageButton *printlist = addCaptioned(QStringLiteral("Printlist"), QStringLiteral("print"), QRect(404, 560, 52, 52),
                                              QStringLiteral("lblPrintlist"), QStringLiteral("Print a list\rof compositions"));
    ui::ImageButton *writenow = addCaptioned(QStringLiteral("Writenow"), QStringLiteral("write"), QRect(564, 560, 52, 52),
                                             QStringLiteral("lblWritenow"), QStringLiteral("Write the\rcomposition now"));
    ui::ImageButton *help = addCaptioned(QStringLiteral("Help"), QStringLiteral("help"), QRect(724, 560, 52, 52),
                                         QStringLiteral("lblHelp"), QStringLiteral("Help"));
    ui::ImageButton *quit = addCaptioned(QStringLiteral("Quit"), QStringLiteral("back"), QRect(884, 560, 52, 52),
                                         QStringLiteral("lblQuit"), QStringLiteral("Back"));
    onClick(Previousq, [this] { page(-1); });
    onClick(Following, [this] { page(+1); });
    onClick(printlist, [this] { printList(); });
    onClick(writenow, [this] { this->nav().open(QStringLiteral("writethecomp")); });
    onClick(help, [this] { openWritingHelp(QStringLiteral("help") + state.CompositionType); });
    onClick(quit, [this] { closeScreen(); });

    QApplication::setOverrideCursor(Qt::WaitCursor);
    try {
        LoadTitles(state, TitleLoad::Titles);
        ShowTitle();
    } catch (const ProgramError &) {
        // Ten titles a type at most; a missing or unreadable file loads nothing either.
        lblTitle->setText(QString::fromUtf16(NoTextError));
    }
    QApplication::restoreOverrideCursor();
    updateArrows();
}

void seecomptitle::ShowTitle()
{
    const int n = state.CurrentTitle;
    lblTitle->setText(state.Titles[n]);
    Label2->setVisible(!state.TitleNotes[n].isEmpty());
    Label2->setText(state.TitleNotes[n]);
    // An empty slot leaves the number and the rule as they were.
    if (!state.Titles[n].isEmpty()) {
        Label4->setText(QString::fromUtf16(WordCountRule));
        lblTopicno->setText(QStringLiteral("Subject number: ") + QString::number(n));
    }
}

void seecomptitle::page(int step)
{
    state.Sound.stop();
    const int n = state.CurrentTitle;
    if ((step > 0 && n >= TitleCount) || (step < 0 && n < 2)) {
        playRefusal();
        return;
    }
    state.CurrentTitle = n + step;
    ShowTitle();
    updateArrows();
}

void seecomptitle::updateArrows()
{
    // An arrow lights up only while it can move.
    Following->setLightable(state.CurrentTitle < TitleCount);
    Previousq->setLightable(state.CurrentTitle > 1);
}

void seecomptitle::printList()
{
    const QString typeName = state.CompositionTypeNames[state.CompositionTypeNumber];
    runPrintJob(state, this, QStringLiteral("Composition titles"), [this, typeName](PrinterDevice &printer) {
        PlainTextPrint print(printer);
        PrintTitleList(print, typeName, state.Titles, state.TitleNotes);
    });
}

letatitles::letatitles(ProgramState &s, Navigator &nav) : WritingScreen(QStringLiteral("letatitles"), s, nav)
{
    addHeadings();
    addLabel(QStringLiteral("lblSelect"), QStringLiteral("SELECT A COMPOSITION"), QRect(112, 80, 800, 50), 22, true,
             Qt::AlignCenter);
    QLabel *error = addLabel(QStringLiteral("lblTitle"), QString(), QRect(112, 130, 800, 30), 14, true, Qt::AlignCenter);
    for (int n = 1; n <= TitleCount; ++n) {
        const QRect r(250 + ((n - 1) / 5) * 300, 180 + ((n - 1) % 5) * 70, 220, 50);
        ui::MenuLabel *l = addMenuLabel(QStringLiteral("Label%1").arg(n), QStringLiteral("Topic %1").arg(n), r, 18,
                                        Qt::AlignCenter);
        onClick(l, [this, n] { chooseTopic(n); });
    }
    ui::ImageButton *help = addButton(QStringLiteral("Help"), QStringLiteral("help"), QRect(386, 650, 52, 52),
                                      QStringLiteral("lblHelp"), QStringLiteral("Help"));
    ui::ImageButton *quit = addButton(QStringLiteral("Quit"), QStringLiteral("back"), QRect(586, 650, 52, 52),
                                      QStringLiteral("lblQuit"), QStringLiteral("Back"));
    onClick(help, [this] { openWritingHelp(QStringLiteral("helpleta")); });
    onClick(quit, [this] { closeScreen(); });
    try {
        LoadTitles(state, TitleLoad::Letters);
    } catch (const ProgramError &) {
        error->setText(QString::fromUtf16(NoTextError));
    }
}

void letatitles::chooseTopic(int n)
{
    state.CurrentTopicCode = QStringLiteral("%1").arg(n, 2, 10, QLatin1Char('0'));
    state.CurrentTitle = n;
    state.CurrentSheet = QStringLiteral("leta") + state.CurrentTopicCode;
    this->nav().open(QStringLiteral("showleta"));
}

showleta::showleta(ProgramState &s, Navigator &nav) : WritingScreen(QStringLiteral("showleta"), s, nav)
{
    addHeadings();
    s.SheetPage = s.CurrentSheet + QStringLiteral(".htm");
    s.SheetPrint = s.CurrentSheet + QStringLiteral(".rtf");
    s.SheetDocument = s.CurrentSheet + QStringLiteral(".doc");
    const int n = s.CurrentTitle;
    addLabel(QStringLiteral("lblTask"), letterTaskText(s.CurrentTopicCode, s.Titles[n], s.TitleNotes[n]),
             QRect(16, 70, 400, 560), 13, false, Qt::AlignLeft | Qt::AlignTop);
    WebBrowser1 = addPage(QStringLiteral("WebBrowser1"), QStringLiteral("Task sheet"), QRect(430, 70, 578, 580), s.SheetPage);

    ui::ImageButton *print = addCaptioned(QStringLiteral("imgPrintout"), QStringLiteral("print"), QRect(120, 676, 52, 52),
                                          QStringLiteral("lblPrintout"), QStringLiteral("Print the task"));
    ui::ImageButton *write = addCaptioned(QStringLiteral("imgWritenow"), QStringLiteral("write"), QRect(360, 676, 52, 52),
                                          QStringLiteral("lblWritenow"), QStringLiteral("Write the\rcomposition now"));
    ui::ImageButton *help = addCaptioned(QStringLiteral("Help"), QStringLiteral("help"), QRect(600, 676, 52, 52),
                                         QStringLiteral("lblHelp"), QStringLiteral("Help"));
    ui::ImageButton *quit = addCaptioned(QStringLiteral("Quit"), QStringLiteral("back"), QRect(840, 676, 52, 52),
                                         QStringLiteral("lblQuit"), QStringLiteral("Back"));
    // In a test paper the help gives way to the part's heading.
    QLabel *part = addLabel(QStringLiteral("lblPart"), QStringLiteral("PART 1"), QRect(560, 690, 130, 30), 16, true,
                            Qt::AlignCenter);
    part->setVisible(s.TestMode);
    help->setVisible(!s.TestMode);
    help->caption()->setVisible(!s.TestMode);
    onClick(print, [this] { printSheet(); });
    onClick(write, [this] { this->nav().open(QStringLiteral("writetheleta")); });
    onClick(help, [this] { openWritingHelp(QStringLiteral("helpleta")); });
    onClick(quit, [this] { closeScreen(); });
}

void showleta::printSheet()
{
    const QString printingError = QString::fromUtf16(PrintingErrorText);
    if (state.CurrentSheet == u"leta09") {
        letapicture picture(state, nav());
        if (!picture.hasPicture()) {
            this->nav().showMessage(printingError);
            return;
        }
        picture.resize(picture.designSize() * 2);
        printScreenImage(state, &picture);
        return;
    }
    RichTextBox sheet;
    if (!sheet.loadDataFile(state.DataDir, state.SheetPrint)) {
        this->nav().showMessage(printingError);
        return;
    }
    printRichText(state, this, {sheet.document()});
}

letapicture::letapicture(ProgramState &s, Navigator &nav) : AppScreen(QStringLiteral("letapicture"), s, nav)
{
    setDesignSize(QSize(595, 842));
    const FileBytes file = readDataFile(s.DataDir, pictureFile(), MaxRtfBytes);
    if (file.ok())
        m_picture = rtf::decodePicture(file.bytes);
    setAccessibleName(QStringLiteral("Task sheet of topic 9"));
}

void letapicture::paintEvent(QPaintEvent *)
{
    QPainter p(this);
    p.fillRect(rect(), Qt::white);
    if (m_picture.isNull())
        return;
    const QSize fitted = m_picture.size().scaled(size(), Qt::KeepAspectRatio);
    const QRect target(QPoint((width() - fitted.width()) / 2, (height() - fitted.height()) / 2), fitted);
    p.setRenderHint(QPainter::SmoothPixmapTransform);
    p.drawImage(target, m_picture);
}

seecomptitlex::seecomptitlex(ProgramState &s, Navigator &nav) : WritingScreen(QStringLiteral("seecomptitlex"), s, nav)
{
    addHeadings(QStringLiteral("PART 2"));
    addLabel(QStringLiteral("lblTopic"), QStringLiteral("TEST ") + QString::number(s.TestNumber), QRect(84, 64, 400, 30),
             14, true);
    CloseDataFile(s);
    RichTextBox1 = addRichText(QStringLiteral("RichTextBox1"), QStringLiteral("Part 2 questions"), QRect(84, 100, 856, 550),
                               s.TestQuestionFile);
    ui::ImageButton *print = addCaptioned(QStringLiteral("Printlist"), QStringLiteral("print"), QRect(240, 676, 52, 52),
                                          QStringLiteral("lblPrintlist"), QStringLiteral("Print the questions"));
    ui::ImageButton *write = addCaptioned(QStringLiteral("Writenow"), QStringLiteral("write"), QRect(486, 676, 52, 52),
                                          QStringLiteral("lblWritenow"), QStringLiteral("Write the\rcomposition now"));
    ui::ImageButton *quit = addCaptioned(QStringLiteral("Quit"), QStringLiteral("back"), QRect(732, 676, 52, 52),
                                         QStringLiteral("lblQuit"), QStringLiteral("Back"));
    onClick(print, [this] { printRichText(state, this, {RichTextBox1->document()}); });
    onClick(write, [this] { this->nav().open(QStringLiteral("writethecomp")); });
    onClick(quit, [this] { closeScreen(); });
}

} // namespace sd
