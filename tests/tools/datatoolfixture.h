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

/// A whole Writing source folder (`comp`) with its help topics, made up for tests: ten titles of
/// each type, the ten letter sheets (topic 9 a picture), the samples, test 1's letter and questions.
inline void writeWritingSources(const QString &sourceDir)
{
    const QString comp = sourceDir + QStringLiteral("/comp/");
    const QStringList types{QStringLiteral("leta"), QStringLiteral("nar"), QStringLiteral("art"), QStringLiteral("rep"),
                            QStringLiteral("dis"), QStringLiteral("letb"), QStringLiteral("book")};
    for (const QString &type : types) {
        QString titles = QStringLiteral("type: %1\n").arg(type);
        for (int n = 1; n <= 10; ++n)
            titles += QStringLiteral("\n@title\nThe %1 task number %2, written as an exam question.\n").arg(type).arg(n)
                      + (n % 2 ? QStringLiteral("\n@note\nA note of title %1.\n").arg(n) : QString());
        writeBytes(comp + QStringLiteral("titles-%1.md").arg(type), titles.toUtf8());
        for (int n = 1; n <= 3; ++n)
            writeBytes(comp + QStringLiteral("Sample%1%2.md").arg(type).arg(n), "Dear Sir,\n\nA sample answer.\n");
        writeBytes(sourceDir + QStringLiteral("/help/help%1.md").arg(type), "# Help\n\nHow to write it.\n");
    }
    for (int n = 1; n <= 10; ++n)
        writeBytes(comp + QStringLiteral("leta%1.md").arg(n, 2, 10, QLatin1Char('0')),
                   n == 9 ? QByteArray("A poster.\n\n![A poster with notes](leta09.svg)\n")
                          : QByteArray("# An advert\n\nRooms from 20 pounds.\n\n*Ask about parking!*\n"));
    writeBytes(comp + QStringLiteral("leta09.svg"),
               "<svg xmlns=\"http://www.w3.org/2000/svg\" viewBox=\"0 0 595 842\"><rect x=\"20\" y=\"20\" "
               "width=\"555\" height=\"802\" fill=\"#ffe\" stroke=\"#000\"/><text x=\"60\" y=\"100\" "
               "font-family=\"sans-serif\" font-size=\"30\">Pony trekking</text></svg>");
    writeBytes(comp + QStringLiteral("letasample.md"), "# A letter from a friend\n\nWrite back.\n");
    writeBytes(comp + QStringLiteral("compx01.md"), "task: Write a letter to Jamie. Do not write any addresses.\n\n# A letter\n\nDear friend,\n");
    writeBytes(comp + QStringLiteral("compx01b.md"), "# Part 2\n\n## 2\n\nAn article.\n");
    writeBytes(comp + QStringLiteral("comments.md"), "@comment 11 F\nProgram text, not data.\n");
    for (const char *topic : {"write", "comp"})
        writeBytes(sourceDir + QStringLiteral("/help/help%1.md").arg(QString::fromLatin1(topic)), "# Help\n\nWriting.\n");
}

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
