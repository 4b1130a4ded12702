#include "frame/core/services.h"
#include "frame/core/printtext.h"
#include "frame/core/settings.h"
#include "frame/core/state.h"
#include "frame/navigator.h"
#include "frame/exercisescreen.h"
#include "frame/printerqt.h"
#include "frame/qtsound.h"
#include "frame/registry.h"
#include "reading/registry.h"
#include "progress/core/pausedtest.h"
#include "progress/core/sqlhistory.h"
#include "progress/registry.h"
#include "scriptrunner.h"
#include "testpapers/registry.h"
#include "useofenglish/registry.h"
#include "writing/registry.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QDir>
#include <QFileInfo>
#include <QSaveFile>
#include <QSettings>
#include <QTextStream>

#include <cstdio>
#include <memory>

namespace {

/// In a script, stdout carries JSON only and stderr only real failures: Qt's chatter is dropped.
void quietMessages(QtMsgType type, const QMessageLogContext &, const QString &msg)
{
    if (type == QtCriticalMsg || type == QtFatalMsg)
        std::fprintf(stderr, "%s\n", qPrintable(msg));
}

/// The data directory: --data-dir, else STUDYDESK_DATA, else `data` beside the executable (a build
/// folder), else the installed `share/studydesk/data` beside the executable's `bin`.
QString startDirectory(const QString &option)
{
    if (!option.isEmpty())
        return QFileInfo(option).absoluteFilePath();
    const QString fromEnvironment = qEnvironmentVariable("STUDYDESK_DATA");
    if (!fromEnvironment.isEmpty())
        return QFileInfo(fromEnvironment).absoluteFilePath();
    const QDir appDir(QCoreApplication::applicationDirPath());
    if (appDir.exists(QStringLiteral("data")))
        return appDir.filePath(QStringLiteral("data"));
    return QDir::cleanPath(appDir.filePath(QStringLiteral("../share/studydesk/data")));
}

bool argumentGiven(int argc, char **argv, const char *name)
{
    for (int i = 1; i < argc; ++i)
        if (qstrcmp(argv[i], name) == 0)
            return true;
    return false;
}

/// --export-history FILE: the student's whole history as CSV, written safely (a failed export
/// leaves an older FILE as it was).
int exportHistory(const QString &path)
{
    sd::SqlHistory history(sd::SqlHistory::defaultPath(), [] { return QDateTime::currentDateTimeUtc(); });
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly) || !history.exportCsv(file) || !file.commit()) {
        const QString reason = file.error() != QFileDevice::NoError ? file.errorString() : history.problem();
        std::fprintf(stderr, "studydesk: the history could not be exported to %s: %s\n", qPrintable(path),
                     qPrintable(reason));
        return 1;
    }
    return 0;
}

/// On the way out, a test under way is kept, with the answers of the section that is open.
void keepTestOnClosing(sd::ProgramState &state, sd::Navigator &nav)
{
    if (!sd::TestInHand(state))
        return;
    for (sd::ui::Screen *screen : nav.showing())
        if (auto *section = dynamic_cast<sd::ExerciseScreen *>(screen))
            section->keepTestAnswers();
    sd::KeepTestInHand(state);
}

} // namespace

int main(int argc, char **argv)
{
    // A script runs without a window unless --show asks for one; the platform is chosen before
    // the application object exists.
    const bool scripted = argumentGiven(argc, argv, "--script");
    if (scripted && !argumentGiven(argc, argv, "--show") && qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    if (scripted && qEnvironmentVariableIsEmpty("STUDYDESK_DEBUG"))
        qInstallMessageHandler(quietMessages);

    // --help and --version answer without a display, as on any command-line program.
    std::unique_ptr<QCoreApplication> app;
    if (argumentGiven(argc, argv, "--help") || argumentGiven(argc, argv, "-h") || argumentGiven(argc, argv, "--version")
        || argumentGiven(argc, argv, "-v") || argumentGiven(argc, argv, "--export-history"))
        app = std::make_unique<QCoreApplication>(argc, argv);
    else
        app = std::make_unique<QApplication>(argc, argv);
    QCoreApplication::setOrganizationName(QString::fromLatin1(sd::OrganisationName));
    QCoreApplication::setApplicationName(QString::fromLatin1(sd::ApplicationName));
    QGuiApplication::setDesktopFileName(QString::fromLatin1(sd::DesktopId));
    QGuiApplication::setApplicationDisplayName(QStringLiteral("StudyDesk"));
    QCoreApplication::setApplicationVersion(QStringLiteral(STUDYDESK_VERSION));

    QCommandLineParser parser;
    parser.setApplicationDescription(
        QStringLiteral("StudyDesk: practice exercises and test papers for an upper-intermediate English exam.\n\n"
                       "The exercises are read from the first of: --data-dir DIR; the STUDYDESK_DATA environment\n"
                       "variable; the folder 'data' beside the program (a build folder); ../share/studydesk/data\n"
                       "from the program's folder (/usr/share/studydesk/data once installed)."));
    parser.addHelpOption();
    parser.addVersionOption();
    const QCommandLineOption dataDir(QStringLiteral("data-dir"),
                                     QStringLiteral("Read exercises from DIR instead of the bundled data."),
                                     QStringLiteral("DIR"));
    const QCommandLineOption script(QStringLiteral("script"),
                                    QStringLiteral("Run the automation script FILE (\"-\": lines from standard input as they come) and print events as JSON lines."),
                                    QStringLiteral("FILE"));
    const QCommandLineOption show(QStringLiteral("show"), QStringLiteral("Show the window while a script runs."));
    const QCommandLineOption printTo(QStringLiteral("print-to"),
                                     QStringLiteral("Send every print job of this run to a PDF file: the first to FILE, "
                                                    "later ones to FILE-2.pdf, FILE-3.pdf ..."),
                                     QStringLiteral("FILE"));
    const QCommandLineOption size(QStringLiteral("size"), QStringLiteral("Open the main window at WIDTHxHEIGHT pixels."),
                                  QStringLiteral("WxH"));
    const QCommandLineOption exportTo(QStringLiteral("export-history"),
                                      QStringLiteral("Write the student's whole history to FILE as CSV, and exit."),
                                      QStringLiteral("FILE"));
    parser.addOptions({dataDir, script, show, printTo, size, exportTo});
    parser.process(*app);
    if (parser.isSet(exportTo))
        return exportHistory(parser.value(exportTo));

    const QString start = startDirectory(parser.value(dataDir));
    if (!QFileInfo(start).isDir()) {
        std::fprintf(stderr, "studydesk: no data directory at %s (see studydesk --help)\n", qPrintable(start));
        return 1;
    }

    QTextStream out(stdout);
    std::unique_ptr<sd::SoundOutput> sound;
    std::unique_ptr<sd::SeedSource> seeds;
    auto *fakeTime = new sd::FakeSeedSource;
    if (scripted) {
        sound = std::make_unique<sd::ScriptSound>(out);
        seeds.reset(fakeTime);
    } else {
        delete fakeTime;
        fakeTime = nullptr;
        sound = std::make_unique<sd::QtSound>();
        seeds = std::make_unique<sd::SystemSeedSource>();
    }

    sd::ProgramState state(*sound, *seeds);
    state.StartDir = start;
    {
        QSettings store;
        sd::StudentSettings::load(store).applyTo(state);
    }
    state.Clock.setAutomatic(!scripted);
    state.Time.setFake(scripted);
    // Opened on the first record or query, never at start-up.
    state.History = std::make_unique<sd::SqlHistory>(sd::SqlHistory::defaultPath(), [&state] { return state.Time.now(); });

    sd::Navigator nav(state);
    sd::registerFrameScreens(nav);
    sd::registerReadingScreens(nav);
    sd::registerUseOfEnglishScreens(nav);
    sd::registerWritingScreens(nav);
    sd::registerTestPaperScreens(nav);
    sd::registerProgressScreens(nav);
    QObject::connect(app.get(), &QCoreApplication::aboutToQuit, &nav, [&state, &nav] { keepTestOnClosing(state, nav); });

    std::unique_ptr<sd::ScriptRunner> runner;
    if (scripted) {
        runner = std::make_unique<sd::ScriptRunner>(state, nav, *fakeTime, out);
        QString error;
        if (!runner->loadFile(parser.value(script), &error)) {
            std::fprintf(stderr, "studydesk: %s\n", qPrintable(error));
            return 2;
        }
    }

    // Every job goes to --print-to when given. A script never prints on a real printer: without
    // --print-to its jobs go to the PDF save dialog, which a script answers with save-as.
    if (!scripted)
        state.SaveAs = std::make_unique<sd::QtSaveDialog>();
    sd::QtPrinter::Options printing;
    printing.printTo = parser.value(printTo);
    printing.usePrinters = !scripted;
    printing.choosePdf = [&state] { return sd::QtPrinter::askForPdfFile(*state.SaveAs, sd::printoutName(state)); };
    auto printer = std::make_unique<sd::QtPrinter>(printing);
    if (runner)
        printer->jobEnded = [r = runner.get()](const QString &file, int pages) { r->reportPrint(file, pages); };
    state.Printer = std::move(printer);

    nav.open(QStringLiteral("Introback"));
    nav.open(QStringLiteral("Intro"));
    if (parser.isSet(size)) {
        const QStringList wh = parser.value(size).split(u'x');
        const int w = wh.value(0).toInt(), h = wh.value(1).toInt();
        if (wh.size() != 2 || w < 320 || h < 240) {
            std::fprintf(stderr, "studydesk: --size wants WIDTHxHEIGHT, for example 1920x1080\n");
            return 2;
        }
        nav.host()->showNormal();
        nav.host()->resize(w, h);
    }
    if (runner)
        runner->start();
    return app->exec();
}
