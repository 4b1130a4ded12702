// The plain-text print routines against a recording printer: what lands on each printed line.

#include "frame/core/printerdevice.h"
#include "frame/core/printtext.h"
#include "frame/core/services.h"
#include "frame/core/state.h"

#include <QTest>

using namespace sd;
using namespace Qt::StringLiterals;

namespace {
QString run(char c, int n)
{
    return QString(n, QChar::fromLatin1(c));
}

enum Routine { Wrapped, Text, Title };
} // namespace

class TestPrintText : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void printLine_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("printed");
        QTest::newRow("as it is") << u"Dear Sir,"_s << u"Dear Sir,"_s;
        QTest::newRow("blanks trimmed") << u"   Dear Sir,  "_s << u"Dear Sir,"_s;
        QTest::newRow("only a line feed") << u"\n"_s << u""_s;
        QTest::newRow("line feed within blanks") << u"  \n "_s << u""_s;
        QTest::newRow("leading line feed dropped") << u"\nYours,"_s << u"Yours,"_s;
    }
    void printLine()
    {
        QFETCH(QString, text);
        QFETCH(QString, printed);
        RecordingPrinter printer;
        PlainTextPrint(printer).PrintLine(text);
        QCOMPARE(printer.jobs.last().texts(), QStringList{printed});
    }

    void layout_data()
    {
        QTest::addColumn<int>("routine");
        QTest::addColumn<QString>("text");
        QTest::addColumn<QStringList>("lines");
        const QString a40 = run('a', 40), b42 = run('b', 42), b43 = run('b', 43);
        QTest::newRow("wrapped: 83 characters, one line") << int(Wrapped) << a40 + u' ' + b42 << QStringList{a40 + u' ' + b42};
        QTest::newRow("wrapped: 84 characters, broken at the last blank")
            << int(Wrapped) << a40 + u' ' + b43 << QStringList{a40, b43};
        QTest::newRow("wrapped: blank at 84 not looked at")
            << int(Wrapped) << run('a', 10) + u' ' + run('b', 72) + u" c"_s << QStringList{run('a', 10), run('b', 72) + u" c"_s};
        QTest::newRow("wrapped: three lines, double blank trimmed")
            << int(Wrapped) << a40 + u' ' + a40 + u"  "_s + a40 + u' ' + a40 + u" end"_s
            << QStringList{a40 + u' ' + a40, a40 + u' ' + a40, u"end"_s};

        QTest::newRow("text: no line breaks, one empty line after")
            << int(Text) << a40 + u' ' + b43 << QStringList{a40, b43, QString()};
        QTest::newRow("text: line feeds of CR/LF dropped")
            << int(Text) << u"Dear Jo,\r\nThanks.\r\nLove, Sam"_s << QStringList{u"Dear Jo,"_s, u"Thanks."_s, u"Love, Sam"_s};
        QTest::newRow("text: empty line kept") << int(Text) << u"Dear Jo,\r\n\r\nThanks."_s
                                               << QStringList{u"Dear Jo,"_s, u""_s, u"Thanks."_s};
        QTest::newRow("text: ending in a line break") << int(Text) << u"Dear Jo,\r\n"_s << QStringList{u"Dear Jo,"_s, u""_s};
        QTest::newRow("text: long paragraphs wrapped")
            << int(Text) << u"Hi\r\n"_s + a40 + u' ' + b43 + u"\r\n"_s + a40 + u' ' + b43
            << QStringList{u"Hi"_s, a40, b43, a40, b43};

        const QString note = u"(Your answer should be between 120 and 180 words.)"_s;
        QTest::newRow("title: short, ending in blanks: whole, then an empty line")
            << int(Title) << u"1. A day out  "_s + note + u"    "_s
            << QStringList{u"1. A day out  "_s + note + u"   "_s, QString()};
        QTest::newRow("title: short without a trailing blank: last word alone")
            << int(Title) << u"A day to remember"_s << QStringList{u"A day to"_s, u"remember"_s};
        QTest::newRow("title: long: wrapped, rest as it stands")
            << int(Title) << u"2. "_s + run('x', 60) + u" Describe the best day you ever had  "_s + note + u"    "_s
            << QStringList{u"2. "_s + run('x', 60) + u" Describe the best"_s, u"day you ever had  "_s + note + u"    "_s};
        QTest::newRow("title: carriage return splits, line feed stays")
            << int(Title) << u"One two\r\nThree four"_s << QStringList{u"One"_s, u"two"_s, u"\nThree"_s, u"four"_s};
        QTest::newRow("title: carriage return in the last two positions ignored")
            << int(Title) << u"Title    \r\n"_s << QStringList{u"Title   "_s, u"\r\n"_s};
    }
    void layout()
    {
        QFETCH(int, routine);
        QFETCH(QString, text);
        RecordingPrinter printer;
        PlainTextPrint p(printer);
        routine == Wrapped ? p.PrintWrapped(text) : routine == Text ? p.PrintText(text) : p.PrintTitleParagraph(text);
        QTEST(printer.jobs.last().texts(), "lines");
    }

    void wordLongerThanLine_data()
    {
        QTest::addColumn<bool>("titles");
        QTest::addColumn<QString>("text");
        QTest::addColumn<QStringList>("printedBefore");
        QTest::newRow("wrapped text") << false << u"Dear Jo,\r\nSee www."_s + run('w', 90) + u" soon"_s
                                      << QStringList{u"Dear Jo,"_s, u"See"_s};
        QTest::newRow("titles list") << true << u"Tip "_s + run('w', 90) << QStringList{u"Tip"_s};
        QTest::newRow("titles list, single word") << true << u"Hello"_s << QStringList{};
    }
    void wordLongerThanLine()
    {
        QFETCH(bool, titles);
        QFETCH(QString, text);
        RecordingPrinter printer;
        printer.beginJob();
        PlainTextPrint p(printer);
        QVERIFY_THROWS_EXCEPTION(PrintError, titles ? p.PrintTitleParagraph(text) : p.PrintText(text));
        QTEST(printer.jobs.last().texts(), "printedBefore");
        QVERIFY(printer.jobOpen()); // stopped part-way, before ending its job
    }

    void pages_data()
    {
        // Lines as printed: "*" marks bold, "~" the 10-point help font.
        QTest::addColumn<QString>("page");
        QTest::addColumn<QStringList>("lines");
        QTest::newRow("composition") << u"composition"_s
                                     << QStringList{u"*"_s, u"*"_s, u"*A day to remember"_s, u""_s, u""_s,
                                                    u"It was a sunny morning."_s, u""_s, u"*"_s, u"*"_s, u"*Ana Lopez"_s, u""_s};
        QTest::newRow("letter") << u"letter"_s
                                << QStringList{u"*"_s, u"*"_s, u"*Letter to a hotel"_s, u""_s, u""_s, u"Dear Sir,"_s,
                                               u"I am writing to complain."_s, u"*"_s, u"*"_s, u"*Ana Lopez"_s, u""_s};
        QTest::newRow("help text") << u"help"_s
                                   << QStringList{u"*"_s, u"*"_s, u"~"_s, u"~HELP"_s, u"~  - type a letter  "_s, u"~"_s};
    }
    void pages()
    {
        QFETCH(QString, page);
        QFETCH(QStringList, lines);
        RecordingSound sound;
        FakeSeedSource seeds;
        ProgramState state(sound, seeds);
        auto &printer = static_cast<RecordingPrinter &>(*state.Printer);
        printer.setFont(u"Courier"_s, 8, false);
        printer.setQuality(PrintQualityDraft);
        state.CompositionHeading = u"A day to remember"_s;
        state.CompositionText = u"It was a sunny morning."_s;
        state.LetterHeading = u"Letter to a hotel"_s;
        state.LetterText = u"Dear Sir,\r\nI am writing to complain."_s;
        state.StudentName = u"Ana Lopez"_s;
        if (page == u"composition")
            PrintCompositionPage(state);
        else if (page == u"letter")
            PrintLetterPage(state);
        else
            PlainTextPrint(printer).PrintHelpLines({u"HELP"_s, u"  - type a letter  "_s, QString()});

        QCOMPARE(printer.jobs.size(), 1);
        const PrintJob &job = printer.jobs.first();
        QStringList seen;
        for (const PrintedLine &l : job.lines) {
            seen.append((l.bold ? u"*"_s : QString()) + (l.fontSize == 10 ? u"~"_s : QString()) + l.text);
            QCOMPARE(l.fontName, u"Arial"_s);
            QVERIFY(l.fontSize == 12 || l.fontSize == 10);
            QCOMPARE(l.originX, 1500);
        }
        QCOMPARE(seen, lines);
        QCOMPARE(printer.quality(), PrintQualityHigh);
        QVERIFY(job.ended);
    }
};

QTEST_GUILESS_MAIN(TestPrintText)
#include "tst_printtext.moc"
