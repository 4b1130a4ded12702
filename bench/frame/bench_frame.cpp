// Figures for the frame: start-up of the real program against a bare Qt Widgets program (time,
// shared libraries loaded, peak memory), and the data-file scans against one plain read of the file.

#include "benchrun.h"
#include "frame/core/datafiles.h"
#include "frame/core/services.h"
#include "frame/core/state.h"
#include "useofenglish/core/itemrun.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QSet>
#include <QTemporaryDir>

#include <cstdio>
#include <cstdlib>

using namespace sd;
using namespace sd::bench;
using namespace Qt::StringLiterals;

namespace {

const QString binDir = QStringLiteral(STUDYDESK_BINARY_DIR "/bin/");

/// Shared objects the program loads from start to exit, as the dynamic loader reports them.
int librariesLoaded(const QString &program, const QStringList &args, const QTemporaryDir &dir)
{
    const QString log = dir.filePath(u"ld"_s);
    runProcess(program, args, {u"QT_QPA_PLATFORM=offscreen"_s, u"LD_DEBUG=files"_s, u"LD_DEBUG_OUTPUT="_s + log});
    QSet<QByteArray> libraries;
    for (const QString &name : QDir(dir.path()).entryList({u"ld.*"_s})) {
        QFile f(dir.filePath(name));
        if (!f.open(QIODevice::ReadOnly))
            continue;
        for (const QByteArray &line : f.readAll().split('\n'))
            if (line.contains("generating link map"))
                libraries.insert(line.mid(line.indexOf("file=")).split(' ').first());
        f.remove();
    }
    return int(libraries.size());
}

/// One plain read of the whole file into fresh memory: the reference of the scans.
double freadMs(const QString &path)
{
    return medianMs(10, [&] {
        FILE *f = std::fopen(QFile::encodeName(path).constData(), "rb");
        if (!f)
            return;
        std::fseek(f, 0, SEEK_END);
        const long size = std::ftell(f);
        std::fseek(f, 0, SEEK_SET);
        char *buffer = static_cast<char *>(std::malloc(std::size_t(size)));
        if (std::fread(buffer, 1, std::size_t(size), f) != std::size_t(size))
            std::printf("short read\n");
        std::free(buffer);
        std::fclose(f);
    });
}

void writeFile(const QString &path, const QByteArray &bytes)
{
    QFile f(path);
    if (!f.open(QIODevice::WriteOnly) || f.write(bytes) != bytes.size())
        std::printf("cannot write %s\n", qPrintable(path));
}

} // namespace

int main(int argc, char **argv)
{
    QCoreApplication app(argc, argv);
    QTemporaryDir dir;
    const QString script = dir.filePath(u"quit.txt"_s);
    writeFile(script, "quit\n");

    // Process start to the start screen shown, then quit: a script's first line runs only once the
    // start screen is up. The bare program shows its one window and quits the same way.
    const QString studydesk = binDir + u"studydesk"_s;
    const QString bare = binDir + u"bench_bare"_s;
    const QStringList args{u"--data-dir"_s, binDir + u"data"_s, u"--script"_s, script};
    const QStringList offscreen{u"QT_QPA_PLATFORM=offscreen"_s};
    runProcess(studydesk, args, offscreen); // warm the disk cache for both
    runProcess(bare, {}, offscreen);
    const Run ours = medianRun(10, [&] { return runProcess(studydesk, args, offscreen); });
    const Run theirs = medianRun(10, [&] { return runProcess(bare, {}, offscreen); });
    if (!ours.ok || !theirs.ok)
        std::printf("startup: a run failed\n");
    printRatio("startup", ours.ms, theirs.ms, "bare", "ms", u"offscreen, median of 10"_s);
    printRatio("startup memory", ours.peakMb, theirs.peakMb, "bare", "MB", u"peak resident"_s);
    const int ourLibraries = librariesLoaded(studydesk, args, dir);
    const int bareLibraries = librariesLoaded(bare, {}, dir);
    std::printf("startup libraries %.2fx bare (%d vs %d shared objects loaded, plugins included)\n",
                double(ourLibraries) / bareLibraries, ourLibraries, bareLibraries);

    RecordingSound sound;
    FakeSeedSource seeds;
    ProgramState state(sound, seeds);
    state.setDataDir(dir.path());

    // The practice key search: 32,000 multiple-choice records, the key in the last one.
    const int count = 32000;
    {
        const LayoutInfo &layout = dataFileInfo(DataFile::Rcmc).layout;
        QByteArray bytes;
        bytes.reserve(qsizetype(count) * layout.length);
        for (int i = 1; i <= count; ++i)
            bytes += encodeRecord(layout, {i == count ? u"310"_s : u"z%1"_s.arg(i), u"passage"_s});
        writeFile(dir.filePath(u"pracrcmc.dat"_s), bytes);
        state.PracticeMode = true;
        state.ExerciseKind = 2;
        SelectDataFile(state, 2);
        state.LevelCode = u"3"_s;
        state.ExerciseCode = u"10"_s;
        const double search = medianMs(10, [&] {
            if (FindPracticeRecord(state) != SearchResult::Found || state.CurrentRecord != count)
                std::printf("search failed!\n");
        });
        CloseDataFile(state);
        printRatio("key search", search, freadMs(dir.filePath(u"pracrcmc.dat"_s)), "fread", "ms",
                   u"%1 records, %2 MB, the key in the last"_s.arg(count).arg(bytes.size() / 1e6, 0, 'f', 1));
    }

    // The sentence-conversion scan: 32,000 records, ten of them the exercise's, spread through the file.
    {
        const LayoutInfo &layout = dataFileInfo(DataFile::Uesc).layout;
        QByteArray bytes;
        for (int i = 1; i <= count; ++i)
            bytes += encodeRecord(layout, {i % 3200 == 0 ? u"207"_s : u"z%1"_s.arg(i), u"First sentence."_s,
                                           u"Start"_s, u"end."_s, u"WORD"_s, u"answer"_s});
        writeFile(dir.filePath(u"pracuesc.dat"_s), bytes);
        const double scan = medianMs(10, [&] {
            if (ReadConversionItems(state, u"207"_s).size() != 10)
                std::printf("scan failed!\n");
        });
        printRatio("conversion scan", scan, freadMs(dir.filePath(u"pracuesc.dat"_s)), "fread", "ms",
                   u"%1 records, %2 MB, ten items"_s.arg(count).arg(bytes.size() / 1e6, 0, 'f', 1));
    }
    return 0;
}
