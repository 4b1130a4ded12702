// The control words the reader understands, grouped by what they act on.
#pragma once

#include <QtGlobal>
#include <string_view>

namespace sd::rtf {

enum class KwKind : quint8 {
    Unknown,
    Destination,  // starts a group with its own kind of content
    Character,    // character formatting
    Paragraph,    // paragraph formatting
    Table,        // rows and cells
    Symbol,       // stands for one character
    Break,        // paragraph, line, page and tab breaks
    Header,       // code pages, font and colour table entries
    Picture,      // picture kind and size
    Special,      // \u, \uc, \chftn and other one-offs
};

enum class Kw : quint8 {
    None,
    // destinations
    FontTable, ColorTable, StyleSheet, SkipGroup, Field, FieldInst, FieldResult, Pict,
    Transparent, Footnote, ListText, Pn, PnTextAfter, PnTextBefore, Bookmark, Upr, Ud,
    // character
    Bold, Italic, Underline, UnderlineDotted, UnderlineDashed, UnderlineWave, UnderlineNone,
    Strike, Font, FontSize, Foreground, Background, Super, Sub, NoSuperSub, Up, Down, Hidden,
    Plain, AllCaps, SmallCaps, CharStyle,
    // paragraph
    Pard, AlignLeft, AlignRight, AlignCenter, AlignJustify, LeftIndent, RightIndent,
    FirstIndent, SpaceBefore, SpaceAfter, LineSpacing, LineMultiple, TabStop, InTable,
    TableLevel, ParaStyle, OutlineLevel, PageBreakBefore,
    PnBullet, PnDecimal, PnUpperAlpha, PnLowerAlpha, PnUpperRoman, PnLowerRoman, PnStart,
    PnFont,
    // tables
    RowDefaults, CellX, Cell, NestCell, Row, NestRow,
    // breaks
    Par, Line, Tab, Page, Sect,
    // header
    Ansi, Mac, Pc, Pca, AnsiCodePage, DefaultFont, DefaultTab, FontCharset, FontCodePage, Red, Green,
    Blue, GenericSerif, GenericSans, GenericMono, GenericScript, GenericDecor,
    // picture
    PngBlip, JpegBlip, OtherBlip, PicW, PicH, PicGoalW, PicGoalH, PicScaleX, PicScaleY,
    // special
    Unicode, UnicodeSkip, Binary, FootnoteMark,
};

struct Keyword {
    KwKind kind = KwKind::Unknown;
    Kw id = Kw::None;
    char16_t ch = 0; // for KwKind::Symbol
};

Keyword lookupKeyword(std::string_view name);

} // namespace sd::rtf
