// libFuzzer entry for the data files: the first byte picks one of the eleven files, the rest is its
// content. The checker reads it as the program does (handle 1, the record count, the file's own
// record reader, every field rule) and the program's key searches run over it; any bytes must pass
// without a crash, a hang or a sanitizer report.
#include "check.h"

#include "frame/core/services.h"
#include "frame/core/state.h"

#include <QDir>
#include <QFile>
#include <QGuiApplication>
#include <QTemporaryDir>

#include <cstdint>

namespace {
QTemporaryDir *dataDir = nullptr;
}

extern "C" int LLVMFuzzerInitialize(int *argc, char ***argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    static QGuiApplication app(*argc, *argv);
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext &, const QString &) {});
    static QTemporaryDir dir;
    dataDir = &dir;
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    if (size < 1)
        return 0;
    const auto file = sd::DataFile(data[0] % sd::DataFileCount);
    const QString name = QString::fromLatin1(sd::dataFileInfo(file).fileName);
    const QDir dir(dataDir->path());
    for (const QString &old : dir.entryList({QStringLiteral("*.dat")}, QDir::Files))
        QFile::remove(dir.filePath(old));
    QFile out(dir.filePath(name));
    if (!out.open(QIODevice::WriteOnly))
        return 0;
    out.write(reinterpret_cast<const char *>(data + 1), qint64(size - 1));
    out.close();

    (void)sd::data::checkDataDirectory(dir.path());

    // The menus' searches over the same file, for every kind that reads it.
    sd::RecordingSound sound;
    sd::FakeSeedSource seeds;
    sd::ProgramState s(sound, seeds);
    s.setDataDir(dir.path());
    for (int kind = 1; kind <= 10; ++kind) {
        for (const bool test : {false, true}) {
            s.ExerciseKind = kind;
            s.PracticeMode = !test;
            s.TestMode = test;
            s.LevelCode = test ? QStringLiteral("01") : QStringLiteral("1");
            s.ExerciseCode = QStringLiteral("01");
            try {
                sd::SelectDataFile(s, kind);
                if (s.DataFileName != name)
                    continue;
                if (test)
                    sd::FindTestRecord(s);
                else
                    sd::FindPracticeRecord(s);
            } catch (const sd::ProgramError &) {
            }
            sd::CloseDataFile(s);
        }
    }
    return 0;
}
