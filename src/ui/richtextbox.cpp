#include "ui/richtextbox.h"

#include "ui/files/datapath.h"
#include "ui/rtf/rtfreader.h"

#include <QPagedPaintDevice>
#include <QTextDocument>

namespace sd {

RichTextBox::RichTextBox(QWidget *parent)
    : QTextEdit(parent)
{
    setReadOnly(true);
    setUndoRedoEnabled(false);
    setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
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
