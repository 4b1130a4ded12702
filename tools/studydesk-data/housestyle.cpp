#include "housestyle.h"

#include "frame/core/datafiles.h"
#include "ui/rtf/rtfwriter.h"

#include <QRegularExpression>
#include <QUrl>
#include <QTextBlock>
#include <QTextList>

using namespace Qt::StringLiterals;

namespace sd::data {

namespace {

const QString kFamily = u"Arial"_s;
constexpr qreal kBodyPoints = 12;
constexpr qreal kTitlePoints = 16;
constexpr qreal kHeadingPoints = 13;
constexpr qreal kParagraphSpace = 8; // px, 6 pt
constexpr qreal kHang = 32;          // px: the width of a hanging label
const QString kDots = QString(48, u'.');

QTextCharFormat bold()
{
    QTextCharFormat f;
    f.setFontWeight(QFont::Bold);
    return f;
}

} // namespace

StyledDocument::StyledDocument(const QString &title) : m_cursor(&m_doc)
{
    m_doc.setDefaultFont(QFont(kFamily, int(kBodyPoints)));
    if (!title.isEmpty())
        m_doc.setMetaInformation(QTextDocument::DocumentTitle, title);
}

QTextCursor StyledDocument::nextBlock()
{
    if (m_empty)
        m_empty = false;
    else
        m_cursor.insertBlock(QTextBlockFormat(), QTextCharFormat());
    return m_cursor;
}

void StyledDocument::markdown(const QString &text)
{
    QTextDocument source;
    source.setMarkdown(text, QTextDocument::MarkdownDialectGitHub);
    std::map<const QTextList *, QTextList *> lists;
    for (QTextBlock b = source.begin(); b.isValid(); b = b.next()) {
        nextBlock();
        QTextBlockFormat format = b.blockFormat();
        format.setObjectIndex(-1); // list membership is rebuilt below, in this document
        m_cursor.setBlockFormat(format);
        if (const QTextList *list = b.textList()) {
            auto it = lists.find(list);
            if (it == lists.end())
                lists.emplace(list, m_cursor.createList(list->format()));
            else
                it->second->add(m_cursor.block());
        }
        for (auto f = b.begin(); !f.atEnd(); ++f) {
            const QTextCharFormat run = f.fragment().charFormat();
            if (run.isImageFormat()) {
                QTextImageFormat image = run.toImageFormat();
                if (auto it = m_pictureSizes.find(image.name()); it != m_pictureSizes.end()) {
                    image.setWidth(it->second.first);
                    image.setHeight(it->second.second);
                }
                m_cursor.insertImage(image);
                continue;
            }
            m_cursor.insertText(f.fragment().text(), run);
        }
    }
}

void StyledDocument::inlineMarkdown(const QString &text, const QTextCharFormat &extra)
{
    QTextDocument source;
    source.setMarkdown(text, QTextDocument::MarkdownDialectGitHub);
    bool first = true;
    for (QTextBlock b = source.begin(); b.isValid(); b = b.next()) {
        if (!first)
            m_cursor.insertText(u" "_s);
        first = false;
        for (auto f = b.begin(); !f.atEnd(); ++f) {
            QTextCharFormat format = f.fragment().charFormat();
            format.merge(extra);
            m_cursor.insertText(f.fragment().text(), format);
        }
    }
}

void StyledDocument::labelled(const QString &label, const QString &text, Label style, bool spaceBefore)
{
    nextBlock();
    if (spaceBefore) {
        QTextBlockFormat format;
        format.setTopMargin(kParagraphSpace);
        m_cursor.mergeBlockFormat(format);
    }
    if (style != Label::Inline) {
        // The first line starts at the margin, so word processors (tab stops from the margin) and
        // Qt (tab stops from the line's start) put the tabs in the same place.
        const bool indented = style == Label::HangingIndented;
        const qreal left = indented ? 2 * kHang : kHang;
        QTextBlockFormat format;
        format.setLeftMargin(left);
        format.setTextIndent(-left);
        QList<QTextOption::Tab> tabs{QTextOption::Tab(kHang, QTextOption::LeftTab)};
        if (indented)
            tabs.append(QTextOption::Tab(2 * kHang, QTextOption::LeftTab));
        format.setTabPositions(tabs);
        m_cursor.mergeBlockFormat(format);
        if (indented)
            m_cursor.insertText(u"\t"_s, QTextCharFormat());
    }
    m_cursor.insertText(label, bold());
    m_cursor.insertText(style == Label::Inline ? u" "_s : u"\t"_s, QTextCharFormat());
    inlineMarkdown(text);
}

void StyledDocument::gapLine(const QString &label)
{
    nextBlock();
    m_cursor.insertText(label, bold());
    m_cursor.insertText(u" "_s + kDots, QTextCharFormat());
}

void StyledDocument::addPicture(const QString &name, const QImage &image, int width)
{
    m_doc.addResource(QTextDocument::ImageResource, QUrl(name), image);
    m_pictureSizes[name] = {width, image.width() > 0 ? width * image.height() / image.width() : 0};
}

const QTextDocument &StyledDocument::finished()
{
    if (m_styled)
        return m_doc;
    m_styled = true;
    for (QTextBlock b = m_doc.begin(); b.isValid(); b = b.next()) {
        const int level = b.blockFormat().headingLevel();
        const qreal points = level == 1 ? kTitlePoints : level > 1 ? kHeadingPoints : kBodyPoints;
        QTextCursor c(b);
        QTextBlockFormat block = b.blockFormat();
        if (level > 0)
            block.setTopMargin(kParagraphSpace);
        block.setBottomMargin(kParagraphSpace);
        c.setBlockFormat(block);
        // Each run keeps its bold and italics and takes the house font and size.
        QList<std::pair<int, int>> runs;
        for (auto f = b.begin(); !f.atEnd(); ++f)
            runs.append({f.fragment().position(), f.fragment().length()});
        for (const auto &[position, length] : runs) {
            c.setPosition(position);
            c.setPosition(position + length, QTextCursor::KeepAnchor);
            QTextCharFormat format = c.charFormat();
            format.clearProperty(QTextFormat::FontSizeAdjustment);
            format.clearProperty(QTextFormat::FontFixedPitch);
            format.setFontFamilies({kFamily});
            format.setFontPointSize(points);
            if (level > 0)
                format.setFontWeight(QFont::Bold);
            c.setCharFormat(format);
        }
        QTextCharFormat blockChar = b.charFormat();
        blockChar.setFontFamilies({kFamily});
        blockChar.setFontPointSize(points);
        c.setBlockCharFormat(blockChar);
    }
    return m_doc;
}

QByteArray StyledDocument::rtf()
{
    return rtf::writeRtf(finished());
}

QByteArray StyledDocument::html()
{
    QString html = finished().toHtml();
    if (!html.contains(u"charset"_s))
        html.replace(u"<head>"_s, u"<head><meta charset=\"utf-8\" />"_s);
    return html.toUtf8();
}

namespace {

void wrapInto(QStringList &out, const QString &text, const QString &firstPrefix, int width)
{
    const QString indent(firstPrefix.size(), u' ');
    QString line = firstPrefix;
    bool lineHasWord = false;
    for (const QString &word : text.split(u' ', Qt::SkipEmptyParts)) {
        if (lineHasWord && line.size() + 1 + word.size() > width) {
            out << line;
            line = indent;
            lineHasWord = false;
        }
        if (lineHasWord)
            line += u' ';
        line += word;
        lineHasWord = true;
    }
    out << line;
}

} // namespace

QString plainTextOf(const QTextDocument &doc, int width)
{
    QStringList lines;
    bool previousWasItem = false;
    for (QTextBlock b = doc.begin(); b.isValid(); b = b.next()) {
        QString text = b.text().simplified();
        if (text.isEmpty())
            continue;
        const bool item = b.textList() != nullptr;
        if (!lines.isEmpty() && !(item && previousWasItem))
            lines << QString();
        if (b.blockFormat().headingLevel() == 1)
            text = text.toUpper();
        wrapInto(lines, text, item ? u"- "_s : QString(), width);
        previousWasItem = item;
    }
    return lines.join(u"\r\n"_s) + u"\r\n"_s;
}

bool windowsText(const QString &text, QByteArray *out)
{
    bool ok = true;
    *out = encodeSingleByte(text, &ok);
    return ok;
}

QString markInlineGaps(const QString &markdown)
{
    static const QRegularExpression gap(u"\\[(\\d+)\\]"_s);
    QString out = markdown;
    out.replace(gap, u"**(\\1)** .........."_s);
    return out;
}

} // namespace sd::data
