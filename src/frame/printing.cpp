#include "printing.h"

#include "appscreen.h"
#include "core/printerdevice.h"
#include "core/printtext.h"
#include "core/state.h"

#include <QApplication>
#include <QImage>
#include <QTextDocument>

namespace sd {

namespace {
/// Tells the student in a message box over the screen that printed.
void tellStudent(QWidget *parent, const QString &message)
{
    for (QWidget *w = parent; w; w = w->parentWidget()) {
        if (auto *screen = qobject_cast<AppScreen *>(w)) {
            screen->navigator().showMessage(message);
            return;
        }
    }
}

/// Runs the command with the busy pointer shown; false when it failed part-way.
bool runCommand(PrinterDevice &printer, const std::function<void(PrinterDevice &)> &command)
{
    QApplication::setOverrideCursor(Qt::WaitCursor);
    bool done = false;
    try {
        command(printer);
        printer.endJob();
        done = true;
    } catch (const ProgramError &) {
        // What was printed before the failure still comes out.
        try {
            printer.endJob();
        } catch (const ProgramError &) {
        }
    }
    QApplication::restoreOverrideCursor();
    return done;
}
} // namespace

bool runPrintJob(ProgramState &state, QWidget *parent, const QString &title,
                 const std::function<void(PrinterDevice &)> &command)
{
    PrinterDevice &printer = *state.Printer;
    if (!printer.beginJob(QStringLiteral("StudyDesk - ") + title)) {
        printer.endJob();
        return false;
    }
    if (runCommand(printer, command))
        return true;
    tellStudent(parent, QString::fromUtf16(PrintingErrorText));
    return false;
}

bool printRichText(ProgramState &state, QWidget *parent, const QList<QTextDocument *> &documents)
{
    if (documents.isEmpty())
        return false;
    return runPrintJob(state, parent, QStringLiteral("Print text"), [&documents](PrinterDevice &printer) {
        for (const QTextDocument *d : documents)
            if (d)
                printer.printDocument(*d);
    });
}

bool printScreenImage(ProgramState &state, QWidget *screen)
{
    const QImage image = screen->grab().toImage();
    return runPrintJob(state, screen, QStringLiteral("Screen"),
                       [&image](PrinterDevice &printer) { printer.printImage(image); });
}

bool printCompositionPage(ProgramState &state, QWidget *parent)
{
    return runPrintJob(state, parent, QStringLiteral("Composition"),
                       [&state](PrinterDevice &) { PrintCompositionPage(state); });
}

bool printLetterPage(ProgramState &state, QWidget *parent)
{
    return runPrintJob(state, parent, QStringLiteral("Letter"), [&state](PrinterDevice &) { PrintLetterPage(state); });
}

bool printHelpText(ProgramState &state, QWidget *parent, const QString &name)
{
    QStringList lines;
    try {
        lines = ReadHelpText(state.DataDir, name);
    } catch (const ProgramError &) {
        tellStudent(parent, QStringLiteral("No file"));
        return false;
    }
    return runPrintJob(state, parent, QStringLiteral("Help"),
                       [&lines](PrinterDevice &printer) { PlainTextPrint(printer).PrintHelpLines(lines); });
}

} // namespace sd
