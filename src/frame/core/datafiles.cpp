#include "datafiles.h"

#include "state.h"
#include "ui/files/datapath.h"

#include <QFileInfo>
#include <QStringDecoder>
#include <QStringEncoder>

#include <algorithm>
#include <cmath>
#include <optional>

namespace sd {

namespace {

const std::array<DataFileInfo, DataFileCount> &fileTable()
{
    static const std::array<DataFileInfo, DataFileCount> table{{
        {DataFile::Rche, "pracrche.dat", layoutInfo('A', layout::A)},
        {DataFile::Rcmc, "pracrcmc.dat", layoutInfo('A', layout::A)},
        {DataFile::Rcre, "pracrcre.dat", layoutInfo('A', layout::A)},
        {DataFile::Rcma, "pracrcma.dat", layoutInfo('B', layout::B)},
        {DataFile::Comp, "praccomp.dat", layoutInfo('C', layout::C)},
        {DataFile::Ueca, "pracueca.dat", layoutInfo('D', layout::D)},
        {DataFile::Uecb, "pracuecb.dat", layoutInfo('D', layout::D)},
        {DataFile::Uesc, "pracuesc.dat", layoutInfo('E', layout::E)},
        {DataFile::Ueec, "pracueec.dat", layoutInfo('F', layout::F)},
        {DataFile::Uewb, "pracuewb.dat", layoutInfo('G', layout::G)},
        {DataFile::ExamUewb, "examuewb.dat", layoutInfo('H', layout::H)},
    }};
    return table;
}

} // namespace

const DataFileInfo &dataFileInfo(DataFile f)
{
    return fileTable()[std::size_t(f)];
}

bool dataFileForKind(int kind, bool practiceMode, bool testMode, DataFile *out)
{
    static constexpr DataFile byKind[] = {DataFile::Rche, DataFile::Rcmc, DataFile::Rcre, DataFile::Rcma,
                                          DataFile::Comp, DataFile::Ueca, DataFile::Uecb, DataFile::Uesc,
                                          DataFile::Ueec};
    if (kind >= 1 && kind <= 9) {
        *out = byKind[kind - 1];
        return true;
    }
    if (kind == 10 && practiceMode) {
        *out = DataFile::Uewb;
        return true;
    }
    if (kind == 10 && testMode) {
        *out = DataFile::ExamUewb;
        return true;
    }
    return false;
}

namespace {
/// The code page as a table of 256 characters, made once from Qt's decoder: decoding a record is
/// then a lookup per byte, which keeps a key search over thousands of records fast.
const std::array<char16_t, 256> &singleByteTable()
{
    static const std::array<char16_t, 256> table = [] {
        std::array<char16_t, 256> t{};
        QStringDecoder decoder("windows-1252", QStringConverter::Flag::Stateless);
        for (int b = 0; b < 256; ++b) {
            const char c = char(b);
            const QString one = decoder.isValid() ? decoder.decode(QByteArrayView(&c, 1)) : QString(QChar(b));
            t[std::size_t(b)] = one.size() == 1 ? one.at(0).unicode() : char16_t(b); // no ICU: Latin-1
        }
        return t;
    }();
    return table;
}
} // namespace

QString decodeSingleByte(QByteArrayView bytes)
{
    const auto &table = singleByteTable();
    QString out(bytes.size(), Qt::Uninitialized);
    QChar *dst = out.data();
    for (qsizetype i = 0; i < bytes.size(); ++i)
        dst[i] = QChar(table[uchar(bytes[i])]);
    return out;
}

QByteArray encodeSingleByte(QStringView text, bool *ok)
{
    QStringEncoder encoder("windows-1252", QStringConverter::Flag::Stateless);
    QByteArray out = encoder.isValid() ? QByteArray(encoder.encode(text)) : text.toLatin1();
    if (ok) {
        // A character outside the code page comes back as '?' or fails the encoder.
        *ok = !encoder.hasError() && decodeSingleByte(out) == text;
    }
    return out;
}

QString trimBlanks(const QString &s)
{
    qsizetype b = 0, e = s.size();
    while (b < e && s.at(b) == u' ')
        ++b;
    while (e > b && s.at(e - 1) == u' ')
        --e;
    return s.mid(b, e - b);
}

QStringList RecordReader::read(QFile &handle, int n)
{
    return read(handle, n, dataFileInfo(m_file).layout.fieldCount);
}

QString RecordReader::readCode(QFile &handle, int n)
{
    return read(handle, n, 1).value(0);
}

QStringList RecordReader::read(QFile &handle, int n, int fieldCount)
{
    const LayoutInfo &lay = dataFileInfo(m_file).layout;
    if (!handle.isOpen())
        throw ProgramError(QStringLiteral("Bad file name or number"));
    if (n < 1)
        throw RangeError(QStringLiteral("Bad record number %1").arg(n));
    m_buffer.fill(' ', lay.length);
    if (handle.seek(qint64(n - 1) * lay.length)) {
        const QByteArray bytes = handle.read(lay.length);
        // A partial last record reads as whatever bytes are there; the rest stays blank.
        std::copy(bytes.begin(), bytes.end(), m_buffer.begin());
    }
    QStringList fields;
    fields.reserve(fieldCount);
    int pos = 0;
    for (int i = 0; i < fieldCount; ++i) {
        const int w = lay.fields[i].width;
        fields.append(trimBlanks(decodeSingleByte(QByteArrayView(m_buffer).sliced(pos, w))));
        pos += w;
    }
    return fields;
}

CodeScan::CodeScan(QFile &handle, const LayoutInfo &layout)
    : m_handle(handle), m_length(layout.length), m_codeWidth(layout.fields[0].width),
      m_recordsPerBlock(std::max(1, (1 << 20) / layout.length))
{}

bool CodeScan::codeIs(int n, QStringView key)
{
    if (!m_handle.isOpen())
        throw ProgramError(QStringLiteral("Bad file name or number"));
    if (n < 1)
        throw RangeError(QStringLiteral("Bad record number %1").arg(n));
    if (m_first == 0 || n < m_first || n >= m_first + m_recordsPerBlock) {
        // About a megabyte of whole records at a time, into the same buffer.
        m_block.resize(qsizetype(m_recordsPerBlock) * m_length);
        m_first = n;
        m_filled = 0;
        if (m_handle.seek(qint64(n - 1) * m_length))
            m_filled = std::max<qint64>(0, m_handle.read(m_block.data(), m_block.size()));
    }
    const qsizetype start = qsizetype(n - m_first) * m_length;
    const qsizetype end = std::min(start + m_codeWidth, m_filled); // the rest is blank
    const char *bytes = m_block.constData();
    qsizetype b = start, e = std::max(start, end);
    while (b < e && bytes[b] == ' ')
        ++b;
    while (e > b && bytes[e - 1] == ' ')
        --e;
    if (e - b != key.size())
        return false;
    const auto &table = singleByteTable();
    for (qsizetype i = 0; i < key.size(); ++i)
        if (table[uchar(bytes[b + i])] != key[i].unicode())
            return false;
    return true;
}

QByteArray encodeRecord(const LayoutInfo &layout, const QStringList &fields, QString *error)
{
    QByteArray out;
    out.reserve(layout.length);
    for (int i = 0; i < layout.fieldCount; ++i) {
        const QString text = fields.value(i);
        const QString name = QString::fromLatin1(layout.fields[i].name.data(), qsizetype(layout.fields[i].name.size()));
        bool ok = true;
        QByteArray bytes = encodeSingleByte(text, &ok);
        if (!ok) {
            if (error)
                *error = QStringLiteral("%1: text outside the Windows-1252 code page").arg(name);
            return {};
        }
        if (bytes.size() > layout.fields[i].width) {
            if (error)
                *error = QStringLiteral("%1: %2 characters, more than the field's %3")
                             .arg(name).arg(bytes.size()).arg(layout.fields[i].width);
            return {};
        }
        out += bytes;
        out += QByteArray(layout.fields[i].width - bytes.size(), ' ');
    }
    return out;
}

DataFiles::DataFiles()
    : m_readers{RecordReader(DataFile::Rche), RecordReader(DataFile::Rcmc), RecordReader(DataFile::Rcre),
                RecordReader(DataFile::Rcma), RecordReader(DataFile::Comp), RecordReader(DataFile::Ueca),
                RecordReader(DataFile::Uecb), RecordReader(DataFile::Uesc), RecordReader(DataFile::Ueec),
                RecordReader(DataFile::Uewb), RecordReader(DataFile::ExamUewb)}
{}

void SelectDataFile(ProgramState &s, int kind)
{
    DataFile f;
    if (!dataFileForKind(kind, s.PracticeMode, s.TestMode, &f))
        return; // the previous file and record length stay in force
    const DataFileInfo &info = dataFileInfo(f);
    s.DataFileName = QString::fromLatin1(info.fileName);
    s.RecordLength = info.layout.length;
}

namespace {
/// Opens a data file of the data directory on handle 1: only a regular file inside the directory,
/// and no larger than the largest file of 32,767 records.
void openOnHandle(ProgramState &s, const QString &name)
{
    QFile &h = s.Files.handle();
    h.close();
    const DataPath p = resolveDataFile(s.DataDir, name);
    if (!p.ok())
        throw ProgramError(QStringLiteral("No file"));
    if (QFileInfo(p.path).size() > MaxDataFileBytes)
        throw FileTooLargeError(QStringLiteral("File too large"));
    h.setFileName(p.path);
    if (!h.open(QIODevice::ReadOnly) || h.isSequential()) {
        h.close();
        throw ProgramError(QStringLiteral("No file"));
    }
}
} // namespace

void OpenDataFile(ProgramState &s)
{
    if (s.DataFileName.isEmpty())
        return;
    openOnHandle(s, s.DataFileName);
}

void OpenNamedDataFile(ProgramState &s, QString &name)
{
    if (name.isEmpty())
        return;
    openOnHandle(s, name);
    name = s.DataDir + name;
}

void CloseDataFile(ProgramState &s)
{
    s.Files.handle().close();
}

void CountRecords(ProgramState &s, CountFor which)
{
    QFile &h = s.Files.handle();
    if (!h.isOpen())
        throw ProgramError(QStringLiteral("Bad file name or number"));
    if (s.RecordLength <= 0)
        throw ProgramError(QStringLiteral("Division by zero"));
    // Halves go to the even number, as the original division did.
    const double quotient = double(h.size()) / double(s.RecordLength.value());
    const double rounded = std::nearbyint(quotient); // default rounding mode: to nearest, ties to even
    if (rounded > 32767.0)
        throw FileTooLargeError(QStringLiteral("File too large"));
    s.RecordCount = qint64(rounded);
    switch (which) {
    case CountFor::Search: s.SearchRecordCount = s.RecordCount; break;
    case CountFor::Conversion: s.ConversionRecordCount = s.RecordCount; break;
    case CountFor::WordFormation: s.WordFormationRecordCount = s.RecordCount; break;
    }
}

QStringList ReadRecord(ProgramState &s, DataFile f, int n)
{
    return s.Files.reader(f).read(s.Files.handle(), n);
}

namespace {
/// The file whose reader serves the key search for the current kind; false for the kinds it does
/// not cover.
bool searchedFile(const ProgramState &s, DataFile *f)
{
    const int kind = s.ExerciseKind;
    const bool covered = (kind >= 1 && kind <= 4) || kind == 6 || kind == 7 || kind == 9
                         || (kind == 10 && s.TestMode && !s.PracticeMode);
    return covered && dataFileForKind(kind, s.PracticeMode, s.TestMode, f);
}

/// ReadRecordCode(s, n) == key, without decoding: a kind the search does not cover reads an empty code.
class KeyMatcher
{
public:
    explicit KeyMatcher(ProgramState &s)
    {
        DataFile f;
        if (searchedFile(s, &f))
            m_scan.emplace(s.Files.handle(), dataFileInfo(f).layout);
    }
    bool matches(int n, const QString &key) { return m_scan ? m_scan->codeIs(n, key) : key.isEmpty(); }

private:
    std::optional<CodeScan> m_scan;
};
} // namespace

QString ReadRecordCode(ProgramState &s, int n)
{
    DataFile f;
    if (!searchedFile(s, &f))
        return QString();
    return s.Files.reader(f).readCode(s.Files.handle(), n);
}

SearchResult FindPracticeRecord(ProgramState &s)
{
    s.CurrentRecord = 0;
    s.ExerciseKey = s.LevelCode + s.ExerciseCode;
    OpenDataFile(s);
    CountRecords(s, CountFor::Search);
    KeyMatcher codes(s);
    for (;;) {
        ++s.CurrentRecord;
        if (s.CurrentRecord >= s.SearchRecordCount + 1)
            return SearchResult::NotFound;
        if (codes.matches(s.CurrentRecord, s.ExerciseKey))
            return SearchResult::Found;
    }
}

SearchResult FindTestRecord(ProgramState &s)
{
    s.CurrentRecord = 0;
    s.ExerciseKey = QStringLiteral("x") + s.LevelCode;
    OpenDataFile(s);
    CountRecords(s, CountFor::Search);
    if (s.SearchRecordCount <= 0)
        return SearchResult::NotFound; // nothing to examine
    KeyMatcher codes(s);
    for (;;) {
        ++s.CurrentRecord;
        if (codes.matches(s.CurrentRecord, s.ExerciseKey))
            return SearchResult::Found;
        // Gives up on the last record itself, once compared.
        if (s.CurrentRecord == s.SearchRecordCount)
            return SearchResult::NotFound;
    }
}

} // namespace sd
