// The QPrinter device: real PDFs read back with pdftotext.

#include "pdftext.h"

#include "frame/core/printtext.h"
#include "frame/core/services.h"
#include "frame/core/state.h"
#include "frame/printerqt.h"
#include "frame/printing.h"

#include <QLabel>
#include <QTemporaryDir>
#include <QTest>
#include <QTextDocument>

using namespace sd;
using namespace Qt::StringLiterals;

namespace {
/// The numbers of "Line N" in the text, in order.
QList<int> lineNumbers(const QString &text)
{
    QList<int> out;
    auto it = QRegularExpression(u"Line (\\d+)"_s).globalMatch(text);
    while (it.hasNext())
        out.append(it.next().captured(1).toInt());
    return out;
}
} // namespace

class TestPrinterQt : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        if (!test::havePdfTools())
            QSKIP("pdftotext and pdfinfo (poppler-utils) are needed");
    }

    void plainTextPages()
    {
        const QString file = m_dir.filePath(u"letter.pdf"_s);
        auto device = printer(file);
        PlainTextPrint p(*device);
        p.SetUpPage();
        p.PrintText(u"Dear Jo,\r\nThanks for the lovely weekend."_s);
        QList<int> all;
        for (int i = 1; i <= 150; ++i) {
            p.PrintLine(u"Line %1"_s.arg(i));
            all.append(i);
        }
        device->endJob();

        const int pages = test::pdfPages(file);
        QVERIFY(pages >= 3);
        QCOMPARE(m_ended, (QList<QPair<QString, int>>{{file, pages}}));
        const QString first = test::pdfText(file, 1);
        // The header and the page number stand in the margins, apart from the lines themselves.
        QVERIFY2(QRegularExpression(u"^StudyDesk \u00B7 .*2\\d\\d\\d\\s+Dear Jo,\\s+Thanks for the lovely weekend\\.\\s+Line 1\\s"_s)
                     .match(first)
                     .hasMatch(),
                 qPrintable(first));
        QVERIFY2(first.trimmed().endsWith(u"Page 1"_s), qPrintable(first));
        QList<int> seen;
        for (int page = 1; page <= pages; ++page)
            seen += lineNumbers(test::pdfText(file, page));
        QCOMPARE(seen, all); // every line once, in order, none lost at a page break

        // Lines start 1500 twips (75 pt) in from the printable edge.
        const QString boxes = test::runTool(u"pdftotext"_s, {u"-bbox"_s, file, u"-"_s});
        const auto m = QRegularExpression(u"<word xMin=\"([\\d.]+)\"[^>]*>Dear</word>"_s).match(boxes);
        QVERIFY2(m.hasMatch(), qPrintable(boxes));
        QVERIFY(m.captured(1).toDouble() >= 75.0 && m.captured(1).toDouble() < 75.0 + 72.0);
    }

    void noPrinterStudentCancels()
    {
        int asked = 0;
        auto device = printer(QString(), [&asked] {
            ++asked;
            return QString();
        });
        QVERIFY(!device->beginJob(u"Help"_s));
        device->printLine(u"Help text"_s); // dropped, not an error
        device->endJob();
        QCOMPARE(asked, 1);
        QCOMPARE(m_ended, (QList<QPair<QString, int>>{{QString(), 0}}));
    }

    void richTextAndScreenImage()
    {
        RecordingSound sound;
        FakeSeedSource seeds;
        ProgramState state(sound, seeds);
        const QString file = m_dir.filePath(u"exercise.pdf"_s);
        state.Printer = printer(file);

        QTextDocument passage, questions;
        QString html;
        for (int i = 1; i <= 90; ++i)
            html += u"<p>Line %1 of the passage.</p>"_s.arg(i);
        passage.setHtml(html);
        questions.setHtml(u"<p><b>Questions</b></p><p>1 What did the writer see?</p>"_s);
        QVERIFY(printRichText(state, nullptr, {&passage, &questions}));

        const int pages = test::pdfPages(file);
        QVERIFY(pages >= 2);
        QCOMPARE(m_ended.value(0).second, pages);
        QList<int> lines;
        for (int page = 1; page < pages; ++page)
            lines += lineNumbers(test::pdfText(file, page));
        QCOMPARE(lines.size(), 90);
        const QString last = test::pdfText(file, pages);
        QVERIFY2(last.contains(u"Questions"_s) && !last.contains(u"passage"_s), qPrintable(last)); // a page of its own

        QLabel screen(u"Topic 9"_s);
        screen.resize(640, 480);
        QVERIFY(printScreenImage(state, &screen));
        QCOMPARE(m_ended.size(), 2);
        QCOMPARE(m_ended[1], (QPair<QString, int>{m_dir.filePath(u"exercise-2.pdf"_s), 1}));
        QCOMPARE(test::pdfPages(m_ended[1].first), 1);
    }

private:
    std::unique_ptr<QtPrinter> printer(const QString &printTo, std::function<QString()> choosePdf = {})
    {
        m_ended.clear();
        auto p = std::make_unique<QtPrinter>(QtPrinter::Options{printTo, false, std::move(choosePdf)});
        p->jobEnded = [this](const QString &f, int pages) { m_ended.append({f, pages}); };
        return p;
    }

    QTemporaryDir m_dir;
    QList<QPair<QString, int>> m_ended; ///< file and pages of each job
};

QTEST_MAIN(TestPrinterQt)
#include "tst_printerqt.moc"
