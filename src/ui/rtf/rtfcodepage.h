// Turns the bytes of an RTF file into text: Windows code pages, double-byte code pages
// and the Symbol / Wingdings fonts whose letters stand for other characters.
#pragma once

#include <QString>
#include <array>
#include <memory>

class QStringDecoder;

namespace sd::rtf {

class Codepage
{
public:
    // Code page for a \fcharsetN value, 0 when the charset says "use the document's".
    static int fromCharset(int charset);
    // A shared decoder for a Windows code page number; unknown numbers fall back to 1252.
    static const Codepage *get(int number);
    static const Codepage *symbolFont();
    static const Codepage *dingbatFont();

    int number() const { return m_number; }
    bool isDoubleByte() const { return m_decoder != nullptr; }

    // Single-byte code pages map every byte on its own.
    char16_t map(unsigned char byte) const { return m_table[byte]; }
    // Double-byte code pages need whole byte runs.
    QString decode(QByteArrayView bytes) const;

    ~Codepage();
    Codepage(const Codepage &) = delete;
    Codepage &operator=(const Codepage &) = delete;

private:
    explicit Codepage(int number);
    Codepage(int number, const char16_t (&high)[224]);

    int m_number = 1252;
    std::array<char16_t, 256> m_table{};
    std::unique_ptr<QStringDecoder> m_decoder;
};

// The Windows-1252 byte for a character, or -1 when 1252 has none.
int toWindows1252(char16_t ch);

// Private-use characters U+F020..U+F0FF are how Word stores symbol-font letters.
char16_t mapSymbolPrivateUse(char16_t ch);

} // namespace sd::rtf
