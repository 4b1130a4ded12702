// The data tool on small sources and data directories: the exact complaints of `check` and
// `build`, what `show` prints, and the documents as a student sees them.

#include "check.h"
#include "datatoolfixture.h"
#include "frame/core/services.h"
#include "frame/core/state.h"
#include "ui/rtf/rtfreader.h"

#include <QImage>

#include <QRegularExpression>
#include <QTextDocument>

using namespace sd;
using namespace Qt::StringLiterals;

namespace {

/// Four questions; " *" marks the right option.
const QString kMultipleChoice = [] {
    QString s = u"key: 101\ntitle: A short walk\n% a note for authors\n\n@passage\n# A short walk\n"
                "We walked to the *old* harbour.\n"_s;
    const char *questions[][5] = {
        {"Where did they walk?", "To the old harbour. *", "To the station.", "To the park.", "To school."},
        {"When did they go?", "In the morning.", "At night. *", "At noon.", "Never."},
        {"Who went?", "Two friends.", "A class.", "A family. *", "Nobody."},
        {"How was it?", "Cold.", "Wet.", "Long.", "Short. *"}};
    for (const auto &q : questions)
        s += u"\n@question\n%1\nA. %2\nB. %3\nC. %4\nD. %5\n"_s.arg(QLatin1StringView(q[0]), QLatin1StringView(q[1]),
                                                                      QLatin1StringView(q[2]), QLatin1StringView(q[3]),
                                                                      QLatin1StringView(q[4]));
    return s;
}();

const QString kChoiceCloze = [] {
    QString s = u"key: 101\ntitle: Ten gaps\n\n@passage\n# Ten gaps\n"
                "One [1] two [2] three [3] four [4] five [5] six [6] seven [7] eight [8] nine [9] ten [10].\n\n@gaps\n"_s;
    for (int n = 1; n <= 10; ++n)
        s += u"%1. a / b / c%2\n"_s.arg(n).arg(n < 10 ? u" / d"_s : QString());
    return s;
}();

/// Lines 3, 6, 9 and 12 are right; the others hold an extra word in brackets.
const QString kErrorCorrection = [] {
    QString s = u"key: 101\ntitle: Fifteen lines\n\n@lines\n"_s;
    const char *extra[] = {"the", "a", "", "so", "to", "", "it", "been", "", "more", "are", "", "by", "of", "up"};
    for (int n = 1; n <= 15; ++n)
        s += *extra[n - 1] ? u"Line %1 has [%2] a word too many\n"_s.arg(n).arg(QLatin1StringView(extra[n - 1]))
                           : u"Line %1 is right\n"_s.arg(n);
    return s;
}();

const QString kConversion = u"key: 101\ntitle: Two items\n\n"
                           "@item UNLESS\nWe will get wet if we don't hurry.\nWe will get wet [unless we hurry / unless we are quick].\n\n"
                           "@item TOO\nIt was so cold that we couldn't swim.\nIt was [too cold for us to] swim.\n"_s;

const QString kWordSentences = u"key: 101\ntitle: Two sentences\n\n@sentences\n"
                               "1. The forecast promised a [sunny] afternoon. (SUN)\n"
                               "2. It rained [heavily] all night. (HEAVY)\n"_s;

const QString kWordText = [] {
    QString s = u"key: x01\ntitle: Ten words\n\n@passage\n# Ten words\n"
                "One [1] two [2] three [3] four [4] five [5] six [6] seven [7] eight [8] nine [9] ten [10].\n\n@gaps\n"_s;
    for (int n = 1; n <= 10; ++n)
        s += u"%1. SUN / sunny\n"_s.arg(n);
    return s;
}();

enum class Fault {
    None, ShortFile, DuplicateKey, MissingPassage, OverlongField, Utf8Text, LongAnswerKey, MalformedKey,
    WordNotInLine, TooManyLines, UnreadableSheet, MissingSound, MissingHelp, EmptyWordFile, TestItemNoSlash,
    NineTestItems, EmptyAnswer, EleventhTitle, MissingSample, MissingPicture
};

const QByteArray kNotRtf = "These are plain words, not rich text.";

void applyFault(const QString &dir, Fault fault)
{
    const QString rcmc = dir + u"/pracrcmc.dat"_s;
    switch (fault) {
    case Fault::None: break;
    case Fault::ShortFile: QFile::resize(rcmc, 2 * 836 - 500); break;
    case Fault::DuplicateKey: test::writeBytes(rcmc, test::readBytes(rcmc) + test::readBytes(rcmc).left(836)); break;
    case Fault::MissingPassage: QFile::remove(dir + u"/rcmc101.rtf"_s); break;
    case Fault::OverlongField: test::patchField(dir, DataFile::Ueec, 1, "Title", QByteArray(60, 'x')); break;
    case Fault::Utf8Text: test::patchField(dir, DataFile::Ueec, 1, "Title", "Caf\xc3\xa9"); break;
    case Fault::LongAnswerKey: test::patchField(dir, DataFile::Rcmc, 2, "Answers", "ABCDABCD"); break;
    case Fault::MalformedKey: test::patchField(dir, DataFile::Rcmc, 2, "Code", "1O2"); break;
    case Fault::WordNotInLine: test::patchField(dir, DataFile::Ueec, 1, "Item2", "zzz"); break;
    case Fault::TooManyLines:
        test::writeBytes(dir + u"/ueec101.txt"_s, test::readBytes(dir + u"/ueec101.txt"_s) + QByteArray("more\r\n").repeated(6));
        break;
    case Fault::UnreadableSheet: test::writeBytes(dir + u"/rcmc102q.rtf"_s, kNotRtf); break;
    case Fault::MissingSound: QFile::remove(dir + u"/chord.wav"_s); break;
    case Fault::MissingHelp: QFile::remove(dir + u"/helprcmc.txt"_s); break;
    case Fault::EmptyWordFile: QFile::resize(dir + u"/wb101"_s, 0); break;
    case Fault::TestItemNoSlash: test::patchField(dir, DataFile::ExamUewb, 1, "Item3", "SOLVEsolutions"); break;
    case Fault::NineTestItems: QFile::resize(dir + u"/pracuesc.dat"_s, QFileInfo(dir + u"/pracuesc.dat"_s).size() - 641); break;
    case Fault::EmptyAnswer: test::patchField(dir, DataFile::Uesc, 2, "Answer1", ""); break;
    case Fault::EleventhTitle: {
        const QString comp = dir + u"/praccomp.dat"_s;
        test::writeBytes(comp, test::readBytes(comp) + test::readBytes(comp).left(852));
        break;
    }
    case Fault::MissingSample: QFile::remove(dir + u"/Samplenar2.rtf"_s); break;
    case Fault::MissingPicture: QFile::remove(dir + u"/leta09.png"_s); break;
    }
}

QString unreadableMessage()
{
    QTextDocument doc;
    return rtf::readRtf(kNotRtf, doc).message;
}

QStringList plainLines(const QString &rtfPath)
{
    QTextDocument doc;
    rtf::readRtfFile(rtfPath, doc);
    return doc.toPlainText().split(u'\n');
}

} // namespace

class TestDataTool : public QObject
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
    }

    void checkComplaints_data()
    {
        QTest::addColumn<Fault>("fault");
        QTest::addColumn<QStringList>("expected");
        QTest::newRow("good directory") << Fault::None << QStringList();
        QTest::newRow("short file") << Fault::ShortFile << QStringList{
            u"pracrcmc.dat: record 2 (key 102) is cut short: 336 of 836 bytes"_s};
        QTest::newRow("duplicated key") << Fault::DuplicateKey << QStringList{
            u"pracrcmc.dat: key 101: repeated in record 3; the program only finds the first"_s};
        QTest::newRow("missing passage") << Fault::MissingPassage << QStringList{
            u"pracrcmc.dat: key 101: Name: rcmc101.rtf is missing"_s};
        QTest::newRow("over-long field") << Fault::OverlongField << QStringList{
            u"pracueec.dat: key 101: Title: the text fills all 60 characters of the field, so it may have been cut off"_s};
        QTest::newRow("UTF-8 text") << Fault::Utf8Text << QStringList{
            u"pracueec.dat: key 101: Title: holds UTF-8 text (\"\u00e9\"); data files are Windows-1252"_s};
        QTest::newRow("too many questions") << Fault::LongAnswerKey << QStringList{
            u"pracrcmc.dat: key 102: Answers: \"ABCDABCD\": 8 questions; multiple choice has 4 to 7"_s};
        QTest::newRow("malformed key") << Fault::MalformedKey << QStringList{
            u"pracrcmc.dat: record 2: Code: \"1O2\" is not a key: level and exercise (101 to 310) or x01 to x10"_s};
        QTest::newRow("extra word not in its line") << Fault::WordNotInLine << QStringList{
            u"pracueec.dat: key 101: Item2: \"zzz\" is not in line 2 of ueec101.txt"_s};
        QTest::newRow("text of 21 lines") << Fault::TooManyLines << QStringList{
            u"pracueec.dat: key 101: Name: ueec101.txt has 21 lines; the screen reads at most 20"_s};
        QTest::newRow("sheet not rich text") << Fault::UnreadableSheet << QStringList{
            u"pracrcmc.dat: key 102: Text1: rcmc102q.rtf cannot be read as rich text: "_s + unreadableMessage()};
        QTest::newRow("missing sound") << Fault::MissingSound << QStringList{u"chord.wav is missing"_s};
        QTest::newRow("missing help text") << Fault::MissingHelp << QStringList{u"helprcmc.txt is missing"_s};
        QTest::newRow("empty word-formation file") << Fault::EmptyWordFile << QStringList{
            u"wb101: is empty; the program shows \"No file\""_s};
        QTest::newRow("test item with no slash") << Fault::TestItemNoSlash << QStringList{
            u"examuewb.dat: key x01: Item3: \"SOLVEsolutions\": no \"/\" between the base word and the answer"_s};
        QTest::newRow("nine items in a test") << Fault::NineTestItems << QStringList{
            u"pracuesc.dat: key x01: 9 items; a test section has 10"_s};
        QTest::newRow("item with no correct answer") << Fault::EmptyAnswer << QStringList{
            u"pracuesc.dat: key 101, item 2: Answer1: empty; it holds the correct answer"_s};
        QTest::newRow("eleventh title of a type") << Fault::EleventhTitle << QStringList{
            u"praccomp.dat: key leta: title 11 in record 72; the program stops at the eleventh with \"ERROR - NO TEXT\""_s};
        QTest::newRow("missing sample") << Fault::MissingSample << QStringList{u"Samplenar2.rtf is missing"_s};
        QTest::newRow("missing picture of topic 9") << Fault::MissingPicture << QStringList{u"leta09.png is missing"_s};
    }
    void checkComplaints()
    {
        QFETCH(Fault, fault);
        QTemporaryDir dir;
        test::copyFiles(m_good, dir.path());
        applyFault(dir.path(), fault);
        const data::CheckReport report = data::checkDataDirectory(dir.path());
        QTEST(report.errors, "expected");
    }

    void buildComplaints_data()
    {
        QTest::addColumn<QString>("file");
        QTest::addColumn<QString>("source");
        QTest::addColumn<QString>("from");
        QTest::addColumn<QString>("to");
        QTest::addColumn<QStringList>("expected");
        QTest::newRow("right option not marked")
            << u"rcmc/101.md"_s << kMultipleChoice << u"At night. *"_s << u"At night."_s
            << QStringList{u"src/rcmc/101.md:16: question 2 has no option marked right with \" *\""_s};
        QTest::newRow("two options marked")
            << u"rcmc/101.md"_s << kMultipleChoice << u"C. Long."_s << u"C. Long. *"_s
            << QStringList{u"src/rcmc/101.md:35: a second option marked right in question 4"_s};
        QTest::newRow("key differs from file name")
            << u"rcmc/101.md"_s << kMultipleChoice << u"key: 101"_s << u"key: 102"_s
            << QStringList{u"src/rcmc/101.md:1: key 102 differs from the file name 101.md"_s};
        QTest::newRow("unknown field")
            << u"rcmc/101.md"_s << kMultipleChoice << u"% a note"_s << u"author: me\n% a note"_s
            << QStringList{u"src/rcmc/101.md:3: unknown field \"author\"; this kind has key, title"_s};
        QTest::newRow("character outside the code page")
            << u"rcmc/101.md"_s << kMultipleChoice << u"*old*"_s << u"*old* \u2192"_s
            << QStringList{u"src/rcmc/101.md:7: the character U+2192 (\u2192) is outside the Windows-1252 code page"_s};
        QTest::newRow("gap listed but not marked")
            << u"ueca/101.md"_s << kChoiceCloze << u" ten [10]"_s << u" ten"_s
            << QStringList{u"src/ueca/101.md:8: 10 gaps listed, but the passage marks 9"_s};
        QTest::newRow("only two alternatives")
            << u"ueca/101.md"_s << kChoiceCloze << u"10. a / b / c"_s << u"10. a / b"_s
            << QStringList{u"src/ueca/101.md:18: 2 words; a gap has the right word and two or three wrong ones"_s};
        QTest::newRow("title too long for its field")
            << u"ueec/101.md"_s << kErrorCorrection << u"Fifteen lines"_s << QString(70, u'T')
            << QStringList{u"src/ueec/101.md: Title: 70 characters; the field holds at most 59"_s};
        QTest::newRow("two words in brackets")
            << u"ueec/101.md"_s << kErrorCorrection << u"has [so] a"_s << u"has [so] [a]"_s
            << QStringList{u"src/ueec/101.md:8: 2 words in brackets; a line has at most one extra word"_s};
        QTest::newRow("line too wide for the screen")
            << u"ueec/101.md"_s << kErrorCorrection << u"Line 3 is right"_s << u"Line 3 is right"_s + QString(70, u'!')
            << QStringList{u"src/ueec/101.md:7: 85 characters; a line of at most 80 fits the screen"_s};
        QTest::newRow("sixteen lines")
            << u"ueec/101.md"_s << kErrorCorrection << u"Line 3 is right"_s << u"Line 3 is right\nand so is this"_s
            << QStringList{u"src/ueec/101.md:4: 16 lines; error correction has 15"_s};
        QTest::newRow("conversion: no items")
            << u"uesc/101.md"_s << kConversion << kConversion.mid(kConversion.indexOf(u"@item"_s)) << QString()
            << QStringList{u"src/uesc/101.md: no @item blocks; an exercise has at least one"_s};
        QTest::newRow("conversion: answer of six words")
            << u"uesc/101.md"_s << kConversion << u"[too cold"_s << u"[much too cold"_s
            << QStringList{u"src/uesc/101.md:10: \"much too cold for us to\" is more than five words"_s};
        QTest::newRow("conversion: answer without the word given")
            << u"uesc/101.md"_s << kConversion << u"unless we are quick"_s << u"if we are not quick"_s
            << QStringList{u"src/uesc/101.md:6: \"if we are not quick\" does not use the word given, UNLESS"_s};
        QTest::newRow("conversion: first sentence over 119 characters")
            << u"uesc/101.md"_s << kConversion << u"It was so cold"_s << QString(110, u'x') + u" It was so cold"_s
            << QStringList{u"src/uesc/101.md:9: a sentence of 148 characters; at most 119 fit"_s};
        QTest::newRow("conversion: test of two items")
            << u"uesc/x01.md"_s << kConversion << u"key: 101"_s << u"key: x01"_s
            << QStringList{u"src/uesc/x01.md: 2 @item blocks; a test has 10"_s};
        QTest::newRow("word formation: no sentences")
            << u"uewb/101.md"_s << kWordSentences << kWordSentences.mid(kWordSentences.indexOf(u"1. "_s)) << QString()
            << QStringList{u"src/uewb/101.md:4: no sentences; an exercise has at least one"_s};
        QTest::newRow("word formation: sentence over 119 characters")
            << u"uewb/101.md"_s << kWordSentences << u"It rained"_s << QString(110, u'x') + u" It rained"_s
            << QStringList{u"src/uewb/101.md:6: a sentence of 142 characters; at most 119 fit"_s};
        QTest::newRow("word formation: two gaps in a sentence")
            << u"uewb/101.md"_s << kWordSentences << u"all night"_s << u"[all] night"_s
            << QStringList{u"src/uewb/101.md:6: 2 words in brackets; a sentence has one gap"_s};
        QTest::newRow("word formation: test gap with no slash")
            << u"uewb/x01.md"_s << kWordText << u"3. SUN / sunny"_s << u"3. SUN sunny"_s
            << QStringList{u"src/uewb/x01.md:11: \"SUN sunny\": no \"/\" between the base word and the answer"_s};
        QTest::newRow("word formation: nine gaps in a test")
            << u"uewb/x01.md"_s << kWordText << u" ten [10]"_s << u" ten"_s
            << QStringList{u"src/uewb/x01.md:8: 10 gaps listed, but the passage marks 9"_s};
    }
    void buildComplaints()
    {
        QFETCH(QString, file);
        QFETCH(QString, source);
        QFETCH(QString, from);
        QFETCH(QString, to);
        QTemporaryDir dir;
        QVERIFY(source.contains(from));
        test::writeBytes(dir.filePath(u"src/"_s + file), QString(source).replace(from, to).toUtf8());
        data::Problems problems;
        const bool ok = data::buildDataDirectory(dir.filePath(u"src"_s), dir.filePath(u"out"_s), problems);
        QVERIFY(!ok);
        QTEST(problems, "expected");
        QVERIFY(!QFileInfo::exists(dir.filePath(u"out"_s))); // nothing half-built
    }

    void writingBuildComplaints_data()
    {
        QTest::addColumn<QString>("file");
        QTest::addColumn<QString>("from");
        QTest::addColumn<QString>("to");
        QTest::addColumn<QStringList>("expected");
        QTest::newRow("nine titles") << u"titles-art.md"_s << u"@title\nThe art task number 10"_s << u"The art task number 10"_s
                                     << QStringList{u"src/comp/titles-art.md:1: 9 titles; each type has exactly 10"_s};
        QTest::newRow("title over 639 characters")
            << u"titles-nar.md"_s << u"The nar task number 4,"_s << QString(640, u'x')
            << QStringList{u"src/comp/titles-nar.md: Body: 669 characters; the field holds at most 639"_s};
        QTest::newRow("a picture with a script") << u"leta09.svg"_s << u"<rect"_s << u"<script>alert(1)</script><rect"_s
                                                 << QStringList{u"src/comp/leta09.svg: holds \"<script\"; a picture is plain shapes and text only"_s};
        QTest::newRow("a test sheet without its task") << u"compx01.md"_s << u"task: "_s << u""_s
                                                       << QStringList{u"src/comp/compx01.md:1: expected \"task: the task of the letter\""_s};
    }
    void writingBuildComplaints()
    {
        QFETCH(QString, file);
        QFETCH(QString, from);
        QFETCH(QString, to);
        QTemporaryDir dir;
        test::writeWritingSources(dir.filePath(u"src"_s));
        const QString path = dir.filePath(u"src/comp/"_s + file);
        const QString source = QString::fromUtf8(test::readBytes(path));
        QVERIFY(source.contains(from));
        test::writeBytes(path, QString(source).replace(from, to).toUtf8());
        data::Problems problems;
        QVERIFY(!data::buildDataDirectory(dir.filePath(u"src"_s), dir.filePath(u"out"_s), problems));
        QTEST(problems, "expected");
    }

    void writingIsBuilt()
    {
        // Titles in type order, ten a type, then the test's letter; topic 9's picture in its page and sheet.
        RecordingSound sound;
        FakeSeedSource seeds;
        ProgramState state(sound, seeds);
        state.setDataDir(m_good);
        state.RecordLength = 852;
        QString name = u"praccomp.dat"_s;
        OpenNamedDataFile(state, name);
        CountRecords(state, CountFor::Search);
        QCOMPARE(int(state.RecordCount), 71);
        QCOMPARE(ReadRecord(state, DataFile::Comp, 11),
                 (QStringList{u"nar"_s, u"The nar task number 1, written as an exam question."_s, u"A note of title 1."_s, QString()}));
        QCOMPARE(ReadRecord(state, DataFile::Comp, 71).mid(0, 2),
                 (QStringList{u"x01"_s, u"Write a letter to Jamie. Do not write any addresses."_s}));
        CloseDataFile(state);
        QVERIFY(QString::fromUtf8(test::readBytes(m_good + u"/leta09.htm"_s)).contains(u"src=\"leta09.png\""_s));
        QCOMPARE(QImage(m_good + u"/leta09.png"_s).size(), QSize(1190, 1684));
        QVERIFY(test::readBytes(m_good + u"/leta09.rtf"_s).contains("\\pngblip"));
        for (const char *built : {"compx01.htm", "compx01b.rtf", "letasample.rtf", "Samplebook3.rtf", "leta10.rtf"})
            QVERIFY2(QFileInfo::exists(m_good + u'/' + QString::fromLatin1(built)), built);
        QVERIFY(!QFileInfo::exists(m_good + u"/comments.rtf"_s));
    }

    void buildIsStableAndSorted()
    {
        QTemporaryDir dir;
        // Written in an order that is not the key order: x01 after the practice keys, 101 first.
        for (const QString &key : {u"x01"_s, u"102"_s, u"101"_s})
            test::writeBytes(dir.filePath(u"src/rcmc/"_s + key + u".md"_s),
                             QString(kMultipleChoice).replace(u"key: 101"_s, u"key: "_s + key).toUtf8());
        QVERIFY(test::buildQuietly(dir.filePath(u"src"_s), dir.filePath(u"one"_s)));
        QVERIFY(test::buildQuietly(dir.filePath(u"src"_s), dir.filePath(u"two"_s)));
        const QStringList files = QDir(dir.filePath(u"one"_s)).entryList(QDir::Files);
        QCOMPARE(files.size(), 3 * 4 + 1 + 7); // passage .rtf/.htm and sheet .rtf/.htm each, the data file, clips
        for (const QString &f : files)
            QVERIFY2(test::readBytes(dir.filePath(u"one/"_s + f)) == test::readBytes(dir.filePath(u"two/"_s + f)), qPrintable(f));
        const QByteArray data = test::readBytes(dir.filePath(u"one/pracrcmc.dat"_s));
        QCOMPARE(data.size(), 3 * 836);
        QCOMPARE(data.mid(0, 6), QByteArray("101   "));
        QCOMPARE(data.mid(836, 6), QByteArray("102   "));
        QCOMPARE(data.mid(2 * 836, 6), QByteArray("x01   "));
    }

    void showPrintsFieldsByName()
    {
        QString out;
        QVERIFY(data::showRecord(m_good, u"rcmc"_s, u"102"_s, &out));
        QCOMPARE(out.section(u'\n', 0, 4), u"pracrcmc.dat record 2\nCode     102\nName     rcmc102\nText1    rcmc102q\nText2"_s);
        QVERIFY(out.section(u'\n', 11, 11).startsWith(u"Answers  "_s));
        QVERIFY(!data::showRecord(m_good, u"pracrcmc.dat"_s, u"999"_s, &out));
        QCOMPARE(out, u"pracrcmc.dat: no record has the key 999"_s);
    }

    void builtDocuments_data()
    {
        QTest::addColumn<QString>("file");
        QTest::addColumn<QString>("source");
        QTest::addColumn<QString>("document"); // as a student sees it: the plain text of an .rtf, else the file
        QTest::addColumn<QString>("contains");
        QTest::addColumn<QString>("absent"); // authoring marks that must not show
        QTest::addColumn<QString>("shown");  // part of what `show` prints for the record
        QTest::newRow("question sheet: lettered options, no marks")
            << u"rcmc/101.md"_s << kMultipleChoice << u"rcmc101q.rtf"_s
            << u"1\tWhere did they walk?\n\tA\tTo the old harbour.\n\tB\tTo the station.\n\tC\tTo the park.\n\tD\tTo "
               "school.\n2\tWhen did they go?"_s
            << u"*"_s << u"Answers  ABCD"_s;
        QTest::newRow("passage: heading and text") << u"rcmc/101.md"_s << kMultipleChoice << u"rcmc101.rtf"_s
                                                   << u"A short walk\nWe walked to the old harbour."_s << u"*"_s
                                                   << u"Name     rcmc101\n"_s;
        QTest::newRow("passage as a web page") << u"rcmc/101.md"_s << kMultipleChoice << u"rcmc101.htm"_s
                                               << u"charset=\"utf-8\""_s << u"*old*"_s << u"Text1    rcmc101q\n"_s;
        QTest::newRow("cloze: gaps numbered in the passage")
            << u"ueca/101.md"_s << kChoiceCloze << u"ueca101.rtf"_s << u"Ten gaps\nOne (1) .......... two (2) .........."_s
            << u"["_s << u"Item9    a/b/c/d\nItem10   a/b/c/\nItem11\n"_s;
        QTest::newRow("error correction: the extra words stay in the text")
            << u"ueec/101.md"_s << kErrorCorrection << u"ueec101.txt"_s
            << u"Line 1 has the a word too many\r\nLine 2 has a a word too many\r\nLine 3 is right\r\n"_s << u"["_s
            << u"Item1    the\nItem2    a\nItem3\nItem4    so\n"_s;
    }
    void builtDocuments()
    {
        QFETCH(QString, file);
        QFETCH(QString, source);
        QFETCH(QString, document);
        QFETCH(QString, contains);
        QFETCH(QString, absent);
        QFETCH(QString, shown);
        QTemporaryDir dir;
        test::writeBytes(dir.filePath(u"src/"_s + file), source.toUtf8());
        QVERIFY(test::buildQuietly(dir.filePath(u"src"_s), dir.filePath(u"out"_s)));
        const QString path = dir.filePath(u"out/"_s + document);
        const QString text = document.endsWith(u".rtf"_s) ? plainLines(path).join(u'\n')
                                                           : QString::fromLatin1(test::readBytes(path));
        QVERIFY2(text.contains(contains), qPrintable(text));
        QVERIFY(!text.contains(absent));
        QString out;
        QVERIFY(data::showRecord(dir.filePath(u"out"_s), file.left(4), u"101"_s, &out));
        QVERIFY2(out.contains(shown), qPrintable(out));
    }

    void oneItemKindsWriteARecordPerItem()
    {
        QTemporaryDir dir;
        test::writeBytes(dir.filePath(u"src/uesc/101.md"_s), kConversion.toUtf8());
        test::writeBytes(dir.filePath(u"src/uewb/101.md"_s), kWordSentences.toUtf8());
        test::writeBytes(dir.filePath(u"src/uewb/x01.md"_s), kWordText.toUtf8());
        QVERIFY(test::buildQuietly(dir.filePath(u"src"_s), dir.filePath(u"out"_s)));
        const QString out = dir.filePath(u"out"_s);
        QVERIFY(!QFileInfo::exists(out + u"/pracuewb.dat"_s)); // practice word formation reads the wb files
        QCOMPARE(test::readBytes(out + u"/pracuesc.dat"_s).size(), 2 * 641);
        QString shown;
        QVERIFY(data::showRecord(out, u"uesc"_s, u"101"_s, &shown));
        QVERIFY2(shown.contains(u"Title    We will get wet if we don't hurry.\nText1    We will get wet\nText2    .\n"
                                "Word     UNLESS\nAnswer1  unless we hurry\nAnswer2  unless we are quick\nAnswer3\n"_s),
                 qPrintable(shown));
        const QByteArray wb = test::readBytes(out + u"/wb101"_s);
        QCOMPARE(wb.size(), 2 * 161);
        QCOMPARE(wb.mid(161, 161).simplified(), QByteArray("101 It rained .......... all night. HEAVY heavily"));
        QVERIFY(data::showRecord(out, u"examuewb.dat"_s, u"x01"_s, &shown));
        QVERIFY2(shown.contains(u"Name     uewbx01\nTitle    Ten words\nItem1    SUN/sunny\n"_s), qPrintable(shown));
        QVERIFY(plainLines(out + u"/uewbx01.rtf"_s).join(u'\n').contains(u"One (1) .......... two (2)"_s));
        const data::CheckReport report = data::checkDataDirectory(out);
        QVERIFY(report.coverage.contains(u"10 Word Formation           wb files      1/10"_s));
        QVERIFY(report.coverage.contains(u"examuewb.dat  0/10     0/10     0/10      x01"_s));
    }

    void helpTextIsWrappedForPrinting()
    {
        const QByteArray text = test::readBytes(m_good + u"/helprcmc.txt"_s);
        QVERIFY(text.endsWith("\r\n"));
        const QList<QByteArray> lines = text.split('\n');
        for (const QByteArray &line : lines) {
            QVERIFY2(line.isEmpty() || line.endsWith('\r'), line.constData());
            QVERIFY2(line.size() <= 81, line.constData());
        }
        QVERIFY(text.contains("\r\n- Read the passage.\r\n"));
        QVERIFY(!text.contains("**"));
    }

private:
    QTemporaryDir m_tmp;
    QString m_good; ///< a built data directory from a few bundled sources
};

QTEST_MAIN(TestDataTool)
#include "tst_datatool.moc"
