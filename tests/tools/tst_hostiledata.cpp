// Hostile and damaged data directories: for each, what the checker says and what a student sees
// when the program opens the exercise, and that the two agree. Nothing may leave the directory,
// hang on a pipe or device, render markup, or score an exercise that was never shown.

#include "check.h"
#include "common/fixtures.h"
#include "datatoolfixture.h"
#include "ui/files/datapath.h"

#include <QLabel>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

#include <sys/stat.h>

using namespace Qt::StringLiterals;
using namespace sd;

namespace {

enum class Hostile {
    Traversal,
    AbsoluteName,
    LinkOut,
    NamedPipe,
    EndlessDevice,
    EmptyDataFile,
    MissingDataFile,
    Markup,
    OversizedRtf,
    NotRtf,
    TruncatedRecord,
    TooManyRecords,
};

void linkOrFail(const QString &target, const QString &link)
{
    QFile::remove(link);
    if (!QFile::link(target, link))
        qFatal("cannot link %s", qPrintable(link));
}

void apply(const QString &dir, const QString &outside, Hostile h)
{
    const QString rcmc = dir + u"/pracrcmc.dat"_s;
    switch (h) {
    case Hostile::Traversal:
        test::writeBytes(outside + u"/stolen.rtf"_s, "{\\rtf1 stolen text\\par}");
        test::patchField(dir, DataFile::Rcmc, 1, "Name", "../stolen");
        break;
    case Hostile::AbsoluteName: test::patchField(dir, DataFile::Rcmc, 1, "Name", "/etc/hostname"); break;
    case Hostile::LinkOut:
        test::writeBytes(outside + u"/secret.rtf"_s, "{\\rtf1 secret text\\par}");
        linkOrFail(outside + u"/secret.rtf"_s, dir + u"/rcmc101.rtf"_s);
        break;
    case Hostile::NamedPipe:
        QFile::remove(dir + u"/rcmc101.rtf"_s);
        if (mkfifo(QFile::encodeName(dir + u"/rcmc101.rtf"_s).constData(), 0600) != 0)
            qFatal("mkfifo failed");
        break;
    case Hostile::EndlessDevice: linkOrFail(u"/dev/zero"_s, dir + u"/rcmc101.rtf"_s); break;
    case Hostile::EmptyDataFile: QFile::resize(rcmc, 0); break;
    case Hostile::MissingDataFile: QFile::remove(dir + u"/pracueca.dat"_s); break;
    case Hostile::Markup: test::patchField(dir, DataFile::Rcma, 1, "Item1", "<img src=/etc/x><b>bold</b>"); break;
    case Hostile::OversizedRtf:
        test::writeBytes(dir + u"/rcmc101.rtf"_s, "{\\rtf1 " + QByteArray(MaxRtfBytes, 'a') + "\\par}");
        break;
    case Hostile::NotRtf: test::writeBytes(dir + u"/rcmc101.rtf"_s, "{\\rtf1 \x01\x02\x03\x1b\x07 }"); break;
    case Hostile::TruncatedRecord: QFile::resize(rcmc, 2 * 836 - 300); break;
    case Hostile::TooManyRecords: {
        // 40,000 records: a few short of the byte limit, far past the 16-bit record count.
        const QByteArray first = test::readBytes(rcmc).left(836);
        test::writeBytes(rcmc, first.repeated(40000));
        break;
    }
    }
}

} // namespace

class TestHostileData : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        const QString src = m_tmp.filePath(u"content"_s);
        test::copyContent(src, test::oneOfEachKind);
        test::writeWritingSources(src);
        m_good = m_tmp.filePath(u"data"_s);
        QVERIFY(test::buildQuietly(src, m_good));
        // The one rcma exercise is 102: make it exercise 1 of level 1 so the menus reach it by its key.
        test::patchField(m_good, DataFile::Rcma, 1, "Code", "101");
    }

    void programAndCheckerAgree_data()
    {
        QTest::addColumn<Hostile>("hostile");
        QTest::addColumn<QString>("kindLabel");
        QTest::addColumn<int>("exercise");
        QTest::addColumn<QString>("checker"); // part of the checker's complaint
        QTest::addColumn<QString>("shown");   // "ERROR" on the exercise screen, or the error screen's text

        QTest::newRow("name with ..") << Hostile::Traversal << u"lblrcmc"_s << 1
                                      << u"Name: ../stolen.rtf cannot be opened: \"../stolen.rtf\" is not a plain file name"_s
                                      << u"ERROR"_s;
        QTest::newRow("absolute name") << Hostile::AbsoluteName << u"lblrcmc"_s << 1
                                       << u"is not a plain file name"_s << u"ERROR"_s;
        QTest::newRow("link out of the directory") << Hostile::LinkOut << u"lblrcmc"_s << 1
                                                   << u"rcmc101.rtf leads outside the data directory"_s << u"ERROR"_s;
        QTest::newRow("named pipe") << Hostile::NamedPipe << u"lblrcmc"_s << 1
                                    << u"rcmc101.rtf is not a regular file"_s << u"ERROR"_s;
        QTest::newRow("endless device") << Hostile::EndlessDevice << u"lblrcmc"_s << 1
                                        << u"rcmc101.rtf leads outside the data directory"_s << u"ERROR"_s;
        QTest::newRow("empty data file") << Hostile::EmptyDataFile << u"lblrcmc"_s << 1
                                         << u"pracrcmc.dat: is empty"_s << u"Not found"_s;
        QTest::newRow("missing data file") << Hostile::MissingDataFile << u"lblueca"_s << 3
                                           << u"pracueca.dat: is missing"_s << u"No file"_s;
        QTest::newRow("oversized rich text") << Hostile::OversizedRtf << u"lblrcmc"_s << 1
                                             << u"rcmc101.rtf cannot be opened: rcmc101.rtf is too large"_s << u"ERROR"_s;
        QTest::newRow("control characters for text") << Hostile::NotRtf << u"lblrcmc"_s << 1
                                                     << u"rcmc101.rtf holds no text"_s << u"ERROR"_s;
        QTest::newRow("truncated last record") << Hostile::TruncatedRecord << u"lblrcmc"_s << 2
                                               << u"record 2 (key 102) is cut short: 536 of 836 bytes"_s
                                               << u"ERROR"_s;
        QTest::newRow("40,000 records") << Hostile::TooManyRecords << u"lblrcmc"_s << 1
                                        << u"pracrcmc.dat: file too large: 40000 records"_s << u"File too large"_s;
    }
    void programAndCheckerAgree()
    {
        QFETCH(Hostile, hostile);
        QFETCH(QString, kindLabel);
        QFETCH(int, exercise);
        QFETCH(QString, checker);
        QFETCH(QString, shown);
        QTemporaryDir dir, outside;
        test::copyFiles(m_good, dir.path());
        apply(dir.path(), outside.path(), hostile);

        const data::CheckReport report = data::checkDataDirectory(dir.path());
        QVERIFY2(report.errors.join(u'\n').contains(checker), qPrintable(report.errors.join(u'\n')));

        test::App app(dir.path());
        app.openPractice(kindLabel, 1, exercise);
        if (shown == u"ERROR"_s) {
            QCOMPARE(app.text(u"lblExid"_s), u"ERROR"_s);
            QVERIFY(!app.control(u"Check"_s)->isVisible());
            QVERIFY(!app.text(u"lblInstruction"_s).contains(u"secret"_s));
        } else if (!shown.isEmpty()) {
            QCOMPARE(app.topCode(), u"Error"_s);
            QCOMPARE(app.text(u"Label1"_s), shown);
        }
        QVERIFY(!app.sound.events.contains(dir.filePath(u"fanfare1.wav"_s)));
    }

    void markupShownAsTyped()
    {
        QTemporaryDir dir, outside;
        test::copyFiles(m_good, dir.path());
        apply(dir.path(), outside.path(), Hostile::Markup);
        const data::CheckReport report = data::checkDataDirectory(dir.path());
        QVERIFY(report.errors.join(u'\n').contains(u"pracrcma.dat: key 101: Item1: holds markup (\"<img src=/et\")"_s));

        test::App app(dir.path());
        app.openPractice(u"lblrcma"_s, 1, 1);
        QCOMPARE(app.topCode(), u"rcma"_s);
        auto *item = app.get<QLabel>(u"lblItem1"_s);
        QVERIFY(item);
        QCOMPARE(item->text(), u"<img src=/etc/x><b>bold</b>"_s);
        QCOMPARE(item->textFormat(), Qt::PlainText);
    }

    void checkerEscapesControlCharacters()
    {
        QTemporaryDir dir;
        test::copyFiles(m_good, dir.path());
        // Markup makes the checker quote the field, raw bytes and all.
        test::patchField(dir.path(), DataFile::Ueec, 1, "Title", QByteArray("<b>\x1b[31m\x07\0after", 14));
        QProcess p;
        p.start(QStringLiteral(STUDYDESK_BINARY_DIR "/bin/studydesk-data"), {u"check"_s, dir.path()});
        QVERIFY(p.waitForFinished(60000));
        const QByteArray out = p.readAllStandardOutput();
        QCOMPARE(p.exitCode(), 1);
        QVERIFY(!out.contains('\x1b') && !out.contains('\x07') && !out.contains('\0'));
        QVERIFY2(out.contains("holds markup (\"<b>\\x1b[31m\\x07\\x00af\")"), out.constData());
    }

private:
    QTemporaryDir m_tmp;
    QString m_good;
};

QTEST_MAIN(TestHostileData)
#include "tst_hostiledata.moc"
