// The data tool on small sources and data directories: the exact complaints of `check` and
// `build`, what `show` prints, and the documents as a student sees them.

#include "check.h"
#include "datatoolfixture.h"
#include "ui/rtf/rtfreader.h"

#include <QRegularExpression>
#include <QTextDocument>

using namespace sd;
using namespace Qt::StringLiterals;

namespace {

const QString kMultipleChoice = uR"(key: 101
title: A short walk
% a note for authors

@passage
# A short walk
We walked to the *old* harbour.

@question
Where did they walk?
A. To the old harbour. *
B. To the station.
C. To the park.
D. To school.

@question
When did they go?
A. In the morning.
B. At night. *
C. At noon.
D. Never.

@question
Who went?
A. Two friends.
B. A class.
C. A family. *
D. Nobody.

@question
How was it?
A. Cold.
B. Wet.
C. Long.
D. Short. *
)"_s;

const QString kChoiceCloze = uR"(key: 101
title: Ten gaps

@passage
# Ten gaps
One [1] two [2] three [3] four [4] five [5] six [6] seven [7] eight [8] nine [9] ten [10].

@gaps
1. a / b / c / d
2. a / b / c / d
3. a / b / c / d
4. a / b / c / d
5. a / b / c / d
6. a / b / c / d
7. a / b / c / d
8. a / b / c / d
9. a / b / c / d
10. a / b / c
)"_s;

const QString kErrorCorrection = uR"(key: 101
title: Fifteen lines

@lines
Line one has [the] a word too many
Line two has [a] a word too many
Line three is right
Line four has [so] a word too many
Line five has [to] a word too many
Line six is right
Line seven has [it] a word too many
Line eight has [been] a word too many
Line nine is right
Line ten has [more] a word too many
Line eleven has [are] a word too many
Line twelve is right
Line thirteen has [by] a word too many
Line fourteen has [of] a word too many
Line fifteen has [up] a word too many
)"_s;

enum class Fault {
    None, ShortFile, DuplicateKey, MissingPassage, OverlongField, Utf8Text, LongAnswerKey, MalformedKey,
    WordNotInLine, TooManyLines, UnreadableSheet, MissingSound, MissingHelp
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
    void initTestCase();
    void checkComplaints_data();
    void checkComplaints();
    void buildComplaints_data();
    void buildComplaints();
    void buildIsStableAndSorted();
    void showPrintsFieldsByName();
    void questionSheetHasLetteredOptionsWithoutMarks();
    void clozeGapsAreNumberedInThePassage();
    void errorCorrectionTextKeepsTheExtraWords();
    void helpTextIsWrappedForPrinting();

private:
    QTemporaryDir m_tmp;
    QString m_good; ///< a built data directory from a few bundled sources
};

void TestDataTool::initTestCase()
{
    const QString src = m_tmp.filePath(u"content"_s);
    test::copyContent(src, {u"rcmc/101.md"_s, u"rcmc/102.md"_s, u"ueec/101.md"_s, u"help/helpgen.md"_s,
                            u"help/helpprog.md"_s, u"help/helprcmc.md"_s, u"help/helpueec.md"_s});
    m_good = m_tmp.filePath(u"data"_s);
    QVERIFY(test::buildQuietly(src, m_good));
}

void TestDataTool::checkComplaints_data()
{
    QTest::addColumn<Fault>("fault");
    QTest::addColumn<QStringList>("expected");
    QTest::newRow("good directory") << Fault::None << QStringList();
    QTest::newRow("short file") << Fault::ShortFile << QStringList{
        u"pracrcmc.dat: 1172 bytes is not a whole number of 836-byte records; the last record has only 336 bytes"_s};
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
}

void TestDataTool::checkComplaints()
{
    QFETCH(Fault, fault);
    QFETCH(QStringList, expected);
    QTemporaryDir dir;
    for (const QString &name : QDir(m_good).entryList(QDir::Files))
        QFile::copy(m_good + u'/' + name, dir.filePath(name));
    applyFault(dir.path(), fault);
    const data::CheckReport report = data::checkDataDirectory(dir.path());
    QCOMPARE(report.errors, expected);
}

void TestDataTool::buildComplaints_data()
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
        << u"ueec/101.md"_s << kErrorCorrection << u"Line three is right"_s << u"Line three is right"_s + QString(66, u'!')
        << QStringList{u"src/ueec/101.md:7: 85 characters; a line of at most 80 fits the screen"_s};
    QTest::newRow("sixteen lines")
        << u"ueec/101.md"_s << kErrorCorrection << u"Line three is right"_s << u"Line three is right\nand so is this"_s
        << QStringList{u"src/ueec/101.md:4: 16 lines; error correction has 15"_s};
}

void TestDataTool::buildComplaints()
{
    QFETCH(QString, file);
    QFETCH(QString, source);
    QFETCH(QString, from);
    QFETCH(QString, to);
    QFETCH(QStringList, expected);
    QTemporaryDir dir;
    QVERIFY(source.contains(from));
    test::writeBytes(dir.filePath(u"src/"_s + file), QString(source).replace(from, to).toUtf8());
    data::Problems problems;
    const bool ok = data::buildDataDirectory(dir.filePath(u"src"_s), dir.filePath(u"out"_s), problems);
    QVERIFY(!ok);
    QCOMPARE(problems, expected);
    QVERIFY(!QFileInfo::exists(dir.filePath(u"out"_s))); // nothing half-built
}

void TestDataTool::buildIsStableAndSorted()
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

void TestDataTool::showPrintsFieldsByName()
{
    QString out;
    QVERIFY(data::showRecord(m_good, u"rcmc"_s, u"102"_s, &out));
    const QStringList lines = out.split(u'\n');
    QCOMPARE(lines.at(0), u"pracrcmc.dat record 2"_s);
    QCOMPARE(lines.at(1), u"Code     102"_s);
    QCOMPARE(lines.at(2), u"Name     rcmc102"_s);
    QCOMPARE(lines.at(3), u"Text1    rcmc102q"_s);
    QCOMPARE(lines.at(4), u"Text2"_s);
    QVERIFY(lines.at(11).startsWith(u"Answers  "_s));
    QVERIFY(!data::showRecord(m_good, u"pracrcmc.dat"_s, u"999"_s, &out));
    QCOMPARE(out, u"pracrcmc.dat: no record has the key 999"_s);
}

void TestDataTool::questionSheetHasLetteredOptionsWithoutMarks()
{
    QTemporaryDir dir;
    test::writeBytes(dir.filePath(u"src/rcmc/101.md"_s), kMultipleChoice.toUtf8());
    QVERIFY(test::buildQuietly(dir.filePath(u"src"_s), dir.filePath(u"out"_s)));
    const QStringList sheet = plainLines(dir.filePath(u"out/rcmc101q.rtf"_s));
    QCOMPARE(sheet.mid(0, 6), (QStringList{u"1\tWhere did they walk?"_s, u"\tA\tTo the old harbour."_s,
                                           u"\tB\tTo the station."_s, u"\tC\tTo the park."_s, u"\tD\tTo school."_s,
                                           u"2\tWhen did they go?"_s}));
    QVERIFY(!sheet.join(u'\n').contains(u'*'));
    QString out;
    QVERIFY(data::showRecord(dir.filePath(u"out"_s), u"rcmc"_s, u"101"_s, &out));
    QVERIFY(out.contains(u"Answers  ABCD"_s));
    QCOMPARE(plainLines(dir.filePath(u"out/rcmc101.rtf"_s)), (QStringList{u"A short walk"_s, u"We walked to the old harbour."_s}));
    QVERIFY(test::readBytes(dir.filePath(u"out/rcmc101.htm"_s)).contains("charset=\"utf-8\""));
}

void TestDataTool::clozeGapsAreNumberedInThePassage()
{
    QTemporaryDir dir;
    test::writeBytes(dir.filePath(u"src/ueca/101.md"_s), kChoiceCloze.toUtf8());
    QVERIFY(test::buildQuietly(dir.filePath(u"src"_s), dir.filePath(u"out"_s)));
    const QString passage = plainLines(dir.filePath(u"out/ueca101.rtf"_s)).join(u'\n');
    QVERIFY(passage.startsWith(u"Ten gaps\nOne (1) .......... two (2) .........."_s));
    QVERIFY(!passage.contains(u'['));
    QString out;
    QVERIFY(data::showRecord(dir.filePath(u"out"_s), u"ueca"_s, u"101"_s, &out));
    QVERIFY(out.contains(u"Item9    a/b/c/d\nItem10   a/b/c/\nItem11\n"_s));
}

void TestDataTool::errorCorrectionTextKeepsTheExtraWords()
{
    QTemporaryDir dir;
    test::writeBytes(dir.filePath(u"src/ueec/101.md"_s), kErrorCorrection.toUtf8());
    QVERIFY(test::buildQuietly(dir.filePath(u"src"_s), dir.filePath(u"out"_s)));
    const QByteArray text = test::readBytes(dir.filePath(u"out/ueec101.txt"_s));
    QVERIFY(text.startsWith("Line one has the a word too many\r\nLine two has a a word too many\r\nLine three is right\r\n"));
    QCOMPARE(text.count("\r\n"), 15);
    QVERIFY(!text.contains('['));
    QString out;
    QVERIFY(data::showRecord(dir.filePath(u"out"_s), u"ueec"_s, u"101"_s, &out));
    QVERIFY(out.contains(u"Item1    the\nItem2    a\nItem3\nItem4    so\n"_s));
}

void TestDataTool::helpTextIsWrappedForPrinting()
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

QTEST_MAIN(TestDataTool)
#include "tst_datatool.moc"
