#pragma once

#include <QTextEdit>

class QPagedPaintDevice;
class QTextDocument;

namespace sd {

/// Sets every explicitly sized piece of text of the document to its size as written times `factor`
/// (the sizes as written are kept in the formats, so repeated calls never drift). Text without a size
/// of its own follows the box's font.
void scaleDocumentText(QTextDocument *doc, qreal factor);

/// Read-only box for an RTF passage, question sheet or help topic.
class RichTextBox : public QTextEdit
{
    Q_OBJECT

public:
    explicit RichTextBox(QWidget *parent = nullptr);

    /// Shows the file. False, with the box left empty, when it is missing or not readable RTF;
    /// a damaged file whose first part can be read is shown and counts as loaded.
    bool loadFile(const QString &path);
    /// Loads `name` from the data directory `dataDir` through the data-file resolver.
    bool loadDataFile(const QString &dataDir, const QString &name);
    /// Shows a plain message in place of a document.
    void setPlainMessage(const QString &message);
    /// Prints the whole content, not only what is scrolled into view (a QPrinter will do).
    void printTo(QPagedPaintDevice *device) const;

    /// What went wrong in the last loadFile, for the log; empty when it all went well.
    QString lastMessage() const { return m_lastMessage; }
    /// Text sizes follow the window and the student's text size: `factor` times the sizes as written.
    void setTextScale(qreal factor);

private:
    QString m_lastMessage;
    qreal m_textScale = 1.0;
};

} // namespace sd
