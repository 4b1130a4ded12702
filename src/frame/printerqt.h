#pragma once

#include "core/printerdevice.h"
#include "core/services.h"
#include "modules.h"

#include <QString>

#include <functional>
#include <memory>

namespace sd {

/// The program's printer. Jobs go to the default printer without a dialog. A machine without any
/// printer offers to save the job as a PDF file instead; with a fixed PDF file (--print-to) every
/// job of the run goes there, the first to the file itself and later ones to numbered files beside
/// it (out.pdf, out-2.pdf, out-3.pdf ...). The pages are made by the printing module, loaded when
/// the first job starts.
class QtPrinter final : public PrinterDevice
{
public:
    using Options = PrintOptions;

    explicit QtPrinter(Options options);
    ~QtPrinter() override;

    /// Called as each job ends: the PDF file written (empty for a printer or a dropped job) and
    /// the number of pages.
    std::function<void(const QString &file, int pages)> jobEnded;

    /// The file of the nth job sent to `base`.
    static QString numberedFile(const QString &base, int n);
    /// The save dialog offered when there is no printer; empty when cancelled.
    static QString askForPdfFile(SaveDialog &dialog, const QString &proposedName);

protected:
    bool startJob(const QString &title) override;
    void outputLine(const QString &text) override;
    void outputDocument(const QTextDocument &document) override;
    void outputImage(const QImage &image) override;
    void finishJob(bool accepted) override;

private:
    PrintSettings settings() const;

    Options m_options;
    std::unique_ptr<PageOutput> m_pages;
};

/// The desktop's own save dialog.
class QtSaveDialog final : public SaveDialog
{
public:
    QString askSaveFile(const QString &title, const QString &proposed, const QString &filter) override;
};

} // namespace sd
