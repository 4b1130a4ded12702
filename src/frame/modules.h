#pragma once

#include "core/printerdevice.h"
#include "core/services.h"

#include <QFileInfo>
#include <QString>

#include <functional>

class QImage;
class QTextDocument;

namespace sd {

/// The sound output and the printer need large libraries that the start screen does not: Qt
/// Multimedia with the audio stack under it, and Qt Print Support with the print system's. Each
/// lives in a module of its own (`studydesk_sound`, `studydesk_print`: beside the program in a build
/// folder, in lib/<arch>/studydesk once installed), loaded when the first clip plays or the first
/// job prints. The charts of the progress screen are loaded the same way when it first opens.

/// The function `function` of the program's module `module`, loaded on first use and kept
/// loaded; null, with the reason in *error, when the module or the function cannot be found.
QFunctionPointer moduleFunction(const char *module, const char *function, QString *error = nullptr);

/// Where the jobs of the printer go.
struct PrintOptions
{
    QString printTo;          ///< PDF file for every job; empty: printers
    bool usePrinters = true;  ///< false: never a system printer (script runs)
    /// Asked for a PDF file when there is no printer; an empty answer cancels the job.
    std::function<QString()> choosePdf;
};

/// The printer's font and placing at the time of an output.
struct PrintSettings
{
    QString fontName;
    int fontSize = 12;
    bool bold = false;
    int originX = 0;
    int quality = PrintQualityHigh;
};

/// Pages on the desktop's printer (or a PDF file), one job after another: what the printing module
/// makes for QtPrinter. See PrinterDevice for what each step does.
class PageOutput
{
public:
    virtual ~PageOutput() = default;
    virtual bool startJob(const QString &title) = 0;
    virtual void outputLine(const QString &text, const PrintSettings &settings) = 0;
    virtual void outputDocument(const QTextDocument &document, const PrintSettings &settings) = 0;
    virtual void outputImage(const QImage &image, const PrintSettings &settings) = 0;
    /// Ends the job and reports the PDF file written (empty for a printer or a dropped job) and
    /// its pages to `jobEnded`.
    virtual void finishJob(bool accepted, const std::function<void(const QString &, int)> &jobEnded) = 0;
};

/// The file of the nth job sent to `base`: base itself, then base-2.pdf, base-3.pdf ...
inline QString numberedPrintFile(const QString &base, int n)
{
    if (n <= 1)
        return base;
    const QString suffix = QFileInfo(base).suffix();
    if (suffix.isEmpty())
        return base + QStringLiteral("-%1").arg(n);
    return base.chopped(suffix.size() + 1) + QStringLiteral("-%1.").arg(n) + suffix;
}

/// The modules' entry points.
inline constexpr char SoundModule[] = "studydesk_sound";
inline constexpr char SoundFunction[] = "studydesk_create_sound";
using CreateSound = SoundOutput *(*)();
inline constexpr char PrintModule[] = "studydesk_print";
inline constexpr char PrintFunction[] = "studydesk_create_page_output";
using CreatePageOutput = PageOutput *(*)(const PrintOptions &options);

} // namespace sd
