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

ReadResult readRtfText(const QByteArray &data, QString *text)
{
    Parser parser;
    const ReadResult result = parser.run(data);
    *text = result.ok ? parser.text() : QString();
    return result;
}

ReadResult readRtfTextFile(const QString &path, QString *text)
{
    const FileBytes file = readBounded(path, MaxRtfBytes);
    if (!file.ok()) {
        text->clear();
        return {false, false, file.reason};
    }
    return readRtfText(file.bytes, text);
}

namespace {
/// Reads the picture's header; true when the size it gives is within the limit. Decodes the
/// picture into *image when one is given.
bool readPicture(const QByteArray &data, const char *format, bool *tooLarge, QImage *image)
{
    QBuffer buffer;
    buffer.setData(data);
    buffer.open(QIODevice::ReadOnly);
    QImageReader reader(&buffer, format);
    const QSize size = reader.size();
    const bool over = size.isValid() && qint64(size.width()) * size.height() > MaxPicturePixels;
    if (tooLarge)
        *tooLarge = over;
    if (over)
        return false;
    if (image)
        *image = reader.read();
    return size.isValid();
}
} // namespace

QImage decodePicture(const QByteArray &data, const char *format, bool *tooLarge)
{
    QImage image;
    readPicture(data, format, tooLarge, &image);
    return image;
}

bool pictureHeaderFits(const QByteArray &data, const char *format, bool *tooLarge)
{
    return readPicture(data, format, tooLarge, nullptr);
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
