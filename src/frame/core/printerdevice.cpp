#include "printerdevice.h"

#include <QImage>
#include <QTextDocument>

namespace sd {

bool PrinterDevice::beginJob(const QString &title)
{
    if (m_open)
        return m_accepted;
    m_open = true;
    m_accepted = startJob(title);
    return m_accepted;
}

bool PrinterDevice::ensureJob()
{
    return m_open ? m_accepted : beginJob();
}

void PrinterDevice::endJob()
{
    if (!m_open)
        return;
    m_open = false;
    finishJob(m_accepted);
}

void PrinterDevice::setFont(const QString &name, int points, bool bold)
{
    setFontName(name);
    setFontSize(points);
    setBold(bold);
}

void PrinterDevice::printLine(const QString &text)
{
    if (ensureJob())
        outputLine(text);
}

void PrinterDevice::printDocument(const QTextDocument &document)
{
    if (ensureJob())
        outputDocument(document);
}

void PrinterDevice::printImage(const QImage &image)
{
    if (ensureJob())
        outputImage(image);
}

QStringList PrintJob::texts() const
{
    QStringList out;
    for (const PrintedLine &l : lines)
        out.append(l.text);
    return out;
}

bool RecordingPrinter::startJob(const QString &title)
{
    if (refuseJobs)
        return false;
    jobs.append(PrintJob{title, {}, {}, {}, false});
    return true;
}

void RecordingPrinter::outputLine(const QString &text)
{
    jobs.last().lines.append(PrintedLine{text, fontName(), fontSize(), bold(), originX()});
}

void RecordingPrinter::outputDocument(const QTextDocument &document)
{
    jobs.last().documents.append(document.toPlainText());
}

void RecordingPrinter::outputImage(const QImage &image)
{
    jobs.last().images.append(image.size());
}

void RecordingPrinter::finishJob(bool accepted)
{
    if (accepted)
        jobs.last().ended = true;
}

} // namespace sd
