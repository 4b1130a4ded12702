// Figures for the frame: start-up time of the real program and the practice key search on a large file.

#include "frame/core/datafiles.h"
#include "frame/core/services.h"
#include "frame/core/state.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QTextStream>

#include <algorithm>
#include <cstdio>

using namespace sd;

namespace {

/// Process start to the start screen shown, then quit: the script's first line runs only after
/// the start screen is up, so the whole run measures start-up plus a prompt exit.
double startupMs(const QString &dataDir, const QString &script)
{
    QProcess p;
    QElapsedTimer t;
    t.start();
    p.start(QStringLiteral(STUDYDESK_BINARY_DIR "/bin/studydesk"),
            {QStringLiteral("--data-dir"), dataDir, QStringLiteral("--script"), script});
    p.waitForFinished(60000);
    return double(t.nsecsElapsed()) / 1e6;
}

} // namespace

int main(int argc, char **argv)
{
    QCoreApplication app(argc, argv);
    QTemporaryDir dir;
    const QString scriptPath = dir.filePath(QStringLiteral("quit.txt"));
    {
        QFile f(scriptPath);
        f.open(QIODevice::WriteOnly);
        f.write("quit\n");
    }

    QList<double> runs;
    for (int i = 0; i < 5; ++i)
        runs.append(startupMs(dir.path(), scriptPath));
    std::sort(runs.begin(), runs.end());
    std::printf("startup to start screen (offscreen, median of 5): %.1f ms (best %.1f ms)\n", runs[2], runs[0]);

    // 32,000 records of the multiple-choice file; the key searched for is in the last one.
    const int count = 32000;
    const LayoutInfo &layout = dataFileInfo(DataFile::Rcmc).layout;
    QByteArray bytes;
    bytes.reserve(qsizetype(count) * layout.length);
    for (int i = 1; i <= count; ++i) {
        const QString code = i == count ? QStringLiteral("310") : QStringLiteral("z%1").arg(i);
        bytes += encodeRecord(layout, {code, QStringLiteral("passage")});
    }
    QFile f(dir.filePath(QStringLiteral("pracrcmc.dat")));
    f.open(QIODevice::WriteOnly);
    f.write(bytes);
    f.close();

    RecordingSound sound;
    FakeSeedSource seeds;
    ProgramState state(sound, seeds);
    state.setDataDir(dir.path());
    state.PracticeMode = true;
    state.ExerciseKind = 2;
    SelectDataFile(state, 2);
    state.LevelCode = QStringLiteral("3");
    state.ExerciseCode = QStringLiteral("10");
    QList<double> searches;
    for (int i = 0; i < 5; ++i) {
        QElapsedTimer t;
        t.start();
        const bool found = FindPracticeRecord(state) == SearchResult::Found;
        searches.append(double(t.nsecsElapsed()) / 1e6);
        if (!found || state.CurrentRecord != count)
            std::printf("search failed!\n");
    }
    std::sort(searches.begin(), searches.end());
    std::printf("practice search for the last key of %d records (%.1f MB): %.1f ms median, %.1f ms best\n", count,
                bytes.size() / 1e6, searches[2], searches[0]);
    return 0;
}
