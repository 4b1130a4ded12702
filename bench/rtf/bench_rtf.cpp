// Reads a generated multi-megabyte RTF with our reader and with unrtf, and prints both speeds.
#include "ui/rtf/rtfreader.h"
#include "ui/rtf/rtfwriter.h"

#include <QElapsedTimer>
#include <QGuiApplication>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTextDocument>
#include <QTextStream>

#include <sys/resource.h>

#include <cstdio>
#include <functional>

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

double bestSeconds(int runs, const std::function<void()> &work)
{
    double best = 1e9;
    for (int i = 0; i < runs; ++i) {
        QElapsedTimer t;
        t.start();
        work();
        best = std::min(best, t.nsecsElapsed() / 1e9);
    }
    return best;
}

} // namespace

int main(int argc, char **argv)
{
    QGuiApplication app(argc, argv);
    QTextStream out(stdout);
    const QByteArray rtf = makeDocument(6 * 1024 * 1024);
    const double mb = rtf.size() / (1024.0 * 1024.0);
    out << u"RTF document: %1 MB\n"_s.arg(mb, 0, 'f', 2);

    QTextDocument doc;
    const double readSeconds = bestSeconds(3, [&] { sd::rtf::readRtf(rtf, doc); });
    out << u"our reader:      %1 s, %2 MB/s (best of 3; %3 characters)\n"_s.arg(readSeconds, 0, 'f', 3)
               .arg(mb / readSeconds, 0, 'f', 2)
               .arg(doc.characterCount());
    QByteArray written;
    const double writeSeconds = bestSeconds(3, [&] { written = sd::rtf::writeRtf(doc); });
    out << u"our writer:      %1 s, %2 MB/s of output (best of 3)\n"_s.arg(writeSeconds, 0, 'f', 3)
               .arg(written.size() / (1024.0 * 1024.0) / writeSeconds, 0, 'f', 2);

    // Tables must cost no more than their size: the table-heavy document against plain text of the
    // same size, and its peak memory read in a process of its own.
    {
        const QByteArray tables = makeTableDocument(18 * 1024 * 1024);
        const QByteArray plain = makeDocument(tables.size());
        QTextDocument t;
        const double tableSeconds = bestSeconds(1, [&] { sd::rtf::readRtf(tables, t); });
        const double plainSeconds = bestSeconds(1, [&] { sd::rtf::readRtf(plain, t); });
        out << u"rtf tables %1x plain text of the same size (%2 s vs %3 s for %4 MB)\n"_s
                   .arg(tableSeconds / plainSeconds, 0, 'f', 2)
                   .arg(tableSeconds, 0, 'f', 2)
                   .arg(plainSeconds, 0, 'f', 2)
                   .arg(tables.size() / (1024.0 * 1024.0), 0, 'f', 1);
        QTemporaryDir tmp;
        QFile f(tmp.filePath(u"tables.rtf"_s));
        const QString tool = QStringLiteral(STUDYDESK_BINARY_DIR "/bin/studydesk-data");
        if (f.open(QIODevice::WriteOnly) && f.write(tables) == tables.size() && QFile::exists(tool)) {
            f.close();
            QProcess p;
            p.setStandardOutputFile(QProcess::nullDevice());
            p.start(tool, {u"rtf2txt"_s, f.fileName()});
            p.waitForFinished(300000);
            rusage usage{};
            getrusage(RUSAGE_CHILDREN, &usage);
            out << u"rtf tables peak memory %1 MB for a %2 MB document (studydesk-data rtf2txt)\n"_s
                       .arg(usage.ru_maxrss / 1024.0, 0, 'f', 0)
                       .arg(tables.size() / (1024.0 * 1024.0), 0, 'f', 1);
        }
    }

    const QString unrtf = QStandardPaths::findExecutable(u"unrtf"_s);
    if (unrtf.isEmpty()) {
        out << "unrtf --html:    not installed, no comparison (apt-get install unrtf)\n";
        return 0;
    }
    QTemporaryDir dir;
    const QString path = dir.filePath(u"bench.rtf"_s);
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(rtf) != rtf.size())
        return 1;
    file.close();
    bool ran = true;
    const double unrtfSeconds = bestSeconds(3, [&] {
        QProcess p;
        p.setStandardOutputFile(QProcess::nullDevice());
        p.setStandardErrorFile(QProcess::nullDevice());
        p.start(unrtf, {u"--html"_s, path});
        ran = p.waitForFinished(300000) && p.exitStatus() == QProcess::NormalExit && ran;
    });
    if (!ran)
        out << "unrtf --html:    did not finish normally; its time is not comparable\n";
    out << u"unrtf --html:    %1 s, %2 MB/s (best of 3, process start included)\n"_s.arg(unrtfSeconds, 0, 'f', 3)
               .arg(mb / unrtfSeconds, 0, 'f', 2);
    out << u"ratio:           our reader takes %1x the time of unrtf\n"_s.arg(readSeconds / unrtfSeconds, 0, 'f', 2);
    return 0;
}
