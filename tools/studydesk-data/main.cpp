// studydesk-data: builds, checks and shows StudyDesk data directories.
//   studydesk-data build SOURCE OUT
//   studydesk-data check DIR
//   studydesk-data show DIR FILE KEY
//   studydesk-data rtf2txt FILE

#include "build.h"
#include "check.h"

#include "ui/rtf/rtfreader.h"

#include <QGuiApplication>

#include <cstdio>
#include <memory>

using namespace Qt::StringLiterals;

namespace {

void print(FILE *to, const QString &text)
{
    const QByteArray bytes = text.toLocal8Bit();
    std::fwrite(bytes.constData(), 1, std::size_t(bytes.size()), to);
}

/// One message line with the control characters that came from data written as \x1b: a
/// terminal never acts on them, and a NUL cuts nothing short.
QString escaped(const QString &line)
{
    QString out;
    out.reserve(line.size());
    for (const QChar c : line) {
        const char16_t u = c.unicode();
        if (u < 0x20 || (u >= 0x7f && u < 0xa0))
            out += u"\\x"_s + QString::number(u, 16).rightJustified(2, u'0');
        else
            out += c;
    }
    return out;
}

/// Qt's own notes about the machine (no runtime directory, no screen) are no concern of a teacher.
void quietHandler(QtMsgType type, const QMessageLogContext &, const QString &message)
{
    if (type == QtDebugMsg || type == QtInfoMsg || message.startsWith(u"QStandardPaths:"_s))
        return;
    print(stderr, message + u'\n');
}

int usage()
{
    print(stderr, u"usage: studydesk-data build SOURCE OUT\n"
                  u"       studydesk-data check DIR\n"
                  u"       studydesk-data show DIR FILE KEY\n"
                  u"       studydesk-data rtf2txt FILE\n"_s);
    return 2;
}

int build(const QString &source, const QString &out)
{
    sd::data::Problems problems;
    sd::data::BuildSummary made;
    const bool ok = sd::data::buildDataDirectory(source, out, problems, &made);
    for (const QString &p : std::as_const(problems))
        print(stderr, escaped(p) + u'\n');
    if (!ok) {
        print(stderr, u"%1 problems; nothing was written\n"_s.arg(problems.size()));
        return 1;
    }
    print(stdout, u"%1: %2 exercises in %3 data files, %4 help topics, %5 sound clips (%6 files)\n"_s
                      .arg(out).arg(made.exercises).arg(made.dataFiles).arg(made.helpTopics)
                      .arg(made.soundClips).arg(made.filesWritten));
    return 0;
}

int check(const QString &dir)
{
    const sd::data::CheckReport report = sd::data::checkDataDirectory(dir);
    for (const QString &e : report.errors)
        print(stdout, escaped(e) + u'\n');
    if (!report.errors.isEmpty())
        print(stdout, u"\n"_s);
    print(stdout, report.coverage);
    print(stdout, report.errors.isEmpty() ? u"\nno errors\n"_s : u"\n%1 errors\n"_s.arg(report.errors.size()));
    return report.errors.isEmpty() ? 0 : 1;
}

int show(const QString &dir, const QString &file, const QString &key)
{
    QString out;
    const bool found = sd::data::showRecord(dir, file, key, &out);
    QStringList lines = out.split(u'\n');
    for (QString &line : lines)
        line = escaped(line);
    print(found ? stdout : stderr, lines.join(u'\n') + (found ? QString() : u"\n"_s));
    return found ? 0 : 1;
}

/// The text of a rich-text file as the program reads it, for teachers and for timing the reader.
int rtf2txt(const QString &file)
{
    QString text;
    const sd::rtf::ReadResult r = sd::rtf::readRtfTextFile(file, &text);
    if (!r.ok) {
        print(stderr, file + u": "_s + escaped(r.message) + u'\n');
        return 1;
    }
    text += u'\n';
    print(stdout, text);
    if (r.partial)
        print(stderr, file + u": damaged; only the first part could be read: "_s + escaped(r.message) + u'\n');
    return r.partial ? 1 : 0;
}

} // namespace

int main(int argc, char **argv)
{
    // Documents are laid out without a screen.
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    qInstallMessageHandler(quietHandler);
    // Reading text alone needs neither fonts nor a screen.
    std::unique_ptr<QCoreApplication> app;
    if (argc > 1 && qstrcmp(argv[1], "rtf2txt") == 0)
        app = std::make_unique<QCoreApplication>(argc, argv);
    else
        app = std::make_unique<QGuiApplication>(argc, argv);
    const QStringList args = QCoreApplication::arguments().mid(1);
    const QString command = args.value(0);
    if (command == u"build"_s && args.size() == 3)
        return build(args.at(1), args.at(2));
    if (command == u"check"_s && args.size() == 2)
        return check(args.at(1));
    if (command == u"rtf2txt"_s && args.size() == 2)
        return rtf2txt(args.at(1));
    if (command == u"show"_s && args.size() == 4)
        return show(args.at(1), args.at(2), args.at(3));
    return usage();
}
