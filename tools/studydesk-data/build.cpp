#include "build.h"

#include "housestyle.h"
#include "kinds.h"
#include "recordrules.h"
#include "soundgen.h"
#include "writing.h"

#include <QDir>
#include <QFile>

#include <algorithm>
#include <map>

using namespace Qt::StringLiterals;

namespace sd::data {

namespace {

constexpr int kHelpWidth = 80;

/// Reads and parses one source; the text must be in the code page the data files use.
bool readSource(const QString &path, const QString &shownPath, SourceFile *out, Problems &problems)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        problems << shownPath + u": cannot be read"_s;
        return false;
    }
    const QString text = decodeSource(file.readAll());
    const qsizetype before = problems.size();
    *out = parseSource(shownPath, text, problems);
    checkCodePage(*out, text, problems);
    return problems.size() == before;
}

/// One record as bytes. A text must leave at least one blank at the end of its field: a full field
/// cannot be told from one whose text was cut off.
QByteArray encode(DataFile file, const QStringList &fields, const QString &sourcePath, Problems &problems)
{
    const LayoutInfo &layout = dataFileInfo(file).layout;
    bool ok = true;
    for (int i = 0; i < layout.fieldCount; ++i) {
        const qsizetype size = encodeSingleByte(fields.at(i)).size();
        if (size >= layout.fields[i].width) {
            problems << u"%1: %2: %3 characters; the field holds at most %4"_s.arg(
                sourcePath, QString::fromLatin1(layout.fields[i].name.data(), qsizetype(layout.fields[i].name.size())))
                            .arg(size).arg(layout.fields[i].width - 1);
            ok = false;
        }
    }
    for (const FieldProblem &p : checkFields(file, fields)) {
        problems << u"%1: %2: %3"_s.arg(sourcePath, p.field, p.message);
        ok = false;
    }
    QString error;
    const QByteArray record = ok ? encodeRecord(layout, fields, &error) : QByteArray();
    if (!error.isEmpty())
        problems << sourcePath + u": "_s + error;
    return record;
}

/// The records of an exercise: its one record, or one per item of a one-item kind.
QByteArray encode(const Exercise &ex, Problems &problems)
{
    if (ex.records.isEmpty())
        return encode(ex.file, ex.fields, ex.sourcePath, problems);
    QByteArray bytes;
    for (const QStringList &record : ex.records)
        bytes += encode(ex.file, record, ex.sourcePath, problems);
    return bytes;
}

void convertKind(const QDir &source, DataFile file, QList<Exercise> &exercises, Problems &problems)
{
    const QString code = kindCode(file);
    const QDir dir(source.filePath(code));
    for (const QString &name : dir.entryList({u"*.md"_s}, QDir::Files, QDir::Name)) {
        SourceFile src;
        if (!readSource(dir.filePath(name), source.dirName() + u'/' + code + u'/' + name, &src, problems))
            continue;
        Exercise ex;
        if (convertExercise(file, src, &ex, problems))
            exercises << ex;
    }
}

QList<BuiltFile> helpTopics(const QDir &source, Problems &problems)
{
    QList<BuiltFile> out;
    const QDir dir(source.filePath(u"help"_s));
    for (const QString &name : dir.entryList({u"*.md"_s}, QDir::Files, QDir::Name)) {
        SourceFile src;
        const QString shown = source.dirName() + u"/help/"_s + name;
        QFile file(dir.filePath(name));
        if (!file.open(QIODevice::ReadOnly)) {
            problems << shown + u": cannot be read"_s;
            continue;
        }
        const QString text = decodeSource(file.readAll());
        src.path = shown;
        if (!checkCodePage(src, text, problems))
            continue;
        const QString base = QFileInfo(name).completeBaseName();
        StyledDocument doc(base);
        doc.markdown(text);
        QByteArray plain;
        windowsText(plainTextOf(doc.finished(), kHelpWidth), &plain);
        out << BuiltFile{base + u".rtf"_s, doc.rtf()} << BuiltFile{base + u".txt"_s, plain};
    }
    return out;
}

bool writeFile(const QDir &out, const QString &name, const QByteArray &bytes, Problems &problems)
{
    QFile file(out.filePath(name));
    if (file.open(QIODevice::WriteOnly | QIODevice::Truncate) && file.write(bytes) == bytes.size())
        return true;
    problems << out.filePath(name) + u": cannot be written"_s;
    return false;
}

} // namespace

bool buildDataDirectory(const QString &sourceDir, const QString &outDir, Problems &problems, BuildSummary *summary)
{
    const QDir source(sourceDir);
    if (!source.exists()) {
        problems << sourceDir + u": no such folder"_s;
        return false;
    }
    QStringList known{u"help"_s, u"comp"_s};
    for (DataFile f : buildableKinds())
        known << kindCode(f);
    for (const QString &dir : source.entryList(QDir::Dirs | QDir::NoDotAndDotDot, QDir::Name))
        if (!known.contains(dir))
            problems << source.dirName() + u'/' + dir + u": not a kind of exercise (%1)"_s.arg(known.join(u", "_s));

    BuildSummary made;
    QList<std::pair<QString, QByteArray>> files;
    for (DataFile f : buildableKinds()) {
        if (!source.exists(kindCode(f)))
            continue;
        QList<Exercise> exercises;
        convertKind(source, f, exercises, problems);
        std::sort(exercises.begin(), exercises.end(),
                  [](const Exercise &a, const Exercise &b) { return keyLess(a.key, b.key); });
        // Word formation writes no "pracuewb.dat": each practice exercise is a file of its own and
        // the test texts go into "examuewb.dat".
        std::map<DataFile, QByteArray> data;
        data[f == DataFile::Uewb ? DataFile::ExamUewb : f];
        for (const Exercise &ex : std::as_const(exercises)) {
            if (ex.ownFile.isEmpty())
                data[ex.file] += encode(ex, problems);
            else
                files.append({ex.ownFile, encode(ex, problems)});
            for (const BuiltFile &b : ex.files)
                files.append({b.name, b.bytes});
        }
        for (const auto &[file, bytes] : data)
            files.append({QString::fromLatin1(dataFileInfo(file).fileName), bytes});
        made.exercises += int(exercises.size());
        ++made.dataFiles;
    }
    // Writing: praccomp.dat and the files of its screens. Without a `comp` folder the data
    // directory has no Writing, which `check` reports.
    if (source.exists(u"comp"_s)) {
        WritingBuild writing;
        buildWriting(QDir(source.filePath(u"comp"_s)), source.dirName() + u"/comp"_s, &writing, problems);
        QByteArray records;
        for (const QStringList &r : std::as_const(writing.records))
            records += encode(DataFile::Comp, r,
                              source.dirName() + u"/comp/"_s
                                  + (r.at(0).startsWith(u'x') ? u"comp"_s + r.at(0) : u"titles-"_s + r.at(0)) + u".md"_s,
                              problems);
        files.append({QString::fromLatin1(dataFileInfo(DataFile::Comp).fileName), records});
        for (const BuiltFile &b : std::as_const(writing.files))
            files.append({b.name, b.bytes});
        made.exercises += int(writing.records.size());
        ++made.dataFiles;
    }
    const QList<BuiltFile> help = helpTopics(source, problems);
    for (const BuiltFile &b : help)
        files.append({b.name, b.bytes});
    made.helpTopics = int(help.size() / 2);
    const QList<soundgen::SoundClip> clips = soundgen::clips();
    for (const soundgen::SoundClip &clip : clips)
        files.append({clip.fileName, clip.wav});
    made.soundClips = int(clips.size());
    if (!problems.isEmpty())
        return false;

    const QDir out(outDir);
    if (!QDir().mkpath(outDir)) {
        problems << outDir + u": cannot be created"_s;
        return false;
    }
    for (const auto &[name, bytes] : std::as_const(files))
        if (writeFile(out, name, bytes, problems))
            ++made.filesWritten;
    if (summary)
        *summary = made;
    return problems.isEmpty();
}

} // namespace sd::data
