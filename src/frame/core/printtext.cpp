#include "printtext.h"

#include "datafiles.h"
#include "printerdevice.h"
#include "state.h"

#include "ui/files/datapath.h"

#include <QFile>
#include <QRegularExpression>

namespace sd {

namespace {
constexpr QChar CarriageReturn = u'\r';
constexpr QChar LineFeed = u'\n';

/// Breaks at the blank at 0-based position `blank`, dropping it.
void breakAt(const QString &text, qsizetype blank, QString &line, QString &rest)
{
    line = text.left(blank);
    rest = text.mid(blank + 1);
}

/// Position of the last blank within the first `width` characters; throws when there is none.
qsizetype lastBlankWithin(const QString &text, int width)
{
    for (qsizetype i = qMin<qsizetype>(width, text.size()) - 1; i >= 0; --i)
        if (text.at(i) == u' ')
            return i;
    throw PrintError(QStringLiteral("A word is longer than a printed line: %1").arg(text.left(width)));
}

void printPage(ProgramState &state, const QString &heading, const QString &text)
{
    PlainTextPrint p(*state.Printer);
    p.SetUpPage();
    p.Printer.setBold(true);
    p.PrintWrapped(heading);
    p.Printer.setBold(false);
    p.Printer.printEmptyLine();
    p.Printer.printEmptyLine();
    p.PrintText(text);
    p.Printer.setBold(true);
    p.Printer.printEmptyLine();
    p.Printer.printEmptyLine();
    p.Printer.printLine(state.StudentName);
    p.Printer.setBold(false);
    p.Printer.printEmptyLine();
    p.Printer.endJob();
}
} // namespace

void PlainTextPrint::SetUpPage()
{
    Printer.setFontName(QStringLiteral("Arial"));
    Printer.setBold(true);
    LineWidth = PrintLineWidth;
    Printer.setOriginX(PrintOriginTwips);
    Printer.setQuality(PrintQualityHigh);
    Printer.setFontSize(PrintFontPoints);
    Printer.setBold(true);
    Printer.printEmptyLine();
    Printer.printEmptyLine();
}

void PlainTextPrint::PrintLine(const QString &text)
{
    const QString t = trimBlanks(text);
    if (t == QString(LineFeed))
        Printer.printEmptyLine();
    else if (t.startsWith(LineFeed))
        Printer.printLine(t.mid(1));
    else
        Printer.printLine(t);
}

void PlainTextPrint::SplitAtBlank(const QString &text, QString &line, QString &rest) const
{
    if (text.size() <= LineWidth) {
        line = text;
        rest.clear();
        return;
    }
    breakAt(text, lastBlankWithin(text, LineWidth), line, rest);
}

void PlainTextPrint::SplitAtReturn(const QString &text, QString &paragraph, QString &rest)
{
    const qsizetype cr = text.indexOf(CarriageReturn);
    if (cr < 0) {
        paragraph = text;
        rest.clear();
        return;
    }
    paragraph = text.left(cr);
    rest = text.mid(cr + 1);
}

void PlainTextPrint::PrintWrapped(QString text)
{
    QString line, rest;
    while (text.size() > LineWidth) {
        SplitAtBlank(text, line, rest);
        PrintLine(line);
        text = rest;
    }
    PrintLine(text);
}

void PlainTextPrint::PrintText(const QString &text)
{
    QString paragraph, rest;
    if (text.contains(CarriageReturn)) {
        SplitAtReturn(text, paragraph, rest);
        PrintWrapped(paragraph);
    } else {
        PrintWrapped(text);
    }
    while (rest.contains(CarriageReturn)) {
        const QString remaining = rest;
        SplitAtReturn(remaining, paragraph, rest);
        PrintWrapped(paragraph);
    }
    if (rest.size() > LineWidth)
        PrintWrapped(rest);
    else
        PrintLine(rest);
}

void PlainTextPrint::SplitAtLastBlank(const QString &text, QString &line, QString &rest) const
{
    breakAt(text, lastBlankWithin(text, LineWidth), line, rest);
}

void PlainTextPrint::SplitAtReturnEarly(const QString &text, QString &paragraph, QString &rest)
{
    // The search gives up once the next position reaches the end, so a carriage return in either
    // of the last two positions is never found.
    for (qsizetype i = 0; i + 2 < text.size(); ++i) {
        if (text.at(i) == CarriageReturn) {
            paragraph = text.left(i);
            rest = text.mid(i + 1);
            return;
        }
    }
    paragraph = text;
    rest.clear();
}

void PlainTextPrint::PrintTitleParagraph(const QString &text)
{
    QString paragraph, rest = text;
    do {
        const QString remaining = rest;
        SplitAtReturnEarly(remaining, paragraph, rest);
        QString line, tail;
        SplitAtLastBlank(paragraph, line, tail);
        Printer.printLine(line);
        while (tail.size() > LineWidth) {
            const QString longer = tail;
            SplitAtLastBlank(longer, line, tail);
            Printer.printLine(line);
        }
        Printer.printLine(tail);
    } while (!rest.isEmpty());
}

void PlainTextPrint::PrintHelpLines(const QStringList &lines)
{
    SetUpPage();
    Printer.setFontSize(HelpPrintFontPoints);
    Printer.setBold(false);
    Printer.printEmptyLine();
    for (const QString &line : lines)
        Printer.printLine(line);
    Printer.endJob();
}

void PrintCompositionPage(ProgramState &state)
{
    printPage(state, state.CompositionHeading, state.CompositionText);
}

void PrintLetterPage(ProgramState &state)
{
    printPage(state, state.LetterHeading, state.LetterText);
}

QString printoutName(const ProgramState &state)
{
    static const char *const papers[] = {"Reading", "Writing", "Use of English"};
    const int kind = state.ExerciseKind;
    if (kind < 1 || kind > 10 || state.LevelCode.isEmpty())
        return QStringLiteral("StudyDesk printout");
    const int paper = kind <= 4 ? 0 : kind == 5 ? 1 : 2;
    const auto number = [](const QString &code) { return QString::number(code.toInt()); };
    QString name = QString::fromLatin1(papers[paper]) + QStringLiteral(" - ") + state.KindNames[kind];
    if (state.TestMode)
        name += QStringLiteral(" - Test ") + number(state.LevelCode);
    else
        name += QStringLiteral(" - Level ") + number(state.LevelCode) + QStringLiteral(" - Exercise ")
                + number(state.ExerciseCode);
    // No character a file system might refuse.
    name.replace(QRegularExpression(QStringLiteral("[/\\\\:*?\"<>|]")), QStringLiteral("-"));
    return name;
}

QStringList ReadHelpText(const QString &dataDir, const QString &name)
{
    const FileBytes f = readDataFile(dataDir, name, MaxTextBytes);
    if (!f.ok())
        throw ProgramError(QStringLiteral("File not found: %1").arg(name));
    QString text = decodeSingleByte(f.bytes);
    text.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    text.replace(CarriageReturn, LineFeed);
    if (text.endsWith(LineFeed))
        text.chop(1);
    return text.isEmpty() ? QStringList() : text.split(LineFeed);
}

} // namespace sd
