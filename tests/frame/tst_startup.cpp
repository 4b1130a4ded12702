// End to end: the real program driven by scripts, from the start screen to a record.

#include "app/scriptrunner.h"
#include "common/fixtures.h"

#include <QTest>

using namespace sd;

class TestStartup : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void scriptFindsRecordAndReportsNotFound()
    {
        test::DataDir dir;
        dir.writeRecords(DataFile::Rcmc, {{QStringLiteral("101"), QStringLiteral("none")}, {QStringLiteral("207")}});
        const test::ScriptRun run = test::runScript(dir.path(), QStringLiteral("click lblPrac\n"
                                                                              "click lblrcmc\n"
                                                                              "click lblLevel1\n"
                                                                              "click lblEx5\n"
                                                                              "dump\n"
                                                                              "click Continue\n"
                                                                              "click lblLevel2\n"
                                                                              "click lblEx7\n"
                                                                              "quit\n"));
        QCOMPARE(run.exitCode, 0);
        const QStringList shown = run.eventNames(QStringLiteral("shown"));
        QCOMPARE(shown.mid(0, 5), (QStringList{QStringLiteral("Introback"), QStringLiteral("Intro"), QStringLiteral("Practype"),
                                                QStringLiteral("Pracchoice"), QStringLiteral("Error")}));
        QCOMPARE(run.control(QStringLiteral("Error"), QStringLiteral("Label1")).value(QStringLiteral("text")).toString(),
                 QStringLiteral("Not found"));
        QCOMPARE(run.eventNames(QStringLiteral("beep")).size(), 1);
        QVERIFY(run.control(QStringLiteral("Pracchoice"), QStringLiteral("lblLevel1")).value(QStringLiteral("bold")).toBool());
        // Record 207 is found and its exercise screen opens.
        QCOMPARE(shown.last(), QStringLiteral("rcmc"));
    }

    void scriptErrorsExitWithTwo_data()
    {
        QTest::addColumn<QString>("script");
        QTest::newRow("no such control") << QStringLiteral("click lblNothing\n");
        QTest::newRow("unknown command") << QStringLiteral("jump lblPrac\n");
        QTest::newRow("hidden control") << QStringLiteral("click lblRuta\n");
        QTest::newRow("typing into a hidden box") << QStringLiteral("type lblRuta x\n");
        QTest::newRow("a key on a hidden control") << QStringLiteral("key lblRuta Tab\n");
        QTest::newRow("pointing at a hidden control") << QStringLiteral("hover lblRuta\n");
    }
    void scriptErrorsExitWithTwo()
    {
        QFETCH(QString, script);
        test::DataDir dir;
        const test::ScriptRun run = test::runScript(dir.path(), script);
        QCOMPARE(run.exitCode, 2);
        QCOMPARE(run.events.last().value(QStringLiteral("event")).toString(), QStringLiteral("error"));
    }

    void typedTextKeepsBlanksAndLineBreaks()
    {
        // Quoted text keeps trailing blanks and escapes; unquoted text is the rest of the line.
        bool ok = false;
        QCOMPARE(ScriptRunner::parseText(QStringLiteral("\"B \\\"b\\\" \\\\ \\n  \""), &ok), QStringLiteral("B \"b\" \\ \n  "));
        QVERIFY(ok);
        QCOMPARE(ScriptRunner::parseText(QStringLiteral("two words "), &ok), QStringLiteral("two words "));
        ScriptRunner::parseText(QStringLiteral("\"unterminated"), &ok);
        QVERIFY(!ok);
    }
};

QTEST_MAIN(TestStartup)
#include "tst_startup.moc"
