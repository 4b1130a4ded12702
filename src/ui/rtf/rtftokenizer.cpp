#include "ui/rtf/rtftokenizer.h"

namespace sd::rtf {

namespace {

bool isLetter(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }
bool isDigit(char c) { return c >= '0' && c <= '9'; }

} // namespace

Tokenizer::Tokenizer(QByteArrayView data)
    : m_data(data.data()), m_size(data.size())
{
}

Token Tokenizer::next()
{
    Token t;
    if (m_pendingBinary > 0) {
        const qsizetype n = std::min(m_pendingBinary, m_size - m_pos);
        if (n < m_pendingBinary)
            m_binaryTruncated = true;
        t.type = TokenType::Binary;
        t.text = std::string_view(m_data + m_pos, size_t(n));
        m_pos += n;
        m_pendingBinary = 0;
        return t;
    }
    // Line ends carry no meaning in RTF.
    while (m_pos < m_size && (m_data[m_pos] == '\r' || m_data[m_pos] == '\n'))
        ++m_pos;
    if (m_pos >= m_size)
        return t;

    const char c = m_data[m_pos];
    if (c == '{') {
        ++m_pos;
        t.type = TokenType::GroupOpen;
        return t;
    }
    if (c == '}') {
        ++m_pos;
        t.type = TokenType::GroupClose;
        return t;
    }
    if (c == '\\')
        return controlWord();

    const qsizetype start = m_pos;
    while (m_pos < m_size) {
        const char d = m_data[m_pos];
        if (d == '\\' || d == '{' || d == '}' || d == '\r' || d == '\n')
            break;
        ++m_pos;
    }
    t.type = TokenType::Text;
    t.text = std::string_view(m_data + start, size_t(m_pos - start));
    return t;
}

Token Tokenizer::controlWord()
{
    Token t;
    ++m_pos; // the backslash
    if (m_pos >= m_size)
        return t; // a lone backslash at the very end

    const char c = m_data[m_pos];
    if (!isLetter(c)) {
        ++m_pos;
        if (c == '\'') {
            const int hi = m_pos < m_size ? hexValue(m_data[m_pos]) : -1;
            if (hi < 0) {
                // "\'" without hex digits: drop it and carry on with what follows.
                t.type = TokenType::ControlSymbol;
                t.symbol = 0;
                return t;
            }
            ++m_pos;
            int value = hi;
            const int lo = m_pos < m_size ? hexValue(m_data[m_pos]) : -1;
            if (lo >= 0) {
                value = hi * 16 + lo;
                ++m_pos;
            }
            t.type = TokenType::HexByte;
            t.byte = static_cast<unsigned char>(value);
            return t;
        }
        t.type = TokenType::ControlSymbol;
        // A backslash before a line end is an old way of writing \par.
        t.symbol = (c == '\r' || c == '\n') ? '\n' : c;
        return t;
    }

    const qsizetype start = m_pos;
    while (m_pos < m_size && isLetter(m_data[m_pos]))
        ++m_pos;
    t.type = TokenType::ControlWord;
    t.text = std::string_view(m_data + start, size_t(std::min<qsizetype>(m_pos - start, kMaxWordLength)));

    bool negative = false;
    if (m_pos + 1 < m_size && m_data[m_pos] == '-' && isDigit(m_data[m_pos + 1])) {
        negative = true;
        ++m_pos;
    }
    if (m_pos < m_size && isDigit(m_data[m_pos])) {
        long long value = 0;
        while (m_pos < m_size && isDigit(m_data[m_pos])) {
            if (value <= kMaxParam)
                value = value * 10 + (m_data[m_pos] - '0');
            ++m_pos;
        }
        value = std::min<long long>(value, kMaxParam);
        t.param = static_cast<int>(negative ? -value : value);
        t.hasParam = true;
    }
    if (m_pos < m_size && m_data[m_pos] == ' ')
        ++m_pos; // the delimiter belongs to the word

    if (t.text == "bin" && t.hasParam && t.param > 0)
        m_pendingBinary = t.param;
    return t;
}

} // namespace sd::rtf
