#pragma once

#include "core/printerdevice.h"
#include "core/services.h"

#include <QPainter>
#include <QString>

#include <functional>
#include <memory>

class QPrinter;

namespace sd {

/// The program's printer: a QPainter on a QPrinter. Jobs go to the default printer without a
/// dialog. A machine without any printer offers to save the job as a PDF file instead; with a
/// fixed PDF file (--print-to) every job of the run goes there, the first to the file itself and
/// later ones to numbered files beside it (out.pdf, out-2.pdf, out-3.pdf ...).
class QtPrinter final : public PrinterDevice
{
public:
    struct Options
    {
        QString printTo;          ///< PDF file for every job; empty: printers
        bool usePrinters = true;  ///< false: never a system printer (script runs)
        /// Asked for a PDF file when there is no printer; an empty answer cancels the job.
        std::function<QString()> choosePdf;
    };

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
    void ensurePainter();
    void newPage();
    /// Anything further goes on a fresh page.
    void fillPage();
    void drawPageMargins();
    QSizeF pageSize() const;

    Options m_options;
    std::unique_ptr<QPrinter> m_printer;
    QPainter m_painter;
    QString m_file;
    QString m_title;
    int m_filesWritten = 0;
    int m_pages = 0;
    qreal m_y = 0;
};

/// The desktop's own save dialog.
class QtSaveDialog final : public SaveDialog
{
public:
    QString askSaveFile(const QString &title, const QString &proposed, const QString &filter) override;
};

} // namespace sd
