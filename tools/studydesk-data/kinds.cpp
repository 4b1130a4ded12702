#include "kinds.h"

#include "recordrules.h"

#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace sd::data {

void setField(Exercise &ex, std::string_view name, const QString &value)
{
    ex.fields[dataFileInfo(ex.file).layout.indexOf(name)] = value;
}

const QList<DataFile> &buildableKinds()
{
    static const QList<DataFile> kinds = {DataFile::Rche, DataFile::Rcmc, DataFile::Rcre, DataFile::Rcma,
                                          DataFile::Ueca, DataFile::Uecb, DataFile::Uesc, DataFile::Ueec,
                                          DataFile::Uewb};
    return kinds;
}

void Converter::error(int line, const QString &message)
{
    m_problems << (line > 0 ? m_src.at(line) : m_src.path) + u": "_s + message;
    m_failed = true;
}

void Converter::expect(const QStringList &fields, const QStringList &blocks)
{
    for (const SourceField &f : m_src.fields)
        if (!fields.contains(f.name))
            error(f.line, u"unknown field \"%1\"; this kind has %2"_s.arg(f.name, fields.join(u", "_s)));
    for (const SourceBlock &b : m_src.blocks)
        if (!blocks.contains(b.name))
            error(b.line, u"unknown block \"@%1\"; this kind has @%2"_s.arg(b.name, blocks.join(u", @"_s)));
    const SourceField *key = m_src.field(u"key"_s);
    if (!key)
        error(1, u"the field \"key\" is missing"_s);
    else if (key->value != m_src.stem)
        error(key->line, u"key %1 differs from the file name %2.md"_s.arg(key->value, m_src.stem));
}

QString Converter::field(const QString &name)
{
    const SourceField *f = m_src.field(name);
    if (!f || f->value.isEmpty()) {
        error(f ? f->line : 1, u"the field \"%1\" is missing"_s.arg(name));
        return {};
    }
    return f->value;
}

const SourceBlock *Converter::single(const QString &block)
{
    const auto list = m_src.blocksNamed(block);
    if (list.size() != 1) {
        error(list.isEmpty() ? 0 : list.at(1)->line, u"one @%1 block expected, found %2"_s.arg(block).arg(list.size()));
        return nullptr;
    }
    if (list.first()->text().isEmpty()) {
        error(list.first()->line, u"the @%1 block is empty"_s.arg(block));
        return nullptr;
    }
    return list.first();
}

QList<const SourceBlock *> Converter::several(const QString &block, int least, int most)
{
    const auto list = m_src.blocksNamed(block);
    if (list.size() < least || list.size() > most) {
        error(list.isEmpty() ? 0 : list.last()->line,
              u"%1 @%2 blocks; this kind has %3 to %4"_s.arg(list.size()).arg(block).arg(least).arg(most));
        return {};
    }
    for (const SourceBlock *b : list)
        if (b->text().isEmpty())
            error(b->line, u"the @%1 block is empty"_s.arg(block));
    return list;
}

QRegularExpressionMatch Converter::line(int lineNo, const QString &text, const QRegularExpression &re,
                                        const QString &expected)
{
    QRegularExpressionMatch m = re.match(text);
    if (!m.hasMatch())
        error(lineNo, u"\"%1\": %2 expected"_s.arg(text, expected));
    return m;
}

void Converter::addDocument(Exercise &ex, const QString &base, StyledDocument &doc)
{
    ex.files << BuiltFile{base + u".rtf"_s, doc.rtf()} << BuiltFile{base + u".htm"_s, doc.html()};
}

QString Converter::base(DataFile file) const
{
    return kindCode(file) + m_src.stem;
}

bool lettersInOrder(Converter &c, const QList<std::pair<int, QChar>> &letters, const QString &what)
{
    for (qsizetype i = 0; i < letters.size(); ++i) {
        const QChar expected(char16_t(u'A' + i));
        if (letters.at(i).second != expected) {
            c.error(letters.at(i).first, u"%1 %2 out of order: the %3 are lettered A, B, C ... so %4 comes next"_s
                                             .arg(what, letters.at(i).second, what + u"s"_s, expected));
            return false;
        }
    }
    return true;
}

bool convertExercise(DataFile file, const SourceFile &src, Exercise *out, Problems &problems)
{
    Converter c(src, problems);
    out->file = file;
    out->key = src.stem;
    out->sourcePath = src.path;
    out->fields = QStringList(dataFileInfo(file).layout.fieldCount);
    out->fields[0] = src.stem;
    if (keyKind(file, src.stem) == KeyKind::Bad) {
        c.error(0, u"the file name is not a key: level and exercise (101 to 310) or x01 to x10, then .md"_s);
        return false;
    }
    switch (file) {
    case DataFile::Rche: return convertHeadings(c, *out) && !c.failed();
    case DataFile::Rcmc: return convertMultipleChoice(c, *out) && !c.failed();
    case DataFile::Rcre: return convertReconstruction(c, *out) && !c.failed();
    case DataFile::Rcma: return convertMatching(c, *out) && !c.failed();
    case DataFile::Ueca:
    case DataFile::Uecb: return convertCloze(c, *out) && !c.failed();
    case DataFile::Ueec: return convertErrorCorrection(c, *out) && !c.failed();
    case DataFile::Uesc: return convertConversion(c, *out) && !c.failed();
    case DataFile::Uewb: return convertWordFormation(c, *out) && !c.failed();
    default: break;
    }
    c.error(0, u"no exercises of this kind are built from sources"_s);
    return false;
}

} // namespace sd::data
