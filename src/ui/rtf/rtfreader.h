// Reads RTF, as written by word processors from WordPad to LibreOffice, into a QTextDocument.
#pragma once

#include <QByteArray>
#include <QString>

class QImage;
class QTextDocument;

namespace sd::rtf {

struct ReadResult {
    bool ok = false;       // false: nothing could be shown, the document is left empty
    bool partial = false;  // true: the file is damaged and the document holds what could be read
    QString message;       // why, for the log or the screen; empty when all went well
};

// Replaces the document's content. Never throws; bad input gives ok == false or partial == true.
ReadResult readRtf(const QByteArray &data, QTextDocument &doc);
ReadResult readRtfFile(const QString &path, QTextDocument &doc);

// The text alone, as the document readRtf fills would give it from toPlainText(), read many times
// faster: no formats, layout or document are made, and pictures are only looked at, not decoded
// (one damaged past its header stands as a picture here and as "[picture]" in a document).
// Empty when the result is not ok.
ReadResult readRtfText(const QByteArray &data, QString *text);
ReadResult readRtfTextFile(const QString &path, QString *text);

// Decodes a picture only when the size its header gives is within the limit for pictures: a small
// file can claim a huge bitmap. A null image otherwise; *tooLarge says which (may be null).
QImage decodePicture(const QByteArray &data, const char *format = nullptr, bool *tooLarge = nullptr);
// The same test on the header alone, without decoding: true when the header reads and the size
// it gives is within the limit. The text-only reader counts such a picture as one.
bool pictureHeaderFits(const QByteArray &data, const char *format = nullptr, bool *tooLarge = nullptr);

} // namespace sd::rtf
