#include "printerqt.h"

#include "modules.h"

#include <QApplication>
#include <QDir>
#include <QFileDialog>
#include <QStandardPaths>

namespace sd {

QtPrinter::QtPrinter(Options options) : m_options(std::move(options)) {}

QtPrinter::~QtPrinter() = default;

QString QtPrinter::numberedFile(const QString &base, int n)
{
    return numberedPrintFile(base, n);
}

QString QtSaveDialog::askSaveFile(const QString &title, const QString &proposed, const QString &filter)
{
    // Our own dialog, so that what it is for is said in its text as well as in its title.
    QFileDialog dialog(QApplication::activeWindow(), title, proposed, filter);
    dialog.setOption(QFileDialog::DontUseNativeDialog);
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setLabelText(QFileDialog::FileName, title.section(QStringLiteral(" - "), 0, 0) + QStringLiteral(". File name:"));
    dialog.selectFile(proposed);
    return dialog.exec() == QDialog::Accepted && !dialog.selectedFiles().isEmpty() ? dialog.selectedFiles().first()
                                                                                   : QString();
}

QString QtPrinter::askForPdfFile(SaveDialog &dialog, const QString &proposedName)
{
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    QString file = dialog.askSaveFile(QStringLiteral("No printer is installed - save the printout as a PDF file"),
                                      QDir(folder.isEmpty() ? QDir::homePath() : folder)
                                          .filePath((proposedName.isEmpty() ? QStringLiteral("StudyDesk printout")
                                                                            : proposedName)
                                                    + QStringLiteral(".pdf")),
                                      QStringLiteral("PDF file (*.pdf)"));
    if (!file.isEmpty() && !file.endsWith(QStringLiteral(".pdf"), Qt::CaseInsensitive))
        file += QStringLiteral(".pdf");
    return file;
}

PrintSettings QtPrinter::settings() const
{
    return PrintSettings{fontName(), fontSize(), bold(), originX(), quality()};
}

bool QtPrinter::startJob(const QString &title)
{
    if (!m_pages) {
        QString error;
        const auto create = reinterpret_cast<CreatePageOutput>(moduleFunction(PrintModule, PrintFunction, &error));
        if (!create)
            throw PrintError(QStringLiteral("Printing is not available: ") + error);
        m_pages.reset(create(m_options));
    }
    return m_pages->startJob(title);
}

void QtPrinter::outputLine(const QString &text)
{
    m_pages->outputLine(text, settings());
}

void QtPrinter::outputDocument(const QTextDocument &document)
{
    m_pages->outputDocument(document, settings());
}

void QtPrinter::outputImage(const QImage &image)
{
    m_pages->outputImage(image, settings());
}

void QtPrinter::finishJob(bool accepted)
{
    if (m_pages)
        m_pages->finishJob(accepted, jobEnded);
}

} // namespace sd
