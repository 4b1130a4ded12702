#include "ui/rtf/rtfparser.h"

#include "ui/rtf/rtfcodepage.h"
#include "ui/rtf/rtftokenizer.h"

#include <QTextDocument>

using namespace Qt::StringLiterals;

namespace sd::rtf {

namespace {

bool toggle(const Token &t) { return !t.hasParam || t.param != 0; }

// Indents and spacing beyond 22 inches are nonsense; keep them on the page.
int twips(const Token &t) { return std::clamp(t.param, -31680, 31680); }

// Control characters show nothing, and QTextDocument keeps U+FFFC for pictures and
// U+FDD0/U+FDD1 for table frames: text must not forge them.
bool isShowable(char16_t c)
{
    if (c < 0x20)
        return c == u'\t';
    return !(c >= 0x7F && c < 0xA0) && c != QChar::ObjectReplacementCharacter && c < 0xFFFE
        && !(c >= 0xFDD0 && c <= 0xFDEF);
}

} // namespace

Parser::Parser(QTextDocument &doc)
    : m_doc(&doc), m_main(doc, m_tables)
{
}

Parser::Parser()
    : m_doc(nullptr), m_main(m_tables)
{
}

Parser::~Parser() = default;

ReadResult Parser::run(QByteArrayView data)
{
    if (data.startsWith("\xEF\xBB\xBF"))
        data = data.sliced(3);
    while (!data.isEmpty() && (data.front() == ' ' || data.front() == '\t' || data.front() == '\r'
                               || data.front() == '\n'))
        data = data.sliced(1);
    if (data.isEmpty())
        return {false, false, u"The file is empty."_s};
    if (!data.startsWith("{\\rtf"))
        return {false, false, u"The file is not in RTF format."_s};

    // Word's default tab stops are half an inch apart; Qt's are wider.
    if (m_doc) {
        QTextOption option = m_doc->defaultTextOption();
        option.setTabStopDistance(48);
        m_doc->setDefaultTextOption(option);
    }

    Tokenizer tokens(data);
    m_stack.assign(1, State{});
    bool rootClosed = false;
    while (!rootClosed) {
        const Token t = tokens.next();
        if (t.type == TokenType::End)
            break;
        if (t.type != TokenType::Text && t.type != TokenType::HexByte)
            flushBytes();
        switch (t.type) {
        case TokenType::GroupOpen: openGroup(); break;
        case TokenType::GroupClose: rootClosed = !closeGroup(); break;
        case TokenType::ControlWord: controlWord(t); break;
        case TokenType::ControlSymbol: controlSymbol(t.symbol); break;
        case TokenType::HexByte: hexByte(t.byte); break;
        case TokenType::Text: textBytes(t.text); break;
        case TokenType::Binary: binaryData(t.text); break;
        case TokenType::End: break;
        }
    }
    flushBytes();
    // A truncated file still finishes its open pictures, list items and tables.
    m_overflow = 0;
    while (m_stack.size() > 1)
        closeGroup();
    if (m_notes && m_notes->contentCount() > 0) {
        m_notes->finish();
        if (m_notesDoc)
            m_main.appendNotes(*m_notesDoc);
        else
            m_main.appendNotes(*m_notes);
    }
    m_main.finish();

    ReadResult result{true, false, {}};
    if (!rootClosed || tokens.binaryTruncated()) {
        result.partial = true;
        result.message = u"The file is cut short; showing the part that could be read."_s;
    } else if (m_tooDeep) {
        result.partial = true;
        result.message = u"The file nests its groups too deeply; some formatting was not read."_s;
    }
    if (result.partial && m_main.contentCount() == 0)
        result = {false, false, u"The file is damaged and no text could be read from it."_s};
    return result;
}

Dest Parser::parentDest() const
{
    return m_stack.size() >= 2 ? m_stack[m_stack.size() - 2].dest : Dest::Skip;
}

DocumentBuilder &Parser::out(bool note)
{
    return note && m_notes ? *m_notes : m_main;
}

// --- groups ---------------------------------------------------------------------------------

void Parser::openGroup()
{
    m_skip = 0;
    m_ignorableNext = false;
    if (int(m_stack.size()) > kMaxGroupDepth) {
        ++m_overflow;
        m_tooDeep = true;
        return;
    }
    m_stack.push_back(m_stack.back());
    State &s = st();
    switch (parentDest()) {
    case Dest::StyleSheet:
        s.dest = Dest::StyleEntry;
        s.chr = CharProps{};
        s.para = ParaProps{};
        m_styleNumber = 0;
        m_styleIsParagraph = true;
        m_styleDone = false;
        m_styleName.clear();
        break;
    case Dest::Upr:
        s.dest = Dest::Skip; // the ANSI copy; the \ud copy that follows is kept
        break;
    default:
        break;
    }
}

bool Parser::closeGroup()
{
    m_skip = 0;
    m_ignorableNext = false;
    if (m_overflow > 0) {
        --m_overflow;
        return true;
    }
    if (m_stack.size() <= 1)
        return false;
    const State closed = std::move(m_stack.back());
    m_stack.pop_back();
    groupEnded(closed, st());
    return m_stack.size() > 1;
}

// --- control words ----------------------------------------------------------------------------

void Parser::controlWord(const Token &t)
{
    const bool ignorable = std::exchange(m_ignorableNext, false);
    if (m_skip > 0) {
        --m_skip; // a control word counts as one fallback character
        return;
    }
    const Keyword kw = lookupKeyword(t.text);
    State &s = st();
    if (s.dest == Dest::Skip) {
        if (kw.id == Kw::Ud && parentDest() == Dest::Upr)
            s.dest = Dest::Normal;
        return;
    }
    switch (kw.kind) {
    case KwKind::Unknown:
        if (ignorable)
            s.dest = Dest::Skip;
        break;
    case KwKind::Destination: destination(kw.id); break;
    case KwKind::Character: character(kw.id, t); break;
    case KwKind::Paragraph: paragraph(kw.id, t); break;
    case KwKind::Table: table(kw.id, t); break;
    case KwKind::Symbol: emitChar(kw.ch); break;
    case KwKind::Break: breakWord(kw.id); break;
    case KwKind::Header: header(kw.id, t); break;
    case KwKind::Picture: picture(kw.id, t); break;
    case KwKind::Special: special(kw.id, t); break;
    }
}

void Parser::controlSymbol(char c)
{
    if (c == '*') {
        m_ignorableNext = true;
        return;
    }
    m_ignorableNext = false;
    if (m_skip > 0) {
        --m_skip;
        return;
    }
    switch (c) {
    case '\\':
    case '{':
    case '}': emitChar(char16_t(c)); break;
    case '~': emitChar(0x00A0); break;
    case '-': emitChar(0x00AD); break;
    case '_': emitChar(0x2011); break;
    case '\t': emitChar(u'\t'); break;
    case '\n': breakWord(Kw::Par); break;
    default: break; // \: (index subentry), \| (formula) and stray backslashes
    }
}

void Parser::character(Kw id, const Token &t)
{
    State &s = st();
    CharProps &c = s.chr;
    switch (id) {
    case Kw::Bold: c.bold = toggle(t); break;
    case Kw::Italic: c.italic = toggle(t); break;
    case Kw::Underline: c.underline = toggle(t) ? Underline::Single : Underline::None; break;
    case Kw::UnderlineDotted: c.underline = toggle(t) ? Underline::Dotted : Underline::None; break;
    case Kw::UnderlineDashed: c.underline = toggle(t) ? Underline::Dashed : Underline::None; break;
    case Kw::UnderlineWave: c.underline = toggle(t) ? Underline::Wave : Underline::None; break;
    case Kw::UnderlineNone: c.underline = Underline::None; break;
    case Kw::Strike: c.strike = toggle(t); break;
    case Kw::Font:
        if (s.dest == Dest::FontTable)
            startFont(t.param);
        else if (t.hasParam)
            c.font = t.param;
        break;
    case Kw::FontSize: c.halfPoints = t.hasParam && t.param > 0 ? std::min(t.param, 3276) : 24; break;
    case Kw::Foreground: c.fg = t.hasParam ? t.param : -1; break;
    case Kw::Background: c.bg = t.hasParam && t.param > 0 ? t.param : -1; break;
    case Kw::Super: c.valign = VAlign::Super; break;
    case Kw::Sub: c.valign = VAlign::Sub; break;
    case Kw::NoSuperSub: c.valign = VAlign::Normal; break;
    case Kw::Up: c.valign = (!t.hasParam || t.param > 0) ? VAlign::Super : VAlign::Normal; break;
    case Kw::Down: c.valign = (!t.hasParam || t.param > 0) ? VAlign::Sub : VAlign::Normal; break;
    case Kw::Hidden: c.hidden = toggle(t); break;
    case Kw::Plain: {
        const int link = c.link;
        c = CharProps{};
        c.link = link;
        break;
    }
    case Kw::AllCaps: c.caps = toggle(t) ? Caps::All : Caps::None; break;
    case Kw::SmallCaps: c.caps = toggle(t) ? Caps::Small : Caps::None; break;
    case Kw::CharStyle:
        if (s.dest == Dest::StyleEntry) {
            m_styleNumber = t.param;
            m_styleIsParagraph = false;
        } else {
            applyStyle(t.param, false);
        }
        break;
    default: break;
    }
}

void Parser::paragraph(Kw id, const Token &t)
{
    State &s = st();
    ParaProps &p = s.para;
    PnProps &pn = p.pn;
    switch (id) {
    case Kw::Pard: p = ParaProps{}; break;
    case Kw::AlignLeft: p.align = Align::Left; break;
    case Kw::AlignRight: p.align = Align::Right; break;
    case Kw::AlignCenter: p.align = Align::Center; break;
    case Kw::AlignJustify: p.align = Align::Justify; break;
    case Kw::LeftIndent: p.li = twips(t); break;
    case Kw::RightIndent: p.ri = twips(t); break;
    case Kw::FirstIndent: p.fi = twips(t); break;
    case Kw::SpaceBefore: p.sb = std::max(0, twips(t)); break;
    case Kw::SpaceAfter: p.sa = std::max(0, twips(t)); break;
    case Kw::LineSpacing: p.sl = twips(t); break;
    case Kw::LineMultiple: p.slMult = toggle(t); break;
    case Kw::TabStop:
        if (p.tabs.size() < 64)
            p.tabs.append(std::max(0, twips(t)));
        break;
    case Kw::InTable: p.intbl = true; break;
    case Kw::TableLevel: p.itap = std::clamp(t.param, 0, 1000); break;
    case Kw::ParaStyle:
        if (s.dest == Dest::StyleEntry) {
            m_styleNumber = t.param;
            m_styleIsParagraph = true;
        } else {
            applyStyle(t.param, true);
        }
        break;
    case Kw::OutlineLevel: p.heading = (t.param >= 0 && t.param < 9) ? t.param + 1 : 0; break;
    case Kw::PageBreakBefore: p.pageBreakBefore = toggle(t); break;
    case Kw::PnBullet: pn.kind = PnProps::Bullet; break;
    case Kw::PnDecimal: pn.kind = PnProps::Decimal; break;
    case Kw::PnUpperAlpha: pn.kind = PnProps::UpperAlpha; break;
    case Kw::PnLowerAlpha: pn.kind = PnProps::LowerAlpha; break;
    case Kw::PnUpperRoman: pn.kind = PnProps::UpperRoman; break;
    case Kw::PnLowerRoman: pn.kind = PnProps::LowerRoman; break;
    case Kw::PnStart: pn.start = std::clamp(t.param, 0, 100000); break;
    case Kw::PnFont: pn.font = t.param; break;
    default: break;
    }
}

void Parser::table(Kw id, const Token &t)
{
    State &s = st();
    if (s.dest != Dest::Normal)
        return;
    DocumentBuilder &b = out(s.note);
    switch (id) {
    case Kw::RowDefaults: b.resetRowDefinition(); break;
    case Kw::CellX: b.addCellBoundary(std::clamp(t.param, 0, 31680 * 4)); break;
    case Kw::Cell:
    case Kw::NestCell:
        endParagraph();
        b.cellEnd(s.para);
        break;
    case Kw::Row:
    case Kw::NestRow:
        endParagraph();
        b.rowEnd(s.para);
        break;
    default: break;
    }
}

void Parser::breakWord(Kw id)
{
    State &s = st();
    switch (id) {
    case Kw::Tab: emitChar(u'\t'); return;
    case Kw::Line: emitChar(QChar::LineSeparator); return;
    default: break;
    }
    if (s.dest != Dest::Normal)
        return;
    endParagraph();
    if (id == Kw::Page)
        out(s.note).pageBreak(s.chr, s.para);
    else
        out(s.note).paragraphEnd(s.chr, s.para);
}

void Parser::header(Kw id, const Token &t)
{
    State &s = st();
    const bool inFonts = s.dest == Dest::FontTable;
    switch (id) {
    case Kw::Ansi: m_tables.codepage = 1252; break;
    case Kw::Mac: m_tables.codepage = 10000; break;
    case Kw::Pc: m_tables.codepage = 437; break;
    case Kw::Pca: m_tables.codepage = 850; break;
    case Kw::AnsiCodePage:
        if (t.param > 0)
            m_tables.codepage = t.param;
        break;
    case Kw::DefaultFont: m_tables.defaultFont = t.param; break;
    case Kw::DefaultTab:
        if (m_doc && t.param >= 60 && t.param <= 31680) {
            QTextOption option = m_doc->defaultTextOption();
            option.setTabStopDistance(t.param / 15.0);
            m_doc->setDefaultTextOption(option);
        }
        break;
    case Kw::FontCharset:
        if (inFonts)
            m_font.charset = t.param;
        break;
    case Kw::FontCodePage:
        if (inFonts)
            m_font.codepage = std::max(0, t.param);
        break;
    case Kw::Red:
    case Kw::Green:
    case Kw::Blue:
        if (s.dest == Dest::ColorTable) {
            const int v = std::clamp(t.param, 0, 255);
            (id == Kw::Red ? m_red : id == Kw::Green ? m_green : m_blue) = v;
            m_colorSet = true;
        }
        break;
    case Kw::GenericSerif: m_font.generic = FontInfo::Serif; break;
    case Kw::GenericSans: m_font.generic = FontInfo::Sans; break;
    case Kw::GenericMono: m_font.generic = FontInfo::Mono; break;
    case Kw::GenericScript: m_font.generic = FontInfo::Script; break;
    case Kw::GenericDecor: m_font.generic = FontInfo::Decorative; break;
    default: break;
    }
    m_cachedFont = -1000;
}

void Parser::special(Kw id, const Token &t)
{
    State &s = st();
    switch (id) {
    case Kw::Unicode: {
        if (!t.hasParam)
            break;
        const int v = t.param < 0 ? t.param + 65536 : t.param;
        if (v >= 0 && v <= 0xFFFF)
            emitChar(mapSymbolPrivateUse(char16_t(v)));
        m_skip = s.uc;
        break;
    }
    case Kw::UnicodeSkip: s.uc = t.hasParam ? std::clamp(t.param, 0, 64) : 1; break;
    case Kw::FootnoteMark: footnoteMark(); break;
    default: break;
    }
}

// --- text -------------------------------------------------------------------------------------

void Parser::textBytes(std::string_view bytes)
{
    const Dest dest = st().dest;
    if (dest == Dest::Skip)
        return;
    if (m_skip > 0) {
        const size_t n = std::min<size_t>(size_t(m_skip), bytes.size());
        bytes.remove_prefix(n);
        m_skip -= int(n);
        if (bytes.empty())
            return;
    }
    if (dest == Dest::Pict) {
        pictureData(bytes);
        return;
    }
    if (dest == Dest::Normal && st().chr.hidden)
        return;
    appendBytes(bytes);
}

void Parser::hexByte(unsigned char byte)
{
    if (m_skip > 0) {
        --m_skip;
        return;
    }
    const State &s = st();
    if (s.dest == Dest::Skip || s.dest == Dest::Pict || (s.dest == Dest::Normal && s.chr.hidden))
        return;
    const char c = char(byte);
    appendBytes(std::string_view(&c, 1));
}

void Parser::binaryData(std::string_view bytes)
{
    if (m_skip > 0) {
        --m_skip;
        return;
    }
    if (st().dest == Dest::Pict && m_picture.data.size() + qsizetype(bytes.size()) <= kMaxPictureBytes)
        m_picture.data.append(bytes.data(), qsizetype(bytes.size()));
}

void Parser::appendBytes(std::string_view bytes)
{
    const State &s = st();
    int font = s.chr.font;
    if ((s.dest == Dest::PnTextAfter || s.dest == Dest::PnTextBefore) && s.para.pn.font >= 0)
        font = s.para.pn.font;
    const Codepage *cp = nullptr;
    if (s.dest == Dest::FontTable) {
        const int fromCharset = Codepage::fromCharset(m_font.charset);
        cp = Codepage::get(m_font.codepage > 0 ? m_font.codepage
                           : fromCharset > 0   ? fromCharset
                                               : m_tables.codepage);
    } else {
        cp = codepageFor(font);
    }
    if (cp->isDoubleByte()) {
        if (m_multiByteCodepage != cp)
            flushBytes();
        m_multiByteCodepage = cp;
        m_multiByte.append(bytes.data(), qsizetype(bytes.size()));
        return;
    }
    flushBytes();
    m_scratch.resize(qsizetype(bytes.size()));
    char16_t *outp = reinterpret_cast<char16_t *>(m_scratch.data());
    qsizetype n = 0;
    for (char b : bytes) {
        const char16_t ch = cp->map(static_cast<unsigned char>(b));
        if (isShowable(ch))
            outp[n++] = ch;
    }
    m_scratch.truncate(n);
    emitText(m_scratch);
}

void Parser::flushBytes()
{
    if (m_multiByte.isEmpty())
        return;
    QString s = m_multiByteCodepage->decode(m_multiByte);
    m_multiByte.clear();
    s.removeIf([](QChar c) { return !isShowable(c.unicode()); });
    emitText(s);
}

const Codepage *Parser::codepageFor(int font)
{
    if (font == m_cachedFont && m_cachedCodepage)
        return m_cachedCodepage;
    const Codepage *cp = nullptr;
    if (const FontInfo *f = m_tables.font(font)) {
        if (f->symbols == FontInfo::SymbolFont)
            cp = Codepage::symbolFont();
        else if (f->symbols == FontInfo::Dingbats)
            cp = Codepage::dingbatFont();
        else if (f->codepage > 0)
            cp = Codepage::get(f->codepage);
        else if (const int fromCharset = Codepage::fromCharset(f->charset); fromCharset > 0)
            cp = Codepage::get(fromCharset);
    }
    if (!cp)
        cp = Codepage::get(m_tables.codepage);
    m_cachedFont = font;
    m_cachedCodepage = cp;
    return cp;
}

void Parser::emitChar(char16_t c)
{
    if (c == QChar::ParagraphSeparator)
        c = QChar::LineSeparator; // a paragraph break hidden in the text is a line break
    if (!isShowable(c))
        return;
    const QChar ch(c);
    emitText(QStringView(&ch, 1));
}

void Parser::emitText(QStringView text)
{
    State &s = st();
    switch (s.dest) {
    case Dest::Normal:
        if (s.chr.hidden)
            return;
        if (!s.note)
            startParagraph();
        out(s.note).text(text, s.chr, s.para);
        break;
    case Dest::ListText:
        if (m_listText.size() < 256)
            m_listText.append(text);
        break;
    case Dest::FontTable: fontText(text); break;
    case Dest::ColorTable: colorText(text); break;
    case Dest::StyleEntry: styleText(text); break;
    case Dest::FieldInst:
        if (s.field >= 0 && m_fields[size_t(s.field)].instruction.size() < 4096)
            m_fields[size_t(s.field)].instruction.append(text);
        break;
    case Dest::PnTextAfter:
    case Dest::PnTextBefore:
        if (m_pnText.size() < 64)
            m_pnText.append(text);
        break;
    case Dest::Bookmark:
        if (m_bookmark.size() < 256)
            m_bookmark.append(text);
        break;
    default: break;
    }
}

} // namespace sd::rtf
