// Formatting state carried by each RTF group, and the document-wide tables it refers to.
#pragma once

#include <QColor>
#include <QHash>
#include <QList>
#include <QString>
#include <QStringList>

namespace sd::rtf {

// Where the text of a group goes.
enum class Dest : quint8 {
    Normal,      // body text (or a footnote's text, see State::note)
    Skip,        // read and thrown away
    FontTable,   // \fonttbl, and each font entry in it
    ColorTable,
    StyleSheet,  // \stylesheet itself
    StyleEntry,  // one style inside it
    FieldInst,
    Pict,
    ListText,    // \listtext / \pntext: the item's number or bullet
    PnGroup,     // \pn: numbering settings for the paragraphs that follow
    PnTextAfter,
    PnTextBefore,
    Bookmark,
    Upr,         // \upr: an ANSI copy we skip, then a \ud copy we keep
};

enum class Underline : quint8 { None, Single, Dotted, Dashed, Wave };
enum class VAlign : quint8 { Normal, Super, Sub };
enum class Caps : quint8 { None, All, Small };
enum class Align : quint8 { Left, Right, Center, Justify };

struct CharProps {
    int font = -1;          // -1: the document's default font
    int halfPoints = 24;
    int fg = -1;            // colour table index, -1: automatic
    int bg = -1;
    int link = -1;          // index into DocTables::links
    bool bold = false;
    bool italic = false;
    bool strike = false;
    bool hidden = false;
    Underline underline = Underline::None;
    VAlign valign = VAlign::Normal;
    Caps caps = Caps::None;

    bool operator==(const CharProps &) const = default;
};

// Legacy Word 6/95 paragraph numbering (\pn ... \pntxta / \pntxtb).
struct PnProps {
    enum Kind : quint8 { None, Bullet, Decimal, UpperAlpha, LowerAlpha, UpperRoman, LowerRoman };
    Kind kind = None;
    int start = 1;
    int font = -1;
    QString before;
    QString after;
};

struct ParaProps {
    Align align = Align::Left;
    int li = 0, ri = 0, fi = 0;  // twips
    int sb = 0, sa = 0;
    int sl = 0;
    bool slMult = false;
    bool intbl = false;
    int itap = -1;               // -1: not given, so \intbl alone means level one
    int heading = 0;             // 1..9 from \outlinelevel or a "heading N" style
    bool pageBreakBefore = false;
    QList<int> tabs;             // twips
    PnProps pn;

    int tableDepth() const { return itap >= 0 ? itap : (intbl ? 1 : 0); }
};

struct State {
    Dest dest = Dest::Normal;
    bool note = false;   // inside \footnote: text goes to the notes at the end
    int uc = 1;          // bytes to skip after \uN
    int field = -1;      // index of the enclosing \field
    CharProps chr;
    ParaProps para;
};

struct FontInfo {
    enum Generic : quint8 { Unknown, Serif, Sans, Mono, Script, Decorative };
    enum Symbols : quint8 { NotSymbol, SymbolFont, Dingbats };
    QString family;
    int charset = -1;    // \fcharsetN, -1 if not given
    int codepage = 0;    // \cpgN, 0 if not given
    Generic generic = Unknown;
    Symbols symbols = NotSymbol;
};

struct Style {
    QString name;
    CharProps chr;
    ParaProps para;
    bool paragraphStyle = true;
};

// Tables declared in the header that the body refers to by number.
struct DocTables {
    QHash<int, FontInfo> fonts;
    QList<QColor> colors;    // an invalid colour stands for "auto"
    QStringList links;
    int defaultFont = 0;
    int codepage = 1252;

    const FontInfo *font(int number) const
    {
        auto it = fonts.constFind(number < 0 ? defaultFont : number);
        return it == fonts.cend() ? nullptr : &it.value();
    }
    QColor color(int index) const
    {
        return index >= 0 && index < colors.size() ? colors.at(index) : QColor();
    }
};

} // namespace sd::rtf
