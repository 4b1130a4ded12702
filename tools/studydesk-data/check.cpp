#include "check.h"

#include "recordrules.h"
#include "ui/files/datapath.h"
#include "ui/rtf/rtfreader.h"

#include "frame/core/services.h"
#include "frame/core/state.h"

#include <QDir>
#include <QFile>
#include <QImage>
#include <QRegularExpression>
#include <QTextDocument>

#include <map>
#include <set>

using namespace Qt::StringLiterals;

namespace sd::data {

namespace {

constexpr int kHelpWidth = 90;
constexpr int kMostTextLines = 20;
constexpr int kWidestTextLine = 80; // an error-correction line still fits the screen

QString fieldName(const FieldSpec &f)
{
    return QString::fromLatin1(f.name.data(), qsizetype(f.name.size()));
}

/// Bytes that are no Windows-1252 text: control characters (but the line ends and tabs of text
/// files), the five unassigned codes, and UTF-8 sequences (text saved in the wrong code page).
QString codePageFault(QByteArrayView bytes, bool textFile = false)
{
    for (qsizetype i = 0; i < bytes.size(); ++i) {
        const auto b = uchar(bytes[i]);
        const QString hex = QString::number(b, 16).toUpper().rightJustified(2, u'0');
        if (textFile && (b == '\r' || b == '\n' || b == '\t'))
            continue;
        if (b < 0x20)
            return u"holds the control character 0x%1"_s.arg(hex);
        if (b == 0x81 || b == 0x8D || b == 0x8F || b == 0x90 || b == 0x9D)
            return u"holds the byte 0x%1, which is no Windows-1252 character"_s.arg(hex);
        if (b >= 0xC2 && b <= 0xF4 && i + 1 < bytes.size() && (uchar(bytes[i + 1]) & 0xC0) == 0x80)
            return u"holds UTF-8 text (\"%1\"); data files are Windows-1252"_s.arg(QString::fromUtf8(bytes.sliced(i, 2)));
    }
    return {};
}

/// A file of text lines as the program reads them, or why it cannot be read.
QString textFileFault(const QByteArray &bytes, int mostLines, int widest, QStringList *lines)
{
    QString text = decodeSingleByte(bytes);
    text.replace(u"\r\n"_s, u"\n"_s);
    if (text.endsWith(u'\n'))
        text.chop(1);
    *lines = text.isEmpty() ? QStringList() : text.split(u'\n');
    if (const QString fault = codePageFault(bytes, true); !fault.isEmpty())
        return fault;
    if (lines->isEmpty())
        return u"is empty"_s;
    if (mostLines > 0 && lines->size() > mostLines)
        return u"has %1 lines; the screen reads at most %2"_s.arg(lines->size()).arg(mostLines);
    for (qsizetype i = 0; widest > 0 && i < lines->size(); ++i)
        if (lines->at(i).size() > widest)
            return u"line %1 has %2 characters; at most %3 fit"_s.arg(i + 1).arg(lines->at(i).size()).arg(widest);
    return {};
}

/// The data files of the kinds whose screens the program has: a menu offers them, so each must be
/// there and hold records. The others are reported as not covered.
bool requiredFile(DataFile file)
{
    switch (file) {
    case DataFile::Rche:
    case DataFile::Rcmc:
    case DataFile::Rcre:
    case DataFile::Rcma:
    case DataFile::Comp:
    case DataFile::Ueca:
    case DataFile::Uecb:
    case DataFile::Uesc:
    case DataFile::Ueec:
    case DataFile::ExamUewb: return true;
    default: return false;
    }
}

/// Text that a label would show with its tags: markup has no place in a data field.
QString markupFault(const QString &text)
{
    static const QRegularExpression markup(u"<\\s*[A-Za-z/!?]|&[A-Za-z]+;|&#[0-9]+;"_s);
    const QRegularExpressionMatch m = markup.match(text);
    if (!m.hasMatch())
        return {};
    return u"holds markup (\"%1\"); the screen shows it as typed"_s.arg(text.mid(m.capturedStart(), 12));
}

/// Rich text that reads as control characters or undecodable bytes is no passage a student can read.
QString unreadableText(const QString &text)
{
    for (const QChar c : text) {
        const char16_t u = c.unicode();
        if ((u < 0x20 && u != u'\n' && u != u'\t') || u == 0xFFFD)
            return u"holds unreadable characters (U+%1), not text"_s.arg(QString::number(u, 16).toUpper().rightJustified(4, u'0'));
    }
    return {};
}

class Checker
{
public:
    explicit Checker(const QString &dir) : m_state(m_sound, m_seeds), m_dir(dir)
    {
        m_state.setDataDir(dir);
    }

    CheckReport run();

private:
    void checkFile(DataFile file);
    void checkFile(DataFile file, QString name);
    void checkWordFormationFiles();
    void checkWriting();
    void checkItemCounts(DataFile file, const QString &name);
    void checkRecord(DataFile file, const QString &fileName, int n, const QStringList &fields, const QByteArray &raw);
    void checkReference(const QString &where, const FileReference &ref, DataFile file, const QStringList &fields);
    QString fileFault(const QString &name);
    void checkHelp(const QString &code);
    void checkSounds();
    QString coverage() const;

    RecordingSound m_sound;
    SystemSeedSource m_seeds;
    ProgramState m_state;
    QDir m_dir;
    Problems m_errors;
    std::map<DataFile, std::set<QString>> m_keys; ///< the keys the program finds, per file
    std::map<QString, int> m_items;               ///< items per key of a one-item file
    std::map<QString, int> m_titles;              ///< praccomp.dat: titles per composition type
    std::set<DataFile> m_present;
    std::map<QString, QString> m_fileFaults; ///< each referenced file is read once
};

CheckReport Checker::run()
{
    if (!m_dir.exists())
        return {{m_dir.path() + u": no such directory"_s}, {}};
    for (int i = 0; i < DataFileCount; ++i)
        checkFile(DataFile(i));
    checkWordFormationFiles();
    if (m_present.count(DataFile::Comp))
        checkWriting();
    if (m_present.empty())
        m_errors << m_dir.path() + u": no exercise data files"_s;
    checkHelp(u"gen"_s);
    checkHelp(u"prog"_s);
    checkSounds();
    return {m_errors, coverage()};
}

bool oneItemFile(DataFile file)
{
    return file == DataFile::Uesc || file == DataFile::Uewb;
}

void Checker::checkFile(DataFile file)
{
    if (file == DataFile::Uewb) // practice word formation reads the "wb" files instead
        return;
    const QString name = QString::fromLatin1(dataFileInfo(file).fileName);
    if (resolveDataFile(m_dir.path(), name).refusal == FileRefusal::Missing) {
        if (requiredFile(file))
            m_errors << name + u": is missing; its menu entries would all say \"No file\""_s;
        return;
    }
    m_present.insert(file);
    checkFile(file, name);
    if (file != DataFile::Comp && file != DataFile::ExamUewb)
        checkHelp(kindCode(file));
}

void Checker::checkFile(DataFile file, QString name)
{
    const DataFileInfo &info = dataFileInfo(file);
    const QString shown = name;
    const DataPath where = resolveDataFile(m_dir.path(), name);
    if (!where.ok()) {
        m_errors << shown + u": cannot be opened: "_s + where.reason;
        return;
    }
    const int length = info.layout.length;
    const qint64 size = QFileInfo(where.path).size();
    if (size == 0) {
        m_errors << shown + u": is empty"_s;
        return;
    }
    if (size > MaxDataFileBytes) {
        m_errors << shown + u": file too large: %1; the program reads at most %2"_s.arg(describeSize(size), describeSize(MaxDataFileBytes));
        return;
    }
    if (size / length > 32767) {
        m_errors << shown + u": file too large: %1 records; the program reads at most 32767"_s.arg(size / length);
        return;
    }
    m_items.clear();
    // Read as the program reads: handle 1, the count rounded, the file's own record reader.
    int count = 0;
    try {
        m_state.RecordLength = length;
        QString opened = name;
        OpenNamedDataFile(m_state, opened);
        CountRecords(m_state, CountFor::Search);
        count = m_state.SearchRecordCount;
        for (int n = 1; n <= count; ++n) {
            const QStringList fields = ReadRecord(m_state, file, n);
            checkRecord(file, shown, n, fields, m_state.Files.reader(file).buffer());
        }
        CloseDataFile(m_state);
    } catch (const ProgramError &e) {
        CloseDataFile(m_state);
        m_errors << shown + u": cannot be read: "_s + e.message();
    }
    if (size % length != 0) {
        // Name the cut record the way a teacher finds it: by number and by the key it starts with.
        const qint64 last = size / length + 1;
        QFile f(where.path);
        QString key;
        if (f.open(QIODevice::ReadOnly) && f.seek((last - 1) * length))
            key = decodeSingleByte(f.read(qMin<qint64>(size % length, 6))).trimmed();
        m_errors << u"%1: record %2 (key %3) is cut short: %4 of %5 bytes"_s.arg(shown).arg(last)
                        .arg(key.isEmpty() ? u"unreadable"_s : key).arg(size % length).arg(length);
    }
    if (oneItemFile(file))
        checkItemCounts(file, shown);
}

/// The practice word-formation exercises: one file "wb" & level & exercise each, every record one
/// sentence keyed with the exercise.
void Checker::checkWordFormationFiles()
{
    static const QRegularExpression exerciseFile(u"^wb([1-3](0[1-9]|10))$"_s);
    bool any = false;
    for (const QString &name : m_dir.entryList({u"wb*"_s}, QDir::Files, QDir::Name)) {
        const QRegularExpressionMatch m = exerciseFile.match(name);
        if (!m.hasMatch())
            continue;
        any = true;
        if (QFileInfo(m_dir.filePath(name)).size() == 0) {
            m_errors << name + u": is empty; the program shows \"No file\""_s;
            continue;
        }
        m_keys[DataFile::Uewb].insert(m.captured(1));
        checkFile(DataFile::Uewb, name);
    }
    if (any) {
        m_present.insert(DataFile::Uewb);
        checkHelp(kindCode(DataFile::Uewb));
    }
}

/// The titles of every type and the files of the Writing screens: the ten letter sheets, the
/// picture of topic 9, the samples, each test's sheet and questions, the writing help topics.
void Checker::checkWriting()
{
    static const QStringList types{u"leta"_s, u"nar"_s, u"art"_s, u"rep"_s, u"dis"_s, u"letb"_s, u"book"_s};
    QStringList files{u"letasample.rtf"_s, u"leta09.png"_s};
    for (const QString &type : types) {
        const int titles = m_titles.count(type) ? m_titles.at(type) : 0;
        if (titles < 10)
            m_errors << u"praccomp.dat: key %1: %2 titles; the titles screen pages over ten"_s.arg(type).arg(titles);
        for (int n = 1; n <= 3; ++n)
            files << u"Sample%1%2.rtf"_s.arg(type).arg(n);
        checkHelp(type);
    }
    for (int n = 1; n <= 10; ++n)
        files << u"leta%1.htm"_s.arg(n, 2, 10, QLatin1Char('0')) << u"leta%1.rtf"_s.arg(n, 2, 10, QLatin1Char('0'));
    for (const QString &key : m_keys[DataFile::Comp])
        files << u"comp%1.htm"_s.arg(key) << u"comp%1b.rtf"_s.arg(key);
    for (const QString &name : std::as_const(files)) {
        QString fault;
        if (name.endsWith(u".png"_s)) {
            const FileBytes png = readDataFile(m_dir.path(), name, MaxRtfBytes);
            fault = !png.ok() ? (png.refusal == FileRefusal::Missing ? u"is missing"_s : png.reason)
                    : rtf::decodePicture(png.bytes).isNull() ? u"is not a picture the program can show"_s
                                                              : QString();
        } else {
            fault = fileFault(name);
        }
        if (!fault.isEmpty())
            m_errors << name + u" "_s + fault;
    }
    checkHelp(u"write"_s);
    checkHelp(u"comp"_s);
}

void Checker::checkItemCounts(DataFile file, const QString &name)
{
    for (const auto &[key, count] : m_items) {
        if (file == DataFile::Uewb && u"wb"_s + key != name)
            m_errors << u"%1: key %2: sentences of another exercise; every Code is %3"_s.arg(name, key, name.mid(2));
        else if (keyKind(file, key) == KeyKind::Test && count != 10)
            m_errors << u"%1: key %2: %3 items; a test section has 10"_s.arg(name, key).arg(count);
        else if (count > 20)
            m_errors << u"%1: key %2: %3 items; the screen takes at most 20"_s.arg(name, key).arg(count);
    }
}

void Checker::checkRecord(DataFile file, const QString &fileName, int n, const QStringList &fields, const QByteArray &raw)
{
    const LayoutInfo &layout = dataFileInfo(file).layout;
    const QString key = fields.value(0);
    QString where = fileName + u": key "_s + key;
    if (key.isEmpty() || keyKind(file, key) == KeyKind::Bad) {
        where = fileName + u": record %1"_s.arg(n);
    } else if (file == DataFile::Comp && keyKind(file, key) == KeyKind::Other) {
        // Titles of a type are numbered by record order; ten is all a type holds.
        if (++m_titles[key] > 10)
            m_errors << where + u": title %1 in record %2; the program stops at the eleventh with \"ERROR - NO TEXT\""_s
                                    .arg(m_titles[key]).arg(n);
    } else if (oneItemFile(file)) {
        where += u", item %1"_s.arg(++m_items[key]);
        if (file == DataFile::Uesc)
            m_keys[file].insert(key);
    } else if (!m_keys[file].insert(key).second) {
        m_errors << where + u": repeated in record %1; the program only finds the first"_s.arg(n);
        return;
    }
    int pos = 0;
    for (int i = 0; i < layout.fieldCount; ++i) {
        const int width = layout.fields[i].width;
        const QByteArrayView bytes = QByteArrayView(raw).sliced(pos, width);
        pos += width;
        if (const QString fault = codePageFault(bytes); !fault.isEmpty())
            m_errors << where + u": "_s + fieldName(layout.fields[i]) + u": "_s + fault;
        else if (bytes.back() != ' ')
            m_errors << where + u": "_s + fieldName(layout.fields[i])
                            + u": the text fills all %1 characters of the field, so it may have been cut off"_s.arg(width);
    }
    for (int i = 1; i < layout.fieldCount; ++i) {
        const QString name = fieldName(layout.fields[i]);
        if (name == u"Name"_s || name == u"Answers"_s)
            continue;
        if (const QString fault = markupFault(fields.value(i)); !fault.isEmpty())
            m_errors << where + u": "_s + name + u": "_s + fault;
    }
    for (const FieldProblem &p : checkFields(file, fields))
        m_errors << where + u": "_s + p.field + u": "_s + p.message;
    for (const FileReference &ref : referencedFiles(file, fields))
        checkReference(where, ref, file, fields);
}

QString Checker::fileFault(const QString &name)
{
    if (auto it = m_fileFaults.find(name); it != m_fileFaults.end())
        return it->second;
    // The same resolver and limits as the program: what passes here is what the screens open.
    QString fault;
    const bool rtf = name.endsWith(u".rtf"_s);
    const FileBytes file = readDataFile(m_dir.path(), name, rtf ? MaxRtfBytes : MaxTextBytes);
    if (file.refusal == FileRefusal::Missing) {
        fault = u"is missing"_s;
    } else if (!file.ok()) {
        fault = u"cannot be opened: "_s + file.reason;
    } else if (rtf) {
        QTextDocument doc;
        const rtf::ReadResult r = rtf::readRtf(file.bytes, doc);
        const QString text = doc.toPlainText();
        if (!r.ok || r.partial)
            fault = u"cannot be read as rich text: "_s + r.message;
        else if (text.trimmed().isEmpty())
            fault = u"holds no text"_s;
        else if (const QString bad = unreadableText(text); !bad.isEmpty())
            fault = bad;
        else if (text.contains(u"[picture too large]"_s))
            fault = u"holds a picture over %1 million pixels, which is not shown"_s.arg(MaxPicturePixels / 1000000);
    } else if (name.endsWith(u".htm"_s)) {
        QTextDocument doc;
        doc.setHtml(QString::fromUtf8(file.bytes));
        if (doc.toPlainText().trimmed().isEmpty())
            fault = u"holds no text"_s;
    }
    m_fileFaults[name] = fault;
    return fault;
}

void Checker::checkReference(const QString &where, const FileReference &ref, DataFile file, const QStringList &fields)
{
    const QString prefix = where + u": "_s + ref.field + u": "_s + ref.fileName + u" "_s;
    if (const QString fault = fileFault(ref.fileName); !fault.isEmpty()) {
        m_errors << prefix + fault;
        return;
    }
    if (!ref.fileName.endsWith(u".txt"_s))
        return;
    const FileBytes text = readDataFile(m_dir.path(), ref.fileName, MaxTextBytes);
    QStringList lines;
    if (const QString fault = textFileFault(text.bytes, kMostTextLines, kWidestTextLine, &lines); !fault.isEmpty()) {
        m_errors << prefix + fault;
        return;
    }
    // Each extra word stands in its own line.
    for (int n = 1; n <= 15 && file == DataFile::Ueec; ++n) {
        const QString word = fieldOf(file, fields, QStringLiteral("Item%1").arg(n).toLatin1().constData());
        if (word.isEmpty())
            continue;
        const QRegularExpression whole(u"\\b"_s + QRegularExpression::escape(word) + u"\\b"_s,
                                       QRegularExpression::CaseInsensitiveOption);
        if (!whole.match(lines.value(n - 1)).hasMatch())
            m_errors << where + u": Item%1: \"%2\" is not in line %1 of %3"_s.arg(n).arg(word, ref.fileName);
    }
}

void Checker::checkHelp(const QString &code)
{
    const QString base = u"help"_s + code;
    if (const QString fault = fileFault(base + u".rtf"_s); !fault.isEmpty())
        m_errors << base + u".rtf "_s + fault;
    const FileBytes text = readDataFile(m_dir.path(), base + u".txt"_s, MaxTextBytes);
    QStringList lines;
    if (!text.ok())
        m_errors << base + u".txt "_s + (text.refusal == FileRefusal::Missing ? u"is missing"_s : text.reason);
    else if (const QString fault = textFileFault(text.bytes, 0, kHelpWidth, &lines); !fault.isEmpty())
        m_errors << base + u".txt "_s + fault;
}

void Checker::checkSounds()
{
    std::set<QString> clips;
    for (int i = 1; i <= 9; ++i)
        clips.insert(m_state.SoundFiles[i]);
    for (const QString &clip : clips) {
        const DataPath p = resolveDataFile(m_dir.path(), clip);
        QFile file(p.path);
        if (!p.ok() || !file.open(QIODevice::ReadOnly)) {
            m_errors << clip + (p.refusal == FileRefusal::Missing ? u" is missing"_s : u" cannot be opened: "_s + p.reason);
            continue;
        }
        if (file.size() > MaxSoundBytes)
            m_errors << clip + u" is too large (%1; at most %2)"_s.arg(describeSize(file.size()), describeSize(MaxSoundBytes));
        const QByteArray head = file.read(12);
        if (!head.startsWith("RIFF") || head.mid(8, 4) != "WAVE")
            m_errors << clip + u" is not a WAVE file"_s;
    }
}

QString Checker::coverage() const
{
    QStringList rows;
    rows << u"%1 %2 %3 %4 %5  %6"_s.arg(u"kind"_s, -27).arg(u"file"_s, -13).arg(u"level 1"_s, -8)
                .arg(u"level 2"_s, -8).arg(u"level 3"_s, -8).arg(u"tests"_s);
    for (int i = 0; i < DataFileCount; ++i) {
        const auto file = DataFile(i);
        int kind = i + 1;
        QString kindName;
        if (file == DataFile::ExamUewb) {
            kind = 10;
            kindName = m_state.KindNames[10] + u" (tests)"_s;
        } else {
            kindName = m_state.KindNames[kind];
        }
        const QString fileName = file == DataFile::Uewb ? u"wb files"_s : QString::fromLatin1(dataFileInfo(file).fileName);
        QString row = u"%1 %2 %3 "_s.arg(kind, 2).arg(kindName, -24).arg(fileName, -13);
        if (!m_present.count(file)) {
            rows << row + (requiredFile(file) ? u"no file"_s : u"not covered"_s);
            continue;
        }
        const auto it = m_keys.find(file);
        const std::set<QString> keys = it == m_keys.end() ? std::set<QString>() : it->second;
        if (file == DataFile::Comp) {
            int titles = 0;
            for (const auto &[type, count] : m_titles)
                titles += count;
            QStringList tests(keys.begin(), keys.end());
            rows << row + u"%1"_s.arg(u"%1 titles"_s.arg(titles), -26) + u" "_s + (tests.isEmpty() ? u"-"_s : tests.join(u' '));
            continue;
        }
        int perLevel[4] = {0, 0, 0, 0};
        QStringList tests;
        for (const QString &k : keys) {
            if (keyKind(file, k) == KeyKind::Practice)
                ++perLevel[k.at(0).digitValue()];
            else if (keyKind(file, k) == KeyKind::Test)
                tests << k;
        }
        for (int level = 1; level <= 3; ++level)
            row += u"%1 "_s.arg(u"%1/10"_s.arg(perLevel[level]), -8);
        rows << row + u" "_s + (tests.isEmpty() ? u"-"_s : tests.join(u' '));
    }
    return rows.join(u'\n') + u'\n';
}

} // namespace

CheckReport checkDataDirectory(const QString &dir)
{
    return Checker(dir).run();
}

bool showRecord(const QString &dir, const QString &fileOrCode, const QString &key, QString *out)
{
    DataFile file;
    if (!dataFileForCode(fileOrCode, &file)) {
        *out = fileOrCode + u": not a data file (pracrcmc.dat or rcmc ...)"_s;
        return false;
    }
    RecordingSound sound;
    SystemSeedSource seeds;
    ProgramState state(sound, seeds);
    state.setDataDir(dir);
    const DataFileInfo &info = dataFileInfo(file);
    QString name = QString::fromLatin1(info.fileName);
    try {
        state.RecordLength = info.layout.length;
        OpenNamedDataFile(state, name);
        CountRecords(state, CountFor::Search);
        for (int n = 1; n <= state.SearchRecordCount; ++n) {
            const QStringList fields = ReadRecord(state, file, n);
            if (fields.value(0) != key)
                continue;
            QStringList lines{u"%1 record %2"_s.arg(QString::fromLatin1(info.fileName)).arg(n)};
            for (int i = 0; i < info.layout.fieldCount; ++i)
                lines << u"%1 %2"_s.arg(fieldName(info.layout.fields[i]), -8).arg(fields.value(i)).trimmed();
            *out = lines.join(u'\n') + u'\n';
            return true;
        }
    } catch (const ProgramError &e) {
        *out = QString::fromLatin1(info.fileName) + u": cannot be read: "_s + e.message();
        return false;
    }
    *out = QString::fromLatin1(info.fileName) + u": no record has the key "_s + key;
    return false;
}

} // namespace sd::data
