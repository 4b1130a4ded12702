// The one-item run of word formation and sentence conversion without screens: reading the
// sentences and items, drawing each once, and scoring an item at most once.

#include "frame/core/datafiles.h"
#include "frame/core/services.h"
#include "frame/core/state.h"
#include "useofenglish/core/itemrun.h"

#include <QSet>
#include <QTemporaryDir>
#include <QTest>

using namespace sd;
using namespace Qt::StringLiterals;

namespace {

struct Program
{
    RecordingSound sound;
    FakeSeedSource seeds;
    ProgramState state{sound, seeds};
};

void writeRecords(const QString &path, DataFile file, const QList<QStringList> &records)
{
    QByteArray bytes;
    for (const QStringList &r : records)
        bytes += encodeRecord(dataFileInfo(file).layout, r);
    QFile f(path);
    QVERIFY(f.open(QIODevice::WriteOnly));
    f.write(bytes);
}

/// A word-formation file of n sentences; sentence i has the answer "answer<i>".
void writeSentences(const QString &path, int n)
{
    QList<QStringList> records;
    for (int i = 1; i <= n; ++i)
        records << QStringList{u"203"_s, u"Sentence %1 with a .......... gap."_s.arg(i), u"WORD"_s, u"answer%1"_s.arg(i)};
    writeRecords(path, DataFile::Uewb, records);
}

} // namespace

class TestItemRun : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QVERIFY(m_dir.isValid()); }

    void asksEachSentenceOnce_data()
    {
        QTest::addColumn<int>("sentences");
        QTest::addColumn<int>("asked");
        QTest::newRow("seven sentences, seven asked") << 7 << 7;
        QTest::newRow("ten sentences") << 10 << 10;
        QTest::newRow("twenty-five sentences, ten asked") << 25 << 10;
        QTest::newRow("one sentence") << 1 << 1;
    }
    void asksEachSentenceOnce()
    {
        QFETCH(int, sentences);
        QFETCH(int, asked);
        writeSentences(m_dir.filePath(u"wb203"_s), sentences);
        Program p;
        p.state.setDataDir(m_dir.path());
        ItemRun run;
        run.start(p.state, ReadWordSentences(p.state, u"2"_s, u"03"_s));
        QCOMPARE(int(p.state.WordFormationRecordCount), sentences);
        QCOMPARE(run.questionCount(), asked);
        QSet<QString> seen{run.current().prompt};
        while (run.next(p.state))
            seen.insert(run.current().prompt);
        QCOMPARE(run.position(), asked);
        QCOMPARE(QuestionLine(run.position(), run.questionCount()), u"Question %1 of %1"_s.arg(asked));
        QCOMPARE(seen.size(), asked); // none twice
        QVERIFY(!p.state.Files.handle().isOpen());
    }

    void missingOrEmptyFileIsNoFile_data()
    {
        QTest::addColumn<bool>("exists");
        QTest::newRow("missing") << false;
        QTest::newRow("empty") << true;
    }
    void missingOrEmptyFileIsNoFile()
    {
        QFETCH(bool, exists);
        const QString path = m_dir.filePath(u"wb105"_s);
        QFile::remove(path);
        if (exists)
            writeRecords(path, DataFile::Uewb, {});
        Program p;
        p.state.setDataDir(m_dir.path());
        try {
            ReadWordSentences(p.state, u"1"_s, u"05"_s);
            QFAIL("no error");
        } catch (const ProgramError &e) {
            QCOMPARE(e.message(), u"No file"_s);
        }
        QCOMPARE(QFileInfo::exists(path), exists); // never created
    }

    void rightAnswerScoresOnce()
    {
        writeSentences(m_dir.filePath(u"wb101"_s), 3);
        Program p;
        p.state.setDataDir(m_dir.path());
        ItemRun run;
        run.start(p.state, ReadWordSentences(p.state, u"1"_s, u"01"_s));
        const QString key = run.current().answer;
        QVERIFY(!run.check(u"wrong"_s));
        QCOMPARE(run.score(), 0);
        QVERIFY(run.check(u"  "_s + key.toUpper() + u" "_s));
        QVERIFY(run.check(key));
        QCOMPARE(run.score(), 1);
        QVERIFY(!run.check(QString()));
        QVERIFY(!run.current().right);
        QCOMPARE(run.score(), 1);
        QVERIFY(run.next(p.state));
        QVERIFY(run.check(run.current().answer));
        QCOMPARE(run.score(), 2);
        QCOMPARE(ItemScoreLine(run.score(), run.questionCount()), u"Score: 2 out of 3"_s);
    }

    void conversionItemsOfOneKeyInFileOrder()
    {
        const auto item = [](const QString &key, const QString &first, const QString &a1, const QString &a2) {
            return QStringList{key, first, u"We will get wet"_s, u"soon."_s, u"UNLESS"_s, a1, a2, QString(), QString(), QString()};
        };
        writeRecords(m_dir.filePath(u"pracuesc.dat"_s), DataFile::Uesc,
                     {item(u"101"_s, u"One."_s, u"unless we hurry"_s, QString()), item(u"102"_s, u"Other."_s, u"x"_s, QString()),
                      item(u"101"_s, u"Two."_s, u"cannot go"_s, u"Did Not"_s)});
        Program p;
        p.state.setDataDir(m_dir.path());
        const QList<OneItem> items = ReadConversionItems(p.state, u"101"_s);
        QCOMPARE(items.size(), 2);
        QCOMPARE(items.at(0).prompt, u"One."_s);
        QCOMPARE(items.at(1).prompt, u"Two."_s);
        QCOMPARE(int(p.state.ConversionRecordCount), 3);
        QVERIFY(ReadConversionItems(p.state, u"310"_s).isEmpty());

        ItemRun run;
        run.start(p.state, items);
        if (run.current().prompt != u"Two."_s)
            run.next(p.state);
        QVERIFY(run.check(u"can't go"_s));
        QVERIFY(run.check(u"did not"_s)); // an alternative in another case
        QCOMPARE(run.score(), 1);
    }

    void conversionWithoutItsFileIsNoFile()
    {
        QTemporaryDir empty;
        Program p;
        p.state.setDataDir(empty.path());
        QVERIFY_THROWS_EXCEPTION(ProgramError, ReadConversionItems(p.state, u"101"_s));
        QVERIFY(!QFileInfo::exists(empty.filePath(u"pracuesc.dat"_s)));
    }

private:
    QTemporaryDir m_dir;
};

QTEST_GUILESS_MAIN(TestItemRun)
#include "tst_itemrun.moc"
