#include "ui/richtextbox.h"

#include "ui/files/datapath.h"
#include "ui/rtf/rtfreader.h"

#include <QPagedPaintDevice>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>

#include <algorithm>

namespace sd {

RichTextBox::RichTextBox(QWidget *parent)
    : QTextEdit(parent)
{
    setReadOnly(true);
    setUndoRedoEnabled(false);
    setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    // Text to read, not to edit: no blinking cursor (the keys still scroll and select).
    setCursorWidth(0);
}

namespace {
constexpr int WrittenSize = QTextFormat::UserProperty + 1;
}

void scaleDocumentText(QTextDocument *doc, qreal factor)
{
    struct Piece
    {
        int position, length;
        QTextCharFormat format;
    };
    QList<Piece> pieces;
    for (QTextBlock b = doc->begin(); b.isValid(); b = b.next()) {
        for (auto it = b.begin(); !it.atEnd(); ++it) {
            const QTextFragment f = it.fragment();
            if (!f.isValid())
                continue;
            QTextCharFormat fmt = f.charFormat();
            qreal written = fmt.doubleProperty(WrittenSize);
            if (written <= 0) {
                if (!fmt.hasProperty(QTextFormat::FontPointSize))
                    continue;
                written = fmt.fontPointSize();
                fmt.setProperty(WrittenSize, written);
            }
            fmt.setFontPointSize(std::max(4.0, written * factor));
            pieces.append({f.position(), f.length(), fmt});
        }
    }
    const bool undo = doc->isUndoRedoEnabled();
    doc->setUndoRedoEnabled(false);
    QTextCursor c(doc);
    c.beginEditBlock();
    for (const Piece &p : std::as_const(pieces)) {
        c.setPosition(p.position);
        c.setPosition(p.position + p.length, QTextCursor::KeepAnchor);
        c.setCharFormat(p.format);
    }
    c.endEditBlock();
    doc->setUndoRedoEnabled(undo);
    doc->setModified(false);
}

void RichTextBox::setTextScale(qreal factor)
{
    if (qFuzzyCompare(factor, m_textScale))
        return;
    m_textScale = factor;
    scaleDocumentText(document(), factor);
}

bool RichTextBox::loadFile(const QString &path)
{
    const rtf::ReadResult result = rtf::readRtfFile(path, *document());
    m_lastMessage = result.message;
    // A file that reads as nothing at all is no passage: say so rather than show an empty page.
    const bool empty = result.ok && document()->toPlainText().trimmed().isEmpty();
    if (empty)
        m_lastMessage = QStringLiteral("The file holds no text.");
    if (!result.ok || empty) {
        clear();
        return false;
    }
    if (!qFuzzyCompare(m_textScale, 1.0))
        scaleDocumentText(document(), m_textScale);
    moveCursor(QTextCursor::Start);
    return true;
}

bool RichTextBox::loadDataFile(const QString &dataDir, const QString &name)
{
    const DataPath p = resolveDataFile(dataDir, name);
    if (!p.ok()) {
        m_lastMessage = p.reason;
        clear();
        return false;
    }
    return loadFile(p.path);
}

void RichTextBox::setPlainMessage(const QString &message)
{
    m_lastMessage.clear();
    setPlainText(message);
}

void RichTextBox::printTo(QPagedPaintDevice *device) const
{
    if (device)
        document()->print(device);
}

} // namespace sd
