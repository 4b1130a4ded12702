// Reading kinds: headings, multiple choice, text reconstruction, matching.

#include "kinds.h"

#include <QRegularExpression>

#include <map>

using namespace Qt::StringLiterals;

namespace sd::data {

namespace {

using Label = StyledDocument::Label;

/// "3" or "extra" after an arrow: the place a section or heading belongs.
struct Target
{
    int line = 0;
    QChar letter;
    QString text;
    int place = 0; ///< 0 for the extra one
};

/// Places 1..count each taken by exactly one target, at most one extra; the key letters in place order.
bool keyFromTargets(Converter &c, const QList<Target> &targets, int count, const QString &what,
                    const QString &placeWord, QString *answers)
{
    std::map<int, const Target *> byPlace;
    int extras = 0;
    for (const Target &t : targets) {
        if (t.place == 0) {
            if (++extras > 1)
                c.error(t.line, u"a second extra %1; there is at most one"_s.arg(what));
            continue;
        }
        if (t.place > count) {
            c.error(t.line, u"-> %1, but there are only %2 %3s"_s.arg(t.place).arg(count).arg(placeWord));
            continue;
        }
        if (byPlace.count(t.place)) {
            c.error(t.line, u"%1 %2 already belongs to %3 %4"_s.arg(placeWord).arg(t.place).arg(what, byPlace[t.place]->letter));
            continue;
        }
        byPlace[t.place] = &t;
    }
    for (int p = 1; p <= count; ++p)
        if (!byPlace.count(p))
            c.error(0, u"no %1 belongs to %2 %3"_s.arg(what, placeWord).arg(p));
    if (c.failed())
        return false;
    answers->clear();
    for (int p = 1; p <= count; ++p)
        *answers += byPlace[p]->letter;
    if (extras == 1)
        *answers += u'*';
    return true;
}

int placeOf(const QString &arrowTarget)
{
    return arrowTarget == u"extra"_s ? 0 : arrowTarget.toInt();
}

/// The end of a text with a lettered sheet (sections or headings): the key from the targets, the
/// text, the sheet in letter order without the arrows, and the record.
bool finishLettered(Converter &c, Exercise &ex, StyledDocument &text, QList<Target> targets, int places,
                    const QString &what, const QString &placeWord, const QString &sheetSuffix)
{
    QList<std::pair<int, QChar>> letters;
    for (const Target &t : std::as_const(targets))
        letters.append({t.line, t.letter});
    QString answers;
    if (c.failed() || !lettersInOrder(c, letters, what) || !keyFromTargets(c, targets, places, what, placeWord, &answers))
        return false;
    const QString base = c.base(ex.file);
    c.addDocument(ex, base, text);
    std::sort(targets.begin(), targets.end(), [](const Target &a, const Target &b) { return a.letter < b.letter; });
    StyledDocument sheet(c.src().field(u"title"_s) ? c.src().field(u"title"_s)->value : QString());
    for (const Target &t : std::as_const(targets))
        sheet.labelled(t.letter, t.text, Label::Hanging);
    c.addDocument(ex, base + sheetSuffix, sheet);
    setField(ex, "Name", base);
    setField(ex, "Text1", base + sheetSuffix);
    setField(ex, "Answers", answers);
    return true;
}

} // namespace

bool convertMultipleChoice(Converter &c, Exercise &ex)
{
    static const QRegularExpression option(u"^([A-D])\\.\\s+(.+?)(\\s+\\*)?$"_s);
    c.expect({u"key"_s, u"title"_s}, {u"passage"_s, u"question"_s});
    const QString title = c.field(u"title"_s);
    const SourceBlock *passage = c.single(u"passage"_s);
    const auto questions = c.several(u"question"_s, 4, 7);
    if (!passage || questions.isEmpty())
        return false;

    const QString base = c.base(ex.file);
    StyledDocument text(title);
    text.markdown(passage->text());
    c.addDocument(ex, base, text);

    StyledDocument sheetDoc(title);
    QString answers;
    int number = 0;
    for (const SourceBlock *q : questions) {
        ++number;
        QStringList stem;
        QList<std::pair<QString, QString>> options;
        QString right;
        for (const auto &[lineNo, line] : q->nonBlankLines()) {
            const bool looksLikeOption = line.size() > 1 && line.at(0) >= u'A' && line.at(0) <= u'Z' && line.at(1) == u'.';
            if (!looksLikeOption && options.isEmpty()) {
                stem << line;
                continue;
            }
            const auto m = c.line(lineNo, line, option, u"an option \"A. text\" (B, C, D), with \" *\" after the right one"_s);
            if (!m.hasMatch())
                continue;
            const QChar letter = m.captured(1).at(0);
            if (letter != QChar(char16_t(u'A' + options.size())))
                c.error(lineNo, u"option %1 out of order: options go A, B, C, D"_s.arg(letter));
            if (!m.captured(3).isEmpty()) {
                if (!right.isEmpty())
                    c.error(lineNo, u"a second option marked right in question %1"_s.arg(number));
                right = letter;
            }
            options.append({m.captured(1), m.captured(2)});
        }
        if (stem.isEmpty())
            c.error(q->line, u"question %1 has no question text"_s.arg(number));
        if (options.size() != 4)
            c.error(q->line, u"question %1 has %2 options; A to D expected"_s.arg(number).arg(options.size()));
        if (right.isEmpty())
            c.error(q->line, u"question %1 has no option marked right with \" *\""_s.arg(number));
        answers += right;
        sheetDoc.labelled(QString::number(number), stem.join(u' '), Label::Hanging, number > 1);
        for (const auto &[letter, text2] : options)
            sheetDoc.labelled(letter, text2, Label::HangingIndented);
    }
    if (c.failed())
        return false;
    c.addDocument(ex, base + u"q"_s, sheetDoc);
    setField(ex, "Name", base);
    setField(ex, "Text1", base + u"q"_s);
    setField(ex, "Answers", answers);
    return true;
}

bool convertReconstruction(Converter &c, Exercise &ex)
{
    static const QRegularExpression gapLine(u"^\\[(\\d+)\\]$"_s);
    static const QRegularExpression anyGap(u"\\[\\d+\\]"_s);
    static const QRegularExpression sectionArgs(u"^([A-Z])\\s*->\\s*(\\d+|extra)$"_s);
    c.expect({u"key"_s, u"title"_s}, {u"passage"_s, u"section"_s});
    const QString title = c.field(u"title"_s);
    const SourceBlock *passage = c.single(u"passage"_s);
    const auto sections = c.several(u"section"_s, 2, 8);
    if (!passage || sections.isEmpty())
        return false;

    StyledDocument text(title);
    QStringList chunk;
    int gaps = 0;
    for (qsizetype i = 0; i < passage->lines.size(); ++i) {
        const QString line = passage->lines.at(i).trimmed();
        const int lineNo = passage->bodyLine + int(i);
        const auto m = gapLine.match(line);
        if (!m.hasMatch()) {
            if (anyGap.match(line).hasMatch())
                c.error(lineNo, u"a gap marker [n] stands on a line of its own"_s);
            chunk << passage->lines.at(i);
            continue;
        }
        if (m.captured(1).toInt() != gaps + 1)
            c.error(lineNo, u"gap [%1] out of order: [%2] comes next"_s.arg(m.captured(1)).arg(gaps + 1));
        ++gaps;
        text.markdown(chunk.join(u'\n'));
        chunk.clear();
        text.gapLine(QString::number(gaps));
    }
    text.markdown(chunk.join(u'\n'));
    if (gaps < 5 || gaps > 7)
        c.error(passage->line, u"%1 gaps; a text reconstruction has 5 to 7"_s.arg(gaps));

    QList<Target> targets;
    for (const SourceBlock *s : sections) {
        const auto m = c.line(s->line, s->args, sectionArgs, u"@section, a letter, \"->\" and a gap number or \"extra\""_s);
        if (m.hasMatch())
            targets.append({s->line, m.captured(1).at(0), s->text(), placeOf(m.captured(2))});
    }
    return finishLettered(c, ex, text, targets, gaps, u"section"_s, u"gap"_s, u"s"_s);
}

bool convertHeadings(Converter &c, Exercise &ex)
{
    static const QRegularExpression headingLine(u"^([A-Z])\\.\\s+(.+?)\\s*->\\s*(\\d+|extra)$"_s);
    c.expect({u"key"_s, u"title"_s}, {u"intro"_s, u"paragraph"_s, u"headings"_s});
    const QString title = c.field(u"title"_s);
    const auto paragraphs = c.several(u"paragraph"_s, 2, 8);
    const SourceBlock *headings = c.single(u"headings"_s);
    const auto intro = c.src().blocksNamed(u"intro"_s);
    if (intro.size() > 1)
        c.error(intro.at(1)->line, u"at most one @intro block"_s);
    if (paragraphs.isEmpty() || !headings)
        return false;

    StyledDocument text(title);
    if (!intro.isEmpty())
        text.markdown(intro.first()->text());
    int number = 0;
    for (const SourceBlock *p : paragraphs)
        text.labelled(QString::number(++number), p->text(), Label::Inline);

    QList<Target> targets;
    for (const auto &[lineNo, line] : headings->nonBlankLines()) {
        const auto m = c.line(lineNo, line, headingLine, u"a heading \"A. text -> 3\" (or \"-> extra\")"_s);
        if (m.hasMatch())
            targets.append({lineNo, m.captured(1).at(0), m.captured(2), placeOf(m.captured(3))});
    }
    return finishLettered(c, ex, text, targets, int(paragraphs.size()), u"heading"_s, u"paragraph"_s, u"h"_s);
}

bool convertMatching(Converter &c, Exercise &ex)
{
    static const QRegularExpression textArgs(u"^([A-Z])\\s+(.+)$"_s);
    static const QRegularExpression itemLine(u"^(.+?)\\s*->\\s*([A-Z]{1,3})$"_s);
    c.expect({u"key"_s, u"title"_s, u"question"_s}, {u"text"_s, u"items"_s});
    const QString title = c.field(u"title"_s);
    const QString question = c.field(u"question"_s);
    const auto texts = c.several(u"text"_s, 2, 8);
    const SourceBlock *items = c.single(u"items"_s);
    if (texts.isEmpty() || !items)
        return false;

    const QString base = c.base(ex.file);
    StyledDocument doc(title);
    doc.markdown(u"# "_s + title);
    QList<std::pair<int, QChar>> letters;
    for (const SourceBlock *t : texts) {
        const auto m = c.line(t->line, t->args, textArgs, u"@text, a letter and a name"_s);
        if (!m.hasMatch())
            continue;
        letters.append({t->line, m.captured(1).at(0)});
        doc.markdown(u"## "_s + m.captured(1) + u"  "_s + m.captured(2));
        doc.markdown(t->text());
    }
    if (c.failed() || !lettersInOrder(c, letters, u"text"_s))
        return false;

    const QChar lastLetter(char16_t(u'A' + letters.size() - 1));
    QStringList keys;
    const auto lines = items->nonBlankLines();
    if (lines.size() > 13)
        c.error(items->line, u"%1 items; matching has at most 13"_s.arg(lines.size()));
    for (const auto &[lineNo, line] : lines) {
        const auto m = c.line(lineNo, line, itemLine, u"an item, \"->\" and one to three text letters"_s);
        if (!m.hasMatch())
            continue;
        const QString key = m.captured(2);
        for (QChar l : key) {
            if (l > lastLetter)
                c.error(lineNo, u"-> %1: there is no text %2"_s.arg(key, l));
            if (key.count(l) > 1)
                c.error(lineNo, u"-> %1: the letter %2 is given twice"_s.arg(key, l));
        }
        const int n = int(keys.size()) + 1;
        if (n <= 15)
            setField(ex, QStringLiteral("Item%1").arg(n).toLatin1().constData(), m.captured(1));
        keys << key;
    }
    if (c.failed())
        return false;
    c.addDocument(ex, base, doc);
    setField(ex, "Name", base);
    setField(ex, "Title", question);
    setField(ex, "Answers", keys.join(u'/'));
    return true;
}

} // namespace sd::data
