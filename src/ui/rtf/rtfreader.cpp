#include "ui/rtf/rtfreader.h"

#include "ui/files/datapath.h"
#include "ui/rtf/rtfparser.h"

#include <QBuffer>
#include <QImage>
#include <QImageReader>
#include <QTextCursor>
#include <QTextDocument>

using namespace Qt::StringLiterals;

namespace sd::rtf {

ReadResult readRtf(const QByteArray &data, QTextDocument &doc)
{
    doc.clear();
    const bool undo = doc.isUndoRedoEnabled();
    doc.setUndoRedoEnabled(false); // the undo stack would copy every insertion
    ReadResult result;
    {
        // One edit block: a laid-out document would otherwise re-lay a paragraph at every insertion.
        QTextCursor editBlock(&doc);
        editBlock.beginEditBlock();
        Parser parser(doc);
        result = parser.run(data);
        editBlock.endEditBlock();
    }
    if (!result.ok)
        doc.clear();
    doc.setUndoRedoEnabled(undo);
    doc.setModified(false);
    return result;
}

QImage decodePicture(const QByteArray &data, const char *format, bool *tooLarge)
{
    QBuffer buffer;
    buffer.setData(data);
    buffer.open(QIODevice::ReadOnly);
    QImageReader reader(&buffer, format);
    const QSize size = reader.size();
    const bool over = size.isValid() && qint64(size.width()) * size.height() > MaxPicturePixels;
    if (tooLarge)
        *tooLarge = over;
    return over ? QImage() : reader.read();
}

ReadResult readRtfFile(const QString &path, QTextDocument &doc)
{
    const FileBytes file = readBounded(path, MaxRtfBytes);
    if (!file.ok()) {
        doc.clear();
        return {false, false, file.reason};
    }
    return readRtf(file.bytes, doc);
}

} // namespace sd::rtf
