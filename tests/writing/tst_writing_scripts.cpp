// End-to-end runs of the real program: a narrative written, counted, saved and read back; a letter
// printed to a PDF; a draft that survives the program being killed in the middle of typing.

#include "printing/pdftext.h"
#include "writingdata.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QProcess>
#include <QTest>

using namespace sd;
using namespace sd::test;
using namespace Qt::StringLiterals;

namespace {

/// The program reading its script from standard input, with its own folders in `home`.
void startProgram(QProcess &p, const QString &dataDir, const QString &home)
{
    QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
    for (const char *var : {"XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_CACHE_HOME", "XDG_STATE_HOME", "HOME"})
        env.insert(QString::fromLatin1(var), home);
    p.setProcessEnvironment(env);
    p.start(QStringLiteral(STUDYDESK_BINARY_DIR "/bin/studydesk"),
            {u"--data-dir"_s, dataDir, u"--script"_s, u"-"_s});
    QVERIFY(p.waitForStarted());
}

/// Output lines as events, once a `dump` has come out.
QList<QJsonObject> eventsUntilDump(QProcess &p)
{
    QByteArray out;
    while (!out.contains("\"event\":\"dump\"") && p.waitForReadyRead(30000))
        out += p.readAllStandardOutput();
    QList<QJsonObject> events;
    for (const QByteArray &line : out.split('\n'))
        if (!line.trimmed().isEmpty())
            events << QJsonDocument::fromJson(line).object();
    return events;
}

QString controlText(const QList<QJsonObject> &events, const QString &name)
{
    for (const QJsonObject &e : events)
        for (const QJsonValue &s : e.value(u"screens"_s).toArray())
            for (const QJsonValue &c : s.toObject().value(u"controls"_s).toArray())
                if (c.toObject().value(u"name"_s).toString() == name)
                    return c.toObject().value(u"text"_s).toString();
    return {};
}

const QString openNarrative = u"click lblPrac\nclick lblComp\nclick lblnar\nclick Writenow\n"_s;

} // namespace

class TestWritingScripts : public QObject
{
    Q_OBJECT

    DataDir dir;

private Q_SLOTS:
    void initTestCase() { writeWritingData(dir); }

    void narrativeWrittenCountedSavedAndReadBack()
    {
        QTemporaryDir out;
        const QString file = out.filePath(u"my story"_s);
        const ScriptRun run = runScript(dir.path(), openNarrative
                                                        + u"type txtName Anna\n"
                                                          "type Text2 \"I don't think it's fair.\\nThe end\"\n"
                                                          "click imgCountwords\ndump\nsave-as "_s
                                                        + file + u"\nclick Savetext\nclick Quit\ndump\nquit\n"_s);
        QVERIFY2(run.exitCode == 0, qPrintable(run.errors + run.eventNames(u"error"_s).join(u' ')));
        QCOMPARE(run.control(u"writethecomp"_s, u"lblWordcount"_s, 0).value(u"text"_s).toString(), u" 9"_s);
        QVERIFY(!run.control(u"writethecomp"_s, u"Text2"_s, 0).value(u"readOnly"_s).toBool());
        // Saved work leaves without a question.
        QVERIFY(!run.eventNames(u"shown"_s).contains(u"savethecomp"_s));
        QFile saved(file + u".txt"_s);
        QVERIFY(saved.open(QIODevice::ReadOnly));
        QCOMPARE(saved.readAll(), QByteArray(" \r\nnar title 1: write about it. Begin with a door.\r\n \r\n"
                                             "I don't think it's fair.\r\nThe end\r\n \r\n \r\nAnna\r\n \r\n"));
    }

    void letterPrintedToPdf()
    {
        if (!havePdfTools())
            QSKIP("pdftotext and pdfinfo are not installed");
        QTemporaryDir out;
        const QString pdf = out.filePath(u"letter.pdf"_s);
        const ScriptRun run = runScript(dir.path(),
                                        u"click lblPrac\nclick lblComp\nclick lblleta\nclick Label1\nclick imgWritenow\n"
                                        "type txtName Anna Kowalska\n"
                                        "type Text2 \"Dear Sir,\\nI would like to know the prices.\"\n"
                                        "click Printtext\nquit\n"_s,
                                        {u"--print-to"_s, pdf});
        QVERIFY2(run.exitCode == 0, qPrintable(run.errors + run.eventNames(u"error"_s).join(u' ')));
        QCOMPARE(run.eventNames(u"print"_s), QStringList{pdf});
        const QString text = pdfText(pdf);
        for (const QString &part : {u"leta title 1: write about it. Ask about prices."_s, u"Dear Sir,"_s,
                                    u"I would like to know the prices."_s, u"Anna Kowalska"_s})
            QVERIFY2(text.contains(part), qPrintable(text));
    }

    void draftSurvivesAKill()
    {
        QTemporaryDir home;
        {
            QProcess p;
            startProgram(p, dir.path(), home.path());
            p.write((openNarrative + u"type txtName Anna\ntype Text2 \"Words kept\"\nwait 2000\n"
                                     "type Text2 \"Words kept and words lost\"\ndump\n"_s).toUtf8());
            QVERIFY(!eventsUntilDump(p).isEmpty());
            p.kill(); // SIGKILL: nothing runs on the way out
            QVERIFY(p.waitForFinished());
            QCOMPARE(p.exitStatus(), QProcess::CrashExit);
        }
        QProcess p;
        startProgram(p, dir.path(), home.path());
        p.write((openNarrative + u"dump\nclick Yes\ndump\nquit\n"_s).toUtf8());
        p.closeWriteChannel();
        QVERIFY(p.waitForFinished(60000));
        QList<QJsonObject> events;
        for (const QByteArray &line : p.readAllStandardOutput().split('\n'))
            if (!line.trimmed().isEmpty())
                events << QJsonDocument::fromJson(line).object();
        QCOMPARE(controlText(events.mid(0, events.size() - 2), u"lblMessage"_s),
                 u"Continue the draft you started on 4 March 2024 at 09:00?"_s);
        QCOMPARE(controlText({events.at(events.size() - 1)}, u"Text2"_s), u"Words kept"_s);
        QCOMPARE(controlText({events.at(events.size() - 1)}, u"txtName"_s), u"Anna"_s);
    }
};

QTEST_MAIN(TestWritingScripts)
#include "tst_writing_scripts.moc"
