#pragma once

#include "checked.h"

#include <QString>
#include <QStringList>

namespace sd {

class PrinterDevice;
struct ProgramState;

/// Page set-up of the plain-text prints.
inline constexpr int PrintLineWidth = 83;
inline constexpr int PrintOriginTwips = 1500;
inline constexpr int PrintFontPoints = 12;
inline constexpr int HelpPrintFontPoints = 10;

/// The plain-text print routines: they lay text out themselves, line by line, with a fixed page
/// set-up, a fixed line width in characters and their own word wrap. A word longer than a line
/// throws PrintError from the middle of a command; the lines before it have been printed.
class PlainTextPrint
{
public:
    explicit PlainTextPrint(PrinterDevice &printer) : Printer(printer) {}

    PrinterDevice &Printer;
    Int16 LineWidth = PrintLineWidth; ///< characters per line, set by SetUpPage

    /// Arial 12 point bold, 83-character lines, lines 1500 twips in, high quality, two empty lines.
    void SetUpPage();
    /// Prints one line, blanks trimmed and the line feed of a CR/LF pair dropped.
    void PrintLine(const QString &text);
    /// Word wrap: breaks at the last blank at or before LineWidth (the blank is dropped).
    void SplitAtBlank(const QString &text, QString &line, QString &rest) const;
    /// Splits at the first carriage return; the rest keeps the line feed that follows it.
    static void SplitAtReturn(const QString &text, QString &paragraph, QString &rest);
    /// One paragraph wrapped to LineWidth.
    void PrintWrapped(QString text);
    /// A text of several paragraphs.
    void PrintText(const QString &text);
    /// A paragraph of the titles list. It differs from PrintWrapped on purpose: a short paragraph
    /// is still broken at its last blank, lines are printed as they stand, and a carriage return
    /// in the last two positions does not split.
    void PrintTitleParagraph(const QString &text);
    /// The help-text print: 10 point, not bold, an empty line, then each line unchanged; ends the job.
    void PrintHelpLines(const QStringList &lines);

private:
    void SplitAtLastBlank(const QString &text, QString &line, QString &rest) const;
    static void SplitAtReturnEarly(const QString &text, QString &paragraph, QString &rest);
};

/// Heading (bold), composition text and the writer's name of the composition state; ends the job.
void PrintCompositionPage(ProgramState &state);
/// The same for the letter state.
void PrintLetterPage(ProgramState &state);
/// The file a printout is offered under when there is no printer: "Reading - Multiple choice - Level 2 -
/// Exercise 3", "Use of English - Open Cloze - Test 4"; "StudyDesk printout" outside an exercise.
QString printoutName(const ProgramState &state);

/// The lines of the help text file `name` of the data directory as read; throws ProgramError when it
/// cannot be read.
QStringList ReadHelpText(const QString &dataDir, const QString &name);

} // namespace sd
