// Walks the screens a student meets and checks what a screen reader and a weak eye need: every
// visible control has an accessible name, and every text meets 4.5:1 against the worst pixel of
// what it is drawn on.

#include "common/fixtures.h"
#include "ui/imagebutton.h"
#include "reading/readingdata.h"
#include "useofenglish/gapfixtures.h"

#include <QAbstractButton>
#include <QLabel>
#include <QLineEdit>
#include <QTest>

using namespace sd;
using namespace Qt::StringLiterals;

namespace {

double luminance(QRgb c)
{
    const auto channel = [](int v) {
        const double s = v / 255.0;
        return s <= 0.03928 ? s / 12.92 : std::pow((s + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * channel(qRed(c)) + 0.7152 * channel(qGreen(c)) + 0.0722 * channel(qBlue(c));
}

double contrast(QRgb a, QRgb b)
{
    const double la = luminance(a), lb = luminance(b);
    return (std::max(la, lb) + 0.05) / (std::min(la, lb) + 0.05);
}

/// The lowest contrast of the label's text colour against what lies under its text.
double worstContrast(QLabel *label)
{
    const QString text = label->text();
    // Only where the text itself is drawn, not the label's whole box.
    const QRect drawn = label->fontMetrics().boundingRect(label->contentsRect(),
                                                          int(label->alignment()) | Qt::TextWordWrap, text)
                            .intersected(label->rect());
    label->setText(QString());
    label->clearFocus(); // the focus ring is a mark of its own, measured against the background
    QWidget *window = label->window();
    const QRect area(label->mapTo(window, drawn.topLeft()), drawn.size());
    const QImage under = window->grab(area).toImage();
    label->setText(text);
    const QRgb fg = label->palette().color(label->foregroundRole()).rgb();
    double worst = 21.0;
    for (int y = 0; y < under.height(); y += 2)
        for (int x = 0; x < under.width(); x += 2)
            worst = std::min(worst, contrast(fg, under.pixel(x, y)));
    return worst;
}

} // namespace

class TestScreenAccess : public QObject
{
    Q_OBJECT

    test::DataDir dir;

private Q_SLOTS:
    void initTestCase()
    {
        test::writeReadingExercises(dir);
        dir.writeRecords(DataFile::Ueca, {test::gapRecord(u"101"_s, u"surf"_s, test::choiceItems)});
        dir.writeRtf(u"surf"_s, u"My cousin (1) me to try surfing."_s);
    }

    void screensCanBeReadAndSeen_data()
    {
        QTest::addColumn<QString>("route"); // clicks from the start screen, separated by blanks
        QTest::newRow("start screen") << QString();
        QTest::newRow("kinds") << u"lblPrac"_s;
        QTest::newRow("levels and exercises") << u"lblPrac lblrcmc"_s;
        QTest::newRow("reading exercise") << u"lblPrac lblrcmc lblLevel1 lblEx1"_s;
        QTest::newRow("reading score window") << u"lblPrac lblrcmc lblLevel1 lblEx1 Check"_s;
        QTest::newRow("reading answers shown") << u"lblPrac lblrcmc lblLevel1 lblEx1 Check seecorrect"_s;
        QTest::newRow("cloze exercise") << u"lblPrac lblueca lblLevel1 lblEx1"_s;
        QTest::newRow("cloze check window") << u"lblPrac lblueca lblLevel1 lblEx1 Check"_s;
        QTest::newRow("settings") << u"lblSettings"_s;
        QTest::newRow("error screen") << u"lblPrac lblrcmc lblLevel1 lblEx9"_s;
    }
    void screensCanBeReadAndSeen()
    {
        QFETCH(QString, route);
        test::App app(dir.path());
        for (const QString &step : route.split(u' ', Qt::SkipEmptyParts))
            app.click(step);
        QStringList unnamed, faint;
        for (QWidget *w : app.top()->findChildren<QWidget *>()) {
            if (!w->isVisibleTo(app.top()) || w->objectName().isEmpty() || w->objectName().startsWith(u"qt_"_s))
                continue;
            if (w->accessibleName().isEmpty())
                unnamed << w->objectName();
            if (w->inherits("sd::ui::ImageButton") && w->accessibleDescription().isEmpty())
                unnamed << w->objectName() + u" (what it does)"_s;
            auto *label = qobject_cast<QLabel *>(w);
            if (label && !label->text().trimmed().isEmpty()) {
                const double c = worstContrast(label);
                if (c < 4.5)
                    faint << u"%1 %2:1"_s.arg(w->objectName()).arg(c, 0, 'f', 2);
            }
        }
        QVERIFY2(unnamed.isEmpty(), qPrintable(u"no accessible name: "_s + unnamed.join(u", "_s)));
        // The focus ring keeps 3:1 against the background it is drawn on.
        QVERIFY(contrast(ui::focusRingColour().rgb(), app.top()->palette().color(QPalette::Window).rgb()) >= 3.0);
        QVERIFY2(faint.isEmpty(), qPrintable(u"below 4.5:1: "_s + faint.join(u", "_s)));
    }
};

QTEST_MAIN(TestScreenAccess)
#include "tst_screenaccess.moc"
