#include "source.h"

#include "frame/core/datafiles.h"

#include <QFileInfo>
#include <QRegularExpression>
#include <QStringDecoder>

using namespace Qt::StringLiterals;

namespace sd::data {

QString SourceBlock::text() const
{
    qsizetype first = 0, last = lines.size();
    while (first < last && lines.at(first).trimmed().isEmpty())
        ++first;
    while (last > first && lines.at(last - 1).trimmed().isEmpty())
        --last;
    return lines.mid(first, last - first).join(u'\n');
}

QList<std::pair<int, QString>> SourceBlock::nonBlankLines() const
{
    QList<std::pair<int, QString>> out;
    for (qsizetype i = 0; i < lines.size(); ++i)
        if (!lines.at(i).trimmed().isEmpty())
            out.append({bodyLine + int(i), lines.at(i).trimmed()});
    return out;
}

const SourceField *SourceFile::field(const QString &name) const
{
    for (const SourceField &f : fields)
        if (f.name == name)
            return &f;
    return nullptr;
}

QList<const SourceBlock *> SourceFile::blocksNamed(const QString &name) const
{
    QList<const SourceBlock *> out;
    for (const SourceBlock &b : blocks)
        if (b.name == name)
            out.append(&b);
    return out;
}

QString decodeSource(const QByteArray &bytes)
{
    QStringDecoder utf8(QStringConverter::Utf8, QStringConverter::Flag::Stateless);
    QString text = utf8.decode(bytes);
    if (utf8.hasError())
        text = decodeSingleByte(bytes);
    if (text.startsWith(QChar(0xFEFF)))
        text.remove(0, 1);
    return text;
}

SourceFile parseSource(const QString &path, const QString &text, Problems &problems)
{
    static const QRegularExpression fieldLine(u"^([a-z]+):\\s*(.*)$"_s);
    static const QRegularExpression blockLine(u"^@([a-z]+)\\s*(.*)$"_s);
    SourceFile src;
    src.path = path;
    src.stem = QFileInfo(path).completeBaseName();
    QString all = text;
    all.replace(u"\r\n"_s, u"\n"_s).replace(u'\r', u'\n');
    const QStringList lines = all.split(u'\n');
    for (qsizetype i = 0; i < lines.size(); ++i) {
        const int lineNo = int(i) + 1;
        const QString &line = lines.at(i);
        if (line.startsWith(u'%'))
            continue;
        if (line.startsWith(u'@')) {
            const auto m = blockLine.match(line);
            if (!m.hasMatch()) {
                problems << src.at(lineNo) + u": \"%1\" is not a block name (@passage, @question ...)"_s.arg(line);
                continue;
            }
            src.blocks.append({m.captured(1), m.captured(2).trimmed(), {}, lineNo, lineNo + 1});
            continue;
        }
        if (!src.blocks.isEmpty()) {
            src.blocks.last().lines.append(line);
            continue;
        }
        if (line.trimmed().isEmpty())
            continue;
        const auto m = fieldLine.match(line);
        if (!m.hasMatch()) {
            problems << src.at(lineNo) + u": \"%1\" is neither a field (name: value) nor a block (@name)"_s.arg(line);
            continue;
        }
        if (src.field(m.captured(1))) {
            problems << src.at(lineNo) + u": the field %1 is given twice"_s.arg(m.captured(1));
            continue;
        }
        src.fields.append({m.captured(1), m.captured(2).trimmed(), lineNo});
    }
    return src;
}

bool checkCodePage(const SourceFile &src, const QString &text, Problems &problems)
{
    int line = 1;
    for (qsizetype i = 0; i < text.size(); ++i) {
        const QChar c = text.at(i);
        if (c == u'\n')
            ++line;
        if (c == u'\n' || c == u'\r' || c == u'\t')
            continue;
        bool ok = c.unicode() >= 0x20;
        if (ok)
            encodeSingleByte(QStringView(&c, 1), &ok);
        if (ok)
            continue;
        char32_t code = c.unicode();
        QString shown(c);
        if (c.isHighSurrogate() && i + 1 < text.size()) {
            code = QChar::surrogateToUcs4(c, text.at(i + 1));
            shown = text.mid(i, 2);
        }
        problems << src.at(line)
                        + u": the character U+%1 (%2) is outside the Windows-1252 code page"_s
                              .arg(QString::number(code, 16).toUpper().rightJustified(4, u'0'), shown);
        return false;
    }
    return true;
}

} // namespace sd::data
