#pragma once

#include "checked.h"

#include <QList>
#include <QSize>
#include <QString>
#include <QStringList>

class QImage;
class QTextDocument;

namespace sd {

inline constexpr int TwipsPerInch = 1440;
/// Print quality values of the printer: draft, low, medium, high; a positive value is dots per inch.
inline constexpr int PrintQualityDraft = -1;
inline constexpr int PrintQualityLow = -2;
inline constexpr int PrintQualityMedium = -3;
inline constexpr int PrintQualityHigh = -4;

/// A print command that cannot go on (a word longer than a line, a printer that refuses the job).
class PrintError : public ProgramError
{
public:
    using ProgramError::ProgramError;
};

/// Text-output printer: a current font (name, size, bold), a print quality, a horizontal origin,
/// and lines printed one under the other. A job begins with beginJob() or with the first output
/// and ends with endJob(); pages are the device's business (it starts a new one when a line would
/// pass the bottom margin). Rich-text documents and images start on a page of their own.
class PrinterDevice
{
public:
    virtual ~PrinterDevice() = default;

    /// Chooses where the job goes. False when there is nowhere to print (the student cancelled):
    /// output is then dropped until endJob().
    bool beginJob(const QString &title = {});
    bool jobOpen() const { return m_open; }
    void endJob();

    void setFontName(const QString &name) { m_fontName = name; }
    void setFontSize(int points) { m_fontSize = points; }
    void setBold(bool bold) { m_bold = bold; }
    void setFont(const QString &name, int points, bool bold);
    void setQuality(int quality) { m_quality = quality; }
    /// Lines start this many twips in from the printable left edge.
    void setOriginX(int twips) { m_originX = twips; }

    QString fontName() const { return m_fontName; }
    int fontSize() const { return m_fontSize; }
    bool bold() const { return m_bold; }
    int quality() const { return m_quality; }
    int originX() const { return m_originX; }

    void printLine(const QString &text);
    void printEmptyLine() { printLine(QString()); }
    /// The document's whole formatted content.
    void printDocument(const QTextDocument &document);
    /// A picture (a screen print), fitted to the page.
    void printImage(const QImage &image);

protected:
    /// Picks the destination; false drops the job.
    virtual bool startJob(const QString &title) = 0;
    virtual void outputLine(const QString &text) = 0;
    virtual void outputDocument(const QTextDocument &document) = 0;
    virtual void outputImage(const QImage &image) = 0;
    /// Ends the job; `accepted` tells whether startJob() took it.
    virtual void finishJob(bool accepted) = 0;

private:
    bool ensureJob();

    QString m_fontName = QStringLiteral("Arial");
    int m_fontSize = 12;
    bool m_bold = false;
    int m_quality = PrintQualityHigh;
    int m_originX = 0;
    bool m_open = false;
    bool m_accepted = false;
};

/// One printed line as the printer received it, with the font state it was printed in.
struct PrintedLine
{
    QString text;
    QString fontName;
    int fontSize = 0;
    bool bold = false;
    int originX = 0;
};

/// One job seen by a RecordingPrinter.
struct PrintJob
{
    QString title;
    QList<PrintedLine> lines;
    QStringList documents; ///< plain text of each rich-text document
    QList<QSize> images;
    bool ended = false;

    QStringList texts() const;
};

/// Keeps every job in memory: the printer of tests, and the program's printer until start-up sets
/// the real one.
class RecordingPrinter final : public PrinterDevice
{
public:
    QList<PrintJob> jobs;
    bool refuseJobs = false; ///< behave as a student who cancels the destination

protected:
    bool startJob(const QString &title) override;
    void outputLine(const QString &text) override;
    void outputDocument(const QTextDocument &document) override;
    void outputImage(const QImage &image) override;
    void finishJob(bool accepted) override;
};

} // namespace sd
