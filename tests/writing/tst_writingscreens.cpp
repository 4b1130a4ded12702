// The Writing screens offscreen, driven by objectName: titles paged with their refusal sounds, a
// type with too many titles, leaving unsaved work, drafts offered back, the test-mode letter, the
// task-sheet prints and the scoring of the samples.

#include "writingdata.h"

#include "frame/core/printerdevice.h"
#include "progress/core/sqlhistory.h"
#include "writing/core/drafts.h"

#include <QBuffer>
#include <QDir>
#include <QStandardPaths>
#include <QImage>
#include <QPlainTextEdit>
#include <QTest>

using namespace sd;
using namespace sd::test;
using namespace Qt::StringLiterals;

class TestWritingScreens : public QObject
{
    Q_OBJECT

    DataDir dir;

    static QStringList clips(const RecordingSound &sound)
    {
        QStringList out;
        for (const QString &e : sound.events)
            out << e.section(u'/', -1);
        return out;
    }

    static void openTitles(App &app, const QString &type)
    {
        app.click(u"lblPrac"_s);
        app.click(u"lblComp"_s);
        app.click(type);
    }

private Q_SLOTS:
    void initTestCase()
    {
        writeWritingData(dir);
        QImage picture(60, 85, QImage::Format_RGB32);
        picture.fill(Qt::white);
        QByteArray png;
        QBuffer buffer(&png);
        buffer.open(QIODevice::WriteOnly);
        picture.save(&buffer, "PNG");
        dir.writeFile(u"leta09.png"_s, png);
        dir.writeText(u"leta09.htm"_s, u"<p>Topic 9</p>"_s);
    }
    void init()
    {
        QStandardPaths::setTestModeEnabled(true);
        QDir(DraftStore().folder()).removeRecursively();
    }

    void titlesPageOverTenSlots()
    {
        DataDir few;
        writeWritingData(few, 3);
        App app(few.path());
        openTitles(app, u"lblnar"_s);
        QCOMPARE(app.topCode(), u"seecomptitle"_s);
        QCOMPARE(app.text(u"lblTitle"_s), u"nar title 1: write about it."_s);
        QCOMPARE(app.text(u"Label2"_s), u"Begin with a door."_s);
        QCOMPARE(app.text(u"lblTopicno"_s), u"Subject number: 1"_s);
        app.click(u"Previousq"_s);
        QCOMPARE(clips(app.sound), QStringList{u"start.wav"_s});
        for (int n = 2; n <= 10; ++n)
            app.click(u"Following"_s);
        // Past the last title: an empty title, the number and rule of the last one shown.
        QCOMPARE(app.text(u"lblTitle"_s), QString());
        QVERIFY(!app.control(u"Label2"_s)->isVisible());
        QCOMPARE(app.text(u"lblTopicno"_s), u"Subject number: 3"_s);
        QCOMPARE(int(app.state.CurrentTitle), 10);
        app.click(u"Following"_s);
        QCOMPARE(int(app.state.CurrentTitle), 10);
        QCOMPARE(clips(app.sound), (QStringList{u"start.wav"_s, u"start.wav"_s}));
        app.click(u"Printlist"_s);
        auto *printer = static_cast<RecordingPrinter *>(app.state.Printer.get());
        QCOMPARE(printer->jobs.size(), 1);
        QCOMPARE(printer->jobs.first().texts().at(2), u"COMPOSITION TITLES (NARRATIVE)"_s);
        app.click(u"Quit"_s);
        QCOMPARE(app.topCode(), u"compoption"_s);
    }

    void eleventhTitleShowsNoText()
    {
        DataDir many;
        writeWritingData(many, 11);
        App app(many.path());
        openTitles(app, u"lblnar"_s);
        QCOMPARE(app.text(u"lblTitle"_s), u"ERROR - NO TEXT"_s);
        // No data file at all: the same, and nothing is created.
        DataDir none;
        App bare(none.path());
        openTitles(bare, u"lblnar"_s);
        QCOMPARE(bare.text(u"lblTitle"_s), u"ERROR - NO TEXT"_s);
        QVERIFY(!QFile::exists(none.path() + u"praccomp.dat"_s));
    }

    void leavingUnsavedWork()
    {
        App app(dir.path());
        openTitles(app, u"lblnar"_s);
        app.click(u"Writenow"_s);
        QCOMPARE(app.text(u"Label2"_s), u"nar title 1: write about it."_s);
        // Untouched, or only a name typed: no question.
        app.type(u"txtName"_s, u"Anna"_s);
        app.click(u"Quit"_s);
        QCOMPARE(app.topCode(), u"seecomptitle"_s);

        app.click(u"Writenow"_s);
        app.type(u"Text2"_s, u"It was late."_s);
        QCOMPARE(app.text(u"lblLivecount"_s), u"Words: 3 (120-180 words)"_s);
        app.click(u"Quit"_s);
        QCOMPARE(app.topCode(), u"savethecomp"_s);
        QCOMPARE(app.text(u"lblMessage"_s), u"Do you want to save your composition?"_s);
        // Save answers the dialog; the student stays in the editor with the work saved.
        QTemporaryDir out;
        static_cast<QueuedSaveDialog *>(app.state.SaveAs.get())->answers << out.filePath(u"story"_s);
        app.click(u"Save"_s);
        QCOMPARE(app.topCode(), u"writethecomp"_s);
        QVERIFY(QFile::exists(out.filePath(u"story.txt"_s)));
        app.click(u"Quit"_s);
        QCOMPARE(app.topCode(), u"seecomptitle"_s);

        app.click(u"Writenow"_s);
        app.type(u"Text2"_s, u"Lost."_s);
        app.click(u"Quit"_s);
        app.click(u"Exitnosave"_s);
        QCOMPARE(app.topCode(), u"seecomptitle"_s);
        QVERIFY(!DraftStore().read(u"nar-01"_s));
    }

    void draftIsOfferedBackOnce()
    {
        App app(dir.path());
        openTitles(app, u"lblnar"_s);
        app.click(u"Writenow"_s);
        app.type(u"txtName"_s, u"Anna"_s);
        app.type(u"Text2"_s, u"The first lines"_s);
        app.state.Time.advance(2000);
        QCOMPARE(DraftStore().read(u"nar-01"_s)->text, u"The first lines"_s);
        app.click(u"Quit"_s);
        app.click(u"Exitnosave"_s);
        QVERIFY(!DraftStore().read(u"nar-01"_s));

        app.click(u"Writenow"_s);
        app.type(u"txtName"_s, u"Anna"_s);
        app.type(u"Text2"_s, u"Kept for later"_s);
        app.nav.close(app.top()); // leaving by any way keeps the draft
        app.settle();
        app.click(u"Writenow"_s);
        QCOMPARE(app.topCode(), u"continuedraft"_s);
        QCOMPARE(app.text(u"lblMessage"_s), u"Continue the draft you started on 4 March 2024 at 09:00?"_s);
        app.click(u"Yes"_s);
        QCOMPARE(app.topCode(), u"writethecomp"_s);
        QCOMPARE(app.text(u"Text2"_s), u"Kept for later"_s);
        QCOMPARE(app.text(u"txtName"_s), u"Anna"_s);
    }

    void letterInATest()
    {
        App app(dir.path());
        app.state.PracticeMode = false;
        app.state.TestMode = true;
        app.state.ActivityIndex = 2;
        app.state.TestNumber = 1;
        app.state.TestLetterSheet = u"compx01"_s;
        app.state.TestQuestionFile = u"compx01b.rtf"_s;
        app.nav.open(u"Introback"_s);
        app.nav.open(u"writetheleta"_s);
        app.settle();
        QCOMPARE(app.text(u"lblHead3"_s), u"PART 1"_s);
        QCOMPARE(app.text(u"lblPartAtitle"_s), u"Write to Jamie about the bike ride."_s);
        QVERIFY(!app.control(u"Savetext"_s)->isVisible());
        QVERIFY(!app.control(u"Help"_s)->isVisible());
        app.type(u"txtName"_s, u"Anna"_s);
        app.type(u"Text2"_s, u"Dear Jamie,"_s);
        app.click(u"Quit"_s);
        QCOMPARE(app.topCode(), u"Introback"_s);
        QCOMPARE(app.state.LetterText, u"Dear Jamie,"_s);
        app.nav.open(u"writetheleta"_s);
        app.settle();
        QCOMPARE(app.text(u"Text2"_s), u"Dear Jamie,"_s);

        app.nav.open(u"writethecomp"_s);
        app.settle();
        QCOMPARE(app.text(u"lblPaper"_s), u"Test paper 1 B   Topic number: "_s);
        QVERIFY(app.text(u"RichTextBox1"_s).contains(u"Question 2"_s));
        app.type(u"txtTitle"_s, u"3"_s);
        app.click(u"Printtext"_s);
        auto *printer = static_cast<RecordingPrinter *>(app.state.Printer.get());
        QCOMPARE(printer->jobs.last().texts().at(2), u"Test paper 1 B   Topic number: 3"_s);
    }

    void taskSheetsPrint()
    {
        App app(dir.path());
        openTitles(app, u"lblleta"_s);
        QCOMPARE(app.topCode(), u"letatitles"_s);
        app.click(u"Label2"_s);
        QCOMPARE(app.topCode(), u"showleta"_s);
        QCOMPARE(app.text(u"lblTask"_s), u"2. leta title 2: write about it. Ask about prices. Do not include any addresses.  "
                                         "(Your answer should be between 120 and 180 words.)"_s);
        QVERIFY(app.text(u"WebBrowser1"_s).contains(u"Sheet leta02"_s));
        app.click(u"imgPrintout"_s);
        auto *printer = static_cast<RecordingPrinter *>(app.state.Printer.get());
        QCOMPARE(printer->jobs.last().documents, QStringList{u"Sheet leta02"_s});
        app.click(u"Quit"_s);
        app.click(u"Label9"_s);
        app.click(u"imgPrintout"_s);
        QCOMPARE(printer->jobs.last().images.size(), 1);
        app.click(u"Quit"_s);
        app.click(u"Label3"_s); // no sheet of topic 3
        app.click(u"imgPrintout"_s);
        QCOMPARE(app.topCode(), u"MessageBox"_s);
        QCOMPARE(app.text(u"lblMessage"_s), u"Printing error. You may need to reconfigure your printer."_s);
    }

    void scoringSamples()
    {
        App app(dir.path());
        QTemporaryDir home;
        app.state.History = std::make_unique<SqlHistory>(home.filePath(u"history.sqlite"_s),
                                                         [&app] { return app.state.Time.now(); });
        openTitles(app, u"lblnar"_s);
        app.click(u"Help"_s);
        QCOMPARE(app.topCode(), u"infocomp"_s);
        QVERIFY(app.text(u"RichTextBox1"_s).contains(u"How to write a story."_s));
        app.click(u"lblSamples"_s);
        QCOMPARE(app.topCode(), u"compoptionsample"_s);
        QCOMPARE(int(app.state.CompositionIndex), 42);
        app.click(u"lblnar"_s);
        QCOMPARE(app.topCode(), u"compsamples"_s);
        QVERIFY(app.text(u"rtfTitle"_s).startsWith(u"A student magazine is holding a short story competition."_s));
        app.sound.events.clear();
        // Sample 1 is a fail: scored a pass, it plays "ohdear.wav"; a second click changes nothing.
        app.click(u"lblPass"_s);
        QVERIFY(app.control(u"imgTick3"_s)->isVisible());
        QVERIFY(app.text(u"Text2"_s).startsWith(u"The length is satisfactory for"_s));
        app.click(u"lblFail"_s);
        QCOMPARE(clips(app.sound), QStringList{u"ohdear.wav"_s});
        QCOMPARE(int(app.state.StudentScore), 1);
        // Sample 2 is borderline: scored a pass, "chord.wav".
        app.click(u"Following"_s);
        QVERIFY(!app.control(u"imgTick3"_s)->isVisible());
        app.click(u"lblPass"_s);
        QVERIFY(app.control(u"lblTick2"_s)->isVisible());
        app.click(u"Following"_s);
        app.click(u"Following"_s);
        QCOMPARE(clips(app.sound), (QStringList{u"ohdear.wav"_s, u"chord.wav"_s, u"start.wav"_s}));
        // Each scored sample counts once in the agreement with the examiner: neither agreed.
        const ProgressSummary summary = app.state.History->summary();
        QCOMPARE(summary.gradingsCounted, 2);
        QCOMPARE(summary.gradingsAgreed, 0);
        app.click(u"Quit"_s);
        app.click(u"Quit"_s);
        QVERIFY(!app.state.SamplesFlag);
    }
};

QTEST_MAIN(TestWritingScreens)
#include "tst_writingscreens.moc"
