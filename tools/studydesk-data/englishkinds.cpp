// Use of English kinds: multiple-choice cloze, open cloze, sentence conversion, error correction,
// word formation.

#include "kinds.h"

#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace sd::data {

namespace {

const QRegularExpression &numberedLine()
{
    static const QRegularExpression re(u"^(\\d+)\\.\\s+(.+)$"_s);
    return re;
}

/// Counts the gap markers [1], [2] ... of a passage, complaining at any out of order.
int countGapMarkers(Converter &c, const SourceBlock &passage)
{
    static const QRegularExpression marker(u"\\[(\\d+)\\]"_s);
    int markers = 0;
    for (qsizetype i = 0; i < passage.lines.size(); ++i) {
        auto it = marker.globalMatch(passage.lines.at(i));
        while (it.hasNext()) {
            const auto m = it.next();
            if (m.captured(1).toInt() != markers + 1)
                c.error(passage.bodyLine + int(i), u"gap [%1] out of order: [%2] comes next"_s.arg(m.captured(1)).arg(markers + 1));
            ++markers;
        }
    }
    return markers;
}

/// The texts between "/" of a source line, trimmed; an empty one is a complaint.
QStringList slashParts(Converter &c, int lineNo, const QString &text)
{
    QStringList parts;
    for (const QString &p : text.split(u'/'))
        parts << p.trimmed();
    if (parts.contains(QString()))
        c.error(lineNo, u"an empty answer between \"/\""_s);
    return parts;
}

QStringList padded(QStringList parts, int size)
{
    while (parts.size() < size)
        parts << QString();
    return parts.mid(0, size);
}

} // namespace

bool convertCloze(Converter &c, Exercise &ex)
{
    const QRegularExpression &gapLine = numberedLine();
    const bool choice = ex.file == DataFile::Ueca;
    c.expect({u"key"_s, u"title"_s}, {u"passage"_s, u"gaps"_s});
    const QString title = c.field(u"title"_s);
    const SourceBlock *passage = c.single(u"passage"_s);
    const SourceBlock *gaps = c.single(u"gaps"_s);
    if (!passage || !gaps)
        return false;

    const int markers = countGapMarkers(c, *passage);
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
        const QStringList parts = slashParts(c, lineNo, m.captured(2));
        if (choice && (parts.size() < 3 || parts.size() > 4))
            c.error(lineNo, u"%1 words; a gap has the right word and two or three wrong ones"_s.arg(parts.size()));
        if (!choice && parts.size() > 4)
            c.error(lineNo, u"%1 answers; a gap accepts at most four"_s.arg(parts.size()));
        if (number > 15) {
            c.error(lineNo, u"more than 15 gaps"_s);
            break;
        }
        setField(ex, QStringLiteral("Item%1").arg(number).toLatin1().constData(), padded(parts, 4).join(u'/'));
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

namespace {

constexpr int kMostItems = 20;       // the one-item screens' lists hold 20
constexpr int kTestItems = 10;       // a test section is scored out of ten
constexpr qsizetype kWidestSentence = 119; // a 120-character field keeps one blank
const QString kWordGap = u".........."_s; // the gap of a word-formation sentence

/// A first sentence or a word-formation sentence: complains when it is too long for its field.
void checkSentenceLength(Converter &c, int lineNo, const QString &sentence)
{
    if (sentence.size() > kWidestSentence)
        c.error(lineNo, u"a sentence of %1 characters; at most %2 fit"_s.arg(sentence.size()).arg(kWidestSentence));
}

/// The item count of a one-item exercise: 1 to 20 in practice, exactly 10 in a test.
void checkItemCount(Converter &c, const Exercise &ex, int count, int line, const QString &what)
{
    if (count == 0)
        c.error(line, u"no %1; an exercise has at least one"_s.arg(what));
    else if (ex.key.startsWith(u'x') && count != kTestItems)
        c.error(line, u"%1 %2; a test has %3"_s.arg(count).arg(what).arg(kTestItems));
    else if (count > kMostItems)
        c.error(line, u"%1 %2; an exercise has at most %3"_s.arg(count).arg(what).arg(kMostItems));
}

/// The word given appears in the answer; a contraction counts as its full form ("'d" as "had"
/// or "would").
bool usesWord(const QString &answer, const QString &word)
{
    static const std::array<std::pair<QString, QString>, 6> full{{{u"n't"_s, u" not"_s},
                                                                   {u"'d"_s, u" had would"_s},
                                                                   {u"'ve"_s, u" have"_s},
                                                                   {u"'ll"_s, u" will"_s},
                                                                   {u"'re"_s, u" are"_s},
                                                                   {u"'m"_s, u" am"_s}}};
    QString text = answer.toLower();
    for (const auto &[contracted, words] : full)
        text.replace(contracted, words);
    const QRegularExpression whole(u"\\b"_s + QRegularExpression::escape(word.toLower()) + u"\\b"_s);
    return whole.match(text).hasMatch();
}

} // namespace

bool convertConversion(Converter &c, Exercise &ex)
{
    static const QRegularExpression bracket(u"\\[([^\\]]*)\\]"_s);
    static const QRegularExpression oneWord(u"^[A-Za-z']+$"_s);
    c.expect({u"key"_s, u"title"_s}, {u"item"_s});
    c.field(u"title"_s);
    const auto items = c.src().blocksNamed(u"item"_s);
    checkItemCount(c, ex, int(items.size()), 0, u"@item blocks"_s);
    for (const SourceBlock *item : items) {
        const QString word = item->args.trimmed();
        if (!oneWord.match(word).hasMatch())
            c.error(item->line, u"\"@item %1\": the word given, one word, expected after @item"_s.arg(word));
        const auto lines = item->nonBlankLines();
        if (lines.size() != 2) {
            c.error(item->line, u"%1 lines; an item has the first sentence, then the second with its gap in brackets"_s
                                    .arg(lines.size()));
            continue;
        }
        const auto &[firstLine, first] = lines.at(0);
        const auto &[secondLine, second] = lines.at(1);
        checkSentenceLength(c, firstLine, first.trimmed());
        QList<QRegularExpressionMatch> found;
        for (auto it = bracket.globalMatch(second); it.hasNext();)
            found << it.next();
        if (found.size() != 1) {
            c.error(secondLine, u"%1 gaps in brackets; the second sentence has one"_s.arg(found.size()));
            continue;
        }
        const QStringList answers = slashParts(c, secondLine, found.first().captured(1));
        if (answers.size() > 4)
            c.error(secondLine, u"%1 answers; an item accepts at most four"_s.arg(answers.size()));
        for (const QString &a : answers) {
            if (a.split(u' ', Qt::SkipEmptyParts).size() > 5)
                c.error(secondLine, u"\"%1\" is more than five words"_s.arg(a));
            if (!a.isEmpty() && !usesWord(a, word))
                c.error(secondLine, u"\"%1\" does not use the word given, %2"_s.arg(a, word));
        }
        QStringList record(dataFileInfo(DataFile::Uesc).layout.fieldCount);
        record[0] = ex.key;
        record[1] = first.trimmed();
        record[2] = second.left(found.first().capturedStart()).trimmed();
        record[3] = second.mid(found.first().capturedEnd()).trimmed();
        record[4] = word;
        const QStringList four = padded(answers, 4);
        for (int i = 0; i < 4; ++i)
            record[5 + i] = four.at(i);
        ex.records << record;
    }
    return !c.failed();
}

namespace {

/// The practice sentences of a word-formation exercise: a file "wb" & key of its own.
void convertWordSentences(Converter &c, Exercise &ex)
{
    static const QRegularExpression sentenceLine(u"^(\\d+)\\.\\s+(.+?)\\s+\\(([A-Z]+)\\)$"_s);
    static const QRegularExpression bracket(u"\\[([^\\]]*)\\]"_s);
    const QList<const SourceBlock *> blocks = c.src().blocksNamed(u"sentences"_s);
    const SourceBlock *block = blocks.size() == 1 ? blocks.first() : nullptr;
    if (blocks.size() > 1)
        c.error(blocks.at(1)->line, u"one @sentences block expected, found %1"_s.arg(blocks.size()));
    const auto lines = block ? block->nonBlankLines() : QList<std::pair<int, QString>>();
    checkItemCount(c, ex, int(lines.size()), block ? block->line : 0, u"sentences"_s);
    int number = 0;
    for (const auto &[lineNo, line] : lines) {
        const auto m = c.line(lineNo, line, sentenceLine, u"a sentence \"1. It was [sunny] all day. (SUN)\""_s);
        if (!m.hasMatch())
            continue;
        if (m.captured(1).toInt() != ++number)
            c.error(lineNo, u"sentence %1 out of order: %2 comes next"_s.arg(m.captured(1)).arg(number));
        QList<QRegularExpressionMatch> found;
        const QString sentence = m.captured(2);
        for (auto it = bracket.globalMatch(sentence); it.hasNext();)
            found << it.next();
        if (found.size() != 1) {
            c.error(lineNo, u"%1 words in brackets; a sentence has one gap"_s.arg(found.size()));
            continue;
        }
        const QString answer = found.first().captured(1).trimmed();
        if (answer.isEmpty() || answer.contains(u'/'))
            c.error(lineNo, u"\"[%1]\": the one word that fills the gap expected"_s.arg(answer));
        QString text = sentence;
        text.replace(found.first().capturedStart(), found.first().capturedLength(), kWordGap);
        checkSentenceLength(c, lineNo, text);
        ex.records << QStringList{ex.key, text, m.captured(3), answer};
    }
    ex.ownFile = u"wb"_s + ex.key;
}

/// A test's word-formation text: the passage with ten numbered gaps and the base word / answer of each.
void convertWordText(Converter &c, Exercise &ex)
{
    ex.file = DataFile::ExamUewb;
    ex.fields = QStringList(dataFileInfo(ex.file).layout.fieldCount);
    ex.fields[0] = ex.key;
    const QString title = c.field(u"title"_s);
    const SourceBlock *passage = c.single(u"passage"_s);
    const SourceBlock *gaps = c.single(u"gaps"_s);
    if (!passage || !gaps)
        return;
    const int markers = countGapMarkers(c, *passage);
    int number = 0;
    for (const auto &[lineNo, line] : gaps->nonBlankLines()) {
        const auto m = c.line(lineNo, line, numberedLine(), u"a gap \"1. BASE / answer\""_s);
        if (!m.hasMatch())
            continue;
        if (m.captured(1).toInt() != ++number)
            c.error(lineNo, u"gap %1 out of order: %2 comes next"_s.arg(m.captured(1)).arg(number));
        if (!m.captured(2).contains(u'/')) {
            c.error(lineNo, u"\"%1\": no \"/\" between the base word and the answer"_s.arg(m.captured(2)));
            continue;
        }
        const QStringList parts = slashParts(c, lineNo, m.captured(2));
        if (parts.size() != 2)
            c.error(lineNo, u"%1 parts; a gap has its base word and one answer"_s.arg(parts.size()));
        else if (number <= kTestItems)
            setField(ex, QStringLiteral("Item%1").arg(number).toLatin1().constData(), parts.join(u'/'));
    }
    if (number != markers)
        c.error(gaps->line, u"%1 gaps listed, but the passage marks %2"_s.arg(number).arg(markers));
    if (number != kTestItems)
        c.error(gaps->line, u"%1 gaps; a word-formation text has %2"_s.arg(number).arg(kTestItems));
    if (c.failed())
        return;
    const QString base = c.base(ex.file);
    StyledDocument doc(title);
    doc.markdown(markInlineGaps(passage->text()));
    ex.files << BuiltFile{base + u".rtf"_s, doc.rtf()};
    setField(ex, "Name", base);
    setField(ex, "Title", title);
}

} // namespace

bool convertWordFormation(Converter &c, Exercise &ex)
{
    if (ex.key.startsWith(u'x')) {
        c.expect({u"key"_s, u"title"_s}, {u"passage"_s, u"gaps"_s});
        convertWordText(c, ex);
    } else {
        c.expect({u"key"_s, u"title"_s}, {u"sentences"_s});
        c.field(u"title"_s);
        convertWordSentences(c, ex);
    }
    return !c.failed();
}

} // namespace sd::data
