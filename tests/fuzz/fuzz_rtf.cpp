// libFuzzer entry for the RTF reader: any bytes must load without a crash, a hang or a
// sanitizer report, and whatever loads must survive a trip through the writer.
#include "ui/rtf/rtfreader.h"
#include "ui/rtf/rtfwriter.h"

#include <QGuiApplication>
#include <QTextDocument>

#include <cstdint>
#include <cstdio>
#include <cstdlib>

extern "C" int LLVMFuzzerInitialize(int *argc, char ***argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    // QTextDocument needs fonts, and fonts need a QGuiApplication.
    static QGuiApplication app(*argc, *argv);
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext &, const QString &) {});
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const QByteArray bytes = QByteArray::fromRawData(reinterpret_cast<const char *>(data), qsizetype(size));
    QTextDocument doc;
    const sd::rtf::ReadResult first = sd::rtf::readRtf(bytes, doc);
    if (!first.ok)
        return 0;
    QTextDocument again;
    const sd::rtf::ReadResult second = sd::rtf::readRtf(sd::rtf::writeRtf(doc), again);
    if (!second.ok || second.partial) {
        std::fprintf(stderr, "writer output could not be read back: %s\n", qPrintable(second.message));
        std::abort();
    }
    if (again.toPlainText() != doc.toPlainText()) {
        std::fprintf(stderr, "round trip changed the text:\n[%s]\n[%s]\n", qPrintable(doc.toPlainText()),
                     qPrintable(again.toPlainText()));
        std::abort();
    }
    return 0;
}
