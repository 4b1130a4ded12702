// The Writing sources (folder `comp`): composition titles, task sheets, test sheets and questions,
// sample compositions. They become praccomp.dat and the .htm, .rtf and .png files the screens open.
#pragma once

#include "kinds.h"

#include <QDir>

namespace sd::data {

struct WritingBuild
{
    QList<QStringList> records; ///< praccomp.dat in order: ten titles of each type, then x01 ...
    QList<BuiltFile> files;
};

/// The composition type codes in type order ("leta" ... "book").
const QStringList &compositionTypeCodes();

/// Reads every file of `dir` (the `comp` folder). `comments.md` is the program's own text and is
/// skipped. Problems are placed by file and line.
bool buildWriting(const QDir &dir, const QString &shownDir, WritingBuild *out, Problems &problems);

/// An SVG picture as PNG, at twice the size of its view box; false with a reason when the drawing
/// reaches outside itself (scripts, links, embedded pictures) or cannot be drawn.
bool renderPicture(const QByteArray &svg, QImage *out, QString *reason);

} // namespace sd::data
