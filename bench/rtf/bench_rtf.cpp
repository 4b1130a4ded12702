// RTF figures: `studydesk-data rtf2txt` against `unrtf --text` on generated documents (plain,
// table-heavy, picture-heavy), the table-heavy document against its limits, and the reader inside
// the program against Qt's own HTML reader and against itself on a tenth of the input.
#include "benchrun.h"
#include "ui/rtf/rtfreader.h"

#include <QBuffer>
#include <QFile>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTextDocument>

#include <cstdio>
#include <cstring>

using namespace Qt::StringLiterals;

namespace {

// Paragraphs with mixed formatting, code-page and \u characters, a table and a list: the
// kind of file Word makes of a long reading passage, only much longer.
QByteArray makeDocument(qsizetype targetBytes)
{
    QByteArray rtf = "{\\rtf1\\ansi\\ansicpg1252\\deff0{\\fonttbl{\\f0\\froman\\fcharset0 Times New Roman;}"
                     "{\\f1\\fswiss\\fcharset0 Arial;}{\\f2\\fcharset204 Arial Cyr;}}"
                     "{\\colortbl;\\red200\\green0\\blue0;\\red0\\green0\\blue160;}"
                     "{\\stylesheet{\\s0 Normal;}{\\s1\\b\\fs32 heading 1;}}\r\n";
    int n = 0;
    while (rtf.size() < targetBytes) {
        ++n;
        if (n % 50 == 1)
            rtf += "\\pard\\s1\\sb240\\sa120 Part " + QByteArray::number(n / 50 + 1) + "\\par\r\n";
        rtf += "\\pard\\plain\\qj\\sa120\\fs24 Paragraph " + QByteArray::number(n)
             + " reads {\\b bold words}, {\\i an italic phrase} and {\\ul underlined} text; the caf\\'e9 "
               "na\\'efve r\\'e9sum\\'e9 \\'93quotes\\'94 \\endash {\\f2 \\'cf\\'f0\\'e8\\'e2\\'e5\\'f2} "
               "\\u1055?\\u1088?\\u1080 {\\cf1 red} {\\cf2\\highlight1 blue} x{\\super 2} H{\\sub 2}O. "
               "The quick brown fox jumps over the lazy dog again and again.\\par\r\n";
        if (n % 400 == 0) {
            for (int r = 0; r < 40; ++r)
                rtf += "\\trowd\\trgaph108\\cellx3000\\cellx6000\\cellx9000\\pard\\intbl Row "
                     + QByteArray::number(r) + "\\cell {\\b cell} two\\cell caf\\'e9 three\\cell\\row\r\n";
            for (int i = 1; i <= 30; ++i)
                rtf += "\\pard\\li720\\fi-360{\\listtext " + QByteArray::number(i)
                     + ".\\tab}List item with {\\i some} words\\par\r\n";
        }
    }
    return rtf + '}';
}

// Tables only, as a timetable or a word list exported from a spreadsheet makes them: wide rows with
// cell borders, and rows whose cells hold tables of their own.
QByteArray makeTableDocument(qsizetype targetBytes)
{
    QByteArray rtf = "{\\rtf1\\ansi\\deff0{\\fonttbl{\\f0 Arial;}}\\f0\\fs20\r\n";
    int n = 0;
    while (rtf.size() < targetBytes) {
        ++n;
        QByteArray row = "\\trowd\\trgaph108";
        for (int c = 1; c <= 12; ++c)
            row += "\\clbrdrt\\brdrs\\clbrdrb\\brdrs\\cellx" + QByteArray::number(c * 800);
        for (int c = 1; c <= 12; ++c)
            row += "\\pard\\intbl Row " + QByteArray::number(n) + " {\\b col} " + QByteArray::number(c) + "\\cell ";
        rtf += row + "\\row\r\n";
        if (n % 10 == 0) {
            // A row of three cells, each holding a 3 x 3 table.
            QByteArray inner;
            for (int r = 0; r < 3; ++r) {
                for (int c = 0; c < 3; ++c)
                    inner += "\\pard\\intbl\\itap2 in" + QByteArray::number(c) + "\\nestcell ";
                inner += "{\\*\\nesttableprops\\trowd\\cellx500\\cellx1000\\cellx1500\\nestrow}";
            }
            QByteArray outer;
            for (int c = 0; c < 3; ++c)
                outer += "\\pard\\intbl\\itap1 outer " + inner + "\\pard\\intbl\\itap1 \\cell ";
            rtf += outer + "\\trowd\\cellx3000\\cellx6000\\cellx9000\\row\r\n";
        }
        if (n % 50 == 0)
            rtf += "\\pard Between the tables.\\par\r\n";
    }
    return rtf + '}';
}

// A passage with a picture every few paragraphs, as a worksheet with photographs and drawings.
QByteArray makePictureDocument(qsizetype targetBytes)
{
    QImage image(160, 120, QImage::Format_RGB32);
    image.fill(Qt::white);
    {
        QPainter p(&image);
        p.setBrush(Qt::darkBlue);
        p.drawEllipse(20, 10, 120, 100);
    }
    QByteArray png;
    QBuffer buffer(&png);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "PNG");
    QByteArray hex = png.toHex();
    for (qsizetype i = 128; i < hex.size(); i += 129)
        hex.insert(i, '\n'); // lines of 128 digits, as word processors write them
    QByteArray rtf = "{\\rtf1\\ansi\\deff0{\\fonttbl{\\f0 Arial;}}\\f0\\fs22\r\n";
    int n = 0;
    while (rtf.size() < targetBytes) {
        ++n;
        rtf += "\\pard Picture " + QByteArray::number(n) + " shows the {\\i garden} as it was.\\par\r\n";
        if (n % 3 == 0)
            rtf += "\\pard\\qc{\\pict\\pngblip\\picw160\\pich120\\picwgoal2400\\pichgoal1800\r\n" + hex + "}\\par\r\n";
    }
    return rtf + '}';
}

QString writeFile(const QTemporaryDir &dir, const QString &name, const QByteArray &bytes)
{
    const QString path = dir.filePath(name);
    QFile f(path);
    if (!f.open(QIODevice::WriteOnly) || f.write(bytes) != bytes.size())
        std::fprintf(stderr, "cannot write %s\n", qPrintable(path));
    return path;
}

} // namespace

int main(int argc, char **argv)
{
    QGuiApplication app(argc, argv);
    using namespace sd::bench;
    const QString tool = QStringLiteral(STUDYDESK_BINARY_DIR "/bin/studydesk-data");
    const QString unrtf = QStandardPaths::findExecutable(u"unrtf"_s);
    QTemporaryDir dir;

    const QByteArray plain = makeDocument(6 * 1024 * 1024);
    const QByteArray tables = makeTableDocument(18 * 1024 * 1024);
    const QByteArray pictures = makePictureDocument(6 * 1024 * 1024);
    struct Doc
    {
        const char *name;
        QByteArray bytes;
    };
    for (const Doc &d : {Doc{"rtf2txt plain", plain}, Doc{"rtf2txt tables", tables}, Doc{"rtf2txt pictures", pictures}}) {
        const QString path = writeFile(dir, QString::fromLatin1(d.name).section(u' ', 1) + u".rtf"_s, d.bytes);
        const Run ours = medianRun(3, [&] { return runProcess(tool, {u"rtf2txt"_s, path}); });
        const QString size = u"%1 MB"_s.arg(d.bytes.size() / 1e6, 0, 'f', 1);
        if (!ours.ok)
            std::printf("%s: studydesk-data rtf2txt failed\n", d.name);
        if (unrtf.isEmpty()) {
            std::printf("%s %.2f s (%s; unrtf is not installed: apt-get install unrtf)\n", d.name, ours.ms / 1000, qPrintable(size));
        } else {
            const Run theirs = medianRun(3, [&] { return runProcess(unrtf, {u"--text"_s, path}); });
            printRatio(d.name, ours.ms / 1000, theirs.ms / 1000, "unrtf --text", "s",
                       size + u", whole process, median of 3"_s);
        }
        if (std::strcmp(d.name, "rtf2txt tables") == 0) {
            printRatio("rtf2txt tables time", ours.ms / 1000, 3.0, "limit", "s", size);
            printRatio("rtf2txt tables memory", ours.peakMb, 400, "limit", "MB", u"peak resident"_s);
        }
    }

    // Inside the program: the reader filling a document, against Qt's own HTML reader filling one
    // with the same content, and against itself on a tenth of the input.
    QTextDocument doc;
    const double readMs = medianMs(3, [&] { sd::rtf::readRtf(plain, doc); });
    const QString html = doc.toHtml();
    QTextDocument htmlDoc;
    const double htmlMs = medianMs(3, [&] { htmlDoc.setHtml(html); });
    printRatio("rtf reader", readMs, htmlMs, "Qt setHtml", "ms", u"same content, in process"_s);
    const QByteArray tenth = makeDocument(plain.size() / 10);
    const double tenthMs = medianMs(5, [&] { sd::rtf::readRtf(tenth, doc); });
    printRatio("rtf reader 10x input", readMs, 10 * tenthMs, "10x time", "ms", u"linear scaling is 1.00x"_s);
    const double tablesMs = medianMs(1, [&] { sd::rtf::readRtf(tables, doc); });
    const QByteArray sameSize = makeDocument(tables.size());
    const double sameMs = medianMs(1, [&] { sd::rtf::readRtf(sameSize, doc); });
    printRatio("rtf reader tables", tablesMs, sameMs, "plain text of the same size", "ms");
    return 0;
}
