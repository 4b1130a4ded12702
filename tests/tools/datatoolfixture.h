// Source folders and data directories for the data tool's tests, written into temporary folders.
#pragma once

#include "build.h"
#include "frame/core/datafiles.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

namespace sd::test {

inline QString contentDir()
{
    return QStringLiteral(STUDYDESK_SOURCE_DIR "/content");
}

inline void writeBytes(const QString &path, const QByteArray &bytes)
{
    QDir().mkpath(QFileInfo(path).path());
    QFile f(path);
    if (!f.open(QIODevice::WriteOnly) || f.write(bytes) != bytes.size())
        qFatal("cannot write %s", qPrintable(path));
}

inline QByteArray readBytes(const QString &path)
{
    QFile f(path);
    if (!f.open(QIODevice::ReadOnly))
        return {};
    return f.readAll();
}

/// Copies files of the bundled content ("rcmc/101.md", "help/helpgen.md" ...) into a source folder.
inline void copyContent(const QString &sourceDir, const QStringList &files)
{
    for (const QString &f : files)
        writeBytes(sourceDir + u'/' + f, readBytes(contentDir() + u'/' + f));
}

/// One exercise of every kind a menu offers (the checker requires their files), two of one, and their help.
inline const QStringList oneOfEachKind{
    QStringLiteral("rcmc/101.md"),     QStringLiteral("rcmc/102.md"),     QStringLiteral("ueec/101.md"),
    QStringLiteral("rche/104.md"),     QStringLiteral("rcre/104.md"),     QStringLiteral("rcma/102.md"),
    QStringLiteral("ueca/103.md"),     QStringLiteral("uecb/104.md"),     QStringLiteral("uesc/101.md"),
    QStringLiteral("uesc/x01.md"),     QStringLiteral("uewb/101.md"),     QStringLiteral("uewb/x01.md"),
    QStringLiteral("help/helpgen.md"), QStringLiteral("help/helpprog.md"), QStringLiteral("help/helprcmc.md"),
    QStringLiteral("help/helpueec.md"), QStringLiteral("help/helprche.md"), QStringLiteral("help/helprcre.md"),
    QStringLiteral("help/helprcma.md"), QStringLiteral("help/helpueca.md"), QStringLiteral("help/helpuecb.md"),
    QStringLiteral("help/helpuesc.md"), QStringLiteral("help/helpuewb.md")};

/// Copies the files of a data directory into another.
inline void copyFiles(const QString &from, const QString &to)
{
    for (const QString &name : QDir(from).entryList(QDir::Files))
        QFile::copy(from + u'/' + name, to + u'/' + name);
}

/// Builds a source folder in-process; fails the test on any problem.
inline bool buildQuietly(const QString &sourceDir, const QString &outDir)
{
    data::Problems problems;
    const bool ok = data::buildDataDirectory(sourceDir, outDir, problems);
    if (!problems.isEmpty())
        qWarning("%s", qPrintable(problems.join(u'\n')));
    return ok;
}

/// Overwrites one field of record n (1-based) with bytes padded to the field's width.
inline void patchField(const QString &dir, DataFile file, int n, std::string_view field, const QByteArray &bytes)
{
    const LayoutInfo &layout = dataFileInfo(file).layout;
    int offset = (n - 1) * layout.length;
    int index = layout.indexOf(field);
    for (int i = 0; i < index; ++i)
        offset += layout.fields[i].width;
    QFile f(dir + u'/' + QString::fromLatin1(dataFileInfo(file).fileName));
    if (!f.open(QIODevice::ReadWrite) || !f.seek(offset))
        qFatal("cannot patch %s", dataFileInfo(file).fileName);
    f.write(bytes + QByteArray(layout.fields[index].width - bytes.size(), ' '));
}

} // namespace sd::test
