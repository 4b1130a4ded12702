// Data files: record layouts byte by byte, counts, key searches, file selection.

#include "common/fixtures.h"
#include "frame/core/datafiles.h"
#include "frame/core/services.h"
#include "frame/core/state.h"

#include <QTest>

using namespace sd;
using namespace Qt::StringLiterals;

namespace {
/// A record built field by field: the bytes as written and the fields as they are to be read.
struct Record
{
    QByteArray bytes;
    QStringList fields;
    Record &add(const char *text, int width, const QString &read)
    {
        bytes += QByteArray(text).leftJustified(width, ' ');
        fields << read;
        return *this;
    }
    Record &add(const char *text, int width) { return add(text, width, QString::fromLatin1(text)); }
    /// `count` fields of `width`, empty but for field `at` (from 1).
    Record &repeat(int count, int width, int at, const char *text)
    {
        for (int i = 1; i <= count; ++i)
            add(i == at ? text : "", width);
        return *this;
    }
};

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
    void layoutFields_data()
    {
        QTest::addColumn<int>("file");
        QTest::addColumn<QByteArray>("record");
        QTest::addColumn<QStringList>("fields");
        const auto row = [](const char *name, DataFile file, const Record &r) {
            QTest::newRow(name) << int(file) << r.bytes << r.fields;
        };
        row("A multiple choice", DataFile::Rcmc,
            Record().add("207", 6).add("rcmc207", 20).repeat(8, 100, 1, "rcmc207q").add("BDACBA", 10));
        row("B matching, leading blank trimmed", DataFile::Rcma,
            Record().add(" 101", 6, u"101"_s).add("rcma101", 20).add("Which person ...?", 120).repeat(15, 80, 2, "item 2")
                .add("B/AD", 40));
        row("C compositions, 12-wide key, Windows-1252", DataFile::Comp,
            Record().add("nar", 12).add("Write a story \x93" "ending\x94 well.", 640, u"Write a story \u201Cending\u201D well."_s)
                .add("", 100).add("unused", 100));
        row("D cloze, last item", DataFile::Ueca,
            Record().add("x01", 6).add("ueca_x01", 20).add("A title", 120).repeat(15, 60, 15, "last/b/c/d").add("", 40));
        row("E sentence conversion", DataFile::Uesc,
            Record().add("101", 6).add("First sentence.", 120).add("Start", 100).add("end.", 100).add("GIVEN", 15)
                .repeat(4, 60, 1, "one").add("five", 60));
        row("F error correction", DataFile::Ueec,
            Record().add("110", 6).add("ueec110", 20).add("My first job", 60).repeat(15, 15, 3, "the").add("", 20));
        row("G word formation practice", DataFile::Uewb,
            Record().add("101", 6).add("The ... of the city surprised us.", 120).add("BEAUTIFUL", 15).add("BEAUTY", 20));
        row("H word formation test", DataFile::ExamUewb,
            Record().add("x02", 6).add("uewbx02", 20).add("", 120).repeat(11, 40, 1, "HAPPY/happiness").add("keys", 60));
    }
    void layoutFields()
    {
        QFETCH(int, file);
        QFETCH(QByteArray, record);
        const DataFileInfo &info = dataFileInfo(DataFile(file));
        QCOMPARE(record.size(), info.layout.length);

        Env env;
        // Two records: the second one is read, so the record offset is exercised too.
        env.dir.writeFile(QString::fromLatin1(info.fileName), QByteArray(info.layout.length, ' ') + record);
        env.state.DataFileName = QString::fromLatin1(info.fileName);
        env.state.RecordLength = info.layout.length;
        OpenDataFile(env.state);
        QTEST(ReadRecord(env.state, DataFile(file), 2), "fields");
    }

    void selectDataFile_data()
    {
        QTest::addColumn<int>("kind");
        QTest::addColumn<bool>("practice");
        QTest::addColumn<bool>("test");
        QTest::addColumn<QString>("fileName");
        QTest::addColumn<int>("length");

        QTest::newRow("1 headings") << 1 << true << false << u"pracrche.dat"_s << 836;
        QTest::newRow("4 matching") << 4 << true << false << u"pracrcma.dat"_s << 1386;
        QTest::newRow("5 writing") << 5 << true << false << u"praccomp.dat"_s << 852;
        QTest::newRow("8 conversion") << 8 << false << true << u"pracuesc.dat"_s << 641;
        QTest::newRow("9 error correction") << 9 << true << false << u"pracueec.dat"_s << 331;
        QTest::newRow("10 practice") << 10 << true << false << u"pracuewb.dat"_s << 161;
        QTest::newRow("10 test") << 10 << false << true << u"examuewb.dat"_s << 646;
        QTest::newRow("10 both modes: practice first") << 10 << true << true << u"pracuewb.dat"_s << 161;
        QTest::newRow("10 neither mode keeps the previous file") << 10 << false << false << u"pracueca.dat"_s << 1086;
        QTest::newRow("kind 11 keeps the previous file") << 11 << true << false << u"pracueca.dat"_s << 1086;
        QTest::newRow("kind 0 keeps the previous file") << 0 << true << false << u"pracueca.dat"_s << 1086;
    }
    void selectDataFile()
    {
        QFETCH(int, kind);
        QFETCH(bool, practice);
        QFETCH(bool, test);
        Env env;
        env.state.PracticeMode = true;
        SelectDataFile(env.state, 6); // something previously selected
        env.state.PracticeMode = practice;
        env.state.TestMode = test;
        SelectDataFile(env.state, kind);
        QTEST(env.state.DataFileName, "fileName");
        QTEST(int(env.state.RecordLength), "length");
    }

    void countRoundsHalfToEven_data()
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
    void countRoundsHalfToEven()
    {
        QFETCH(int, bytes);
        QFETCH(int, count);
        Env env;
        env.dir.writeFile(u"pracrcmc.dat"_s, QByteArray(bytes, ' '));
        env.state.PracticeMode = true;
        SelectDataFile(env.state, 2);
        OpenDataFile(env.state);
        CountRecords(env.state, CountFor::Conversion);
        QCOMPARE(int(env.state.RecordCount), count);
        QCOMPARE(int(env.state.ConversionRecordCount), count);
        QCOMPARE(int(env.state.SearchRecordCount), 0); // only the named copy changes
    }

    void keySearch_data()
    {
        QTest::addColumn<bool>("test");     // a test paper's search (key "x" & test), else a practice one
        QTest::addColumn<QString>("codes"); // the records' keys, separated by "|"
        QTest::addColumn<QString>("level"); // level, or the test number
        QTest::addColumn<QString>("exercise");
        QTest::addColumn<int>("found"); // record number, 0 for "Not found"

        QTest::newRow("first record") << false << u"101|207"_s << u"1"_s << u"01"_s << 1;
        QTest::newRow("last record") << false << u"101|207"_s << u"2"_s << u"07"_s << 2;
        QTest::newRow("first duplicate wins") << false << u"110|207|207"_s << u"2"_s << u"07"_s << 2;
        QTest::newRow("trailing blanks trimmed") << false << u"101   "_s << u"1"_s << u"01"_s << 1;
        QTest::newRow("leading blank trimmed") << false << u" 101"_s << u"1"_s << u"01"_s << 1;
        QTest::newRow("missing key") << false << u"101"_s << u"3"_s << u"10"_s << 0;
        QTest::newRow("empty file") << false << QString() << u"1"_s << u"01"_s << 0;
        QTest::newRow("test keys are not practice keys") << false << u"x01"_s << u"x"_s << u"01"_s << 1;
        QTest::newRow("keys compare case-sensitively") << false << u"X01"_s << u"x"_s << u"01"_s << 0;
        QTest::newRow("test: match in the last record") << true << u"101|x03"_s << u"03"_s << QString() << 2;
        QTest::newRow("test: 10 searches x10") << true << u"x01|x10"_s << u"10"_s << QString() << 2;
        QTest::newRow("test: no match gives up at the last record") << true << u"x01|x02"_s << u"05"_s << QString() << 0;
        QTest::newRow("test: no records reports at once") << true << QString() << u"01"_s << QString() << 0;
    }
    void keySearch()
    {
        QFETCH(bool, test);
        QFETCH(QString, codes);
        QFETCH(QString, level);
        QFETCH(QString, exercise);
        QFETCH(int, found);
        Env env;
        QList<QStringList> records;
        for (const QString &c : codes.split(u'|', Qt::SkipEmptyParts))
            records.append({c});
        // Word formation is searched only in the test papers.
        env.dir.writeRecords(test ? DataFile::ExamUewb : DataFile::Rcmc, records);
        env.state.PracticeMode = !test;
        env.state.TestMode = test;
        env.state.ExerciseKind = test ? 10 : 2;
        SelectDataFile(env.state, env.state.ExerciseKind);
        env.state.LevelCode = level;
        env.state.ExerciseCode = exercise;
        const SearchResult r = test ? FindTestRecord(env.state) : FindPracticeRecord(env.state);
        QCOMPARE(r == SearchResult::Found, found > 0);
        if (found)
            QCOMPARE(int(env.state.CurrentRecord), found);
        else if (test)
            QCOMPARE(int(env.state.CurrentRecord), int(records.size())); // never beyond the last record
        if (!test)
            QCOMPARE(env.state.ExerciseKey, level + exercise);
    }

    void searchReadsLargeFilesInBlocks_data()
    {
        QTest::addColumn<int>("at");    // the record holding the key, 0 for none
        QTest::addColumn<int>("tail");  // bytes of a partial record after 3,000 whole ones
        QTest::addColumn<int>("found"); // what the search finds, 0 for "Not found"
        QTest::newRow("in the first block") << 7 << 0 << 7;
        QTest::newRow("first record of the second block") << 1255 << 0 << 1255;
        QTest::newRow("last of 3,000") << 3000 << 0 << 3000;
        QTest::newRow("missing") << 0 << 0 << 0;
        // Over half a record is counted; its code is there, the rest of it is not.
        QTest::newRow("partial last record") << 0 << 500 << 3001;
        QTest::newRow("under half a record is not counted") << 0 << 400 << 0;
    }
    void searchReadsLargeFilesInBlocks()
    {
        QFETCH(int, at);
        QFETCH(int, tail);
        QFETCH(int, found);
        Env env;
        const LayoutInfo &layout = dataFileInfo(DataFile::Rcmc).layout;
        QByteArray bytes;
        for (int i = 1; i <= 3000; ++i)
            bytes += encodeRecord(layout, {i == at ? u"  310"_s : u"z%1"_s.arg(i), u"passage"_s});
        bytes += encodeRecord(layout, {u"310"_s}).left(tail);
        env.dir.writeFile(u"pracrcmc.dat"_s, bytes);
        env.state.PracticeMode = true;
        env.state.ExerciseKind = 2;
        SelectDataFile(env.state, 2);
        env.state.LevelCode = u"3"_s;
        env.state.ExerciseCode = u"10"_s;
        QCOMPARE(FindPracticeRecord(env.state) == SearchResult::Found, found > 0);
        if (found) {
            QCOMPARE(int(env.state.CurrentRecord), found);
            QCOMPARE(ReadRecord(env.state, DataFile::Rcmc, found).value(0), u"310"_s);
        }
    }

    void readersKeepTheirOwnBuffers()
    {
        Env env;
        env.dir.writeRecords(DataFile::Rcmc, {{u"101"_s, u"mc"_s}});
        env.dir.writeRecords(DataFile::Rcre, {{u"102"_s, u"re"_s}});
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

    void missingFileIsAnError()
    {
        Env env;
        env.state.PracticeMode = true;
        env.state.ExerciseKind = 2;
        SelectDataFile(env.state, 2);
        env.state.LevelCode = u"1"_s;
        env.state.ExerciseCode = u"01"_s;
        QVERIFY_THROWS_EXCEPTION(ProgramError, FindPracticeRecord(env.state));
        // An empty file name opens nothing; the read then fails on the closed handle.
        env.state.DataFileName.clear();
        OpenDataFile(env.state);
        QVERIFY_THROWS_EXCEPTION(ProgramError, ReadRecord(env.state, DataFile::Rcmc, 1));
    }

    void checkedIntegers()
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
};

QTEST_GUILESS_MAIN(TestDataFiles)
#include "tst_datafiles.moc"
