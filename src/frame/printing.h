#pragma once

#include <QList>
#include <QString>

#include <functional>

class QTextDocument;
class QWidget;

namespace sd {

class PrinterDevice;
struct ProgramState;

/// What the student is told when a print command fails part-way.
inline constexpr char16_t PrintingErrorText[] = u"Printing error. You may need to reconfigure your printer.";

// Print commands of the screens. Each runs one job on the program's printer with the busy
// pointer shown. A failure part-way ends the job with what was printed so far and tells the
// student through the calling screen's error handling. They return false when nothing was
// printed (no destination chosen) or printing failed.

/// Runs a print command as one job.
bool runPrintJob(ProgramState &state, QWidget *parent, const QString &title,
                 const std::function<void(PrinterDevice &)> &command);
/// Prints rich-text documents one after another as one job, each starting on a new page.
bool printRichText(ProgramState &state, QWidget *parent, const QList<QTextDocument *> &documents);
/// Prints a picture of the screen, fitted to the page.
bool printScreenImage(ProgramState &state, QWidget *screen);
/// The composition (or letter) page of the composition state.
bool printCompositionPage(ProgramState &state, QWidget *parent);
bool printLetterPage(ProgramState &state, QWidget *parent);
/// Prints the help text file `name` of the data directory (10 point, not bold, each line as read). A
/// missing file prints nothing and shows "No file".
bool printHelpText(ProgramState &state, QWidget *parent, const QString &name);

} // namespace sd
