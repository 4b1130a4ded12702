#include "fixtures.h"

#include "frame/registry.h"
#include "progress/registry.h"
#include "reading/registry.h"
#include "useofenglish/registry.h"
#include "writing/registry.h"
#include "testpapers/registry.h"

#include <QApplication>
#include <QComboBox>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QLabel>
#include <QLineEdit>
#include <QProcess>
#include <QStandardPaths>
#include <QTest>
#include <QPlainTextEdit>
#include <QTextEdit>

namespace sd::test {

DataDir::DataDir()
{
    // The program's clips, as short silent waves: a verdict's sound only plays from a real clip.
    for (const char *clip : {"fanfare1.wav", "happychime.wav", "chimes.wav", "chord.wav", "ohdear.wav", "start.wav",
                             "oopshort.wav"})
        writeFile(QString::fromLatin1(clip), QByteArray("RIFF\x24\0\0\0WAVEfmt ", 16));
}

QString DataDir::path() const
{
    return m_dir.path() + u'/';
}

void DataDir::writeRecords(DataFile file, const QList<QStringList> &records)
{
    const DataFileInfo &info = dataFileInfo(file);
    QByteArray bytes;
    for (const QStringList &r : records) {
        QString error;
        const QByteArray rec = encodeRecord(info.layout, r, &error);
        if (rec.isEmpty())
            qFatal("bad fixture record: %s", qPrintable(error));
        bytes += rec;
    }
    writeFile(QString::fromLatin1(info.fileName), bytes);
}

void DataDir::writeFile(const QString &name, const QByteArray &bytes)
{
    QFile f(path() + name);
    if (!f.open(QIODevice::WriteOnly) || f.write(bytes) != bytes.size())
        qFatal("cannot write fixture %s", qPrintable(name));
}

void DataDir::writeText(const QString &name, const QString &text)
{
    writeFile(name, encodeSingleByte(text));
}

void DataDir::writeRtf(const QString &baseName, const QString &text)
{
    QByteArray body = encodeSingleByte(text);
    body.replace("\n", "\\par\n");
    writeFile(baseName + QStringLiteral(".rtf"), "{\\rtf1\\ansi\\deff0{\\fonttbl{\\f0 Arial;}}\\f0\\fs24 " + body + "\\par}");
}

App::App(const QString &dataDir) : state(sound, seeds), nav(state)
{
    // Settings, drafts and history of screen tests never reach the student's own folders.
    QStandardPaths::setTestModeEnabled(true);
    state.StartDir = dataDir;
    state.Clock.setAutomatic(false);
    state.Time.setFake(true);
    registerFrameScreens(nav);
    registerReadingScreens(nav);
    registerUseOfEnglishScreens(nav);
    registerWritingScreens(nav);
    registerTestPaperScreens(nav);
    registerProgressScreens(nav);
    nav.open(QStringLiteral("Introback"));
    nav.open(QStringLiteral("Intro"));
    settle();
}

App::~App() = default;

QString App::topCode() const
{
    return top() ? top()->code() : QString();
}

QWidget *App::control(const QString &name) const
{
    ui::Screen *t = top();
    if (!t)
        qFatal("no screen is showing");
    auto *w = t->findChild<QWidget *>(name);
    if (!w)
        qFatal("no control %s on %s", qPrintable(name), qPrintable(t->code()));
    return w;
}

QString App::text(const QString &name) const
{
    QWidget *w = control(name);
    if (auto *l = qobject_cast<QLabel *>(w))
        return l->text();
    if (auto *e = qobject_cast<QLineEdit *>(w))
        return e->text();
    if (auto *t = qobject_cast<QTextEdit *>(w))
        return t->toPlainText();
    if (auto *p = qobject_cast<QPlainTextEdit *>(w))
        return p->toPlainText();
    if (auto *c = qobject_cast<QComboBox *>(w))
        return c->currentText();
    return QString();
}

void App::click(const QString &name)
{
    QWidget *w = control(name);
    QTest::mouseClick(w, Qt::LeftButton, Qt::NoModifier, w->rect().center());
    settle();
}

void App::hover(const QString &name)
{
    QWidget *w = control(name);
    QEnterEvent enter(QPointF(1, 1), w->mapToGlobal(QPointF(1, 1)), w->mapToGlobal(QPointF(1, 1)));
    QApplication::sendEvent(w, &enter);
    QTest::mouseMove(w, w->rect().center());
    settle();
}

void App::type(const QString &name, const QString &text)
{
    QWidget *w = control(name);
    if (auto *e = qobject_cast<QLineEdit *>(w))
        e->clear();
    else if (auto *t = qobject_cast<QTextEdit *>(w))
        t->clear();
    else if (auto *p = qobject_cast<QPlainTextEdit *>(w))
        p->clear();
    QTest::keyClicks(w, text);
    settle();
}

void App::choose(const QString &name, const QString &itemText)
{
    auto *c = qobject_cast<QComboBox *>(control(name));
    const int i = c ? c->findText(itemText) : -1;
    if (i < 0)
        qFatal("no entry %s in %s", qPrintable(itemText), qPrintable(name));
    c->setCurrentIndex(i);
    Q_EMIT c->activated(i);
    Q_EMIT c->textActivated(itemText);
    settle();
}

void App::openPractice(const QString &kindLabel, int level, int exercise)
{
    click(QStringLiteral("lblPrac"));
    click(kindLabel);
    click(QStringLiteral("lblLevel%1").arg(level));
    click(QStringLiteral("lblEx%1").arg(exercise));
}

void App::openTestSection(int kind, const QString &code, const QString &test)
{
    state.PracticeMode = false;
    state.TestMode = true;
    state.ActivityIndex = 2;
    state.PaperIndex = kind <= 4 ? 1 : 3;
    state.ExerciseKind = kind;
    state.LevelCode = test;
    SelectDataFile(state, kind);
    QCOMPARE(FindTestRecord(state), SearchResult::Found);
    nav.open(code);
    settle();
    QCOMPARE(topCode(), code);
}

void App::settle()
{
    for (int i = 0; i < 3; ++i) {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCoreApplication::processEvents();
    }
}

QStringList ScriptRun::eventNames(const QString &event) const
{
    QStringList out;
    for (const QJsonObject &e : events) {
        if (e.value(QStringLiteral("event")).toString() != event)
            continue;
        for (const char *key : {"screen", "file", "message"})
            if (e.contains(QString::fromLatin1(key)))
                out.append(e.value(QString::fromLatin1(key)).toString());
        if (event == u"beep")
            out.append(QStringLiteral("beep"));
    }
    return out;
}

QJsonObject ScriptRun::screen(const QString &name, int dump) const
{
    QList<QJsonObject> dumps;
    for (const QJsonObject &e : events)
        if (e.value(QStringLiteral("event")).toString() == u"dump")
            dumps.append(e);
    for (const QJsonValue &s : dumps.value(dump < 0 ? dumps.size() - 1 : dump).value(QStringLiteral("screens")).toArray())
        if (s.toObject().value(QStringLiteral("name")).toString() == name)
            return s.toObject();
    return {};
}

QJsonObject ScriptRun::control(const QString &screenName, const QString &controlName, int dump) const
{
    for (const QJsonValue &c : screen(screenName, dump).value(QStringLiteral("controls")).toArray())
        if (c.toObject().value(QStringLiteral("name")).toString() == controlName)
            return c.toObject();
    return {};
}

ScriptRun runScript(const QString &dataDir, const QString &script, const QStringList &extraArgs, const QString &home)
{
    QTemporaryDir tmp;
    const QString scriptPath = tmp.filePath(QStringLiteral("script.txt"));
    QFile f(scriptPath);
    if (!f.open(QIODevice::WriteOnly))
        qFatal("cannot write script");
    f.write(script.toUtf8());
    f.close();

    QProcess p;
    p.setProgram(QStringLiteral(STUDYDESK_BINARY_DIR "/bin/studydesk"));
    p.setArguments(QStringList{QStringLiteral("--data-dir"), dataDir, QStringLiteral("--script"), scriptPath} + extraArgs);
    // The student's own folders stay untouched: settings, drafts and history go to the run's folder.
    QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
    for (const char *var : {"XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_CACHE_HOME", "XDG_STATE_HOME", "HOME"})
        env.insert(QString::fromLatin1(var), home.isEmpty() ? tmp.path() : home);
    p.setProcessEnvironment(env);
    p.start();
    ScriptRun run;
    if (!p.waitForFinished(60000)) {
        p.kill();
        run.errors = QStringLiteral("timed out");
        return run;
    }
    run.exitCode = p.exitCode();
    run.errors = QString::fromUtf8(p.readAllStandardError());
    const QList<QByteArray> lines = p.readAllStandardOutput().split('\n');
    for (const QByteArray &line : lines)
        if (!line.trimmed().isEmpty())
            run.events.append(QJsonDocument::fromJson(line).object());
    return run;
}

} // namespace sd::test
