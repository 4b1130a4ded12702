// One house style for every text the data build writes: Arial, body 12 pt, titles 16 pt bold,
// headings 13 pt bold, a little space under each paragraph.
#pragma once

#include <QByteArray>
#include <QImage>
#include <QString>
#include <QTextCursor>
#include <QTextDocument>

#include <map>

class QTextList;

namespace sd::data {

class StyledDocument
{
public:
    explicit StyledDocument(const QString &title = {});

    /// Appends whole paragraphs (titles, lists, emphasis) written in Markdown.
    void markdown(const QString &text);
    enum class Label { Inline, Hanging, HangingIndented };
    /// Appends one paragraph: a bold label, then Markdown text on the same line. A hanging label
    /// sits in the margin with the text indented after a tab (sheets of questions, options, sections).
    void labelled(const QString &label, const QString &inlineMarkdown, Label style, bool spaceBefore = false);
    /// Appends a paragraph holding only a bold label and a dotted line: a gap in a passage.
    void gapLine(const QString &label);
    /// A picture that Markdown refers to by `name`, shown `width` pixels wide; the RTF file carries
    /// it inside, the web page refers to it by name. Call before markdown().
    void addPicture(const QString &name, const QImage &image, int width);

    /// The document with the house style applied.
    const QTextDocument &finished();
    QByteArray rtf();
    QByteArray html(); ///< UTF-8, with a meta charset

private:
    QTextCursor nextBlock();
    void inlineMarkdown(const QString &text, const QTextCharFormat &extra = {});

    QTextDocument m_doc;
    QTextCursor m_cursor;
    bool m_empty = true;
    bool m_styled = false;
    std::map<QString, std::pair<int, int>> m_pictureSizes;
};

/// Help text for printing: paragraphs wrapped at `width`, list items with a dash and hanging
/// indent, a blank line between paragraphs; CRLF line ends.
QString plainTextOf(const QTextDocument &doc, int width);
/// Windows-1252 bytes of a text whose lines end in CRLF; false when a character has no byte.
bool windowsText(const QString &text, QByteArray *out);

/// "[n]" inline gap markers to the look of a gap: a bold "(n)" and a dotted line.
QString markInlineGaps(const QString &markdown);

} // namespace sd::data
