// Splits RTF bytes into groups, control words, control symbols, text and binary data.
#pragma once

#include <QByteArrayView>
#include <string_view>

namespace sd::rtf {

/// Value of a hexadecimal digit, or -1.
inline int hexValue(char c)
{
    if (c >= '0' && c <= '9')
        return c - '0';
    if (c >= 'a' && c <= 'f')
        return c - 'a' + 10;
    if (c >= 'A' && c <= 'F')
        return c - 'A' + 10;
    return -1;
}

enum class TokenType : quint8 {
    GroupOpen,
    GroupClose,
    ControlWord,   // name, optional parameter
    ControlSymbol, // one non-letter after a backslash
    HexByte,       // \'hh
    Text,          // a run of plain bytes
    Binary,        // the data after \binN
    End,
};

struct Token {
    TokenType type = TokenType::End;
    std::string_view text;  // control word name, text run or binary data
    int param = 0;
    bool hasParam = false;
    char symbol = 0;
    unsigned char byte = 0;
};

class Tokenizer
{
public:
    // Longest control word RTF allows; longer names are cut, not rejected.
    static constexpr int kMaxWordLength = 32;
    // Parameters are clamped to this size so later arithmetic cannot overflow.
    static constexpr int kMaxParam = 999'999'999;

    explicit Tokenizer(QByteArrayView data);

    Token next();

    qsizetype position() const { return m_pos; }
    qsizetype size() const { return m_size; }
    // True once a \binN asked for more bytes than the file had.
    bool binaryTruncated() const { return m_binaryTruncated; }

private:
    Token controlWord();

    const char *m_data;
    qsizetype m_size;
    qsizetype m_pos = 0;
    qsizetype m_pendingBinary = 0;
    bool m_binaryTruncated = false;
};

} // namespace sd::rtf
