// Writes a QTextDocument as RTF 1.x for word processors and for our own reader.
#pragma once

#include <QByteArray>

class QTextDocument;

namespace sd::rtf {

// ANSI code page 1252: \'hh for its upper half and \uN? for anything 1252 lacks.
QByteArray writeRtf(const QTextDocument &doc);

} // namespace sd::rtf
