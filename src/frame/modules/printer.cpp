// The printing module: pages on a QPrinter (Qt Print Support). Loaded by QtPrinter at the first job.
#include "frame/modules.h"

#include <QAbstractTextDocumentLayout>
#include <QDate>
#include <QImage>
#include <QLocale>
#include <QPainter>
#include <QPrinter>
#include <QPrinterInfo>
#include <QTextDocument>

#include <memory>

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

/// The program's printer: a QPainter on a QPrinter. Jobs go to the default printer without a
/// dialog. A machine without any printer offers to save the job as a PDF file instead; with a
/// fixed PDF file (--print-to) every job of the run goes there, the first to the file itself and
/// later ones to numbered files beside it (out.pdf, out-2.pdf, out-3.pdf ...).
class PagePrinter final : public PageOutput
{
public:
    explicit PagePrinter(PrintOptions options) : m_options(std::move(options)) {}
    ~PagePrinter() override
    {
        if (m_painter.isActive())
            m_painter.end();
    }

    bool startJob(const QString &title) override;
    void outputLine(const QString &text, const PrintSettings &settings) override;
    void outputDocument(const QTextDocument &document, const PrintSettings &settings) override;
    void outputImage(const QImage &image, const PrintSettings &settings) override;
    void finishJob(bool accepted, const std::function<void(const QString &, int)> &jobEnded) override;

private:
    void ensurePainter(int quality);
    void newPage();
    /// Anything further goes on a fresh page.
    void fillPage();
    void drawPageMargins();
    QSizeF pageSize() const;

    PrintOptions m_options;
    std::unique_ptr<QPrinter> m_printer;
    QPainter m_painter;
    QString m_file;
    QString m_title;
    int m_filesWritten = 0;
    int m_pages = 0;
    qreal m_y = 0;
};

bool PagePrinter::startJob(const QString &title)
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

void PagePrinter::ensurePainter(int quality)
{
    if (m_painter.isActive())
        return;
    if (const int dpi = qualityResolution(quality))
        m_printer->setResolution(dpi);
    if (!m_options.printTo.isEmpty()) {
        m_file = numberedPrintFile(m_options.printTo, ++m_filesWritten);
        m_printer->setOutputFormat(QPrinter::PdfFormat);
        m_printer->setOutputFileName(m_file);
    }
    if (!m_painter.begin(m_printer.get()))
        throw PrintError(QStringLiteral("The printer did not accept the job"));
    m_pages = 1;
    m_y = 0;
    drawPageMargins();
}

void PagePrinter::drawPageMargins()
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

QSizeF PagePrinter::pageSize() const
{
    return QSizeF(m_printer->width(), m_printer->height());
}

void PagePrinter::newPage()
{
    if (!m_printer->newPage())
        throw PrintError(QStringLiteral("The printer could not start a new page"));
    ++m_pages;
    m_y = 0;
    drawPageMargins();
}

void PagePrinter::fillPage()
{
    m_y = pageSize().height();
}

void PagePrinter::outputLine(const QString &text, const PrintSettings &settings)
{
    ensurePainter(settings.quality);
    QFont font(settings.fontName);
    font.setPointSize(settings.fontSize);
    font.setBold(settings.bold);
    const QFontMetricsF metrics(font, m_printer.get());
    if (m_y > 0 && m_y + metrics.height() > pageSize().height())
        newPage();
    m_painter.setFont(font);
    const qreal x = settings.originX * m_printer->logicalDpiX() / qreal(TwipsPerInch);
    m_painter.drawText(QPointF(x, m_y + metrics.ascent()), printable(text));
    m_y += metrics.lineSpacing();
}

void PagePrinter::outputDocument(const QTextDocument &document, const PrintSettings &settings)
{
    ensurePainter(settings.quality);
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

void PagePrinter::outputImage(const QImage &image, const PrintSettings &settings)
{
    ensurePainter(settings.quality);
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

void PagePrinter::finishJob(bool accepted, const std::function<void(const QString &, int)> &jobEnded)
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

} // namespace

} // namespace sd

extern "C" Q_DECL_EXPORT sd::PageOutput *studydesk_create_page_output(const sd::PrintOptions &options)
{
    return new sd::PagePrinter(options);
}
