// The human-editable source of one exercise: `field: value` lines, then `@` blocks of Markdown.
#pragma once

#include <QList>
#include <QString>
#include <QStringList>

namespace sd::data {

/// One complaint, already placed: "content/rcmc/101.md:12: ..." or "pracrcmc.dat: key 101: ...".
using Problems = QStringList;

struct SourceField
{
    QString name;
    QString value;
    int line = 0;
};

struct SourceBlock
{
    QString name;      ///< "passage", "section" ...
    QString args;      ///< the rest of the `@` line: "A -> 3"
    QStringList lines; ///< body lines, author notes removed
    int line = 0;      ///< line of the `@` line
    int bodyLine = 0;  ///< line of the first body line

    /// The body with leading and trailing blank lines removed.
    QString text() const;
    /// Non-blank body lines with their line numbers.
    QList<std::pair<int, QString>> nonBlankLines() const;
};

struct SourceFile
{
    QString path; ///< as shown in messages
    QString stem; ///< file name without ".md": the key
    QList<SourceField> fields;
    QList<SourceBlock> blocks;

    const SourceField *field(const QString &name) const;
    QList<const SourceBlock *> blocksNamed(const QString &name) const;
    QString at(int line) const { return QStringLiteral("%1:%2").arg(path).arg(line); }
};

/// Decodes a source file: UTF-8, or Windows-1252 when the bytes are not valid UTF-8.
QString decodeSource(const QByteArray &bytes);

/// Parses the text of a source file. Lines before the first block are fields; anything else there
/// is a problem. Lines starting with '%' are notes and vanish everywhere.
SourceFile parseSource(const QString &path, const QString &text, Problems &problems);

/// Every character of the text is in the Windows-1252 code page; otherwise reports the first
/// offending character with its line.
bool checkCodePage(const SourceFile &src, const QString &text, Problems &problems);

} // namespace sd::data
