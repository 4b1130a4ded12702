#include "ui/rtf/rtfwriter.h"

#include "ui/rtf/rtfcodepage.h"

#include <QBuffer>
#include <QImage>
#include <QPixmap>
#include <QTextBlock>
#include <QTextDocument>
#include <QTextFrame>
#include <QTextList>
#include <QTextTable>
#include <QUrl>

using namespace Qt::StringLiterals;

namespace sd::rtf {

namespace {

// Screen pixels (96 dpi) to twips.
int twips(qreal px) { return qRound(px * 15.0); }

// Width a table may fill when its columns have no fixed widths: 6.5 inches.
constexpr int kTextWidth = 9360;

class Writer
{
public:
    explicit Writer(const QTextDocument &doc) : m_doc(doc)
    {
        const QFont font = doc.defaultFont();
        m_fonts.append(font.family());
        m_basePoints = font.pointSizeF() > 0 ? font.pointSizeF() : 12.0;
    }

    QByteArray run();

private:
    void frame(const QTextFrame *frame);
    void table(const QTextTable *table, int depth);
    void cellContents(const QTextTableCell &cell, int depth);
    void block(const QTextBlock &block, int depth, const char *terminator);
    void paragraphFormat(const QTextBlock &block, int depth);
    void fragment(const QTextFragment &fragment, int heading);
    void picture(const QTextImageFormat &format);
    QByteArray charFormat(const QTextCharFormat &f, int heading);
    void text(QStringView s, QByteArray &out) const;
    int fontIndex(const QString &family);
    int colorIndex(const QColor &color);
    void closeLink();

    const QTextDocument &m_doc;
    QByteArray m_body;
    QStringList m_fonts;
    QList<QColor> m_colors;
    qreal m_basePoints = 12.0;
    QString m_openLink;
};

QByteArray Writer::run()
{
    frame(m_doc.rootFrame());
    QByteArray out = "{\\rtf1\\ansi\\ansicpg1252\\deff0\\uc1\r\n{\\fonttbl";
    for (qsizetype i = 0; i < m_fonts.size(); ++i) {
        out += "{\\f" + QByteArray::number(i) + "\\fnil\\fcharset0 ";
        QString name = m_fonts.at(i);
        text(name.remove(u';'), out);
        out += ";}";
    }
    out += "}\r\n{\\colortbl;";
    for (const QColor &c : std::as_const(m_colors))
        out += "\\red" + QByteArray::number(c.red()) + "\\green" + QByteArray::number(c.green())
             + "\\blue" + QByteArray::number(c.blue()) + ';';
    out += "}\r\n";
    out += m_body;
    out += "}\r\n";
    return out;
}

void Writer::frame(const QTextFrame *f)
{
    // Every paragraph ends with \par, the last one too: readers drop a trailing empty paragraph,
    // so a document that ends in one keeps it.
    for (auto it = f->begin(); !it.atEnd(); ++it) {
        if (QTextFrame *child = it.currentFrame()) {
            if (auto *t = qobject_cast<QTextTable *>(child))
                table(t, 1);
            else
                frame(child);
        } else if (it.currentBlock().isValid()) {
            block(it.currentBlock(), 0, "\\par\r\n");
        }
    }
}

void Writer::table(const QTextTable *t, int depth)
{
    const int columns = t->columns();
    const QList<QTextLength> widths = t->format().columnWidthConstraints();
    QByteArray rowDefinition = "\\trowd\\trgaph108";
    int x = 0;
    for (int c = 0; c < columns; ++c) {
        const QTextLength w = c < widths.size() ? widths.at(c) : QTextLength();
        int span = kTextWidth / columns / depth;
        if (w.type() == QTextLength::FixedLength)
            span = twips(w.rawValue());
        else if (w.type() == QTextLength::PercentageLength)
            span = qRound(kTextWidth * w.rawValue() / 100.0);
        x += std::max(span, 60);
        rowDefinition += "\\cellx" + QByteArray::number(x);
    }
    const QByteArray cellEnd = depth > 1 ? "\\nestcell" : "\\cell";
    for (int r = 0; r < t->rows(); ++r) {
        if (depth == 1)
            m_body += rowDefinition + "\r\n";
        for (int c = 0; c < columns; ++c) {
            const QTextTableCell cell = t->cellAt(r, c);
            if (cell.row() != r || cell.column() != c) {
                // Covered by a merged cell: write it empty so the columns still line up.
                m_body += "\\pard\\intbl\\itap" + QByteArray::number(depth) + cellEnd + "\r\n";
                continue;
            }
            cellContents(cell, depth);
        }
        if (depth == 1)
            m_body += "\\row\r\n";
        else
            m_body += "{\\*\\nesttableprops" + rowDefinition + "\\nestrow}{\\nonesttables\\par}\r\n";
    }
}

void Writer::cellContents(const QTextTableCell &cell, int depth)
{
    const char *cellEnd = depth > 1 ? "\\nestcell\r\n" : "\\cell\r\n";
    // A \par just before \cell makes no paragraph, so a cell that ends in an empty one
    // needs one more to keep it.
    const char *emptyCellEnd = depth > 1 ? "\\par\\nestcell\r\n" : "\\par\\cell\r\n";
    for (auto it = cell.begin(); !it.atEnd(); ++it) {
        if (QTextFrame *child = it.currentFrame()) {
            if (auto *t = qobject_cast<QTextTable *>(child))
                table(t, depth + 1);
            continue;
        }
        QTextFrame::iterator next = it;
        ++next;
        const QTextBlock b = it.currentBlock();
        const bool onlyBlock = it == cell.begin() && next.atEnd();
        block(b, depth, !next.atEnd() ? "\\par\r\n" : (b.length() <= 1 && !onlyBlock) ? emptyCellEnd : cellEnd);
    }
}

void Writer::block(const QTextBlock &b, int depth, const char *terminator)
{
    paragraphFormat(b, depth);
    const int heading = b.blockFormat().headingLevel();
    if (const QTextList *list = b.textList()) {
        // itemText() gives bullet lists just their number suffix, so name the bullets here.
        QString label;
        switch (list->format().style()) {
        case QTextListFormat::ListDisc: label = u"\u2022"_s; break;
        case QTextListFormat::ListCircle: label = u"\u25E6"_s; break;
        case QTextListFormat::ListSquare: label = u"\u25AA"_s; break;
        default: label = list->itemText(b); break;
        }
        m_body += "{\\listtext ";
        text(label, m_body);
        m_body += "\\tab}";
    }
    for (auto it = b.begin(); !it.atEnd(); ++it)
        fragment(it.fragment(), heading);
    closeLink();
    m_body += terminator;
}

void Writer::paragraphFormat(const QTextBlock &b, int depth)
{
    const QTextBlockFormat f = b.blockFormat();
    m_body += "\\pard";
    if (depth == 1)
        m_body += "\\intbl";
    else if (depth > 1)
        m_body += "\\intbl\\itap" + QByteArray::number(depth);
    const Qt::Alignment a = f.alignment() & Qt::AlignHorizontal_Mask;
    if (a & Qt::AlignHCenter)
        m_body += "\\qc";
    else if (a & Qt::AlignJustify)
        m_body += "\\qj";
    else if (a & Qt::AlignRight)
        m_body += "\\qr";
    qreal left = f.leftMargin() + f.indent() * m_doc.indentWidth();
    qreal first = f.textIndent();
    if (const QTextList *list = b.textList()) {
        left += list->format().indent() * m_doc.indentWidth();
        first = -24; // hanging, so the label sits in the margin
    }
    if (left > 0)
        m_body += "\\li" + QByteArray::number(twips(left));
    if (f.rightMargin() > 0)
        m_body += "\\ri" + QByteArray::number(twips(f.rightMargin()));
    if (first != 0)
        m_body += "\\fi" + QByteArray::number(twips(first));
    if (f.topMargin() > 0)
        m_body += "\\sb" + QByteArray::number(twips(f.topMargin()));
    if (f.bottomMargin() > 0)
        m_body += "\\sa" + QByteArray::number(twips(f.bottomMargin()));
    switch (f.lineHeightType()) {
    case QTextBlockFormat::ProportionalHeight:
        if (f.lineHeight() != 100)
            m_body += "\\sl" + QByteArray::number(qRound(f.lineHeight() * 2.4)) + "\\slmult1";
        break;
    case QTextBlockFormat::MinimumHeight:
        m_body += "\\sl" + QByteArray::number(twips(f.lineHeight())) + "\\slmult0";
        break;
    case QTextBlockFormat::FixedHeight:
        m_body += "\\sl-" + QByteArray::number(twips(f.lineHeight())) + "\\slmult0";
        break;
    default: break;
    }
    for (const QTextOption::Tab &tab : f.tabPositions())
        m_body += "\\tx" + QByteArray::number(twips(tab.position));
    if (f.headingLevel() > 0 && f.headingLevel() <= 9)
        m_body += "\\outlinelevel" + QByteArray::number(f.headingLevel() - 1);
    if (f.pageBreakPolicy() & QTextFormat::PageBreak_AlwaysBefore)
        m_body += "\\pagebb";
    m_body += ' ';
}

void Writer::fragment(const QTextFragment &fragment, int heading)
{
    const QTextCharFormat f = fragment.charFormat();
    const QString href = f.isAnchor() ? f.anchorHref() : QString();
    if (href != m_openLink) {
        closeLink();
        if (!href.isEmpty()) {
            m_body += "{\\field{\\*\\fldinst{HYPERLINK ";
            QString target = href;
            if (target.startsWith(u'#')) {
                m_body += "\\\\l ";
                target.remove(0, 1);
            }
            m_body += '"';
            text(target.replace(u'"', u"%22"_s), m_body);
            m_body += "\"}}{\\fldrslt ";
            m_openLink = href;
        }
    }
    for (const QString &name : f.anchorNames()) {
        QByteArray encoded;
        text(name, encoded);
        m_body += "{\\*\\bkmkstart " + encoded + "}{\\*\\bkmkend " + encoded + '}';
    }
    if (f.isImageFormat()) {
        picture(f.toImageFormat());
        return;
    }
    m_body += '{' + charFormat(f, heading) + ' ';
    text(fragment.text(), m_body);
    m_body += '}';
}

void Writer::closeLink()
{
    if (m_openLink.isEmpty())
        return;
    m_body += "}}";
    m_openLink.clear();
}

void Writer::picture(const QTextImageFormat &f)
{
    const QVariant resource = m_doc.resource(QTextDocument::ImageResource, QUrl(f.name()));
    QImage image = resource.value<QImage>();
    if (image.isNull())
        image = resource.value<QPixmap>().toImage();
    if (image.isNull())
        image.loadFromData(resource.toByteArray());
    if (image.isNull()) {
        m_body += "{\\i [picture]}";
        return;
    }
    QByteArray png;
    QBuffer buffer(&png);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "PNG");
    const qreal w = f.width() > 0 ? f.width() : image.width();
    const qreal h = f.height() > 0 ? f.height() : image.height();
    m_body += "{\\pict\\pngblip\\picw" + QByteArray::number(image.width()) + "\\pich"
            + QByteArray::number(image.height()) + "\\picwgoal" + QByteArray::number(twips(w))
            + "\\pichgoal" + QByteArray::number(twips(h)) + "\r\n";
    const QByteArray hex = png.toHex();
    for (qsizetype i = 0; i < hex.size(); i += 128)
        m_body += hex.mid(i, 128) + "\r\n";
    m_body += '}';
}

QByteArray Writer::charFormat(const QTextCharFormat &f, int heading)
{
    QByteArray out;
    const QStringList families = f.fontFamilies().toStringList();
    if (!families.isEmpty() && !families.first().isEmpty())
        out += "\\f" + QByteArray::number(fontIndex(families.first()));
    // Headings keep their look in word processors that know nothing of heading levels.
    static constexpr qreal kHeadingPoints[] = {20, 16, 14, 13, 12, 12};
    static constexpr qreal kAdjustment[] = {0.7, 0.8, 1.0, 1.2, 1.5, 2.0, 2.4}; // -2..4
    qreal points = f.fontPointSize();
    if (points <= 0 && f.hasProperty(QTextFormat::FontSizeAdjustment)) {
        const int adjust = std::clamp(f.intProperty(QTextFormat::FontSizeAdjustment), -2, 4);
        points = m_basePoints * kAdjustment[adjust + 2];
    }
    if (points <= 0)
        points = heading > 0 ? kHeadingPoints[std::min(heading, 6) - 1] : m_basePoints;
    out += "\\fs" + QByteArray::number(qRound(points * 2));
    const bool explicitWeight = f.hasProperty(QTextFormat::FontWeight);
    if ((explicitWeight && f.fontWeight() >= QFont::DemiBold) || (!explicitWeight && heading > 0))
        out += "\\b";
    if (f.fontItalic())
        out += "\\i";
    switch (f.underlineStyle()) {
    case QTextCharFormat::NoUnderline: break;
    case QTextCharFormat::DotLine: out += "\\uld"; break;
    case QTextCharFormat::DashUnderline: out += "\\uldash"; break;
    case QTextCharFormat::WaveUnderline: out += "\\ulwave"; break;
    default: out += "\\ul"; break;
    }
    if (f.fontStrikeOut())
        out += "\\strike";
    if (f.foreground().style() != Qt::NoBrush)
        out += "\\cf" + QByteArray::number(colorIndex(f.foreground().color()));
    if (f.background().style() != Qt::NoBrush)
        out += "\\highlight" + QByteArray::number(colorIndex(f.background().color()));
    if (f.verticalAlignment() == QTextCharFormat::AlignSuperScript)
        out += "\\super";
    else if (f.verticalAlignment() == QTextCharFormat::AlignSubScript)
        out += "\\sub";
    if (f.fontCapitalization() == QFont::AllUppercase)
        out += "\\caps";
    else if (f.fontCapitalization() == QFont::SmallCaps)
        out += "\\scaps";
    return out;
}

void Writer::text(QStringView s, QByteArray &out) const
{
    for (QChar qc : s) {
        const char16_t c = qc.unicode();
        switch (c) {
        case u'\\': out += "\\\\"; continue;
        case u'{': out += "\\{"; continue;
        case u'}': out += "\\}"; continue;
        case u'\t': out += "\\tab "; continue;
        case QChar::LineSeparator: out += "\\line "; continue;
        case QChar::ParagraphSeparator: out += "\\par "; continue;
        case QChar::Nbsp: out += "\\~"; continue;
        case QChar::SoftHyphen: out += "\\-"; continue;
        case 0x2011: out += "\\_"; continue;
        case QChar::ObjectReplacementCharacter: continue;
        default: break;
        }
        if (c < 0x20)
            continue;
        if (c < 0x80) {
            out += char(c);
            continue;
        }
        if (const int b = toWindows1252(c); b >= 0x80) {
            static const char digits[] = "0123456789abcdef";
            out += "\\'";
            out += digits[b >> 4];
            out += digits[b & 15];
            continue;
        }
        // RTF's \u takes a signed 16-bit number; '?' is what older readers show instead.
        out += "\\u" + QByteArray::number(c > 32767 ? int(c) - 65536 : int(c)) + '?';
    }
}

int Writer::fontIndex(const QString &family)
{
    qsizetype i = m_fonts.indexOf(family);
    if (i < 0) {
        m_fonts.append(family);
        i = m_fonts.size() - 1;
    }
    return int(i);
}

int Writer::colorIndex(const QColor &color)
{
    const QColor c = color.toRgb();
    qsizetype i = m_colors.indexOf(c);
    if (i < 0) {
        m_colors.append(c);
        i = m_colors.size() - 1;
    }
    return int(i) + 1; // entry 0 is "auto"
}

} // namespace

QByteArray writeRtf(const QTextDocument &doc)
{
    return Writer(doc).run();
}

} // namespace sd::rtf
