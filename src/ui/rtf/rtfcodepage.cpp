#include "ui/rtf/rtfcodepage.h"

#include <QByteArray>
#include <QHash>
#include <QMutex>
#include <QStringDecoder>

namespace sd::rtf {

namespace {

// The Symbol font's letters 0x20..0xFF as Unicode; 0 where the font has no character.
constexpr char16_t kSymbolHigh[224] = {
    0x0020, 0x0021, 0x2200, 0x0023, 0x2203, 0x0025, 0x0026, 0x220B, // 20
    0x0028, 0x0029, 0x2217, 0x002B, 0x002C, 0x2212, 0x002E, 0x002F,
    0x0030, 0x0031, 0x0032, 0x0033, 0x0034, 0x0035, 0x0036, 0x0037, // 30
    0x0038, 0x0039, 0x003A, 0x003B, 0x003C, 0x003D, 0x003E, 0x003F,
    0x2245, 0x0391, 0x0392, 0x03A7, 0x0394, 0x0395, 0x03A6, 0x0393, // 40
    0x0397, 0x0399, 0x03D1, 0x039A, 0x039B, 0x039C, 0x039D, 0x039F,
    0x03A0, 0x0398, 0x03A1, 0x03A3, 0x03A4, 0x03A5, 0x03C2, 0x03A9, // 50
    0x039E, 0x03A8, 0x0396, 0x005B, 0x2234, 0x005D, 0x22A5, 0x005F,
    0x203E, 0x03B1, 0x03B2, 0x03C7, 0x03B4, 0x03B5, 0x03C6, 0x03B3, // 60
    0x03B7, 0x03B9, 0x03D5, 0x03BA, 0x03BB, 0x03BC, 0x03BD, 0x03BF,
    0x03C0, 0x03B8, 0x03C1, 0x03C3, 0x03C4, 0x03C5, 0x03D6, 0x03C9, // 70
    0x03BE, 0x03C8, 0x03B6, 0x007B, 0x007C, 0x007D, 0x223C, 0,
    0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0,                 // 80
    0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0,                 // 90
    0x20AC, 0x03D2, 0x2032, 0x2264, 0x2044, 0x221E, 0x0192, 0x2663, // A0
    0x2666, 0x2665, 0x2660, 0x2194, 0x2190, 0x2191, 0x2192, 0x2193,
    0x00B0, 0x00B1, 0x2033, 0x2265, 0x00D7, 0x221D, 0x2202, 0x2022, // B0
    0x00F7, 0x2260, 0x2261, 0x2248, 0x2026, 0x23D0, 0x23AF, 0x21B5,
    0x2135, 0x2111, 0x211C, 0x2118, 0x2297, 0x2295, 0x2205, 0x2229, // C0
    0x222A, 0x2283, 0x2287, 0x2284, 0x2282, 0x2286, 0x2208, 0x2209,
    0x2220, 0x2207, 0x00AE, 0x00A9, 0x2122, 0x220F, 0x221A, 0x22C5, // D0
    0x00AC, 0x2227, 0x2228, 0x21D4, 0x21D0, 0x21D1, 0x21D2, 0x21D3,
    0x25CA, 0x2329, 0x00AE, 0x00A9, 0x2122, 0x2211, 0x239B, 0x239C, // E0
    0x239D, 0x23A1, 0x23A2, 0x23A3, 0x23A7, 0x23A8, 0x23A9, 0x23AA,
    0, 0x232A, 0x222B, 0x2320, 0x23AE, 0x2321, 0x239E, 0x239F,      // F0
    0x23A0, 0x23A4, 0x23A5, 0x23A6, 0x23AB, 0x23AC, 0x23AD, 0,
};

// Wingdings and friends: the marks teachers use as bullets and ticks; anything else
// shows as a plain bullet rather than a wrong letter.
const char16_t (&dingbatTable())[224]
{
    static char16_t table[224] = {};
    static const bool filled = [] {
        for (char16_t &c : table)
            c = 0x2022;
        table[0] = 0x0020;
        const std::pair<int, char16_t> known[] = {
            {0x46, 0x261E}, {0x4A, 0x263A}, {0x4B, 0x2610}, {0x4C, 0x2639}, {0x6C, 0x25CF},
            {0x6E, 0x25A0}, {0x6F, 0x25A1}, {0x70, 0x25A1}, {0x71, 0x2751}, {0x72, 0x2752},
            {0x73, 0x2B27}, {0x74, 0x29EB}, {0x75, 0x25C6}, {0x76, 0x2756}, {0x77, 0x2B25},
            {0x9F, 0x2022}, {0xA1, 0x25CB}, {0xA7, 0x25AA}, {0xA8, 0x25FB}, {0xD8, 0x27A2},
            {0xE0, 0x2192}, {0xE8, 0x2794}, {0xF0, 0x21E8}, {0xFB, 0x2717}, {0xFC, 0x2713},
            {0xFD, 0x2612}, {0xFE, 0x2611},
        };
        for (const auto &[byte, ch] : known)
            table[byte - 0x20] = ch;
        return true;
    }();
    Q_UNUSED(filled);
    return table;
}

QByteArray codecName(int number)
{
    switch (number) {
    case 932: return QByteArrayLiteral("windows-31j");
    case 936: return QByteArrayLiteral("GBK");
    case 949: return QByteArrayLiteral("windows-949");
    case 950: return QByteArrayLiteral("Big5");
    case 1361: return QByteArrayLiteral("johab");
    case 10000: return QByteArrayLiteral("macintosh");
    case 10006: return QByteArrayLiteral("x-mac-greek");
    case 10007: return QByteArrayLiteral("x-mac-cyrillic");
    case 10029: return QByteArrayLiteral("x-mac-centraleurroman");
    case 20866: return QByteArrayLiteral("KOI8-R");
    case 21866: return QByteArrayLiteral("KOI8-U");
    case 65001: return QByteArrayLiteral("UTF-8");
    default: break;
    }
    if (number >= 28591 && number <= 28605)
        return "ISO-8859-" + QByteArray::number(number - 28590);
    if (number < 1000)
        return number == 874 ? QByteArrayLiteral("windows-874") : "IBM" + QByteArray::number(number);
    return "windows-" + QByteArray::number(number);
}

bool isMultiByte(int number)
{
    return number == 932 || number == 936 || number == 949 || number == 950 || number == 1361
        || number == 65001;
}

} // namespace

Codepage::Codepage(int number)
    : m_number(number)
{
    const QByteArray name = codecName(number);
    for (int b = 0; b < 0x80; ++b)
        m_table[b] = char16_t(b);
    if (isMultiByte(number)) {
        m_decoder = std::make_unique<QStringDecoder>(name.constData(), QStringDecoder::Flag::Stateless);
        for (int b = 0x80; b < 0x100; ++b)
            m_table[b] = 0xFFFD;
        return;
    }
    QStringDecoder decoder(name.constData(), QStringDecoder::Flag::Stateless);
    for (int b = 0x80; b < 0x100; ++b) {
        const char byte = char(b);
        const QString s = decoder.decode(QByteArrayView(&byte, 1));
        m_table[b] = s.size() == 1 ? s.at(0).unicode() : char16_t(0xFFFD);
    }
}

Codepage::Codepage(int number, const char16_t (&high)[224])
    : m_number(number)
{
    for (int b = 0; b < 0x20; ++b)
        m_table[b] = char16_t(b);
    for (int b = 0x20; b < 0x100; ++b)
        m_table[b] = high[b - 0x20];
}

Codepage::~Codepage() = default;

QString Codepage::decode(QByteArrayView bytes) const
{
    if (!m_decoder) {
        QString s;
        s.reserve(bytes.size());
        for (char c : bytes)
            s.append(QChar(m_table[static_cast<unsigned char>(c)]));
        return s;
    }
    QStringDecoder decoder(codecName(m_number).constData(), QStringDecoder::Flag::Stateless);
    return decoder.decode(bytes);
}

int Codepage::fromCharset(int charset)
{
    switch (charset) {
    case 77: return 10000;
    case 128: return 932;
    case 129: return 949;
    case 130: return 1361;
    case 134: return 936;
    case 136: return 950;
    case 161: return 1253;
    case 162: return 1254;
    case 163: return 1258;
    case 177: return 1255;
    case 178: return 1256;
    case 186: return 1257;
    case 204: return 1251;
    case 222: return 874;
    case 238: return 1250;
    case 254: return 437;
    case 255: return 850;
    default: return 0;
    }
}

const Codepage *Codepage::get(int number)
{
    static QMutex mutex;
    static QHash<int, Codepage *> cache; // lives as long as the program
    QMutexLocker lock(&mutex);
    if (Codepage *cp = cache.value(number))
        return cp;
    const int requested = number;
    if (!QStringDecoder(codecName(number).constData()).isValid())
        number = 1252;
    Codepage *cp = cache.value(number);
    if (!cp) {
        cp = new Codepage(number);
        cache.insert(number, cp);
    }
    cache.insert(requested, cp);
    return cp;
}

const Codepage *Codepage::symbolFont()
{
    static const Codepage cp(-2, kSymbolHigh);
    return &cp;
}

const Codepage *Codepage::dingbatFont()
{
    static const Codepage cp(-3, dingbatTable());
    return &cp;
}

int toWindows1252(char16_t ch)
{
    if (ch < 0x80 || (ch >= 0xA0 && ch <= 0xFF))
        return ch;
    static const auto reverse = [] {
        QHash<char16_t, int> r;
        const Codepage *cp = Codepage::get(1252);
        for (int b = 0x80; b < 0xA0; ++b) {
            if (cp->map(static_cast<unsigned char>(b)) != 0xFFFD)
                r.insert(cp->map(static_cast<unsigned char>(b)), b);
        }
        return r;
    }();
    return reverse.value(ch, -1);
}

char16_t mapSymbolPrivateUse(char16_t ch)
{
    if (ch < 0xF020 || ch > 0xF0FF)
        return ch;
    const char16_t mapped = kSymbolHigh[ch - 0xF020];
    return mapped ? mapped : char16_t(0x2022);
}

} // namespace sd::rtf
