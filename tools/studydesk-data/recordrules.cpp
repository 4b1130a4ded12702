#include "recordrules.h"

#include <QRegularExpression>
#include <QSet>

using namespace Qt::StringLiterals;

namespace sd::data {

namespace {

const QStringList kCompositionTypes = {u"leta"_s, u"nar"_s, u"art"_s, u"rep"_s,
                                       u"dis"_s, u"letb"_s, u"book"_s};

QString quoted(const QString &s)
{
    return u"\""_s + s + u"\""_s;
}

bool allCapitals(const QString &s)
{
    for (QChar c : s)
        if (c < u'A' || c > u'Z')
            return false;
    return !s.isEmpty();
}

bool distinctLetters(const QString &s)
{
    return QSet<QChar>(s.begin(), s.end()).size() == s.size();
}

/// Letters naming sections or headings: one per gap or paragraph, each used once, drawn from a sheet
/// of as many letters as there are answers plus the extra one.
void checkLetterKey(const QString &answers, int most, const QString &what, const QString &place,
                    QList<FieldProblem> &out)
{
    QString letters = answers;
    const bool extra = letters.endsWith(u'*');
    if (extra)
        letters.chop(1);
    if (letters.contains(u'*')) {
        out << FieldProblem{u"Answers"_s, quoted(answers) + u": the \"*\" for an extra %1 must come last"_s.arg(what)};
        return;
    }
    if (!allCapitals(letters)) {
        out << FieldProblem{u"Answers"_s, quoted(answers) + u": one capital letter per %1 expected"_s.arg(place)};
        return;
    }
    if (letters.size() > most)
        out << FieldProblem{u"Answers"_s, quoted(answers) + u": %1 letters, but the screen takes at most %2"_s
                                                               .arg(letters.size()).arg(most)};
    if (!distinctLetters(letters))
        out << FieldProblem{u"Answers"_s, quoted(answers) + u": a %1 letter is used twice"_s.arg(what)};
    const QChar last = QChar(char16_t(u'A' + letters.size() - (extra ? 0 : 1)));
    for (QChar c : letters)
        if (c > last) {
            out << FieldProblem{u"Answers"_s, quoted(answers) + u": %1 is beyond the last %2 letter %3"_s
                                                                   .arg(c).arg(what).arg(last)};
            break;
        }
}

/// One gap's alternatives as stored: "a/b/c/d", three "/" always.
QStringList gapParts(const QString &item, QList<FieldProblem> &out, const QString &field)
{
    const QStringList parts = item.split(u'/');
    if (parts.size() != 4) {
        out << FieldProblem{field, quoted(item) + u": %1 \"/\", but a gap has exactly three (a/b/c/d or a/b/c/)"_s
                                                      .arg(parts.size() - 1)};
        return {};
    }
    for (const QString &p : parts)
        if (p != p.trimmed()) {
            out << FieldProblem{field, quoted(item) + u": spaces around \"%1\"; a typed answer never matches them"_s
                                                          .arg(p.trimmed())};
            return {};
        }
    return parts;
}

void checkCloze(DataFile file, const QStringList &fields, QList<FieldProblem> &out)
{
    int gaps = 0;
    bool sawEmpty = false;
    for (int n = 1; n <= 15; ++n) {
        const QString field = u"Item%1"_s.arg(n);
        const QString item = fieldOf(file, fields, field.toLatin1().constData());
        if (item.isEmpty() || item.startsWith(u"///"_s)) {
            sawEmpty = true;
            continue;
        }
        if (sawEmpty)
            out << FieldProblem{field, u"gap %1 follows an empty gap; gaps must fill Item1 upward"_s.arg(n)};
        ++gaps;
        const QStringList parts = gapParts(item, out, field);
        if (parts.isEmpty())
            continue;
        QSet<QString> seen;
        for (const QString &p : parts) {
            if (!p.isEmpty() && seen.contains(p.toUpper()))
                out << FieldProblem{field, quoted(item) + u": \"%1\" is given twice"_s.arg(p)};
            seen.insert(p.toUpper());
        }
        if (file == DataFile::Ueca) {
            if (parts.at(1).isEmpty() || parts.at(2).isEmpty())
                out << FieldProblem{field, quoted(item) + u": a gap needs the right word and two or three wrong ones"_s};
        } else {
            for (const QString &p : parts) {
                if (p.contains(u' '))
                    out << FieldProblem{field, quoted(item) + u": \"%1\" is more than one word"_s.arg(p)};
                if (p.contains(u','))
                    out << FieldProblem{field, quoted(item) + u": \"%1\" has a comma, which typed answers lose"_s.arg(p)};
            }
        }
    }
    if (gaps < 10)
        out << FieldProblem{u"Item1"_s, u"%1 gaps; a cloze passage has 10 to 15"_s.arg(gaps)};
}

void checkMatching(const QStringList &fields, QList<FieldProblem> &out)
{
    const QString answers = fieldOf(DataFile::Rcma, fields, "Answers");
    const QStringList keys = answers.split(u'/');
    if (answers.isEmpty() || keys.size() > 13) {
        out << FieldProblem{u"Answers"_s, quoted(answers) + u": %1 keys; matching has 1 to 13 items"_s
                                                               .arg(answers.isEmpty() ? 0 : keys.size())};
        return;
    }
    for (const QString &k : keys)
        if (!allCapitals(k) || k.size() > 3 || !distinctLetters(k))
            out << FieldProblem{u"Answers"_s, quoted(answers) + u": \"%1\" is not one to three different capital letters"_s.arg(k)};
    for (int n = 1; n <= 15; ++n) {
        const QString field = u"Item%1"_s.arg(n);
        const bool empty = fieldOf(DataFile::Rcma, fields, field.toLatin1().constData()).isEmpty();
        if (n <= keys.size() && empty)
            out << FieldProblem{field, u"empty, but Answers has %1 keys"_s.arg(keys.size())};
        else if (n > keys.size() && !empty)
            out << FieldProblem{field, u"an item without a key: Answers has only %1 keys"_s.arg(keys.size())};
    }
    if (fieldOf(DataFile::Rcma, fields, "Title").isEmpty())
        out << FieldProblem{u"Title"_s, u"empty; it holds the question every item answers"_s};
}

void checkErrorCorrection(const QStringList &fields, QList<FieldProblem> &out)
{
    for (int n = 1; n <= 15; ++n) {
        const QString field = u"Item%1"_s.arg(n);
        const QString word = fieldOf(DataFile::Ueec, fields, field.toLatin1().constData());
        if (word.contains(u' ') || word.contains(u','))
            out << FieldProblem{field, quoted(word) + u": the extra word of a line is one word"_s};
    }
}

/// Sentence conversion, one item per record: the first sentence, the second around the gap, the
/// word given and at most four accepted answers of at most five words each.
void checkConversion(const QStringList &fields, QList<FieldProblem> &out)
{
    const auto field = [&](std::string_view name) { return fieldOf(DataFile::Uesc, fields, name); };
    if (field("Title").isEmpty())
        out << FieldProblem{u"Title"_s, u"empty; it holds the first sentence"_s};
    if (field("Text1").isEmpty() && field("Text2").isEmpty())
        out << FieldProblem{u"Text1"_s, u"empty, and so is Text2; they hold the second sentence around the gap"_s};
    if (field("Word").isEmpty() || field("Word").contains(u' '))
        out << FieldProblem{u"Word"_s, quoted(field("Word")) + u": the word given is one word"_s};
    if (field("Answer1").isEmpty())
        out << FieldProblem{u"Answer1"_s, u"empty; it holds the correct answer"_s};
    if (!field("Answer5").isEmpty())
        out << FieldProblem{u"Answer5"_s, quoted(field("Answer5")) + u": never compared; four answers are accepted"_s};
    for (int n = 1; n <= 4; ++n) {
        const QString name = u"Answer%1"_s.arg(n);
        const QString answer = field(name.toLatin1().constData());
        if (answer.split(u' ', Qt::SkipEmptyParts).size() > 5)
            out << FieldProblem{name, quoted(answer) + u": more than five words"_s};
    }
}

/// Word formation: a practice sentence (layout G) or a test text's ten gaps (layout H).
void checkWordFormation(DataFile file, const QStringList &fields, QList<FieldProblem> &out)
{
    if (file == DataFile::Uewb) {
        for (const char *name : {"Text", "Word", "Answer"})
            if (fieldOf(file, fields, name).isEmpty())
                out << FieldProblem{QString::fromLatin1(name), u"empty; a sentence needs its text, base word and answer"_s};
        return;
    }
    for (int n = 1; n <= 11; ++n) {
        const QString field = u"Item%1"_s.arg(n);
        const QString item = fieldOf(file, fields, field.toLatin1().constData());
        if (n == 11) {
            if (!item.isEmpty())
                out << FieldProblem{field, quoted(item) + u": a word-formation text has ten gaps"_s};
            continue;
        }
        const qsizetype slash = item.indexOf(u'/');
        if (slash < 0)
            out << FieldProblem{field, quoted(item) + u": no \"/\" between the base word and the answer"_s};
        else if (slash == 0 || slash == item.size() - 1 || item.indexOf(u'/', slash + 1) >= 0)
            out << FieldProblem{field, quoted(item) + u": one base word, \"/\", one answer expected"_s};
    }
}

} // namespace

KeyKind keyKind(DataFile file, const QString &key)
{
    static const QRegularExpression practice(u"^[1-3](0[1-9]|10)$"_s);
    static const QRegularExpression test(u"^x(0[1-9]|10)$"_s);
    if (file == DataFile::Comp)
        return kCompositionTypes.contains(key) ? KeyKind::Other
               : test.match(key).hasMatch()    ? KeyKind::Test
                                               : KeyKind::Bad;
    if (practice.match(key).hasMatch())
        return KeyKind::Practice;
    if (test.match(key).hasMatch())
        return KeyKind::Test;
    return KeyKind::Bad;
}

bool keyLess(const QString &a, const QString &b)
{
    const bool ta = a.startsWith(u'x'), tb = b.startsWith(u'x');
    if (ta != tb)
        return tb;
    return a < b;
}

QString fieldOf(DataFile file, const QStringList &fields, std::string_view name)
{
    return fields.value(dataFileInfo(file).layout.indexOf(name));
}

QList<FieldProblem> checkFields(DataFile file, const QStringList &fields)
{
    QList<FieldProblem> out;
    const QString code = fieldOf(file, fields, "Code");
    if (keyKind(file, code) == KeyKind::Bad)
        out << FieldProblem{u"Code"_s, file == DataFile::Comp
                                           ? quoted(code) + u" is not a composition type (%1) or a test's letter (x01 to x10)"_s.arg(kCompositionTypes.join(u", "_s))
                                           : quoted(code) + u" is not a key: level and exercise (101 to 310) or x01 to x10"_s};
    const bool layoutA = file == DataFile::Rche || file == DataFile::Rcmc || file == DataFile::Rcre;
    const bool named = layoutA || file == DataFile::Rcma || file == DataFile::Ueca || file == DataFile::Uecb
                       || file == DataFile::Ueec || file == DataFile::ExamUewb;
    if (named && fieldOf(file, fields, "Name").isEmpty())
        out << FieldProblem{u"Name"_s, u"empty; it names the exercise's text file"_s};
    if (layoutA && fieldOf(file, fields, "Text1").isEmpty())
        out << FieldProblem{u"Text1"_s, u"empty; it names the sheet of questions, sections or headings"_s};
    const QString answers = fieldOf(file, fields, "Answers");
    switch (file) {
    case DataFile::Rcmc: {
        static const QRegularExpression options(u"^[A-D]*$"_s);
        if (!options.match(answers).hasMatch())
            out << FieldProblem{u"Answers"_s, quoted(answers) + u": one option letter A to D per question expected"_s};
        else if (answers.size() < 4 || answers.size() > 7)
            out << FieldProblem{u"Answers"_s, quoted(answers) + u": %1 questions; multiple choice has 4 to 7"_s
                                                                   .arg(answers.size())};
        break;
    }
    case DataFile::Rcre: checkLetterKey(answers, 7, u"section"_s, u"gap"_s, out); break;
    case DataFile::Rche: checkLetterKey(answers, 8, u"heading"_s, u"paragraph"_s, out); break;
    case DataFile::Rcma: checkMatching(fields, out); break;
    case DataFile::Ueca:
    case DataFile::Uecb: checkCloze(file, fields, out); break;
    case DataFile::Ueec: checkErrorCorrection(fields, out); break;
    case DataFile::Uesc: checkConversion(fields, out); break;
    case DataFile::Uewb:
    case DataFile::ExamUewb: checkWordFormation(file, fields, out); break;
    default: break;
    }
    return out;
}

QList<FileReference> referencedFiles(DataFile file, const QStringList &fields)
{
    const QString name = fieldOf(file, fields, "Name");
    QList<FileReference> out;
    switch (file) {
    case DataFile::Rche:
    case DataFile::Rcmc:
    case DataFile::Rcre:
    case DataFile::Rcma:
        if (!name.isEmpty())
            out << FileReference{u"Name"_s, name + u".rtf"_s} << FileReference{u"Name"_s, name + u".htm"_s};
        if (file != DataFile::Rcma && !fieldOf(file, fields, "Text1").isEmpty())
            out << FileReference{u"Text1"_s, fieldOf(file, fields, "Text1") + u".rtf"_s};
        break;
    case DataFile::Ueca:
    case DataFile::Uecb:
    case DataFile::ExamUewb:
        if (!name.isEmpty())
            out << FileReference{u"Name"_s, name + u".rtf"_s};
        break;
    case DataFile::Ueec:
        if (!name.isEmpty())
            out << FileReference{u"Name"_s, name + u".txt"_s};
        break;
    default: break;
    }
    return out;
}

QString kindCode(DataFile file)
{
    QString name = QString::fromLatin1(dataFileInfo(file).fileName);
    return name.mid(4, name.size() - 8); // "prac" + code + ".dat"
}

bool dataFileForCode(const QString &code, DataFile *file)
{
    for (int i = 0; i < DataFileCount; ++i) {
        const auto f = DataFile(i);
        if (kindCode(f) == code || QString::fromLatin1(dataFileInfo(f).fileName) == code) {
            *file = f;
            return true;
        }
    }
    return false;
}

} // namespace sd::data
