// The Writing rules without screens: word count, the saved file, the title store and its printed
// list, the samples' sounds and comments, drafts and the delay that writes them.

#include "frame/core/printerdevice.h"
#include "frame/core/printtext.h"
#include "frame/core/programtime.h"
#include "frame/core/services.h"
#include "frame/core/state.h"
#include "writing/core/composition.h"
#include "writing/core/drafts.h"
#include "writing/core/samples.h"
#include "writing/core/titles.h"
#include "writing/core/wordcount.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTest>

using namespace sd;
using namespace Qt::StringLiterals;

class TestWritingCore : public QObject
{
    Q_OBJECT

    RecordingSound sound;
    FakeSeedSource seeds;

    /// praccomp.dat in a temporary folder, one record per (type, title) pair.
    void writeTitles(const QTemporaryDir &dir, const QList<std::pair<QString, QString>> &records)
    {
        QByteArray bytes;
        for (const auto &[type, title] : records)
            bytes += encodeRecord(dataFileInfo(DataFile::Comp).layout, {type, title, title + u" note"_s, QString()});
        QFile f(dir.filePath(u"praccomp.dat"_s));
        QVERIFY(f.open(QIODevice::WriteOnly));
        f.write(bytes);
    }

private Q_SLOTS:
    void wordCount_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<int>("words");
        QTest::newRow("empty") << u""_s << 0;
        QTest::newRow("blanks only") << u"     "_s << 0;
        QTest::newRow("one word") << u"Hello"_s << 1;
        QTest::newRow("contractions count twice") << u"I don't think it's fair"_s << 7;
        QTest::newRow("I'm, she'll, we've, they're, I'd") << u"I'm sure she'll say we've gone and they're sad I'd left"_s << 16;
        QTest::newRow("two blanks count once") << u"one  two"_s << 2;
        QTest::newRow("three blanks count once") << u"one   two"_s << 2;
        QTest::newRow("a line break without a full stop joins") << u"one two\r\nthree"_s << 2;
        QTest::newRow("a line break after a full stop separates") << u"one two.\r\nThree"_s << 3;
        QTest::newRow("a line feed alone after a full stop") << u"one two.\nThree"_s << 3;
        QTest::newRow("one line break at the end is dropped") << u"One two.\r\n"_s << 2;
        QTest::newRow("of two at the end only the last goes") << u"One two.\r\n\r\n"_s << 3;
        QTest::newRow("leading and trailing blanks") << u"  one two  "_s << 2;
    }
    void wordCount()
    {
        QFETCH(QString, text);
        QFETCH(int, words);
        QCOMPARE(CountWords(text), words);
    }

    void saveFile_data()
    {
        QTest::addColumn<QString>("heading");
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("name");
        QTest::addColumn<QByteArray>("bytes");
        QTest::newRow("eight lines") << u"A day out "_s << u"It rained."_s << u"Anna"_s
                                     << QByteArray(" \r\nA day out \r\n \r\nIt rained.\r\n \r\n \r\nAnna\r\n \r\n");
        QTest::newRow("the text keeps its lines, as CR LF") << u"H"_s << u"One.\nTwo.\r\nThree."_s << u""_s
                                                            << QByteArray(" \r\nH\r\n \r\nOne.\r\nTwo.\r\nThree.\r\n \r\n \r\n\r\n \r\n");
        QTest::newRow("every letter typed is kept") << u"H"_s << u"Zdanie \u0142\u00f3d\u017a."_s << u"\u0141ucja"_s
                                                    << u" \r\nH\r\n \r\nZdanie \u0142\u00f3d\u017a.\r\n \r\n \r\n\u0141ucja\r\n \r\n"_s.toUtf8();
    }
    void saveFile()
    {
        QFETCH(QString, heading);
        QFETCH(QString, text);
        QFETCH(QString, name);
        QFETCH(QByteArray, bytes);
        QCOMPARE(compositionFileBytes(heading, text, name), bytes);
    }

    void savedFileNamesAndFailures()
    {
        QCOMPARE(withTextExtension(u"/tmp/story"_s), u"/tmp/story.txt"_s);
        QCOMPARE(withTextExtension(u"/tmp/story.txt"_s), u"/tmp/story.txt"_s);
        QCOMPARE(withTextExtension(u"/tmp/story.doc"_s), u"/tmp/story.doc"_s);
        QTemporaryDir dir;
        QVERIFY(writeFileAtomically(dir.filePath(u"a.txt"_s), "one"));
        // A parent that is a file fails even for root.
        QVERIFY(!writeFileAtomically(dir.filePath(u"a.txt/b.txt"_s), "two"));
    }

    void titleStore()
    {
        QTemporaryDir dir;
        writeTitles(dir, {{u"nar"_s, u"N1"_s}, {u"art"_s, u"A1"_s}, {u"nar"_s, u"N2"_s}});
        ProgramState s(sound, seeds);
        s.setDataDir(dir.path());
        s.Titles[3] = u"left over"_s;
        s.CompositionType = u"nar"_s;
        LoadTitles(s, TitleLoad::Titles);
        QCOMPARE(s.Titles[1], u"N1"_s);
        QCOMPARE(s.Titles[2], u"N2"_s);
        QCOMPARE(s.TitleNotes[2], u"N2 note"_s);
        QCOMPARE(s.Titles[3], QString());
        QCOMPARE(int(s.CurrentTitle), 1);
        // The letter topics keep what the store held and append a blank to each text.
        s.Titles[3] = u"left over"_s;
        s.CompositionType = u"art"_s;
        LoadTitles(s, TitleLoad::Letters);
        QCOMPARE(s.Titles[1], u"A1 "_s);
        QCOMPARE(s.TitleNotes[1], u"A1 note "_s);
        QCOMPARE(s.Titles[2], u"N2"_s);
        QCOMPARE(s.Titles[3], u"left over"_s);
    }

    void eleventhTitleStopsTheLoad()
    {
        QTemporaryDir dir;
        QList<std::pair<QString, QString>> records;
        for (int n = 1; n <= 11; ++n)
            records.append({u"rep"_s, u"R%1"_s.arg(n)});
        writeTitles(dir, records);
        ProgramState s(sound, seeds);
        s.setDataDir(dir.path());
        s.CompositionType = u"rep"_s;
        QVERIFY_THROWS_EXCEPTION(RangeError, LoadTitles(s, TitleLoad::Titles));
        QCOMPARE(int(s.CurrentTitle), 0);
        QVERIFY(!s.Files.handle().isOpen());
        s.setDataDir(dir.path() + u"/none"_s);
        QVERIFY_THROWS_EXCEPTION(ProgramError, LoadTitles(s, TitleLoad::Titles));
        QVERIFY(!QFile::exists(dir.path() + u"/none/praccomp.dat"_s));
    }

    void printedTitleList()
    {
        RecordingPrinter printer;
        PlainTextPrint print(printer);
        Array<QString, 0, 10> titles, notes;
        titles[1] = u"Short."_s;
        titles[2] = u"A long title that goes on and on about a holiday by the sea, the people met there and the weather."_s;
        notes[2] = u"Say how it ended."_s;
        PrintTitleList(print, u"Narrative"_s, titles, notes);
        QCOMPARE(printer.jobs.size(), 1);
        const PrintJob &job = printer.jobs.first();
        QVERIFY(job.ended);
        const QStringList lines = job.texts();
        QCOMPARE(lines.mid(0, 4), (QStringList{u""_s, u""_s, u"COMPOSITION TITLES (NARRATIVE)"_s, u""_s}));
        QVERIFY(job.lines.at(2).bold);
        QVERIFY(!job.lines.at(4).bold);
        // Short: broken at its last blank, so an empty line for the empty rest and one after.
        QCOMPARE(lines.mid(4, 3),
                 (QStringList{u"1. Short.   (Your answer should be between 120 and 180 words.)   "_s, u""_s, u""_s}));
        // Long: wrapped at 83 characters, then one empty line.
        QCOMPARE(lines.mid(7, 3),
                 (QStringList{u"2. A long title that goes on and on about a holiday by the sea, the people met"_s,
                              u"there and the weather. Say how it ended.  (Your answer should be between 120 and"_s,
                              u"180 words.)    "_s}));
        QCOMPARE(lines.at(10), u""_s);
        int entries = 0;
        for (const QString &l : lines)
            entries += QRegularExpression(u"^(10|[1-9])\\. "_s).match(l).hasMatch();
        QCOMPARE(entries, 10);
        QCOMPARE(lines.at(lines.size() - 3), u"10.    (Your answer should be between 120 and 180 words.)   "_s);
    }

    void sampleSounds_data()
    {
        QTest::addColumn<int>("student");
        QTest::addColumn<int>("examiner");
        QTest::addColumn<int>("clip");
        QTest::newRow("agree") << 2 << 2 << 2;
        QTest::newRow("pass against borderline") << 1 << 2 << 6;
        QTest::newRow("borderline against fail") << 2 << 3 << 6;
        QTest::newRow("fail against pass") << 3 << 1 << 7;
        QTest::newRow("pass against fail") << 1 << 3 << 7;
    }
    void sampleSounds()
    {
        QFETCH(int, student);
        QFETCH(int, examiner);
        QFETCH(int, clip);
        QCOMPARE(sampleSoundIndex(student, examiner), clip);
    }

    void examinerComments()
    {
        const QString verdicts = u"FFP FBP BFP FPF PFP FPF BPF"_s.remove(u' ');
        const auto &comments = sd::examinerComments();
        QCOMPARE(comments.size(), 21);
        for (int type = 1; type <= 7; ++type) {
            for (int sample = 1; sample <= 3; ++sample) {
                const int key = commentKey(type, sample);
                QVERIFY2(comments.contains(key), qPrintable(QString::number(key)));
                QCOMPARE(comments[key].verdict, u"PBF"_s.indexOf(verdicts.at((type - 1) * 3 + sample - 1)) + 1);
                const qsizetype words = comments[key].text.split(u' ').size();
                QVERIFY2((words >= 40 && words <= 120) || key == 51 || key == 73, qPrintable(QString::number(key)));
            }
        }
        QCOMPARE(comments[51].text, u"This answer is short and simple but it answers the question in a clear, balanced way. "
                                    "At the end we know the writer's opinion. This would not get a very good mark but it "
                                    "would certainly pass."_s);
        QCOMPARE(comments[73].text, u"This is quite a good summary of the plot. However, it does not answer the question at "
                                    "all! We do not even know which character the writer considers the most interesting, "
                                    "let alone why. A clear fail."_s);
        QVERIFY(comments[63].text.startsWith(u"The style of this answer is more like narrative than a formal letter"_s));
        QStringList problems;
        parseComments(u"@comment 81 P\nToo far.\n"_s, &problems);
        QCOMPARE(problems.size(), 1);
    }

    void draftsAndTheirDelay()
    {
        QTemporaryDir dir;
        DraftStore store(dir.path());
        const QString key = DraftStore::keyFor(u"nar"_s, 3);
        QCOMPARE(key, u"nar-03"_s);
        QVERIFY(!store.read(key));
        QVERIFY(store.write(key, Draft{u"Once upon a time"_s, u"Anna"_s, ProgramTime::fakeStart()}));
        const std::optional<Draft> back = store.read(key);
        QVERIFY(back);
        QCOMPARE(back->text, u"Once upon a time"_s);
        QCOMPARE(back->started, ProgramTime::fakeStart());
        QCOMPARE(DraftStore::question(back->started), u"Continue the draft you started on 4 March 2024 at 09:00?"_s);
        store.remove(key);
        QVERIFY(!store.read(key));
        QVERIFY(!store.write(u"../escape"_s, *back));

        ProgramTime time;
        time.setFake(true);
        int fired = 0;
        Delay delay(time, 2000, [&fired] { ++fired; });
        delay.start();
        time.advance(1500);
        delay.start(); // a later keystroke does not put the save off
        time.advance(499);
        QCOMPARE(fired, 0);
        time.advance(1);
        QCOMPARE(fired, 1);
        time.advance(5000);
        QCOMPARE(fired, 1);
    }
};

QTEST_GUILESS_MAIN(TestWritingCore)
#include "tst_writingcore.moc"
