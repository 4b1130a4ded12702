#pragma once

#include <QByteArray>
#include <QString>

namespace sd {

/// A data directory is input from outside: every file name taken from it (record fields, sheet and
/// sample names, help topics, sound clips) is resolved here, and only here, so that no name can
/// reach outside the directory, and every file is read with a bound.

/// Limits of what the program reads from a data directory.
inline constexpr qint64 MaxDataFileBytes = 64LL * 1024 * 1024;  // 32,767 records of the longest layout fit
inline constexpr qint64 MaxRtfBytes = 32LL * 1024 * 1024;
inline constexpr qint64 MaxTextBytes = 4LL * 1024 * 1024;       // .htm pages and .txt files
inline constexpr qint64 MaxSoundBytes = 16LL * 1024 * 1024;
inline constexpr qint64 MaxPicturePixels = 40LL * 1000 * 1000;   // a picture inside a rich-text file

enum class FileRefusal {
    None,
    Empty,        // no name at all
    BadName,      // a directory part, an absolute path, "." or "..", or a control character
    Outside,      // the name, followed through its links, leaves the data directory
    Missing,      // nothing of that name
    NotRegular,   // a directory, a pipe, a device ...
    TooLarge,     // over the limit for its kind of file
    Unreadable,   // exists but cannot be opened or read
};

struct DataPath
{
    QString path; // the file's canonical path inside the data directory; empty when refused
    FileRefusal refusal = FileRefusal::None;
    QString reason; // why it was refused, in words, for the checker and the error screens
    bool ok() const { return refusal == FileRefusal::None; }
};

/// Joins `name` to `dataDir` when it names a regular file inside it (links are followed, and must
/// stay inside). Anything else is refused with its reason; a refused name is a missing file to the
/// screen that asked for it.
DataPath resolveDataFile(const QString &dataDir, const QString &name);

struct FileBytes
{
    QByteArray bytes;
    FileRefusal refusal = FileRefusal::None;
    QString reason;
    bool ok() const { return refusal == FileRefusal::None; }
};

/// Reads the whole of a regular file of at most `limit` bytes: never a pipe, a device or a file that
/// grows while it is read.
FileBytes readBounded(const QString &path, qint64 limit);
/// resolveDataFile, then readBounded.
FileBytes readDataFile(const QString &dataDir, const QString &name, qint64 limit);

/// "32.0 MiB" style sizes for messages.
QString describeSize(qint64 bytes);

} // namespace sd
