// Figures for the Reading screens: from the click on an exercise in the level menu to the exercise
// screen shown, on a passage of about 1,500 words, as rich text and as a web page.

#include "benchrun.h"
#include "common/fixtures.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QTextBrowser>

#include <algorithm>
#include <cstdio>

using namespace sd;
using namespace Qt::StringLiterals;

namespace {

/// About 1,500 words in twelve paragraphs.
QString passage()
{
    const QString sentence = QStringLiteral("Walk past an office block in almost any large city and there is a chance "
                                            "that thousands of bees are busy at work high above your head. ");
    QString text;
    for (int p = 0; p < 12; ++p) {
        for (int s = 0; s < 5; ++s)
            text += sentence;
        text += u'\n';
    }
    return text;
}

struct Figures
{
    double best, median, worst;
};

Figures openExercise(bool webPage, int runs)
{
    test::DataDir dir;
    const QString text = passage();
    dir.writeRtf(QStringLiteral("long"), text);
    dir.writeText(QStringLiteral("long.htm"), QStringLiteral("<html><body><p>")
                                                  + QString(text).replace(u'\n', QStringLiteral("</p><p>"))
                                                  + QStringLiteral("</p></body></html>"));
    dir.writeRtf(QStringLiteral("questions"), QStringLiteral("1 What does the writer say?\nA. one\nB. two\nC. three"));
    QStringList record{QStringLiteral("207"), QStringLiteral("long"), QStringLiteral("questions")};
    while (record.size() < 10)
        record.append(QString());
    record.append(QStringLiteral("BBAACB"));
    dir.writeRecords(DataFile::Rcmc, {record});

    test::App app(dir.path());
    app.state.ShowWebPages = webPage;
    app.click(QStringLiteral("lblPrac"));
    app.click(QStringLiteral("lblrcmc"));
    app.click(QStringLiteral("lblLevel2"));
    QList<double> ms;
    for (int i = 0; i < runs; ++i) {
        QElapsedTimer t;
        t.start();
        app.click(QStringLiteral("lblEx7"));
        ms.append(double(t.nsecsElapsed()) / 1e6);
        if (app.topCode() != u"rcmc") {
            std::fprintf(stderr, "the exercise screen did not open\n");
            return {};
        }
        app.click(QStringLiteral("Quit"));
    }
    std::sort(ms.begin(), ms.end());
    return {ms.first(), ms.at(ms.size() / 2), ms.last()};
}

/// The reference: a bare QTextBrowser window made and shown with the same page.
double barePage(int runs)
{
    const QString html = u"<html><body><p>"_s + passage().replace(u'\n', u"</p><p>"_s) + u"</p></body></html>"_s;
    return sd::bench::medianMs(runs, [&] {
        QTextBrowser page;
        page.resize(1024, 768);
        page.setHtml(html);
        page.show();
        QCoreApplication::processEvents();
    });
}

} // namespace

int main(int argc, char **argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication qapp(argc, argv);
    const int runs = 20;
    const double bare = barePage(runs);
    for (const bool web : {false, true}) {
        const Figures f = openExercise(web, runs);
        sd::bench::printRatio(web ? "exercise click, web page" : "exercise click, rich text", f.median, bare,
                              "bare page", "ms", u"to rcmc shown, 1,500 words, median of %1"_s.arg(runs));
    }
    return 0;
}
