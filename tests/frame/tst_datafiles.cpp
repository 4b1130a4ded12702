// Data files: record layouts byte by byte, counts, key searches, file selection.

#include "common/fixtures.h"
#include "frame/core/datafiles.h"
#include "frame/core/services.h"
#include "frame/core/state.h"

#include <QTest>

using namespace sd;

namespace {
QByteArray padded(const char *text, int width)
{
    QByteArray b(text);
    return b + QByteArray(width - b.size(), ' ');
}

struct Env
{
    RecordingSound sound;
    FakeSeedSource seeds;
    ProgramState state{sound, seeds};
    test::DataDir dir;
    Env() { state.setDataDir(dir.path()); }
};
} // namespace

class TestDataFiles : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void layoutFields_data();
    void layoutFields();
    void selectDataFile_data();
    void selectDataFile();
    void countRoundsHalfToEven_data();
    void countRoundsHalfToEven();
    void practiceSearch_data();
    void practiceSearch();
    void testSearch_data();
    void testSearch();
    void readersKeepTheirOwnBuffers();
    void missingFileIsAnError();
    void checkedIntegers();
};

void TestDataFiles::layoutFields_data()
{
    QTest::addColumn<int>("file");
    QTest::addColumn<QByteArray>("record");
    QTest::addColumn<QStringList>("fields");

    QByteArray a = padded("207", 6) + padded("rcmc207", 20);
    QStringList af{QStringLiteral("207"), QStringLiteral("rcmc207")};
    for (int i = 1; i <= 8; ++i) {
        a += padded(i == 1 ? "rcmc207q" : "", 100);
        af << (i == 1 ? QStringLiteral("rcmc207q") : QString());
    }
    a += padded("BDACBA", 10);
    af << QStringLiteral("BDACBA");
    QTest::newRow("A multiple choice") << int(DataFile::Rcmc) << a << af;

    QByteArray b = padded(" 101", 6) + padded("rcma101", 20) + padded("Which person ...?", 120);
    QStringList bf{QStringLiteral("101"), QStringLiteral("rcma101"), QStringLiteral("Which person ...?")};
    for (int i = 1; i <= 15; ++i) {
        const QByteArray item = i <= 2 ? QByteArray("item ") + QByteArray::number(i) : QByteArray();
        b += padded(item.constData(), 80);
        bf << QString::fromLatin1(item);
    }
    b += padded("B/AD", 40);
    bf << QStringLiteral("B/AD");
    QTest::newRow("B matching, leading blank trimmed") << int(DataFile::Rcma) << b << bf;

    QTest::newRow("C compositions, 12-wide key")
        << int(DataFile::Comp)
        << padded("nar", 12) + padded("Write a story \x93" "ending\x94 well.", 640) + padded("", 100) + padded("unused", 100)
        << QStringList{QStringLiteral("nar"), QStringLiteral("Write a story \u201Cending\u201D well."), QString(),
                       QStringLiteral("unused")};

    QByteArray d = padded("x01", 6) + padded("ueca_x01", 20) + padded("A title", 120);
    QStringList df{QStringLiteral("x01"), QStringLiteral("ueca_x01"), QStringLiteral("A title")};
    for (int i = 1; i <= 15; ++i) {
        d += padded(i == 15 ? "last/b/c/d" : "", 60);
        df << (i == 15 ? QStringLiteral("last/b/c/d") : QString());
    }
    d += padded("", 40);
    df << QString();
    QTest::newRow("D cloze, last item") << int(DataFile::Ueca) << d << df;

    QTest::newRow("E sentence conversion")
        << int(DataFile::Uesc)
        << padded("101", 6) + padded("First sentence.", 120) + padded("Start", 100) + padded("end.", 100)
               + padded("GIVEN", 15) + padded("one", 60) + padded("two", 60) + padded("", 60) + padded("", 60)
               + padded("five", 60)
        << QStringList{QStringLiteral("101"), QStringLiteral("First sentence."), QStringLiteral("Start"),
                       QStringLiteral("end."), QStringLiteral("GIVEN"), QStringLiteral("one"), QStringLiteral("two"),
                       QString(), QString(), QStringLiteral("five")};

    QByteArray f = padded("110", 6) + padded("ueec110", 20) + padded("My first job", 60);
    QStringList ff{QStringLiteral("110"), QStringLiteral("ueec110"), QStringLiteral("My first job")};
    for (int i = 1; i <= 15; ++i) {
        f += padded(i == 3 ? "the" : "", 15);
        ff << (i == 3 ? QStringLiteral("the") : QString());
    }
    f += padded("", 20);
    ff << QString();
    QTest::newRow("F error correction") << int(DataFile::Ueec) << f << ff;

    QTest::newRow("G word formation practice")
        << int(DataFile::Uewb)
        << padded("101", 6) + padded("The ... of the city surprised us.", 120) + padded("BEAUTIFUL", 15)
               + padded("BEAUTY", 20)
        << QStringList{QStringLiteral("101"), QStringLiteral("The ... of the city surprised us."),
                       QStringLiteral("BEAUTIFUL"), QStringLiteral("BEAUTY")};

    QByteArray h = padded("x02", 6) + padded("uewbx02", 20) + padded("", 120);
    QStringList hf{QStringLiteral("x02"), QStringLiteral("uewbx02"), QString()};
    for (int i = 1; i <= 11; ++i) {
        h += padded(i == 1 ? "HAPPY/happiness" : "", 40);
        hf << (i == 1 ? QStringLiteral("HAPPY/happiness") : QString());
    }
    h += padded("keys", 60);
    hf << QStringLiteral("keys");
    QTest::newRow("H word formation test") << int(DataFile::ExamUewb) << h << hf;
}

void TestDataFiles::layoutFields()
{
    QFETCH(int, file);
    QFETCH(QByteArray, record);
    QFETCH(QStringList, fields);
    const DataFileInfo &info = dataFileInfo(DataFile(file));
    QCOMPARE(record.size(), info.layout.length);

    Env env;
    // Two records: the second one is read, so the record offset is exercised too.
    env.dir.writeFile(QString::fromLatin1(info.fileName), QByteArray(info.layout.length, ' ') + record);
    env.state.DataFileName = QString::fromLatin1(info.fileName);
    env.state.RecordLength = info.layout.length;
    OpenDataFile(env.state);
    QCOMPARE(ReadRecord(env.state, DataFile(file), 2), fields);
}

void TestDataFiles::selectDataFile_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<bool>("practice");
    QTest::addColumn<bool>("test");
    QTest::addColumn<QString>("fileName");
    QTest::addColumn<int>("length");

    QTest::newRow("1 headings") << 1 << true << false << QStringLiteral("pracrche.dat") << 836;
    QTest::newRow("4 matching") << 4 << true << false << QStringLiteral("pracrcma.dat") << 1386;
    QTest::newRow("5 writing") << 5 << true << false << QStringLiteral("praccomp.dat") << 852;
    QTest::newRow("8 conversion") << 8 << false << true << QStringLiteral("pracuesc.dat") << 641;
    QTest::newRow("9 error correction") << 9 << true << false << QStringLiteral("pracueec.dat") << 331;
    QTest::newRow("10 practice") << 10 << true << false << QStringLiteral("pracuewb.dat") << 161;
    QTest::newRow("10 test") << 10 << false << true << QStringLiteral("examuewb.dat") << 646;
    QTest::newRow("10 both modes: practice first") << 10 << true << true << QStringLiteral("pracuewb.dat") << 161;
    QTest::newRow("10 neither mode keeps the previous file") << 10 << false << false << QStringLiteral("pracueca.dat") << 1086;
    QTest::newRow("kind 11 keeps the previous file") << 11 << true << false << QStringLiteral("pracueca.dat") << 1086;
    QTest::newRow("kind 0 keeps the previous file") << 0 << true << false << QStringLiteral("pracueca.dat") << 1086;
}

void TestDataFiles::selectDataFile()
{
    QFETCH(int, kind);
    QFETCH(bool, practice);
    QFETCH(bool, test);
    QFETCH(QString, fileName);
    QFETCH(int, length);
    Env env;
    env.state.PracticeMode = true;
    SelectDataFile(env.state, 6); // something previously selected
    env.state.PracticeMode = practice;
    env.state.TestMode = test;
    SelectDataFile(env.state, kind);
    QCOMPARE(env.state.DataFileName, fileName);
    QCOMPARE(int(env.state.RecordLength), length);
}

void TestDataFiles::countRoundsHalfToEven_data()
{
    QTest::addColumn<int>("bytes");
    QTest::addColumn<int>("count");
    QTest::newRow("empty file") << 0 << 0;
    QTest::newRow("whole records") << 3 * 836 << 3;
    QTest::newRow("0.5 rounds to 0") << 418 << 0;
    QTest::newRow("1.5 rounds to 2") << 1254 << 2;
    QTest::newRow("2.5 rounds to 2") << 2090 << 2;
    QTest::newRow("3.5 rounds to 4") << 2926 << 4;
    QTest::newRow("just over 2.5 rounds up") << 2091 << 3;
}

void TestDataFiles::countRoundsHalfToEven()
{
    QFETCH(int, bytes);
    QFETCH(int, count);
    Env env;
    env.dir.writeFile(QStringLiteral("pracrcmc.dat"), QByteArray(bytes, ' '));
    env.state.PracticeMode = true;
    SelectDataFile(env.state, 2);
    OpenDataFile(env.state);
    CountRecords(env.state, CountFor::Conversion);
    QCOMPARE(int(env.state.RecordCount), count);
    QCOMPARE(int(env.state.ConversionRecordCount), count);
    QCOMPARE(int(env.state.SearchRecordCount), 0); // only the named copy changes
}

void TestDataFiles::practiceSearch_data()
{
    QTest::addColumn<QStringList>("codes");
    QTest::addColumn<QString>("level");
    QTest::addColumn<QString>("exercise");
    QTest::addColumn<int>("found"); // record number, 0 for "Not found"

    QTest::newRow("first record") << QStringList{QStringLiteral("101"), QStringLiteral("207")} << QStringLiteral("1")
                                  << QStringLiteral("01") << 1;
    QTest::newRow("last record") << QStringList{QStringLiteral("101"), QStringLiteral("207")} << QStringLiteral("2")
                                 << QStringLiteral("07") << 2;
    QTest::newRow("first duplicate wins") << QStringList{QStringLiteral("110"), QStringLiteral("207"), QStringLiteral("207")}
                                          << QStringLiteral("2") << QStringLiteral("07") << 2;
    QTest::newRow("trailing blanks trimmed") << QStringList{QStringLiteral("101   ")} << QStringLiteral("1")
                                             << QStringLiteral("01") << 1;
    QTest::newRow("leading blank trimmed") << QStringList{QStringLiteral(" 101")} << QStringLiteral("1")
                                           << QStringLiteral("01") << 1;
    QTest::newRow("missing key") << QStringList{QStringLiteral("101")} << QStringLiteral("3") << QStringLiteral("10") << 0;
    QTest::newRow("empty file") << QStringList{} << QStringLiteral("1") << QStringLiteral("01") << 0;
    QTest::newRow("test keys are not practice keys") << QStringList{QStringLiteral("x01")} << QStringLiteral("x")
                                                     << QStringLiteral("01") << 1;
    QTest::newRow("keys compare case-sensitively") << QStringList{QStringLiteral("X01")} << QStringLiteral("x")
                                                   << QStringLiteral("01") << 0;
}

void TestDataFiles::practiceSearch()
{
    QFETCH(QStringList, codes);
    QFETCH(QString, level);
    QFETCH(QString, exercise);
    QFETCH(int, found);
    Env env;
    QList<QStringList> records;
    for (const QString &c : codes)
        records.append({c, QStringLiteral("name")});
    env.dir.writeRecords(DataFile::Rcmc, records);
    env.state.PracticeMode = true;
    env.state.ExerciseKind = 2;
    SelectDataFile(env.state, 2);
    env.state.LevelCode = level;
    env.state.ExerciseCode = exercise;
    const SearchResult r = FindPracticeRecord(env.state);
    QCOMPARE(r == SearchResult::Found, found > 0);
    if (found)
        QCOMPARE(int(env.state.CurrentRecord), found);
    QCOMPARE(env.state.ExerciseKey, level + exercise);
}

void TestDataFiles::testSearch_data()
{
    QTest::addColumn<QStringList>("codes");
    QTest::addColumn<QString>("test");
    QTest::addColumn<int>("found");
    QTest::newRow("match in the last record") << QStringList{QStringLiteral("101"), QStringLiteral("x03")}
                                              << QStringLiteral("03") << 2;
    QTest::newRow("test 10 searches x10") << QStringList{QStringLiteral("x01"), QStringLiteral("x10")}
                                          << QStringLiteral("10") << 2;
    QTest::newRow("no match gives up at the last record") << QStringList{QStringLiteral("x01"), QStringLiteral("x02")}
                                                          << QStringLiteral("05") << 0;
    QTest::newRow("no records reports at once") << QStringList{} << QStringLiteral("01") << 0;
}

void TestDataFiles::testSearch()
{
    QFETCH(QStringList, codes);
    QFETCH(QString, test);
    QFETCH(int, found);
    Env env;
    QList<QStringList> records;
    for (const QString &c : codes)
        records.append({c});
    env.dir.writeRecords(DataFile::ExamUewb, records);
    env.state.PracticeMode = false;
    env.state.TestMode = true;
    env.state.ExerciseKind = 10; // word formation is searched only in the test papers
    SelectDataFile(env.state, 10);
    env.state.LevelCode = test;
    const SearchResult r = FindTestRecord(env.state);
    QCOMPARE(r == SearchResult::Found, found > 0);
    if (found)
        QCOMPARE(int(env.state.CurrentRecord), found);
    else
        QCOMPARE(int(env.state.CurrentRecord), int(codes.size())); // never beyond the last record
}

void TestDataFiles::readersKeepTheirOwnBuffers()
{
    Env env;
    env.dir.writeRecords(DataFile::Rcmc, {{QStringLiteral("101"), QStringLiteral("mc")}});
    env.dir.writeRecords(DataFile::Rcre, {{QStringLiteral("102"), QStringLiteral("re")}});
    env.state.PracticeMode = true;
    SelectDataFile(env.state, 2);
    OpenDataFile(env.state);
    ReadRecord(env.state, DataFile::Rcmc, 1);
    SelectDataFile(env.state, 3);
    OpenDataFile(env.state); // closes the first file
    ReadRecord(env.state, DataFile::Rcre, 1);
    QVERIFY(env.state.Files.reader(DataFile::Rcmc).buffer().startsWith("101   mc"));
    QVERIFY(env.state.Files.reader(DataFile::Rcre).buffer().startsWith("102   re"));
}

void TestDataFiles::missingFileIsAnError()
{
    Env env;
    env.state.PracticeMode = true;
    env.state.ExerciseKind = 2;
    SelectDataFile(env.state, 2);
    env.state.LevelCode = QStringLiteral("1");
    env.state.ExerciseCode = QStringLiteral("01");
    QVERIFY_THROWS_EXCEPTION(ProgramError, FindPracticeRecord(env.state));
    // An empty file name opens nothing; the read then fails on the closed handle.
    env.state.DataFileName.clear();
    OpenDataFile(env.state);
    QVERIFY_THROWS_EXCEPTION(ProgramError, ReadRecord(env.state, DataFile::Rcmc, 1));
}

void TestDataFiles::checkedIntegers()
{
    Int16 n = 32766;
    ++n;
    QCOMPARE(int(n), 32767);
    QVERIFY_THROWS_EXCEPTION(OverflowError, ++n);
    Int16 low = -32768;
    QVERIFY_THROWS_EXCEPTION(OverflowError, low -= 1);
    QVERIFY_THROWS_EXCEPTION(OverflowError, Int16(n + 1));
    QVERIFY_THROWS_EXCEPTION(OverflowError, Int16(qint64(1) << 40));
    Array<QString, 0, 20> list;
    QVERIFY_THROWS_EXCEPTION(RangeError, list[21]);
    QVERIFY_THROWS_EXCEPTION(RangeError, list[-1]);
}

QTEST_GUILESS_MAIN(TestDataFiles)
#include "tst_datafiles.moc"
