#pragma once

#include <QTextEdit>

class QPagedPaintDevice;

namespace sd {

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

private:
    QString m_lastMessage;
};

} // namespace sd
