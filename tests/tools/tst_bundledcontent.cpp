// The bundled content: built from content/, it passes the checker, and every exercise answered
// with its own key scores full marks with "Well done!" through the program's scoring code.

#include "check.h"
#include "datatoolfixture.h"
#include "frame/core/services.h"
#include "frame/core/state.h"
#include "reading/core/readingscore.h"
#include "recordrules.h"
#include "useofenglish/core/conversion.h"
#include "useofenglish/core/gapscoring.h"

#include <QRegularExpression>

#include <algorithm>

using namespace sd;
using namespace Qt::StringLiterals;

namespace {

const QList<std::pair<int, DataFile>> kKinds = {{1, DataFile::Rche}, {2, DataFile::Rcmc}, {3, DataFile::Rcre},
                                                {4, DataFile::Rcma}, {6, DataFile::Ueca}, {7, DataFile::Uecb},
                                                {9, DataFile::Ueec}};

/// The program's state on a data directory, reading records as the screens do.
struct Program
{
    RecordingSound sound;
    FakeSeedSource seeds;
    ProgramState state{sound, seeds};

    explicit Program(const QString &dir) { state.setDataDir(dir); }

    QStringList record(DataFile file, int n, QString name = {})
    {
        if (name.isEmpty())
            name = QString::fromLatin1(dataFileInfo(file).fileName);
        state.RecordLength = dataFileInfo(file).layout.length;
        OpenNamedDataFile(state, name);
        const QStringList fields = ReadRecord(state, file, n);
        CloseDataFile(state);
        return fields;
    }
};

struct Result
{
    int score = 0;
    int total = 0;
    QString verdict;
};

/// Scores the exercise with the key's own answers, or with nothing typed.
Result answer(Program &p, int kind, DataFile file, int n, bool withKey)
{
    if (kind <= 4) {
        const RecordB b = RecordB::from(p.record(file, n));
        const RecordA a = RecordA::from(p.record(file, n));
        const QStringList keys = kind == 4 ? splitSlashKey(b.Answers)
                                           : splitLetterKey(a.Answers, kind == 1 || kind == 3);
        QStringList answers;
        for (const QString &k : keys)
            answers << (withKey ? readingAnswer(k) : QString());
        const ReadingScore s = scoreReading(answers, keys);
        return {s.score, s.total, readingVerdict(s.total, s.score).comment};
    }
    const RecordD r = RecordD::from(p.record(file, n));
    if (kind == 6)
        PrepareChoiceGaps(p.state, kind, r.Item);
    else if (kind == 7)
        PrepareOpenGaps(p.state, kind, r.Item);
    else
        PrepareLineGaps(p.state, kind, r.Item);
    QStringList answers;
    for (int g = 1; g <= 15; ++g)
        answers << (withKey ? r.Item[g].section(u'/', 0, 0) : QString());
    TakeAnswers(p.state, kind, answers);
    ScoreGaps(p.state, kind);
    return {p.state.Score, p.state.GapCount, p.state.VerdictTexts[p.state.VerdictIndex]};
}

} // namespace

class TestBundledContent : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        m_data = m_tmp.filePath(u"data"_s);
        QVERIFY(test::buildQuietly(test::contentDir(), m_data));
    }

    void checkFindsNoErrors()
    {
        const data::CheckReport report = data::checkDataDirectory(m_data);
        // Until the Writing content is in, the one thing missing is its data file.
        const QStringList expected = QFileInfo::exists(test::contentDir() + u"/comp"_s)
                                         ? QStringList()
                                         : QStringList{u"praccomp.dat: is missing; its menu entries would all say \"No file\""_s};
        QCOMPARE(report.errors, expected);
        if (expected.isEmpty())
            QVERIFY2(QRegularExpression(u"praccomp.dat\\s+70 titles\\s+x01"_s).match(report.coverage).hasMatch(),
                     qPrintable(report.coverage));
        for (const auto &[kind, file] : kKinds) {
            const QString name = QString::fromLatin1(dataFileInfo(file).fileName);
            const QRegularExpression row(name + uR"(\s+10/10\s+10/10\s+10/10\s+x01)"_s);
            QVERIFY2(row.match(report.coverage).hasMatch(), qPrintable(report.coverage));
        }
    }

    void fullMarksWithTheKeyNoneWithNothing_data()
    {
        QTest::addColumn<int>("kind");
        QTest::addColumn<DataFile>("file");
        QTest::addColumn<int>("record");
        for (const auto &[kind, file] : kKinds) {
            const qint64 count = QFileInfo(m_data + u'/' + QString::fromLatin1(dataFileInfo(file).fileName)).size()
                                 / dataFileInfo(file).layout.length;
            QVERIFY(count >= 11);
            Program p(m_data);
            for (int n = 1; n <= count; ++n) {
                const QString key = p.record(file, n).value(0);
                QTest::addRow("%s %s", qPrintable(data::kindCode(file)), qPrintable(key)) << kind << file << n;
            }
        }
    }
    void fullMarksWithTheKeyNoneWithNothing()
    {
        QFETCH(int, kind);
        QFETCH(DataFile, file);
        QFETCH(int, record);
        Program withKey(m_data), empty(m_data);
        const Result r = answer(withKey, kind, file, record, true);
        QVERIFY(r.total >= 4);
        QCOMPARE(r.score, r.total);
        QCOMPARE(r.verdict, u"Well done!"_s);
        const Result none = answer(empty, kind, file, record, false);
        if (kind == 9) {
            // An empty box says "this line is correct": only the three to five correct lines score.
            QVERIFY2(none.score >= 3 && none.score <= 5, qPrintable(QString::number(none.score)));
            return;
        }
        QCOMPARE(none.score, 0);
        QCOMPARE(none.verdict, u"What happened?"_s);
    }

    void oneItemKindsCoveredByTheChecker()
    {
        const QString coverage = data::checkDataDirectory(m_data).coverage;
        for (const QString &row : {u"pracuesc.dat  10/10"_s, u"wb files      10/10"_s, u"examuewb.dat  0/10     0/10     0/10      x01"_s})
            QVERIFY2(coverage.contains(row), qPrintable(coverage));
    }

    void sentenceConversionEveryAnswerIsRight()
    {
        Program p(m_data);
        const qint64 count = QFileInfo(m_data + u"/pracuesc.dat"_s).size() / 641;
        QMap<QString, int> items;
        for (int n = 1; n <= count; ++n) {
            const RecordE r = RecordE::from(p.record(DataFile::Uesc, n));
            ++items[r.Code];
            const Alternatives alts{r.Answer[1], r.Answer[2], r.Answer[3], r.Answer[4]};
            for (const QString &a : alts)
                if (!a.isEmpty())
                    QVERIFY2(JudgeItemAnswer(u" "_s + a.toUpper() + u" "_s, r.Answer[1], alts), qPrintable(r.Code + u": "_s + a));
            QVERIFY(!JudgeItemAnswer(QString(), r.Answer[1], alts));
            QVERIFY2(!JudgeItemAnswer(r.Word, r.Answer[1], alts), qPrintable(r.Code + u": "_s + r.Word));
        }
        for (auto it = items.cbegin(); it != items.cend(); ++it) {
            if (it.key().startsWith(u'x'))
                QCOMPARE(it.value(), 10);
            else if (it.key().startsWith(u'1'))
                QVERIFY2(it.value() >= 5 && it.value() <= 8, qPrintable(it.key()));
        }
    }

    void wordFormationEveryAnswerIsRight()
    {
        Program p(m_data);
        for (const QString &name : QDir(m_data).entryList({u"wb1??"_s}, QDir::Files)) {
            const qint64 count = QFileInfo(m_data + u'/' + name).size() / 161;
            QVERIFY2(count >= 10 && count <= 12, qPrintable(name));
            for (int n = 1; n <= count; ++n) {
                const RecordG r = RecordG::from(p.record(DataFile::Uewb, n, name));
                QCOMPARE(u"wb"_s + r.Code, name);
                QVERIFY(r.Text.contains(u".........."_s));
                QVERIFY(JudgeItemAnswer(u" "_s + r.Answer.toLower() + u" "_s, r.Answer, {r.Answer}));
                QVERIFY2(!JudgeItemAnswer(r.Word, r.Answer, {r.Answer}), qPrintable(name + u": "_s + r.Word));
            }
        }
        const RecordH x = RecordH::from(p.record(DataFile::ExamUewb, 1));
        QCOMPARE(x.Code, u"x01"_s);
        for (int g = 1; g <= 10; ++g)
            QVERIFY2(x.Item[g].section(u'/', 1) != x.Item[g].section(u'/', 0, 0).toLower(), qPrintable(x.Item[g]));
    }

    void errorCorrectionTextsReadAsFifteenNumberedLines()
    {
        for (const QString &name : QDir(m_data).entryList({u"ueec*.txt"_s})) {
            const QStringList lines = ReadNumberedLines(m_data, name);
            QCOMPARE(lines.size(), 15);
            for (int i = 0; i < 15; ++i)
                QVERIFY2(lines.at(i).startsWith(QString::number(i + 1) + u". "_s), qPrintable(lines.at(i)));
        }
    }

    void everyExerciseHasASubjectAndATitleOfItsOwn()
    {
        // The subjects list names every exercise under its own title, and no title is used twice.
        QFile list(test::contentDir() + u"/subjects.md"_s);
        QVERIFY(list.open(QIODevice::ReadOnly | QIODevice::Text));
        QHash<QString, QString> listed; // "rcmc 201" -> title
        const QRegularExpression line(uR"(^(\w+) (\w+) \| (.+?) \| (.+)$)"_s);
        for (const QString &l : QString::fromUtf8(list.readAll()).split(u'\n')) {
            const QRegularExpressionMatch m = line.match(l);
            if (m.hasMatch())
                listed.insert(m.captured(1) + u' ' + m.captured(2), m.captured(3));
        }
        QHash<QString, QString> titles; // title -> exercise
        const QDir content(test::contentDir());
        for (const QString &kind : content.entryList(QDir::Dirs | QDir::NoDotAndDotDot)) {
            if (kind == u"help"_s || kind == u"comp"_s)
                continue;
            for (const QString &file : QDir(content.filePath(kind)).entryList({u"*.md"_s})) {
                const QString exercise = kind + u' ' + file.chopped(3);
                QFile f(content.filePath(kind + u'/' + file));
                QVERIFY(f.open(QIODevice::ReadOnly | QIODevice::Text));
                const QString title = QRegularExpression(u"^title: *(.+)$"_s, QRegularExpression::MultilineOption)
                                          .match(QString::fromUtf8(f.readAll()))
                                          .captured(1)
                                          .trimmed();
                QVERIFY2(listed.contains(exercise), qPrintable(exercise + u" is not in content/subjects.md"_s));
                QCOMPARE(listed.value(exercise), title);
                QVERIFY2(!titles.contains(title.toLower()),
                         qPrintable(exercise + u" has the title of "_s + titles.value(title.toLower())));
                titles.insert(title.toLower(), exercise);
            }
        }
    }

    void everyWritingTaskHasASubject()
    {
        // Each composition title ("comp nar3"), letter task with its sheet ("comp leta03") and test letter ("compx x03")
        // has its line; the samples answer the fixed example subjects and have none.
        QFile list(test::contentDir() + u"/subjects.md"_s);
        QVERIFY(list.open(QIODevice::ReadOnly | QIODevice::Text));
        const QString subjects = QString::fromUtf8(list.readAll());
        const auto listed = [&](const QString &entry) { return subjects.contains(u'\n' + entry + u" | "_s); };
        const QDir comp(test::contentDir() + u"/comp"_s);
        for (const QString &file : comp.entryList({u"titles-*.md"_s})) {
            QFile f(comp.filePath(file));
            QVERIFY(f.open(QIODevice::ReadOnly | QIODevice::Text));
            const qsizetype count = QString::fromUtf8(f.readAll()).count(u"\n@title"_s);
            const QString type = file.mid(7).chopped(3);
            for (int n = 1; n <= count; ++n) {
                // A letter's title shares its line with its task sheet, "comp leta03".
                const QString entry = u"comp "_s + type
                                      + (type == u"leta"_s ? u"%1"_s.arg(n, 2, 10, QLatin1Char('0')) : QString::number(n));
                QVERIFY2(listed(entry), qPrintable(entry + u" is not in content/subjects.md"_s));
            }
        }
        for (const QString &file : comp.entryList({u"leta??.md"_s, u"compx??.md"_s})) {
            const QString entry = file.startsWith(u"leta"_s) ? u"comp "_s + file.chopped(3) : u"compx x"_s + file.mid(5, 2);
            QVERIFY2(listed(entry), qPrintable(entry + u" is not in content/subjects.md"_s));
        }
    }

    void rightOptionIsNotUsuallyTheLongest_data()
    {
        QTest::addColumn<QString>("kind");
        QTest::newRow("reading multiple choice") << u"rcmc"_s;
        QTest::newRow("multiple-choice cloze") << u"ueca"_s;
    }
    void rightOptionIsNotUsuallyTheLongest()
    {
        // A student who always picks the longest option must do no better than chance (one in four).
        QFETCH(QString, kind);
        int questions = 0, longest = 0;
        const QDir dir(test::contentDir() + u'/' + kind);
        for (const QString &file : dir.entryList({u"*.md"_s})) {
            QFile f(dir.filePath(file));
            QVERIFY(f.open(QIODevice::ReadOnly | QIODevice::Text));
            const QString text = QString::fromUtf8(f.readAll());
            QList<QStringList> sets; // the right option first
            if (kind == u"ueca"_s) {
                const QRegularExpression gap(uR"(^\d+\. (.+)$)"_s, QRegularExpression::MultilineOption);
                for (auto it = gap.globalMatch(text.section(u"@gaps"_s, 1)); it.hasNext();)
                    sets << it.next().captured(1).split(u" / "_s);
            } else {
                const QRegularExpression option(uR"(^[A-G]\. (.+)$)"_s, QRegularExpression::MultilineOption);
                for (const QString &block : text.split(u"@question"_s).mid(1)) {
                    QStringList options;
                    for (auto it = option.globalMatch(block); it.hasNext();) {
                        const QString o = it.next().captured(1).trimmed();
                        o.endsWith(u" *"_s) ? options.prepend(o.chopped(2)) : options.append(o);
                    }
                    sets << options;
                }
            }
            for (const QStringList &options : std::as_const(sets)) {
                ++questions;
                const auto lengths = [](const QString &a, const QString &b) { return a.size() < b.size(); };
                if (options.first().size() >= std::max_element(options.cbegin(), options.cend(), lengths)->size())
                    ++longest;
            }
        }
        QVERIFY(questions > 100);
        QVERIFY2(longest * 4 <= questions, qPrintable(u"%1 of %2"_s.arg(longest).arg(questions)));
    }

private:
    QTemporaryDir m_tmp;
    QString m_data;
};

QTEST_MAIN(TestBundledContent)
#include "tst_bundledcontent.moc"
