#include "ui/rtf/rtfkeywords.h"

#include <unordered_map>

namespace sd::rtf {

namespace {

struct Entry {
    const char *name;
    KwKind kind;
    Kw id;
    char16_t ch = 0;
};

using K = KwKind;

// Destinations whose content is never shown: document properties, headers and footers,
// list and revision tables, embedded themes and objects, fallbacks for older readers.
constexpr const char *kSkippedGroups[] = {
    "info", "header", "headerl", "headerr", "headerf", "footer", "footerl", "footerr",
    "footerf", "themedata", "colorschememapping", "datastore", "xmlnstbl", "generator",
    "latentstyles", "rsidtbl", "listtable", "listoverridetable", "pgdsctbl", "revtbl",
    "private", "userprops", "docvar", "template", "filetbl", "objdata", "annotation",
    "atnid", "atnauthor", "atndate", "atnref", "atrfstart", "atrfend", "fldtype", "pnseclvl",
    "nonshppict", "bkmkend", "xe", "tc", "tcn", "txe", "nonesttables", "blipuid", "picprop",
    "shpinst", "mmathPr", "defchp", "defpap", "wgrffmtfilter", "expandedcolortbl",
    "passwordhash", "factoidname", "oldcprops", "oldpprops", "oldsprops", "oldtprops",
    "listpicture", "fchars", "lchars", "ftnsep", "ftnsepc", "ftncn", "aftnsep", "aftnsepc",
    "aftncn", "author", "operator", "title", "subject", "keywords", "comment", "doccomm",
    "company", "category", "manager", "hlinkbase", "buptim", "creatim", "revtim", "printim",
    "protusertbl", "do", "shptxt", "falt", "panose", "fontemb", "fontfile", "mhtmltag",
    "htmltag", "bookmark", "formfield", "datafield", "ffdeftext", "fftype", "ffname",
    "ffentrymcr", "ffexitmcr", "ffformat", "ffhelptext", "ffstattext", "ffl", "svb",
    "sp", "sn", "sv", "background", "listname", "leveltext", "levelnumbers", "pgptbl",
    "xmlopen", "xmlclose", "xmlattrname", "xmlattrvalue", "mailmerge", "ebcstart", "ebcend",
    "g", "gcw", "gridtbl", "objclass", "objname", "objtime", "cchs", "fname", "linkval",
    "dptxbxtext", "lfolevel", "list", "listoverride", "rxe", "pxe", "bxe", "tcf", "tcl",
};

constexpr Entry kEntries[] = {
    // destinations with content we use
    {"fonttbl", K::Destination, Kw::FontTable},
    {"colortbl", K::Destination, Kw::ColorTable},
    {"stylesheet", K::Destination, Kw::StyleSheet},
    {"field", K::Destination, Kw::Field},
    {"fldinst", K::Destination, Kw::FieldInst},
    {"fldrslt", K::Destination, Kw::FieldResult},
    {"pict", K::Destination, Kw::Pict},
    {"shppict", K::Destination, Kw::Transparent},
    {"shp", K::Destination, Kw::Transparent},
    {"shprslt", K::Destination, Kw::Transparent},
    {"object", K::Destination, Kw::Transparent},
    {"result", K::Destination, Kw::Transparent},
    {"nesttableprops", K::Destination, Kw::Transparent},
    {"footnote", K::Destination, Kw::Footnote},
    {"listtext", K::Destination, Kw::ListText},
    {"pntext", K::Destination, Kw::ListText},
    {"pn", K::Destination, Kw::Pn},
    {"pntxta", K::Destination, Kw::PnTextAfter},
    {"pntxtb", K::Destination, Kw::PnTextBefore},
    {"bkmkstart", K::Destination, Kw::Bookmark},
    {"upr", K::Destination, Kw::Upr},
    {"ud", K::Destination, Kw::Ud},
    // character formatting
    {"b", K::Character, Kw::Bold},
    {"i", K::Character, Kw::Italic},
    {"ul", K::Character, Kw::Underline},
    {"uldb", K::Character, Kw::Underline},
    {"ulth", K::Character, Kw::Underline},
    {"ulw", K::Character, Kw::Underline},
    {"uld", K::Character, Kw::UnderlineDotted},
    {"ulthd", K::Character, Kw::UnderlineDotted},
    {"uldash", K::Character, Kw::UnderlineDashed},
    {"uldashd", K::Character, Kw::UnderlineDashed},
    {"uldashdd", K::Character, Kw::UnderlineDashed},
    {"ulldash", K::Character, Kw::UnderlineDashed},
    {"ulthdash", K::Character, Kw::UnderlineDashed},
    {"ulwave", K::Character, Kw::UnderlineWave},
    {"ulhwave", K::Character, Kw::UnderlineWave},
    {"ululdbwave", K::Character, Kw::UnderlineWave},
    {"ulnone", K::Character, Kw::UnderlineNone},
    {"strike", K::Character, Kw::Strike},
    {"striked", K::Character, Kw::Strike},
    {"f", K::Character, Kw::Font},
    {"fs", K::Character, Kw::FontSize},
    {"cf", K::Character, Kw::Foreground},
    {"cb", K::Character, Kw::Background},
    {"highlight", K::Character, Kw::Background},
    {"chcbpat", K::Character, Kw::Background},
    {"super", K::Character, Kw::Super},
    {"sub", K::Character, Kw::Sub},
    {"nosupersub", K::Character, Kw::NoSuperSub},
    {"up", K::Character, Kw::Up},
    {"dn", K::Character, Kw::Down},
    {"v", K::Character, Kw::Hidden},
    {"plain", K::Character, Kw::Plain},
    {"caps", K::Character, Kw::AllCaps},
    {"scaps", K::Character, Kw::SmallCaps},
    {"cs", K::Character, Kw::CharStyle},
    // paragraph formatting
    {"pard", K::Paragraph, Kw::Pard},
    {"ql", K::Paragraph, Kw::AlignLeft},
    {"qr", K::Paragraph, Kw::AlignRight},
    {"qc", K::Paragraph, Kw::AlignCenter},
    {"qj", K::Paragraph, Kw::AlignJustify},
    {"qd", K::Paragraph, Kw::AlignJustify},
    {"li", K::Paragraph, Kw::LeftIndent},
    {"lin", K::Paragraph, Kw::LeftIndent},
    {"ri", K::Paragraph, Kw::RightIndent},
    {"rin", K::Paragraph, Kw::RightIndent},
    {"fi", K::Paragraph, Kw::FirstIndent},
    {"sb", K::Paragraph, Kw::SpaceBefore},
    {"sa", K::Paragraph, Kw::SpaceAfter},
    {"sl", K::Paragraph, Kw::LineSpacing},
    {"slmult", K::Paragraph, Kw::LineMultiple},
    {"tx", K::Paragraph, Kw::TabStop},
    {"tb", K::Paragraph, Kw::TabStop},
    {"intbl", K::Paragraph, Kw::InTable},
    {"itap", K::Paragraph, Kw::TableLevel},
    {"s", K::Paragraph, Kw::ParaStyle},
    {"outlinelevel", K::Paragraph, Kw::OutlineLevel},
    {"pagebb", K::Paragraph, Kw::PageBreakBefore},
    {"pnlvlblt", K::Paragraph, Kw::PnBullet},
    {"pndec", K::Paragraph, Kw::PnDecimal},
    {"pnlvlbody", K::Paragraph, Kw::PnDecimal},
    {"pnucltr", K::Paragraph, Kw::PnUpperAlpha},
    {"pnlcltr", K::Paragraph, Kw::PnLowerAlpha},
    {"pnucrm", K::Paragraph, Kw::PnUpperRoman},
    {"pnlcrm", K::Paragraph, Kw::PnLowerRoman},
    {"pnstart", K::Paragraph, Kw::PnStart},
    {"pnf", K::Paragraph, Kw::PnFont},
    // tables
    {"trowd", K::Table, Kw::RowDefaults},
    {"cellx", K::Table, Kw::CellX},
    {"cell", K::Table, Kw::Cell},
    {"nestcell", K::Table, Kw::NestCell},
    {"row", K::Table, Kw::Row},
    {"nestrow", K::Table, Kw::NestRow},
    // breaks
    {"par", K::Break, Kw::Par},
    {"column", K::Break, Kw::Par},
    {"line", K::Break, Kw::Line},
    {"softline", K::Break, Kw::Line},
    {"lbr", K::Break, Kw::Line},
    {"tab", K::Break, Kw::Tab},
    {"page", K::Break, Kw::Page},
    {"sect", K::Break, Kw::Sect},
    // symbols
    {"emdash", K::Symbol, Kw::None, u'\u2014'},
    {"endash", K::Symbol, Kw::None, u'\u2013'},
    {"emspace", K::Symbol, Kw::None, u'\u2003'},
    {"enspace", K::Symbol, Kw::None, u'\u2002'},
    {"qmspace", K::Symbol, Kw::None, u'\u2005'},
    {"bullet", K::Symbol, Kw::None, u'\u2022'},
    {"lquote", K::Symbol, Kw::None, u'\u2018'},
    {"rquote", K::Symbol, Kw::None, u'\u2019'},
    {"ldblquote", K::Symbol, Kw::None, u'\u201C'},
    {"rdblquote", K::Symbol, Kw::None, u'\u201D'},
    {"zwj", K::Symbol, Kw::None, u'\u200D'},
    {"zwnj", K::Symbol, Kw::None, u'\u200C'},
    {"zwbo", K::Symbol, Kw::None, u'\u200B'},
    {"ltrmark", K::Symbol, Kw::None, u'\u200E'},
    {"rtlmark", K::Symbol, Kw::None, u'\u200F'},
    // header
    {"ansi", K::Header, Kw::Ansi},
    {"mac", K::Header, Kw::Mac},
    {"pc", K::Header, Kw::Pc},
    {"pca", K::Header, Kw::Pca},
    {"ansicpg", K::Header, Kw::AnsiCodePage},
    {"deff", K::Header, Kw::DefaultFont},
    {"deftab", K::Header, Kw::DefaultTab},
    {"fcharset", K::Header, Kw::FontCharset},
    {"cpg", K::Header, Kw::FontCodePage},
    {"red", K::Header, Kw::Red},
    {"green", K::Header, Kw::Green},
    {"blue", K::Header, Kw::Blue},
    {"froman", K::Header, Kw::GenericSerif},
    {"fswiss", K::Header, Kw::GenericSans},
    {"fmodern", K::Header, Kw::GenericMono},
    {"fscript", K::Header, Kw::GenericScript},
    {"fdecor", K::Header, Kw::GenericDecor},
    // pictures
    {"pngblip", K::Picture, Kw::PngBlip},
    {"jpegblip", K::Picture, Kw::JpegBlip},
    {"emfblip", K::Picture, Kw::OtherBlip},
    {"wmetafile", K::Picture, Kw::OtherBlip},
    {"macpict", K::Picture, Kw::OtherBlip},
    {"pmmetafile", K::Picture, Kw::OtherBlip},
    {"dibitmap", K::Picture, Kw::OtherBlip},
    {"wbitmap", K::Picture, Kw::OtherBlip},
    {"picw", K::Picture, Kw::PicW},
    {"pich", K::Picture, Kw::PicH},
    {"picwgoal", K::Picture, Kw::PicGoalW},
    {"pichgoal", K::Picture, Kw::PicGoalH},
    {"picscalex", K::Picture, Kw::PicScaleX},
    {"picscaley", K::Picture, Kw::PicScaleY},
    // one-offs
    {"u", K::Special, Kw::Unicode},
    {"uc", K::Special, Kw::UnicodeSkip},
    {"bin", K::Special, Kw::Binary},
    {"chftn", K::Special, Kw::FootnoteMark},
};

const std::unordered_map<std::string_view, Keyword> &table()
{
    static const auto map = [] {
        std::unordered_map<std::string_view, Keyword> m;
        m.reserve(std::size(kEntries) + std::size(kSkippedGroups));
        for (const char *name : kSkippedGroups)
            m.emplace(name, Keyword{K::Destination, Kw::SkipGroup});
        for (const Entry &e : kEntries)
            m.insert_or_assign(e.name, Keyword{e.kind, e.id, e.ch});
        return m;
    }();
    return map;
}

} // namespace

Keyword lookupKeyword(std::string_view name)
{
    const auto &t = table();
    const auto it = t.find(name);
    return it == t.end() ? Keyword{} : it->second;
}

} // namespace sd::rtf
