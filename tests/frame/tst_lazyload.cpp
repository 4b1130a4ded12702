// What the start screen does not need is loaded on first use: the sound output at the first clip,
// printing at the first job. Asserted on the libraries mapped into the process, never on time.

#include "common/fixtures.h"
#include "frame/printerqt.h"
#include "frame/qtsound.h"

#include <QFile>
#include <QTest>

using namespace sd;
using namespace Qt::StringLiterals;

namespace {
bool mapped(const char *library)
{
    QFile maps(u"/proc/self/maps"_s);
    return maps.open(QIODevice::ReadOnly) && maps.readAll().contains(library);
}
} // namespace

class TestLazyLoad : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void startScreenWithoutSoundOrPrinting()
    {
        test::DataDir dir;
        test::App app(dir.path());
        QCOMPARE(app.topCode(), u"Intro"_s);
        QVERIFY(app.top()->isVisible());
        QVERIFY(!mapped("libQt6Multimedia"));
        QVERIFY(!mapped("libQt6PrintSupport"));

        // Settings and a clip that is not there load nothing.
        QtSound sound;
        sound.setVolume(40);
        sound.stop();
        sound.play(dir.path() + u"missing.wav"_s);
        QVERIFY(!mapped("libQt6Multimedia"));
        dir.writeFile(u"chord.wav"_s, QByteArray("RIFF"));
        sound.play(dir.path() + u"chord.wav"_s);
        QVERIFY(mapped("libQt6Multimedia"));
        QVERIFY(!mapped("libQt6PrintSupport"));

        // The first job loads printing, and prints.
        const QString pdf = dir.path() + u"out.pdf"_s;
        QtPrinter printer(QtPrinter::Options{pdf, false, {}});
        int pages = 0;
        printer.jobEnded = [&pages](const QString &, int n) { pages = n; };
        printer.printLine(u"Printed on first use"_s);
        printer.endJob();
        QVERIFY(mapped("libQt6PrintSupport"));
        QCOMPARE(pages, 1);
        QVERIFY(QFile::exists(pdf));
    }
};

QTEST_MAIN(TestLazyLoad)
#include "tst_lazyload.moc"
