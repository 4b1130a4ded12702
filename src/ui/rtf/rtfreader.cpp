#include "ui/rtf/rtfreader.h"

#include "ui/rtf/rtfparser.h"

#include <QFile>
#include <QTextCursor>
#include <QTextDocument>

using namespace Qt::StringLiterals;

namespace sd::rtf {

namespace {
// Passages and question sheets are a few hundred kilobytes; anything this big is not one.
constexpr qint64 kMaxFileSize = 256LL * 1024 * 1024;
} // namespace

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

ReadResult readRtfFile(const QString &path, QTextDocument &doc)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        doc.clear();
        return {false, false, u"Cannot open %1: %2"_s.arg(path, file.errorString())};
    }
    if (file.size() > kMaxFileSize) {
        doc.clear();
        return {false, false, u"%1 is too large to be a text file."_s.arg(path)};
    }
    return readRtf(file.readAll(), doc);
}

} // namespace sd::rtf
