// Walks the tokens of an RTF file, keeps the group state stack and dispatches each control
// word by its kind. Destinations (font table, pictures, fields, notes...) are in
// rtfdestinations.cpp.
#pragma once

#include "ui/rtf/rtfbuilder.h"
#include "ui/rtf/rtfkeywords.h"
#include "ui/rtf/rtfreader.h"
#include "ui/rtf/rtfstate.h"

#include <QByteArray>
#include <memory>
#include <string_view>
#include <vector>

class QTextDocument;

namespace sd::rtf {

class Codepage;
struct Token;

class Parser
{
public:
    // Deeper groups are read with the state of the deepest one kept.
    static constexpr int kMaxGroupDepth = 512;
    // Larger pictures are shown as a placeholder instead.
    static constexpr qsizetype kMaxPictureBytes = 64 * 1024 * 1024;

    explicit Parser(QTextDocument &doc);
    // Reads the text only, without formats, layout or a document: see text().
    Parser();
    ~Parser();

    ReadResult run(QByteArrayView data);
    // What a document would give as its plain text, after run() by a text-only parser.
    QString text() const { return m_main.plainText(); }

private:
    struct Field {
        QString instruction;
        int link = -1;
        bool resolved = false;
    };
    struct Picture {
        Kw kind = Kw::None;
        QByteArray data;
        int nibble = -1;
        int width = 0, height = 0, goalWidth = 0, goalHeight = 0;
        int scaleX = 100, scaleY = 100;
    };

    State &st() { return m_stack.back(); }
    Dest parentDest() const;
    DocumentBuilder &out(bool note);

    // rtfparser.cpp
    void openGroup();
    bool closeGroup();
    void controlWord(const Token &t);
    void controlSymbol(char c);
    void textBytes(std::string_view bytes);
    void hexByte(unsigned char byte);
    void binaryData(std::string_view bytes);
    void character(Kw id, const Token &t);
    void paragraph(Kw id, const Token &t);
    void table(Kw id, const Token &t);
    void breakWord(Kw id);
    void header(Kw id, const Token &t);
    void special(Kw id, const Token &t);
    void appendBytes(std::string_view bytes);
    void flushBytes();
    void emitText(QStringView s);
    void emitChar(char16_t c);
    const Codepage *codepageFor(int font);

    // rtfdestinations.cpp
    void startParagraph();
    void endParagraph();
    void destination(Kw id);
    void picture(Kw id, const Token &t);
    void groupEnded(const State &closed, State &parent);
    void startFont(int number);
    void fontText(QStringView s);
    void commitFont();
    void colorText(QStringView s);
    void styleText(QStringView s);
    void commitStyle(const State &s);
    void applyStyle(int number, bool paragraphStyle);
    void startFieldResult();
    void pictureData(std::string_view hex);
    void finishPicture(const State &s);
    void emitListText(const State &s);
    void startFootnote();
    void footnoteMark();

    QTextDocument *m_doc; // none when reading text only
    DocTables m_tables;
    DocumentBuilder m_main;
    std::unique_ptr<QTextDocument> m_notesDoc;
    std::unique_ptr<DocumentBuilder> m_notes;
    std::vector<State> m_stack;

    bool m_ignorableNext = false; // the last token was \*
    int m_skip = 0;               // fallback bytes still to skip after \uN
    int m_overflow = 0;           // groups opened past kMaxGroupDepth
    bool m_tooDeep = false;

    QByteArray m_multiByte;       // bytes of a double-byte code page awaiting decoding
    const Codepage *m_multiByteCodepage = nullptr;
    int m_cachedFont = -1000;
    const Codepage *m_cachedCodepage = nullptr;
    QString m_scratch;

    int m_fontNumber = -1;
    FontInfo m_font;
    QString m_fontName;
    int m_red = 0, m_green = 0, m_blue = 0;
    bool m_colorSet = false;

    QHash<int, Style> m_styles;
    int m_styleNumber = 0;
    bool m_styleIsParagraph = true;
    bool m_styleDone = false;
    QString m_styleName;

    std::vector<Field> m_fields;
    Picture m_picture;
    QString m_listText;
    QString m_pnText;
    QString m_bookmark;

    int m_noteNumber = 0;
    bool m_noteRefPending = false;

    bool m_paraStarted = false;
    bool m_paraHasListText = false;
    bool m_paraCounted = false;
    int m_pnCounter = 0;
    PnProps::Kind m_pnPrevious = PnProps::None;
};

} // namespace sd::rtf
