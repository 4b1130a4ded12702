#include "ui/files/datapath.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace sd {

namespace {

bool badName(const QString &name)
{
    if (name == "."_L1 || name == ".."_L1)
        return true;
    for (const QChar c : name) {
        if (c == u'/' || c == u'\\' || c == u':' || c.unicode() < 0x20 || c.unicode() == 0x7f)
            return true;
    }
    return false;
}

DataPath refuse(FileRefusal r, const QString &reason)
{
    return DataPath{QString(), r, reason};
}

} // namespace

DataPath resolveDataFile(const QString &dataDir, const QString &name)
{
    if (name.isEmpty())
        return refuse(FileRefusal::Empty, u"no file name"_s);
    if (badName(name))
        return refuse(FileRefusal::BadName, u"\"%1\" is not a plain file name"_s.arg(name));
    const QString root = QFileInfo(dataDir).canonicalFilePath();
    if (root.isEmpty())
        return refuse(FileRefusal::Missing, u"the data directory is missing"_s);
    const QFileInfo info(QDir(root).filePath(name));
    if (!info.exists() && !info.isSymLink())
        return refuse(FileRefusal::Missing, u"%1 is missing"_s.arg(name));
    const QString real = info.canonicalFilePath();
    if (real.isEmpty())
        return refuse(FileRefusal::Missing, u"%1 is a broken link"_s.arg(name));
    if (!real.startsWith(root + u'/'))
        return refuse(FileRefusal::Outside, u"%1 leads outside the data directory"_s.arg(name));
    const QFileInfo target(real);
    if (!target.isFile())
        return refuse(FileRefusal::NotRegular, u"%1 is not a regular file"_s.arg(name));
    return DataPath{real, FileRefusal::None, QString()};
}

FileBytes readBounded(const QString &path, qint64 limit)
{
    FileBytes out;
    const QFileInfo info(path);
    if (!info.exists()) {
        out.refusal = FileRefusal::Missing;
        out.reason = u"%1 is missing"_s.arg(info.fileName());
        return out;
    }
    if (!info.isFile()) {
        out.refusal = FileRefusal::NotRegular;
        out.reason = u"%1 is not a regular file"_s.arg(info.fileName());
        return out;
    }
    if (info.size() > limit) {
        out.refusal = FileRefusal::TooLarge;
        out.reason = u"%1 is too large (%2; at most %3)"_s.arg(info.fileName(), describeSize(info.size()),
                                                                   describeSize(limit));
        return out;
    }
    QFile f(path);
    if (!f.open(QIODevice::ReadOnly) || f.isSequential()) {
        out.refusal = FileRefusal::Unreadable;
        out.reason = u"%1 cannot be read: %2"_s.arg(info.fileName(), f.errorString());
        return out;
    }
    // One byte past the limit tells a file that grew after it was measured.
    out.bytes = f.read(limit + 1);
    if (out.bytes.size() > limit) {
        out.bytes.clear();
        out.refusal = FileRefusal::TooLarge;
        out.reason = u"%1 is too large (over %2)"_s.arg(info.fileName(), describeSize(limit));
    } else if (f.error() != QFileDevice::NoError) {
        out.bytes.clear();
        out.refusal = FileRefusal::Unreadable;
        out.reason = u"%1 cannot be read: %2"_s.arg(info.fileName(), f.errorString());
    }
    return out;
}

FileBytes readDataFile(const QString &dataDir, const QString &name, qint64 limit)
{
    const DataPath p = resolveDataFile(dataDir, name);
    if (!p.ok())
        return FileBytes{QByteArray(), p.refusal, p.reason};
    return readBounded(p.path, limit);
}

QString describeSize(qint64 bytes)
{
    if (bytes < 1024)
        return u"%1 bytes"_s.arg(bytes);
    if (bytes < 1024 * 1024)
        return u"%1 KiB"_s.arg(double(bytes) / 1024.0, 0, 'f', 1);
    return u"%1 MiB"_s.arg(double(bytes) / (1024.0 * 1024.0), 0, 'f', 1);
}

} // namespace sd
