// Use of English kinds: multiple-choice cloze, open cloze, error correction.

#include "kinds.h"

#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace sd::data {

bool convertCloze(Converter &c, Exercise &ex)
{
    static const QRegularExpression gapLine(u"^(\\d+)\\.\\s+(.+)$"_s);
    static const QRegularExpression marker(u"\\[(\\d+)\\]"_s);
    const bool choice = ex.file == DataFile::Ueca;
    c.expect({u"key"_s, u"title"_s}, {u"passage"_s, u"gaps"_s});
    const QString title = c.field(u"title"_s);
    const SourceBlock *passage = c.single(u"passage"_s);
    const SourceBlock *gaps = c.single(u"gaps"_s);
    if (!passage || !gaps)
        return false;

    int markers = 0;
    for (qsizetype i = 0; i < passage->lines.size(); ++i) {
        auto it = marker.globalMatch(passage->lines.at(i));
        while (it.hasNext()) {
            const auto m = it.next();
            if (m.captured(1).toInt() != markers + 1)
                c.error(passage->bodyLine + int(i), u"gap [%1] out of order: [%2] comes next"_s.arg(m.captured(1)).arg(markers + 1));
            ++markers;
        }
    }

    const auto lines = gaps->nonBlankLines();
    int number = 0;
    for (const auto &[lineNo, line] : lines) {
        const auto m = c.line(lineNo, line, gapLine,
                              choice ? u"a gap \"1. right / wrong / wrong / wrong\""_s : u"a gap \"1. answer / answer\""_s);
        if (!m.hasMatch())
            continue;
        ++number;
        if (m.captured(1).toInt() != number)
            c.error(lineNo, u"gap %1 out of order: %2 comes next"_s.arg(m.captured(1)).arg(number));
        QStringList parts;
        for (const QString &p : m.captured(2).split(u'/'))
            parts << p.trimmed();
        if (parts.contains(QString()))
            c.error(lineNo, u"an empty answer between \"/\""_s);
        if (choice && (parts.size() < 3 || parts.size() > 4))
            c.error(lineNo, u"%1 words; a gap has the right word and two or three wrong ones"_s.arg(parts.size()));
        if (!choice && parts.size() > 4)
            c.error(lineNo, u"%1 answers; a gap accepts at most four"_s.arg(parts.size()));
        if (number > 15) {
            c.error(lineNo, u"more than 15 gaps"_s);
            break;
        }
        while (parts.size() < 4)
            parts << QString();
        setField(ex, QStringLiteral("Item%1").arg(number).toLatin1().constData(), parts.mid(0, 4).join(u'/'));
    }
    if (number != markers)
        c.error(gaps->line, u"%1 gaps listed, but the passage marks %2"_s.arg(number).arg(markers));
    if (number < 10 || number > 15)
        c.error(gaps->line, u"%1 gaps; a cloze passage has 10 to 15"_s.arg(number));
    if (c.failed())
        return false;

    const QString base = c.base(ex.file);
    StyledDocument doc(title);
    doc.markdown(markInlineGaps(passage->text()));
    c.addDocument(ex, base, doc);
    setField(ex, "Name", base);
    setField(ex, "Title", title);
    return true;
}

bool convertErrorCorrection(Converter &c, Exercise &ex)
{
    constexpr qsizetype kWidestLine = 80;
    static const QRegularExpression bracket(u"\\[([^\\]]*)\\]"_s);
    static const QRegularExpression oneWord(u"^[^\\s\\[\\],]+$"_s);
    c.expect({u"key"_s, u"title"_s}, {u"lines"_s});
    const QString title = c.field(u"title"_s);
    const SourceBlock *block = c.single(u"lines"_s);
    if (!block)
        return false;

    const QStringList lines = block->text().split(u'\n');
    int first = block->bodyLine; // line number of the first text line
    for (const QString &l : block->lines) {
        if (!l.trimmed().isEmpty())
            break;
        ++first;
    }
    if (lines.size() != 15)
        c.error(block->line, u"%1 lines; error correction has 15"_s.arg(lines.size()));
    QStringList text;
    int correct = 0;
    for (qsizetype i = 0; i < lines.size() && i < 15; ++i) {
        const int lineNo = first + int(i);
        QString line = lines.at(i);
        if (line.trimmed().isEmpty())
            c.error(lineNo, u"a blank line; every one of the 15 lines holds text"_s);
        QList<QRegularExpressionMatch> found;
        for (auto it = bracket.globalMatch(line); it.hasNext();)
            found << it.next();
        if (found.size() > 1)
            c.error(lineNo, u"%1 words in brackets; a line has at most one extra word"_s.arg(found.size()));
        if (found.isEmpty()) {
            ++correct;
        } else {
            const QString word = found.first().captured(1);
            if (!oneWord.match(word).hasMatch())
                c.error(lineNo, u"\"[%1]\": one word in brackets expected"_s.arg(word));
            setField(ex, QStringLiteral("Item%1").arg(i + 1).toLatin1().constData(), word);
            line.replace(found.first().capturedStart(), found.first().capturedLength(), word);
        }
        text << line.trimmed();
        if (text.last().size() > kWidestLine)
            c.error(lineNo, u"%1 characters; a line of at most %2 fits the screen"_s.arg(text.last().size()).arg(kWidestLine));
    }
    if (correct < 3 || correct > 5)
        c.error(block->line, u"%1 correct lines; three to five lines have no extra word"_s.arg(correct));
    if (c.failed())
        return false;

    QByteArray bytes;
    const QString name = c.base(ex.file);
    if (!windowsText(text.join(u"\r\n"_s) + u"\r\n"_s, &bytes))
        c.error(block->line, u"text outside the Windows-1252 code page"_s);
    ex.files << BuiltFile{name + u".txt"_s, bytes};
    setField(ex, "Name", name);
    setField(ex, "Title", title);
    return !c.failed();
}

} // namespace sd::data
