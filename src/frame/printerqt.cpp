#include "printerqt.h"

#include <QAbstractTextDocumentLayout>
#include <QApplication>
#include <QDate>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QImage>
#include <QLocale>
#include <QPrinter>
#include <QPrinterInfo>
#include <QStandardPaths>
#include <QTextDocument>

namespace sd {

namespace {
/// Dots per inch of each print quality below high (high keeps the printer's own resolution).
int qualityResolution(int quality)
{
    switch (quality) {
    case PrintQualityDraft: return 96;
    case PrintQualityLow: return 150;
    case PrintQualityMedium: return 300;
    default: return quality > 0 ? quality : 0;
    }
}

/// Control characters (the line feed the titles list leaves at the start of a line) are not drawn.
QString printable(const QString &text)
{
    QString out;
    out.reserve(text.size());
    for (const QChar c : text)
        if (c.category() != QChar::Other_Control)
            out += c;
    return out;
}

QPrinterInfo systemPrinter()
{
    QPrinterInfo info = QPrinterInfo::defaultPrinter();
    if (info.isNull()) {
        const QList<QPrinterInfo> all = QPrinterInfo::availablePrinters();
        if (!all.isEmpty())
            info = all.first();
    }
    return info;
}
} // namespace

QtPrinter::QtPrinter(Options options) : m_options(std::move(options)) {}

QtPrinter::~QtPrinter()
{
    if (m_painter.isActive())
        m_painter.end();
}

QString QtPrinter::numberedFile(const QString &base, int n)
{
    if (n <= 1)
        return base;
    const QString suffix = QFileInfo(base).suffix();
    if (suffix.isEmpty())
        return base + QStringLiteral("-%1").arg(n);
    return base.chopped(suffix.size() + 1) + QStringLiteral("-%1.").arg(n) + suffix;
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

bool QtPrinter::startJob(const QString &title)
{
    m_file.clear();
    m_pages = 0;
    m_y = 0;
    QPrinterInfo target;
    QString chosen;
    if (m_options.printTo.isEmpty()) {
        if (m_options.usePrinters)
            target = systemPrinter();
        if (target.isNull()) {
            chosen = m_options.choosePdf ? m_options.choosePdf() : QString();
            if (chosen.isEmpty())
                return false;
        }
    }
    m_printer = target.isNull() ? std::make_unique<QPrinter>(QPrinter::HighResolution)
                                : std::make_unique<QPrinter>(target, QPrinter::HighResolution);
    m_printer->setDocName(title.isEmpty() ? QStringLiteral("StudyDesk") : title);
    m_title = title.isEmpty() ? QStringLiteral("StudyDesk") : title;
    m_printer->setCreator(QStringLiteral("StudyDesk"));
    if (!chosen.isEmpty()) {
        m_printer->setOutputFormat(QPrinter::PdfFormat);
        m_printer->setOutputFileName(chosen);
        m_file = chosen;
    }
    return true;
}

void QtPrinter::ensurePainter()
{
    if (m_painter.isActive())
        return;
    if (const int dpi = qualityResolution(quality()))
        m_printer->setResolution(dpi);
    if (!m_options.printTo.isEmpty()) {
        m_file = numberedFile(m_options.printTo, ++m_filesWritten);
        m_printer->setOutputFormat(QPrinter::PdfFormat);
        m_printer->setOutputFileName(m_file);
    }
    if (!m_painter.begin(m_printer.get()))
        throw PrintError(QStringLiteral("The printer did not accept the job"));
    m_pages = 1;
    m_y = 0;
    drawPageMargins();
}

void QtPrinter::drawPageMargins()
{
    // In the margins, outside the text: what the page is, when it was printed, and its number.
    const QRectF paper = m_printer->paperRect(QPrinter::DevicePixel);
    const QRectF page = m_printer->pageRect(QPrinter::DevicePixel);
    const qreal top = page.top() - paper.top();
    const qreal bottom = paper.bottom() - page.bottom();
    if (top <= 0 || bottom <= 0)
        return;
    m_painter.save();
    QFont font(QStringLiteral("Arial"));
    font.setPointSize(8);
    m_painter.setFont(font);
    m_painter.setPen(QColor(80, 80, 80));
    const QFontMetricsF metrics(font, m_printer.get());
    const qreal width = page.width();
    const QString header = m_title + QStringLiteral("  \u00B7  ") + QLocale().toString(QDate::currentDate(), QLocale::LongFormat);
    m_painter.drawText(QRectF(0, -top / 2 - metrics.height() / 2, width, metrics.height()), Qt::AlignLeft, header);
    m_painter.drawText(QRectF(0, page.height() + bottom / 2 - metrics.height() / 2, width, metrics.height()),
                       Qt::AlignHCenter, QStringLiteral("Page %1").arg(m_pages));
    m_painter.restore();
}

QSizeF QtPrinter::pageSize() const
{
    return QSizeF(m_printer->width(), m_printer->height());
}

void QtPrinter::newPage()
{
    if (!m_printer->newPage())
        throw PrintError(QStringLiteral("The printer could not start a new page"));
    ++m_pages;
    m_y = 0;
    drawPageMargins();
}

void QtPrinter::fillPage()
{
    m_y = pageSize().height();
}

void QtPrinter::outputLine(const QString &text)
{
    ensurePainter();
    QFont font(fontName());
    font.setPointSize(fontSize());
    font.setBold(bold());
    const QFontMetricsF metrics(font, m_printer.get());
    if (m_y > 0 && m_y + metrics.height() > pageSize().height())
        newPage();
    m_painter.setFont(font);
    const qreal x = originX() * m_printer->logicalDpiX() / qreal(TwipsPerInch);
    m_painter.drawText(QPointF(x, m_y + metrics.ascent()), printable(text));
    m_y += metrics.lineSpacing();
}

void QtPrinter::outputDocument(const QTextDocument &document)
{
    ensurePainter();
    if (m_y > 0)
        newPage();
    // Laid out again on the printer itself, page by page, as QTextDocument::print does.
    const std::unique_ptr<QTextDocument> copy(document.clone());
    copy->documentLayout()->setPaintDevice(m_printer.get());
    const QSizeF page = pageSize();
    copy->setPageSize(page);
    const int count = copy->pageCount();
    for (int i = 0; i < count; ++i) {
        if (i > 0)
            newPage();
        const QRectF view(0, i * page.height(), page.width(), page.height());
        m_painter.save();
        m_painter.translate(0, -view.top());
        m_painter.setClipRect(view);
        QAbstractTextDocumentLayout::PaintContext context;
        context.clip = view;
        context.palette.setColor(QPalette::Text, Qt::black);
        copy->documentLayout()->draw(&m_painter, context);
        m_painter.restore();
    }
    fillPage();
}

void QtPrinter::outputImage(const QImage &image)
{
    ensurePainter();
    if (m_y > 0)
        newPage();
    // Screen pixels at 96 per inch, made smaller when the picture would not fit the page.
    QSizeF size = QSizeF(image.size()) * (m_printer->logicalDpiX() / 96.0);
    const QSizeF page = pageSize();
    if (size.width() > page.width() || size.height() > page.height())
        size.scale(page, Qt::KeepAspectRatio);
    m_painter.drawImage(QRectF(QPointF(0, 0), size), image);
    fillPage();
}

void QtPrinter::finishJob(bool accepted)
{
    QString file;
    int pages = 0;
    bool written = true;
    if (accepted && m_painter.isActive()) {
        written = m_painter.end();
        file = m_file;
        pages = m_pages;
    }
    m_printer.reset();
    if (!written)
        throw PrintError(QStringLiteral("The printer could not finish the job"));
    if (jobEnded)
        jobEnded(file, pages);
}

} // namespace sd
