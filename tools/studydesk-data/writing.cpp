#include "writing.h"

#include "housestyle.h"

#include <QBuffer>
#include <QFile>
#include <QPainter>
#include <QRegularExpression>
#include <QSvgRenderer>

using namespace Qt::StringLiterals;

namespace sd::data {

namespace {

constexpr int kTitlesPerType = 10;
constexpr int kPictureWidth = 440;

struct Reader
{
    const QDir &dir;
    QString shownDir;
    Problems &problems;

    QString shown(const QString &name) const { return shownDir + u'/' + name; }

    /// The text of a source in the data files' code page; false with a complaint.
    bool text(const QString &name, QString *out)
    {
        QFile file(dir.filePath(name));
        if (!file.open(QIODevice::ReadOnly)) {
            problems << shown(name) + u": is missing"_s;
            return false;
        }
        *out = decodeSource(file.readAll());
        SourceFile src;
        src.path = shown(name);
        return checkCodePage(src, *out, problems);
    }
};

/// `type: nar`, then ten `@title` blocks, each followed by an optional `@note`.
void readTitles(Reader &r, const QString &type, WritingBuild *out)
{
    const QString name = u"titles-%1.md"_s.arg(type);
    QString text;
    if (!r.text(name, &text))
        return;
    const qsizetype before = r.problems.size();
    const SourceFile src = parseSource(r.shown(name), text, r.problems);
    const SourceField *typeField = src.field(u"type"_s);
    if (!typeField || typeField->value != type)
        r.problems << src.at(typeField ? typeField->line : 1) + u": expected \"type: %1\""_s.arg(type);
    QList<QStringList> records;
    for (const SourceBlock &b : src.blocks) {
        const QString body = b.text().simplified();
        if (b.name == u"title"_s) {
            records << QStringList{type, body, QString(), QString()};
        } else if (b.name == u"note"_s) {
            if (records.isEmpty() || !records.last().at(2).isEmpty())
                r.problems << src.at(b.line) + u": a note belongs under its title"_s;
            else
                records.last()[2] = body;
        } else {
            r.problems << src.at(b.line) + u": \"@%1\": a titles file has @title and @note blocks"_s.arg(b.name);
        }
        if (body.isEmpty())
            r.problems << src.at(b.line) + u": @%1 is empty"_s.arg(b.name);
    }
    if (records.size() != kTitlesPerType)
        r.problems << src.at(1) + u": %1 titles; each type has exactly %2"_s.arg(records.size()).arg(kTitlesPerType);
    if (r.problems.size() == before)
        out->records << records;
}

/// A Markdown document as `base`.rtf (and `base`.htm when `page`), its SVG pictures drawn as PNG.
void addDocument(Reader &r, const QString &name, QString markdown, bool page, WritingBuild *out)
{
    const QString base = QFileInfo(name).completeBaseName();
    StyledDocument doc(base);
    static const QRegularExpression svgRef(u"!\\[([^\\]]*)\\]\\(([^)\\s]+)\\.svg\\)"_s);
    for (QRegularExpressionMatchIterator it = svgRef.globalMatch(markdown); it.hasNext();) {
        const QString svgName = it.next().captured(2) + u".svg"_s;
        QFile svg(r.dir.filePath(svgName));
        QImage image;
        QString reason;
        if (svgName.contains(u'/') || !svg.open(QIODevice::ReadOnly)) {
            r.problems << r.shown(name) + u": the picture %1 is not in the folder"_s.arg(svgName);
            continue;
        }
        if (!renderPicture(svg.readAll(), &image, &reason)) {
            r.problems << r.shown(svgName) + u": "_s + reason;
            continue;
        }
        const QString png = QFileInfo(svgName).completeBaseName() + u".png"_s;
        QByteArray bytes;
        QBuffer buffer(&bytes);
        buffer.open(QIODevice::WriteOnly);
        image.save(&buffer, "PNG");
        out->files << BuiltFile{png, bytes};
        // A page of the sheet box's width; the printed sheet is the picture screen's.
        doc.addPicture(png, image, kPictureWidth);
    }
    markdown.replace(svgRef, u"![\\1](\\2.png)"_s);
    doc.markdown(markdown);
    out->files << BuiltFile{base + u".rtf"_s, doc.rtf()};
    if (page)
        out->files << BuiltFile{base + u".htm"_s, doc.html()};
}

/// `task: ...`, a blank line, then the sheet.
void readTestSheet(Reader &r, const QString &name, WritingBuild *out)
{
    QString text;
    if (!r.text(name, &text))
        return;
    text.replace(u"\r\n"_s, u"\n"_s);
    const qsizetype eol = text.indexOf(u'\n');
    const QString first = text.left(eol < 0 ? text.size() : eol);
    static const QRegularExpression taskLine(u"^task:\\s*(\\S.*)$"_s);
    const QRegularExpressionMatch m = taskLine.match(first.trimmed());
    if (!m.hasMatch()) {
        r.problems << r.shown(name) + u":1: expected \"task: the task of the letter\""_s;
        return;
    }
    const QString rest = eol < 0 ? QString() : text.mid(eol + 1);
    if (!rest.startsWith(u'\n') && !rest.trimmed().isEmpty())
        r.problems << r.shown(name) + u":2: a blank line comes between the task and the sheet"_s;
    out->records << QStringList{QFileInfo(name).completeBaseName().mid(4), m.captured(1).trimmed(), QString(), QString()};
    addDocument(r, name, rest, true, out);
}

} // namespace

const QStringList &compositionTypeCodes()
{
    static const QStringList codes{u"leta"_s, u"nar"_s, u"art"_s, u"rep"_s, u"dis"_s, u"letb"_s, u"book"_s};
    return codes;
}

bool renderPicture(const QByteArray &svg, QImage *out, QString *reason)
{
    static const QRegularExpression outside(u"<\\s*script|<\\s*image|<\\s*foreignObject|href\\s*=|url\\s*\\(\\s*['\"]?[a-z]+:"_s,
                                            QRegularExpression::CaseInsensitiveOption);
    if (const QRegularExpressionMatch m = outside.match(QString::fromUtf8(svg)); m.hasMatch()) {
        *reason = u"holds \"%1\"; a picture is plain shapes and text only"_s.arg(m.captured(0));
        return false;
    }
    QSvgRenderer renderer(svg);
    if (!renderer.isValid() || renderer.viewBoxF().isEmpty()) {
        *reason = u"is not an SVG drawing with a view box"_s;
        return false;
    }
    const QSize size = (renderer.viewBoxF().size() * 2).toSize();
    if (qint64(size.width()) * size.height() > 16LL * 1000 * 1000) {
        *reason = u"its view box is too large to draw"_s;
        return false;
    }
    QImage image(size, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter p(&image);
    renderer.render(&p);
    p.end();
    *out = image;
    return true;
}

bool buildWriting(const QDir &dir, const QString &shownDir, WritingBuild *out, Problems &problems)
{
    const qsizetype before = problems.size();
    Reader r{dir, shownDir, problems};
    for (const QString &type : compositionTypeCodes())
        readTitles(r, type, out);

    static const QRegularExpression known(
        u"^(titles-[a-z]+|leta(0[1-9]|10)|compx(0[1-9]|10)b?|letasample|Sample(leta|nar|art|rep|dis|letb|book)[1-3]|comments)\\.md$|\\.svg$"_s);
    for (const QString &name : dir.entryList(QDir::Files, QDir::Name)) {
        if (!known.match(name).hasMatch()) {
            problems << r.shown(name) + u": not a Writing file (titles, leta01 ... , compx01 ... , samples)"_s;
            continue;
        }
        if (name.startsWith(u"titles-"_s) || name == u"comments.md"_s || name.endsWith(u".svg"_s))
            continue;
        if (name.startsWith(u"compx"_s) && !name.endsWith(u"b.md"_s)) {
            readTestSheet(r, name, out);
            continue;
        }
        QString text;
        if (r.text(name, &text))
            addDocument(r, name, text, name.startsWith(u"leta"_s) && !name.startsWith(u"letasample"_s), out);
    }
    return problems.size() == before;
}

} // namespace sd::data
