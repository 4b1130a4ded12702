// The parts of the parser that deal with destinations: the font, colour and style tables,
// fields and hyperlinks, pictures, list text and legacy numbering, bookmarks and footnotes.
#include "ui/rtf/rtfparser.h"

#include "ui/files/datapath.h"
#include "ui/rtf/rtfcodepage.h"
#include "ui/rtf/rtfreader.h"
#include "ui/rtf/rtftokenizer.h"

#include <QImage>
#include <QTextDocument>

using namespace Qt::StringLiterals;

namespace sd::rtf {

namespace {

// HYPERLINK "url" [\l "bookmark"] [\o "tip"] [\t "frame"]: the link target, empty for other fields.
QString hyperlinkTarget(const QString &instruction)
{
    const QString s = instruction.trimmed();
    if (!s.startsWith(u"HYPERLINK"_s, Qt::CaseInsensitive))
        return {};
    const QStringView rest = QStringView(s).mid(9);
    QString url, anchor;
    bool wantAnchor = false, skipArgument = false;
    qsizetype i = 0;
    while (i < rest.size()) {
        if (rest[i].isSpace()) {
            ++i;
            continue;
        }
        if (rest[i] == u'\\' && i + 1 < rest.size()) {
            const QChar sw = rest[i + 1];
            wantAnchor = sw == u'l';
            skipArgument = sw == u'o' || sw == u't';
            i += 2;
            continue;
        }
        QString arg;
        if (rest[i] == u'"') {
            const qsizetype end = rest.indexOf(u'"', i + 1);
            arg = rest.mid(i + 1, (end < 0 ? rest.size() : end) - i - 1).toString();
            i = end < 0 ? rest.size() : end + 1;
        } else {
            const qsizetype start = i;
            while (i < rest.size() && !rest[i].isSpace())
                ++i;
            arg = rest.mid(start, i - start).toString();
        }
        if (std::exchange(skipArgument, false))
            continue;
        if (std::exchange(wantAnchor, false))
            anchor = arg;
        else if (url.isEmpty())
            url = arg;
    }
    if (!anchor.isEmpty())
        url += u'#' + anchor;
    return url;
}

FontInfo::Symbols symbolKind(const FontInfo &font)
{
    const QString name = font.family.toLower();
    if (name.contains(u"wingding"_s) || name.contains(u"webding"_s) || name.contains(u"dingbat"_s))
        return FontInfo::Dingbats;
    if (font.charset == 2 || name == u"symbol"_s)
        return FontInfo::SymbolFont;
    return FontInfo::NotSymbol;
}

} // namespace

void Parser::destination(Kw id)
{
    State &s = st();
    const bool body = s.dest == Dest::Normal;
    switch (id) {
    case Kw::FontTable: s.dest = Dest::FontTable; break;
    case Kw::ColorTable:
        s.dest = Dest::ColorTable;
        m_colorSet = false;
        m_red = m_green = m_blue = 0;
        break;
    case Kw::StyleSheet: s.dest = Dest::StyleSheet; break;
    case Kw::SkipGroup: s.dest = Dest::Skip; break;
    case Kw::Field:
        if (body) {
            m_fields.push_back(Field{});
            s.field = int(m_fields.size()) - 1;
        }
        break;
    case Kw::FieldInst: s.dest = body && s.field >= 0 ? Dest::FieldInst : Dest::Skip; break;
    case Kw::FieldResult:
        if (body)
            startFieldResult();
        break;
    case Kw::Pict:
        if (body) {
            s.dest = Dest::Pict;
            m_picture = Picture{};
        } else {
            s.dest = Dest::Skip;
        }
        break;
    case Kw::Footnote:
        if (body && !s.note)
            startFootnote();
        else
            s.dest = Dest::Skip;
        break;
    case Kw::ListText:
        if (body) {
            s.dest = Dest::ListText;
            m_listText.clear();
        }
        break;
    case Kw::Pn:
        s.dest = Dest::PnGroup;
        s.para.pn = PnProps{};
        break;
    case Kw::PnTextAfter:
    case Kw::PnTextBefore:
        s.dest = id == Kw::PnTextAfter ? Dest::PnTextAfter : Dest::PnTextBefore;
        m_pnText.clear();
        break;
    case Kw::Bookmark:
        s.dest = body ? Dest::Bookmark : Dest::Skip;
        m_bookmark.clear();
        break;
    case Kw::Upr: s.dest = Dest::Upr; break;
    default: break; // transparent groups: \shppict, \nesttableprops, \ud outside \upr...
    }
}

void Parser::groupEnded(const State &closed, State &parent)
{
    // Only the group that named a destination finishes it, not groups nested inside.
    const bool owner = closed.dest != parent.dest;
    switch (closed.dest) {
    case Dest::FontTable:
        if (m_fontNumber >= 0 && !m_fontName.trimmed().isEmpty())
            commitFont();
        break;
    case Dest::StyleEntry:
        if (owner && !m_styleDone && !m_styleName.trimmed().isEmpty())
            commitStyle(closed);
        break;
    case Dest::Pict:
        if (owner)
            finishPicture(closed);
        break;
    case Dest::ListText:
        if (owner)
            emitListText(closed);
        break;
    case Dest::PnGroup:
        if (owner)
            parent.para.pn = closed.para.pn; // numbering carries on past the \pn group
        break;
    case Dest::PnTextAfter:
    case Dest::PnTextBefore:
        if (owner) {
            (closed.dest == Dest::PnTextAfter ? parent.para.pn.after : parent.para.pn.before) = m_pnText;
            m_pnText.clear();
        }
        break;
    case Dest::Bookmark:
        if (owner)
            out(closed.note).addAnchorName(m_bookmark.trimmed());
        break;
    default: break;
    }
}

// --- fonts, colours and styles ---------------------------------------------------------------

void Parser::startFont(int number)
{
    if (m_fontNumber >= 0 && !m_fontName.trimmed().isEmpty())
        commitFont();
    m_fontNumber = number;
    m_font = FontInfo{};
    m_fontName.clear();
}

void Parser::fontText(QStringView s)
{
    for (QChar c : s) {
        if (c == u';')
            commitFont();
        else if (m_fontName.size() < 128)
            m_fontName.append(c);
    }
}

void Parser::commitFont()
{
    if (m_fontNumber >= 0 && m_tables.fonts.size() < 4096) {
        m_font.family = m_fontName.trimmed();
        m_font.symbols = symbolKind(m_font);
        m_tables.fonts.insert(m_fontNumber, m_font);
        m_cachedFont = -1000;
    }
    m_fontNumber = -1;
    m_fontName.clear();
}

void Parser::colorText(QStringView s)
{
    for (QChar c : s) {
        if (c != u';' || m_tables.colors.size() >= 4096)
            continue;
        m_tables.colors.append(m_colorSet ? QColor(m_red, m_green, m_blue) : QColor());
        m_colorSet = false;
        m_red = m_green = m_blue = 0;
    }
}

void Parser::styleText(QStringView s)
{
    for (QChar c : s) {
        if (c == u';')
            commitStyle(st());
        else if (m_styleName.size() < 128)
            m_styleName.append(c);
    }
}

void Parser::commitStyle(const State &s)
{
    if (m_styleDone || m_styles.size() >= 4096)
        return;
    m_styleDone = true;
    Style style{m_styleName.trimmed(), s.chr, s.para, m_styleIsParagraph};
    style.para.intbl = false;
    style.para.itap = -1;
    // Word names its heading styles "heading 1".."heading 9".
    const QString lower = style.name.toLower();
    if (style.para.heading == 0 && lower.startsWith(u"heading "_s)) {
        const int level = lower.mid(8).toInt();
        if (level >= 1 && level <= 9)
            style.para.heading = level;
    }
    m_styles.insert(m_styleNumber, style);
}

void Parser::applyStyle(int number, bool paragraphStyle)
{
    const auto it = m_styles.constFind(number);
    if (it == m_styles.cend())
        return;
    State &s = st();
    if (paragraphStyle) {
        const bool intbl = s.para.intbl;
        const int itap = s.para.itap;
        s.para = it->para;
        s.para.intbl = intbl;
        s.para.itap = itap;
    }
    const int link = s.chr.link;
    s.chr = it->chr;
    s.chr.link = link;
}

// --- fields -----------------------------------------------------------------------------------

void Parser::startFieldResult()
{
    State &s = st();
    if (s.field < 0)
        return;
    Field &f = m_fields[size_t(s.field)];
    if (!f.resolved) {
        f.resolved = true;
        const QString href = hyperlinkTarget(f.instruction);
        if (!href.isEmpty()) {
            m_tables.links.append(href);
            f.link = int(m_tables.links.size()) - 1;
        }
    }
    if (f.link >= 0)
        s.chr.link = f.link;
}

// --- pictures ---------------------------------------------------------------------------------

void Parser::picture(Kw id, const Token &t)
{
    if (st().dest != Dest::Pict)
        return;
    Picture &p = m_picture;
    const int v = std::clamp(t.param, 0, 1'000'000);
    switch (id) {
    case Kw::PngBlip:
    case Kw::JpegBlip:
    case Kw::OtherBlip: p.kind = id; break;
    case Kw::PicW: p.width = v; break;
    case Kw::PicH: p.height = v; break;
    case Kw::PicGoalW: p.goalWidth = v; break;
    case Kw::PicGoalH: p.goalHeight = v; break;
    case Kw::PicScaleX: p.scaleX = std::clamp(v, 1, 1000); break;
    case Kw::PicScaleY: p.scaleY = std::clamp(v, 1, 1000); break;
    default: break;
    }
}

void Parser::pictureData(std::string_view hex)
{
    Picture &p = m_picture;
    if (p.data.size() + qsizetype(hex.size() / 2) > kMaxPictureBytes)
        return;
    // Written straight into the picture's bytes: a picture is most of many documents.
    const qsizetype start = p.data.size();
    p.data.resize(start + qsizetype(hex.size() / 2) + 1);
    char *const begin = p.data.data();
    char *out = begin + start;
    int nibble = p.nibble;
    for (char c : hex) {
        const int v = hexValue(c);
        if (v < 0)
            continue; // spaces, and junk a careless writer left in
        if (nibble < 0) {
            nibble = v;
        } else {
            *out++ = char(nibble * 16 + v);
            nibble = -1;
        }
    }
    p.nibble = nibble;
    p.data.resize(out - begin);
}


void Parser::finishPicture(const State &s)
{
    Picture p = std::exchange(m_picture, Picture{});
    if (s.chr.hidden)
        return;
    QImage image;
    bool shown = false;
    bool tooLarge = false;
    if ((p.kind == Kw::PngBlip || p.kind == Kw::JpegBlip) && !m_doc) {
        // Text only: the header tells whether the picture would show.
        shown = pictureHeaderFits(p.data, p.kind == Kw::PngBlip ? "PNG" : "JPEG", &tooLarge);
        if (!shown && !tooLarge)
            shown = pictureHeaderFits(p.data, nullptr, &tooLarge);
    } else if (p.kind == Kw::PngBlip || p.kind == Kw::JpegBlip) {
        image = decodePicture(p.data, p.kind == Kw::PngBlip ? "PNG" : "JPEG", &tooLarge);
        if (image.isNull() && !tooLarge)
            image = decodePicture(p.data, nullptr, &tooLarge); // some writers label one kind as the other
        shown = !image.isNull();
    }
    if (!s.note)
        startParagraph();
    DocumentBuilder &b = out(s.note);
    if (!m_doc && shown) {
        b.image(image, QSizeF(), s.chr, s.para);
        return;
    }
    if (!shown) {
        // Metafiles and device bitmaps cannot be shown; say where the picture was.
        CharProps c = s.chr;
        c.italic = true;
        b.text(tooLarge ? u"[picture too large]" : u"[picture]", c, s.para);
        return;
    }
    // \picwgoal is in twips, 15 to a screen pixel; a bitmap's \picw is in pixels.
    qreal w = p.goalWidth > 0 ? p.goalWidth / 15.0 : (p.width > 0 ? p.width : image.width());
    qreal h = p.goalHeight > 0 ? p.goalHeight / 15.0 : (p.height > 0 ? p.height : image.height());
    w = std::clamp(w * p.scaleX / 100.0, 1.0, 4000.0);
    h = std::clamp(h * p.scaleY / 100.0, 1.0, 4000.0);
    b.image(image, QSizeF(w, h), s.chr, s.para);
}

// --- list text and footnotes --------------------------------------------------------------

void Parser::emitListText(const State &s)
{
    // The label keeps its tabs: they line it up with the paragraph's tab stops.
    QString label = std::exchange(m_listText, QString());
    const QString trimmed = label.trimmed();
    if (s.chr.hidden || trimmed.isEmpty())
        return;
    // Word's second-level bullet is a Courier "o": show it as the white bullet it stands for.
    if (trimmed == u"o"_s)
        label.replace(u'o', u'\u25E6');
    if (!label.back().isSpace())
        label += u'\t';
    if (!s.note) {
        m_paraStarted = true;
        m_paraHasListText = true;
    }
    out(s.note).text(label, s.chr, s.para);
}

void Parser::startFootnote()
{
    State &s = st();
    s.note = true;
    s.dest = Dest::Normal;
    if (!m_notes && !m_doc) {
        m_notes = std::make_unique<DocumentBuilder>(m_tables);
    } else if (!m_notes) {
        m_notesDoc = std::make_unique<QTextDocument>();
        m_notesDoc->setUndoRedoEnabled(false);
        m_notes = std::make_unique<DocumentBuilder>(*m_notesDoc, m_tables, m_doc);
    } else {
        m_notes->newParagraph(s.chr, ParaProps{});
    }
    // Footnotes with their own marks have no \chftn in the body: number them here.
    if (!std::exchange(m_noteRefPending, false))
        ++m_noteNumber;
}

void Parser::footnoteMark()
{
    State &s = st();
    if (s.dest != Dest::Normal || s.chr.hidden)
        return;
    if (s.note) {
        m_notes->text(QString(u'[' + QString::number(m_noteNumber) + u"] "), s.chr, s.para);
        return;
    }
    ++m_noteNumber;
    m_noteRefPending = true;
    CharProps c = s.chr;
    c.valign = VAlign::Super;
    startParagraph();
    m_main.text(QString(u'[' + QString::number(m_noteNumber) + u']'), c, s.para);
}

// --- paragraphs and legacy numbering ------------------------------------------------------

namespace {

QString roman(int n, bool upper)
{
    if (n <= 0 || n >= 4000)
        return QString::number(n);
    static const std::pair<int, const char *> parts[] = {
        {1000, "m"}, {900, "cm"}, {500, "d"}, {400, "cd"}, {100, "c"}, {90, "xc"},
        {50, "l"}, {40, "xl"}, {10, "x"}, {9, "ix"}, {5, "v"}, {4, "iv"}, {1, "i"}};
    QString s;
    for (const auto &[value, text] : parts) {
        while (n >= value) {
            s += QLatin1StringView(text);
            n -= value;
        }
    }
    return upper ? s.toUpper() : s;
}

QString letters(int n, bool upper)
{
    if (n <= 0)
        return QString::number(n);
    QString s;
    for (; n > 0; n = (n - 1) / 26)
        s.prepend(QChar((upper ? u'A' : u'a') + (n - 1) % 26));
    return s;
}

QString pnLabel(const PnProps &pn, int number)
{
    QString label;
    switch (pn.kind) {
    case PnProps::None: return {};
    case PnProps::Bullet: return pn.before.isEmpty() ? u"\u2022"_s : pn.before;
    case PnProps::Decimal: label = QString::number(number); break;
    case PnProps::UpperAlpha: label = letters(number, true); break;
    case PnProps::LowerAlpha: label = letters(number, false); break;
    case PnProps::UpperRoman: label = roman(number, true); break;
    case PnProps::LowerRoman: label = roman(number, false); break;
    }
    if (pn.before.isEmpty() && pn.after.isEmpty())
        return label + u'.';
    return pn.before + label + pn.after;
}

} // namespace

void Parser::startParagraph()
{
    if (m_paraStarted)
        return;
    m_paraStarted = true;
    const State &s = st();
    const PnProps &pn = s.para.pn;
    if (pn.kind == PnProps::None || m_paraHasListText)
        return;
    // Old writers give the number only on the first item; the reader counts the rest.
    m_pnCounter = m_pnPrevious == pn.kind ? m_pnCounter + 1 : pn.start;
    m_paraCounted = true;
    m_main.text(QString(pnLabel(pn, m_pnCounter) + u'\t'), s.chr, s.para);
}

void Parser::endParagraph()
{
    const State &s = st();
    if (s.note)
        return;
    const PnProps &pn = s.para.pn;
    if (pn.kind != PnProps::None && !m_paraCounted)
        m_pnCounter = m_pnPrevious == pn.kind ? m_pnCounter + 1 : pn.start;
    m_pnPrevious = pn.kind;
    m_paraStarted = false;
    m_paraHasListText = false;
    m_paraCounted = false;
}

} // namespace sd::rtf
