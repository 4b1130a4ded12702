// The help and about screens, and what the student is told when printing fails.

#include "common/fixtures.h"
#include "pdftext.h"

#include "frame/core/printerdevice.h"
#include "frame/printing.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QTest>

using namespace sd;
using namespace Qt::StringLiterals;

namespace {
RecordingPrinter &recorder(test::App &app)
{
    return static_cast<RecordingPrinter &>(*app.state.Printer);
}
} // namespace

class TestHelpScreen : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QCoreApplication::setApplicationVersion(u"1.2.3"_s); }

    void showsTopic_data()
    {
        QTest::addColumn<QString>("entry");
        QTest::addColumn<bool>("present");
        QTest::addColumn<QString>("shown");
        QTest::newRow("about the program") << u"lblAboutprog"_s << true << u"How to use the program"_s;
        QTest::newRow("about the exam") << u"lblAbout"_s << true << u"About the exam"_s;
        QTest::newRow("missing topic") << u"lblAbout"_s << false << u"ERROR - File not found"_s;
    }
    void showsTopic()
    {
        QFETCH(QString, entry);
        QFETCH(bool, present);
        test::DataDir dir;
        if (present) {
            dir.writeRtf(u"helpprog"_s, u"How to use the program"_s);
            dir.writeRtf(u"helpgen"_s, u"About the exam"_s);
            for (const QString &topic : {u"helpprog.txt"_s, u"helpgen.txt"_s})
                dir.writeText(topic, u"HELP\r\n  Click an exercise.  \r\n\r\nHave fun in the caf\u00e9.\r\n"_s);
        }
        test::App app(dir.path());
        app.click(entry);
        QCOMPARE(app.topCode(), u"Helpform"_s);
        QVERIFY(app.top()->isModalScreen());
        QTEST(app.text(u"RichTextBox1"_s).trimmed(), "shown");
        QCOMPARE(app.text(u"lblPrint"_s), u"Print text"_s);
        QCOMPARE(app.text(u"lblQuit"_s), u"Exit"_s);

        app.click(u"Printing"_s);
        if (present) {
            // Each line as read (Windows-1252), after the set-up's two empty lines and one more.
            QCOMPARE(recorder(app).jobs.value(0).texts(),
                     (QStringList{u""_s, u""_s, u""_s, u"HELP"_s, u"  Click an exercise.  "_s, u""_s,
                                  u"Have fun in the caf\u00e9."_s}));
            app.click(u"Quit"_s);
            QCOMPARE(app.topCode(), u"Intro"_s);
        } else {
            QVERIFY(recorder(app).jobs.isEmpty());
            QCOMPARE(app.topCode(), u"MessageBox"_s);
            QCOMPARE(app.text(u"lblMessage"_s), u"No file"_s);
        }
    }

    void printingFailureTold()
    {
        test::DataDir dir;
        test::App app(dir.path());
        app.state.CompositionHeading = u"A day to remember"_s;
        app.state.CompositionText = u"We met at http://www."_s + QString(90, u'x') + u".com and walked."_s;
        app.state.StudentName = u"Ana"_s;
        app.sound.events.clear();

        QVERIFY(!printCompositionPage(app.state, app.top()));
        app.settle();
        QCOMPARE(app.topCode(), u"MessageBox"_s);
        QCOMPARE(app.text(u"lblMessage"_s), u"Printing error. You may need to reconfigure your printer."_s);
        app.click(u"OK"_s);
        QCOMPARE(app.topCode(), u"Intro"_s);
        // The page stops at the long word; what came before is printed.
        const PrintJob &job = recorder(app).jobs.first();
        QCOMPARE(job.texts().mid(2), (QStringList{u"A day to remember"_s, u""_s, u""_s, u"We met at"_s}));
        QVERIFY(job.ended);
        QVERIFY(!app.state.Printer->jobOpen());
    }

    void aboutScreen()
    {
        test::DataDir dir;
        test::App app(dir.path());
        app.click(u"lblAboutprog"_s);
        QCOMPARE(app.text(u"lblAbout"_s), u"About StudyDesk"_s);
        app.click(u"About"_s);
        QCOMPARE(app.topCode(), u"About"_s);
        QCOMPARE(app.text(u"lblName"_s), u"StudyDesk"_s);
        QCOMPARE(app.text(u"lblVersion"_s), u"Version 1.2.3"_s);
        QVERIFY(app.text(u"lblLicence"_s).contains(u"GPL-3.0-or-later"_s));
        QVERIFY(app.text(u"lblCredits"_s).contains(u"our own work"_s));
        app.click(u"Quit"_s);
        QCOMPARE(app.topCode(), u"Helpform"_s);
    }

    void scriptPrintsHelpToPdf()
    {
        if (!QFileInfo::exists(QStringLiteral(STUDYDESK_BINARY_DIR "/bin/studydesk")))
            QSKIP("build the studydesk target first");
        if (!test::havePdfTools())
            QSKIP("pdftotext and pdfinfo (poppler-utils) are needed");
        test::DataDir dir;
        dir.writeRtf(u"helpprog"_s, u"How to use the program"_s);
        dir.writeText(u"helpprog.txt"_s, u"HOW TO USE THE PROGRAM\r\nChoose practice exercises or test papers.\r\n"_s);
        const QString pdf = dir.path() + u"help.pdf"_s;
        const test::ScriptRun run = test::runScript(dir.path(), u"click lblAboutprog\nclick Printing\nclick Quit\n"_s,
                                                    {u"--print-to"_s, pdf});
        QCOMPARE(run.exitCode, 0);
        QJsonObject printed;
        for (const QJsonObject &e : run.events)
            if (e.value(u"event"_s).toString() == u"print")
                printed = e;
        QCOMPARE(printed.value(u"file"_s).toString(), pdf);
        QCOMPARE(printed.value(u"pages"_s).toInt(), 1);
        QCOMPARE(test::pdfPages(pdf), 1);
        const QString text = test::pdfText(pdf);
        QVERIFY2(text.contains(u"HOW TO USE THE PROGRAM\nChoose practice exercises or test papers."_s), qPrintable(text));
    }
};

QTEST_MAIN(TestHelpScreen)
#include "tst_helpscreen.moc"
