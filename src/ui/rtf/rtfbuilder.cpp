#include "ui/rtf/rtfbuilder.h"

#include <QFont>
#include <QImage>
#include <QTextBlock>
#include <QTextDocument>
#include <QTextDocumentFragment>
#include <QTextTable>
#include <QUrl>

using namespace Qt::StringLiterals;

namespace sd::rtf {

namespace {

// Document units are pixels at 96 dpi: 15 twips each.
constexpr qreal px(int twips) { return twips / 15.0; }

const QColor kLinkColor(0x1a, 0x4f, 0xa0);
const QColor kGridColor(0x99, 0x99, 0x99);

// The characters QTextDocument keeps between blocks and around table cells.
constexpr char16_t kBlock = QChar::ParagraphSeparator;
constexpr char16_t kFrameStart = 0xFDD0;
constexpr char16_t kFrameEnd = 0xFDD1;

bool separates(char16_t c) { return c == kBlock || c == kFrameStart || c == kFrameEnd; }

} // namespace

DocumentBuilder::DocumentBuilder(QTextDocument &doc, const DocTables &tables, QTextDocument *resourceDoc)
    : m_doc(&doc), m_resources(resourceDoc ? resourceDoc : &doc), m_tables(tables), m_cursor(&doc)
{
}

DocumentBuilder::DocumentBuilder(const DocTables &tables)
    : m_doc(nullptr), m_resources(nullptr), m_tables(tables), m_textOnly(true)
{
}

QString &DocumentBuilder::target()
{
    if (m_levels.empty())
        return m_raw;
    Level &l = m_levels.back();
    return l.cells[std::size_t(l.row)][std::size_t(l.col)];
}

bool DocumentBuilder::blockEmpty() const
{
    if (!m_textOnly)
        return m_cursor.block().length() <= 1;
    const QString *t = &m_raw;
    if (!m_levels.empty()) {
        const Level &l = m_levels.back();
        t = &l.cells[std::size_t(l.row)][std::size_t(l.col)];
    }
    return t->isEmpty() || separates(t->back().unicode());
}

void DocumentBuilder::insertRawText(QStringView s)
{
    // As QTextCursor::insertText: line ends and separators in the text start new blocks.
    QString &t = target();
    t.reserve(t.size() + s.size());
    for (qsizetype i = 0; i < s.size(); ++i) {
        char16_t c = s[i].unicode();
        if (c == u'\r' && i + 1 < s.size() && s[i + 1] == u'\n')
            c = s[++i].unicode();
        t.append(QChar(c == u'\n' || c == u'\r' || separates(c) ? kBlock : c));
    }
}

QString DocumentBuilder::plainText() const
{
    // As QTextDocument::toPlainText().
    QString out = m_raw;
    for (QChar &c : out) {
        const char16_t u = c.unicode();
        if (separates(u) || u == QChar::LineSeparator)
            c = u'\n';
        else if (u == QChar::Nbsp)
            c = u' ';
    }
    return out;
}

void DocumentBuilder::text(QStringView s, const CharProps &c, const ParaProps &p)
{
    if (s.isEmpty())
        return;
    // Text that moves into or out of a table cannot share the buffer with what came before.
    if (!m_buffer.isEmpty() && (!(c == m_bufferProps) || p.tableDepth() != m_bufferDepth))
        flushText();
    if (m_buffer.isEmpty()) {
        prepareContent(c, p);
        m_bufferProps = c;
        m_bufferDepth = p.tableDepth();
    }
    m_buffer.append(s);
    m_contentCount += s.size();
}

void DocumentBuilder::flushText()
{
    if (m_buffer.isEmpty())
        return;
    if (m_textOnly) {
        insertRawText(m_buffer);
        m_anchorNames.clear();
    } else if (m_anchorNames.isEmpty()) {
        m_cursor.insertText(m_buffer, charFormat(m_bufferProps));
    } else {
        QTextCharFormat f = charFormat(m_bufferProps);
        f.setAnchor(true);
        f.setAnchorNames(m_anchorNames);
        m_anchorNames.clear();
        m_cursor.insertText(m_buffer, f);
    }
    m_buffer.resize(0);
}

void DocumentBuilder::paragraphEnd(const CharProps &c, const ParaProps &p)
{
    flushText();
    prepareContent(c, p);
    // RTF gives a paragraph the formatting in force at its end mark.
    if (!m_textOnly)
        m_cursor.setBlockFormat(blockFormat(p));
    m_pending = true;
}

void DocumentBuilder::pageBreak(const CharProps &c, const ParaProps &p)
{
    paragraphEnd(c, p);
    m_pageBreakNext = true;
}

void DocumentBuilder::newParagraph(const CharProps &c, const ParaProps &p)
{
    flushText();
    if (!m_pending && !m_fresh)
        paragraphEnd(c, p);
}

void DocumentBuilder::image(const QImage &image, QSizeF size, const CharProps &c, const ParaProps &p)
{
    flushText();
    prepareContent(c, p);
    if (m_textOnly) {
        target().append(QChar::ObjectReplacementCharacter);
        ++m_contentCount;
        return;
    }
    const QString prefix = m_resources == m_doc ? u"rtf-image-"_s : u"rtf-note-image-"_s;
    const QString name = prefix + QString::number(++m_imageCount);
    m_resources->addResource(QTextDocument::ImageResource, QUrl(name), image);
    QTextImageFormat f;
    f.merge(charFormat(c));
    f.setName(name);
    f.setWidth(size.width());
    f.setHeight(size.height());
    m_cursor.insertImage(f);
    ++m_contentCount;
}

void DocumentBuilder::addAnchorName(const QString &name)
{
    flushText(); // the name belongs to the text that follows
    if (!name.isEmpty() && m_anchorNames.size() < 16)
        m_anchorNames.append(name);
}

void DocumentBuilder::prepareContent(const CharProps &c, const ParaProps &p)
{
    syncDepth(p.tableDepth());
    if (!m_levels.empty() && !m_levels.back().entered)
        enterCell(m_levels.back());
    if (m_pending) {
        m_blockPageBreak = m_pageBreakNext;
        m_pageBreakNext = false;
        if (m_textOnly)
            target().append(QChar(kBlock));
        else
            m_cursor.insertBlock(blockFormat(p), charFormat(c));
        m_pending = false;
    } else if (m_fresh) {
        m_blockPageBreak = m_pageBreakNext;
        m_pageBreakNext = false;
        if (!m_textOnly) {
            m_cursor.setBlockFormat(blockFormat(p));
            m_cursor.setBlockCharFormat(charFormat(c));
        }
    }
    m_fresh = false;
}

// --- tables -------------------------------------------------------------------------------

void DocumentBuilder::addCellBoundary(int twips)
{
    if (m_rowDefinition.size() < kMaxColumns)
        m_rowDefinition.append(twips);
}

void DocumentBuilder::syncDepth(int depth)
{
    depth = std::clamp(depth, 0, kMaxTableDepth);
    if (depth == m_depthAsked) {
        // The same level as before: stay in the table it was mapped to.
        depth = m_depthGiven;
    } else {
        m_depthAsked = depth;
        // Inside a table a paragraph can only go one level deeper; a table that starts
        // nested (its first cell opens with an inner table) opens every level at once.
        if (!m_levels.empty() && depth > int(m_levels.size()))
            depth = int(m_levels.size()) + 1;
        m_depthGiven = depth;
    }
    while (int(m_levels.size()) > depth)
        closeTable();
    while (int(m_levels.size()) < depth)
        openTable();
}

void DocumentBuilder::openTable()
{
    flushText();
    if (!m_levels.empty() && !m_levels.back().entered)
        enterCell(m_levels.back());

    // A nested table's row definition comes after its cells, so it starts with one column.
    int columns = m_levels.empty() ? std::max<int>(1, m_rowDefinition.size()) : 1;
    if (m_textOnly) {
        m_pending = false;
        const int cols = std::min(columns, kMaxColumns);
        m_levels.push_back(Level{nullptr, 0, 0, 1, true, {std::vector<QString>(std::size_t(cols))}});
        m_fresh = true;
        return;
    }
    QTextTableFormat f;
    f.setBorder(1);
    f.setBorderStyle(QTextFrameFormat::BorderStyle_Solid);
    f.setBorderBrush(kGridColor);
    f.setBorderCollapse(true);
    f.setCellPadding(4);
    f.setCellSpacing(0);
    if (m_levels.empty() && !m_rowDefinition.isEmpty()) {
        QList<QTextLength> widths;
        int left = 0;
        for (int x : std::as_const(m_rowDefinition)) {
            if (x <= left)
                break;
            widths.append(QTextLength(QTextLength::FixedLength, px(x - left)));
            left = x;
        }
        if (widths.size() == columns)
            f.setColumnWidthConstraints(widths);
    }
    columns = std::min(columns, kMaxColumns);
    m_pending = false;
    QTextTable *table = m_cursor.insertTable(1, columns, f);
    m_levels.push_back(Level{table, 0, 0, 1, true, {}});
    m_fresh = true;
}

void DocumentBuilder::closeTable()
{
    flushText();
    if (m_textOnly) {
        // The table as the document holds it: a frame start before each cell, a frame end after all.
        const Level level = std::move(m_levels.back());
        m_levels.pop_back();
        QString &t = target();
        for (int r = 0; r < level.usedRows; ++r) {
            for (const QString &cell : level.cells[std::size_t(r)]) {
                t.append(QChar(kFrameStart));
                t.append(cell);
            }
        }
        t.append(QChar(kFrameEnd));
        m_fresh = true; // the block after the table is empty
        m_pending = false;
        return;
    }
    const Level level = m_levels.back();
    m_levels.pop_back();
    if (level.table->rows() > level.usedRows)
        level.table->removeRows(level.usedRows, level.table->rows() - level.usedRows);
    m_cursor.setPosition(level.table->lastPosition() + 1);
    m_fresh = m_cursor.block().length() <= 1;
    m_pending = !m_fresh;
}

void DocumentBuilder::enterCell(Level &level)
{
    if (m_textOnly) {
        auto &cells = level.cells;
        const std::size_t columns = cells.front().size();
        if (level.row >= int(cells.size())) {
            const std::size_t wanted = std::size_t(level.row) + 1 - cells.size();
            cells.resize(cells.size() + std::max(wanted, std::min<std::size_t>(cells.size(), 256)),
                         std::vector<QString>(columns));
        }
        if (level.col >= int(columns))
            for (auto &row : cells)
                row.resize(std::size_t(level.col) + 1);
        level.entered = true;
        level.usedRows = std::max(level.usedRows, level.row + 1);
        m_fresh = blockEmpty();
        m_pending = !m_fresh;
        return;
    }
    QTextTable *t = level.table;
    if (level.row >= t->rows()) {
        // Growing one row at a time makes Qt re-lay the whole grid each time.
        const int wanted = level.row + 1 - t->rows();
        t->appendRows(std::max(wanted, std::min(t->rows(), 256)));
    }
    if (level.col >= t->columns()) {
        t->appendColumns(level.col + 1 - t->columns());
        QTextTableFormat f = t->format();
        if (!f.columnWidthConstraints().isEmpty()) {
            f.clearColumnWidthConstraints();
            t->setFormat(f);
        }
    }
    m_cursor = t->cellAt(level.row, level.col).lastCursorPosition();
    level.entered = true;
    level.usedRows = std::max(level.usedRows, level.row + 1);
    m_fresh = blockEmpty();
    m_pending = !m_fresh;
}

void DocumentBuilder::cellEnd(const ParaProps &p)
{
    flushText();
    syncDepth(std::max(1, p.tableDepth()));
    Level &level = m_levels.back();
    if (!level.entered)
        enterCell(level);
    if (level.col + 1 < kMaxColumns)
        ++level.col;
    level.entered = false;
    m_pending = false;
}

void DocumentBuilder::rowEnd(const ParaProps &p)
{
    flushText();
    if (m_levels.empty())
        return;
    syncDepth(std::max(1, p.tableDepth()));
    Level &level = m_levels.back();
    if (level.col == 0 && !level.entered)
        return; // a row with no cells
    ++level.row;
    level.col = 0;
    level.entered = false;
    m_pending = false;
}

// --- end of document -------------------------------------------------------------------

void DocumentBuilder::finish()
{
    flushText();
    syncDepth(0);
}

void DocumentBuilder::appendNotes(const DocumentBuilder &notes)
{
    finish();
    if (notes.m_raw.isEmpty())
        return;
    if (!m_fresh || !blockEmpty())
        m_raw.append(QChar(kBlock));
    m_raw.append(QChar(kBlock));
    m_raw.append(notes.m_raw);
    m_contentCount += notes.m_raw.size() + 1;
    m_fresh = false;
    m_pending = false;
}

void DocumentBuilder::appendNotes(const QTextDocument &notes)
{
    finish();
    if (notes.isEmpty())
        return;
    if (!m_fresh || m_cursor.block().length() > 1)
        m_cursor.insertBlock();
    QTextBlockFormat rule;
    rule.setProperty(QTextFormat::BlockTrailingHorizontalRulerWidth,
                     QTextLength(QTextLength::PercentageLength, 30));
    m_cursor.setBlockFormat(rule);
    m_cursor.insertBlock(QTextBlockFormat());
    m_cursor.insertFragment(QTextDocumentFragment(&notes));
    m_contentCount += notes.characterCount();
    m_fresh = false;
    m_pending = false;
}

// --- formats -----------------------------------------------------------------------------

QTextBlockFormat DocumentBuilder::blockFormat(const ParaProps &p) const
{
    QTextBlockFormat f;
    switch (p.align) {
    case Align::Left: f.setAlignment(Qt::AlignLeft); break;
    case Align::Right: f.setAlignment(Qt::AlignRight); break;
    case Align::Center: f.setAlignment(Qt::AlignHCenter); break;
    case Align::Justify: f.setAlignment(Qt::AlignJustify); break;
    }
    if (p.li > 0)
        f.setLeftMargin(px(p.li));
    if (p.ri > 0)
        f.setRightMargin(px(p.ri));
    if (p.fi != 0)
        f.setTextIndent(px(std::max(p.fi, -std::max(p.li, 0))));
    if (p.sb > 0)
        f.setTopMargin(px(p.sb));
    if (p.sa > 0)
        f.setBottomMargin(px(p.sa));
    if (p.sl > 0 && p.slMult)
        f.setLineHeight(std::clamp(p.sl * 100.0 / 240.0, 50.0, 500.0), QTextBlockFormat::ProportionalHeight);
    else if (p.sl > 0)
        f.setLineHeight(std::min(px(p.sl), 500.0), QTextBlockFormat::MinimumHeight);
    else if (p.sl < 0)
        f.setLineHeight(std::min(px(-p.sl), 500.0), QTextBlockFormat::FixedHeight);
    // RTF measures tab stops from the left margin, Qt from where the first line starts.
    const int lineStart = std::max(0, std::max(p.li, 0) + p.fi);
    QList<int> stops = p.tabs;
    // Word treats a hanging indent as a tab stop too, so "1.<tab>text" lines up.
    if (p.fi < 0 && p.li > 0)
        stops.append(p.li);
    std::sort(stops.begin(), stops.end());
    QList<QTextOption::Tab> tabs;
    for (int t : std::as_const(stops)) {
        if (t > lineStart && (tabs.isEmpty() || px(t - lineStart) > tabs.last().position))
            tabs.append(QTextOption::Tab(px(t - lineStart), QTextOption::LeftTab));
    }
    if (!tabs.isEmpty())
        f.setTabPositions(tabs);
    if (p.heading > 0)
        f.setHeadingLevel(p.heading);
    if (p.pageBreakBefore || m_blockPageBreak)
        f.setPageBreakPolicy(QTextFormat::PageBreak_AlwaysBefore);
    return f;
}

const QTextCharFormat &DocumentBuilder::charFormat(const CharProps &c)
{
    if (m_formatValid && c == m_formatProps)
        return m_format;
    QTextCharFormat f;
    if (const FontInfo *font = m_tables.font(c.font);
        font && font->symbols == FontInfo::NotSymbol && !font->family.isEmpty()) {
        QStringList families{font->family};
        switch (font->generic) {
        case FontInfo::Serif: families.append(u"serif"_s); break;
        case FontInfo::Sans: families.append(u"sans-serif"_s); break;
        case FontInfo::Mono: families.append(u"monospace"_s); break;
        default: break;
        }
        f.setFontFamilies(families);
    }
    f.setFontPointSize(std::clamp(c.halfPoints, 2, 3276) / 2.0);
    if (c.bold)
        f.setFontWeight(QFont::Bold);
    if (c.italic)
        f.setFontItalic(true);
    switch (c.underline) {
    case Underline::None: break;
    case Underline::Single: f.setUnderlineStyle(QTextCharFormat::SingleUnderline); break;
    case Underline::Dotted: f.setUnderlineStyle(QTextCharFormat::DotLine); break;
    case Underline::Dashed: f.setUnderlineStyle(QTextCharFormat::DashUnderline); break;
    case Underline::Wave: f.setUnderlineStyle(QTextCharFormat::WaveUnderline); break;
    }
    if (c.strike)
        f.setFontStrikeOut(true);
    const QColor fg = m_tables.color(c.fg);
    if (fg.isValid())
        f.setForeground(fg);
    const QColor bg = m_tables.color(c.bg);
    if (bg.isValid())
        f.setBackground(bg);
    if (c.valign == VAlign::Super)
        f.setVerticalAlignment(QTextCharFormat::AlignSuperScript);
    else if (c.valign == VAlign::Sub)
        f.setVerticalAlignment(QTextCharFormat::AlignSubScript);
    if (c.caps == Caps::All)
        f.setFontCapitalization(QFont::AllUppercase);
    else if (c.caps == Caps::Small)
        f.setFontCapitalization(QFont::SmallCaps);
    if (c.link >= 0 && c.link < m_tables.links.size()) {
        f.setAnchor(true);
        f.setAnchorHref(m_tables.links.at(c.link));
        if (!fg.isValid())
            f.setForeground(kLinkColor);
        if (c.underline == Underline::None)
            f.setFontUnderline(true);
    }
    m_format = f;
    m_formatProps = c;
    m_formatValid = true;
    return m_format;
}

} // namespace sd::rtf
