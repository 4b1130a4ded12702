// End-to-end runs of the real program through its script mode, on a small data directory.

#include "reading/core/readingscore.h"
#include "readingdata.h"

#include <QGuiApplication>
#include <QPalette>
#include <QTemporaryDir>
#include <QTest>

using namespace sd;
using namespace Qt::StringLiterals;

namespace {
QString practice(int kind, int level, int exercise, const QStringList &typed)
{
    QString s = u"click lblPrac\nclick %1\nclick lblLevel%2\nclick lblEx%3\n"_s.arg(test::readingKindLabel(kind))
                    .arg(level)
                    .arg(exercise);
    for (int i = 1; i <= typed.size(); ++i)
        s += u"type Text%1 %2\n"_s.arg(i).arg(typed.at(i - 1));
    return s;
}

/// Text of a control as the n-th dump (from 0) saw it.
QString dumpedText(const test::ScriptRun &run, int n, const QString &screen, const QString &control)
{
    return run.control(screen, control, n).value(u"text"_s).toString();
}
} // namespace

class TestReadingEndToEnd : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { test::writeReadingExercises(dir); }
    void practiceRun_data()
    {
        QTest::addColumn<int>("kind");
        QTest::addColumn<int>("level");
        QTest::addColumn<int>("exercise");
        QTest::addColumn<QStringList>("typed");
        QTest::addColumn<QString>("score");
        QTest::addColumn<QString>("comment");
        QTest::addColumn<QString>("sound");
        QTest::addColumn<QString>("right"); // per question: Y in the window-text colour, N in red
        QTest::newRow("typical: level 2, exercise 7")
            << 2 << 2 << 7 << QStringList{u"b"_s, u"B"_s, u"a"_s, u"A"_s, u"c"_s, u"D"_s} << u"5 out of 6"_s
            << u"A near miss - only one wrong"_s << u"happychime.wav"_s << u"YYYYYN"_s;
        QTest::newRow("perfect score") << 2 << 2 << 7 << QStringList{u"B"_s, u"B"_s, u"A"_s, u"A"_s, u"C"_s, u"B"_s}
                                       << u"6 out of 6"_s << u"Well done!"_s << u"fanfare1.wav"_s << u"YYYYYY"_s;
        QTest::newRow("reconstruction") << 3 << 1 << 1 << QStringList{u"C"_s, u"A"_s, u"E"_s, u"B"_s, u"F"_s}
                                        << u"4 out of 5"_s << u"A near miss - only one wrong"_s << u"happychime.wav"_s
                                        << u"YYYYN"_s;
        QTest::newRow("headings") << 1 << 1 << 1 << QStringList{u"b"_s, u"d"_s, u"a"_s, u"f"_s, u"c"_s, u"e"_s}
                                  << u"6 out of 6"_s << u"Well done!"_s << u"fanfare1.wav"_s << u"YYYYYY"_s;
        QTest::newRow("matching") << 4 << 1 << 1 << QStringList{u"B"_s, u"C"_s, u"A"_s, u"D"_s} << u"2 out of 5"_s
                                  << u"Sorry, only some answers correct."_s << u"chord.wav"_s << u"YNNN"_s;
    }
    void practiceRun()
    {
        QFETCH(int, kind);
        QFETCH(int, level);
        QFETCH(int, exercise);
        QFETCH(QStringList, typed);
        QFETCH(QString, score);
        QFETCH(QString, right);
        const QString code = readingScreenCode(kind), window = readingCheckScreenCode(kind);
        const test::ScriptRun run = test::runScript(dir.path(), practice(kind, level, exercise, typed)
                                                                    + u"click Check\ndump\nclick seecorrect\ndump\nclick Quit\ndump\n"_s);
        QCOMPARE(run.exitCode, 0);
        QCOMPARE(dumpedText(run, 0, code, u"lblExid"_s), u"LEVEL %1   Exercise %2"_s.arg(level).arg(exercise));
        QCOMPARE(dumpedText(run, 0, window, u"lblScore"_s), score);
        QTEST(dumpedText(run, 0, window, u"Label4"_s), "comment");
        QCOMPARE(run.control(window, u"tryagain"_s, 0)[u"visible"_s].toBool(), right.contains(u'N'));
        QTEST(run.eventNames(u"sound"_s).join(u' '), "sound");
        QCOMPARE(run.eventNames(u"closed"_s).value(0), window);

        QCOMPARE(dumpedText(run, 1, code, u"lblScore"_s), u"Score: "_s + score);
        const QString windowText = QGuiApplication::palette().color(QPalette::WindowText).name();
        for (int i = 1; i <= right.size(); ++i) {
            const QJsonObject key = run.control(code, u"lblAnswer%1"_s.arg(i), 1);
            QVERIFY(key[u"visible"_s].toBool());
            QCOMPARE(key[u"color"_s].toString(), right.at(i - 1) == u'Y' ? windowText : u"#b00000"_s);
        }
        QVERIFY(!run.control(u"Pracchoice"_s, u"lblSelect1"_s, 2).isEmpty());
    }

    void missingPassage()
    {
        const test::ScriptRun run = test::runScript(dir.path(), practice(2, 1, 2, {}) + u"dump\nclick Quit\ndump\n"_s);
        QCOMPARE(run.exitCode, 0);
        QCOMPARE(dumpedText(run, 0, u"rcmc"_s, u"lblExid"_s), u"ERROR"_s);
        QCOMPARE(dumpedText(run, 0, u"rcmc"_s, u"lblInstruction"_s), u"NO TEXT"_s);
        QVERIFY(run.eventNames(u"beep"_s).isEmpty());
        QVERIFY(!run.control(u"Pracchoice"_s, u"lblSelect1"_s, 1).isEmpty());
    }

    void automationDoesWhatAStudentCan()
    {
        QTemporaryDir out;
        const QString pdf = out.filePath(u"passage.pdf"_s);
        const test::ScriptRun run = test::runScript(dir.path(), practice(2, 1, 1, {u"b"_s}) + u"hover Check\n"
                                                                   "dump\n"
                                                                   "hover lblCheck\n"
                                                                   "dump\n"
                                                                   "leave\n"
                                                                   "dump\n"
                                                                   "press Check\n"
                                                                   "dump\n"
                                                                   "leave\n"
                                                                   "type RichTextBox1 scribble\n"
                                                                   "key Text1 Tab\n"
                                                                   "key Tab\n"
                                                                   "dump\n"
                                                                   "save-as "_s + pdf + u"\n"
                                                                   "click Printing\n"
                                                                   "type lblCheck b\n"_s);
        auto picture = [&](int n) { return run.control(u"rcmc"_s, u"Check"_s, n).value(u"picture"_s).toString(); };
        // The button stays lit over its caption, goes back on the background, and shows its press.
        QCOMPARE(picture(0), u"check-lit"_s);
        QCOMPARE(picture(1), u"check-lit"_s);
        QCOMPARE(picture(2), u"check"_s);
        QCOMPARE(picture(3), u"check-pressed"_s);
        // A read-only box cannot be typed into; the focus moved by keys alone.
        const QJsonObject passage = run.control(u"rcmc"_s, u"RichTextBox1"_s, 4);
        QVERIFY(passage.value(u"readOnly"_s).toBool());
        QVERIFY(!passage.value(u"text"_s).toString().contains(u"scribble"_s));
        QVERIFY(run.control(u"rcmc"_s, u"Text3"_s, 4).value(u"focus"_s).toBool());
        QVERIFY(!run.control(u"rcmc"_s, u"Text1"_s, 4).contains(u"focus"_s));
        // With no printer, the print goes to the PDF file that save-as answered.
        const QList<QJsonObject> prints = [&] {
            QList<QJsonObject> p;
            for (const QJsonObject &e : run.events)
                if (e.value(u"event"_s) == u"print"_s)
                    p.append(e);
            return p;
        }();
        QCOMPARE(prints.size(), 1);
        QCOMPARE(prints.first().value(u"file"_s).toString(), pdf);
        QVERIFY(QFile::exists(pdf));
        // Typing into a label is something no student can do.
        QCOMPARE(run.exitCode, 2);
        QVERIFY(run.events.last().value(u"message"_s).toString().contains(u"lblCheck is not a text box"_s));
    }

private:
    test::DataDir dir;
};

QTEST_MAIN(TestReadingEndToEnd)
#include "tst_reading_e2e.moc"
