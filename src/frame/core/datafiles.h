#pragma once

#include "layouts.h"

#include <QByteArray>
#include <QFile>

#include <memory>

namespace sd {

struct ProgramState;

/// The eleven exercise data files. Each has a reader and a record buffer of its own.
enum class DataFile { Rche, Rcmc, Rcre, Rcma, Comp, Ueca, Uecb, Uesc, Ueec, Uewb, ExamUewb };
inline constexpr int DataFileCount = 11;

struct DataFileInfo
{
    DataFile file;
    const char *fileName;
    LayoutInfo layout;
};

const DataFileInfo &dataFileInfo(DataFile f);
/// The data file a kind uses in the given mode; false for kind 10 with neither mode, or a kind outside 1..10.
bool dataFileForKind(int kind, bool practiceMode, bool testMode, DataFile *out);

/// Reads fixed-length records of one file into its own buffer and returns the trimmed fields.
class RecordReader
{
public:
    explicit RecordReader(DataFile file) : m_file(file) {}
    QStringList read(QFile &handle, int n);
    /// Reads the whole record into the buffer but decodes only its Code (the key search).
    QString readCode(QFile &handle, int n);
    const QByteArray &buffer() const { return m_buffer; }

private:
    QStringList read(QFile &handle, int n, int fieldCount);

    DataFile m_file;
    QByteArray m_buffer;
};

/// Compares the Codes of the records of an open data file with a key without decoding the records:
/// the file is read in large blocks, and only the code bytes of each record are looked at, so
/// asking for the records in file order reads the file once. A record past the end of the file, or
/// the missing part of a partial last record, reads as blanks, as with RecordReader.
class CodeScan
{
public:
    CodeScan(QFile &handle, const LayoutInfo &layout);
    /// True when the trimmed Code of record n (1-based), decoded, equals `key`.
    bool codeIs(int n, QStringView key);

private:
    QFile &m_handle;
    int m_length;
    int m_codeWidth;
    int m_recordsPerBlock;
    QByteArray m_block;
    qsizetype m_filled = 0; ///< bytes of m_block read from the file
    int m_first = 0;        ///< the record at the start of the block; 0: nothing read yet
};

/// Handle 1 and the per-file readers. Only one data file is open at a time.
class DataFiles
{
public:
    DataFiles();
    QFile &handle() { return m_handle; }
    RecordReader &reader(DataFile f) { return m_readers[std::size_t(f)]; }

private:
    QFile m_handle;
    std::array<RecordReader, DataFileCount> m_readers;
};

/// Text of data files is single-byte Windows-1252.
QString decodeSingleByte(QByteArrayView bytes);
QByteArray encodeSingleByte(QStringView text, bool *ok = nullptr);
/// Removes leading and trailing blanks (spaces only, as the fixed-width fields are padded with them).
QString trimBlanks(const QString &s);

/// One record of a layout from its field texts, each space-padded to its width. A text that is too
/// long or not single-byte fails with a message naming the field.
QByteArray encodeRecord(const LayoutInfo &layout, const QStringList &fields, QString *error = nullptr);

enum class CountFor { Search, Conversion, WordFormation };
enum class SearchResult { Found, NotFound };

void SelectDataFile(ProgramState &s, int kind);
/// Opens DataDir & DataFileName on handle 1; throws ProgramError("No file") when it cannot be opened.
void OpenDataFile(ProgramState &s);
/// Opens a named file; a non-empty name becomes DataDir & name, for the caller too.
void OpenNamedDataFile(ProgramState &s, QString &name);
void CloseDataFile(ProgramState &s);
/// File length over RecordLength, rounded half to even; sets RecordCount and one copy.
void CountRecords(ProgramState &s, CountFor which);
/// Reads record n of handle 1 with the reader of file f.
QStringList ReadRecord(ProgramState &s, DataFile f, int n);
template<typename R>
R ReadRecordAs(ProgramState &s, DataFile f, int n)
{
    return R::from(ReadRecord(s, f, n));
}
/// The trimmed Code of record n with the reader of the current kind; empty for kinds it does not cover.
QString ReadRecordCode(ProgramState &s, int n);
/// Finds LevelCode & ExerciseCode in the selected file; CurrentRecord holds the record found.
SearchResult FindPracticeRecord(ProgramState &s);
/// Finds "x" & LevelCode; gives up after comparing the last record.
SearchResult FindTestRecord(ProgramState &s);

} // namespace sd
