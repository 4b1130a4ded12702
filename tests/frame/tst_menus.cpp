// Start screen and practice menus, driven as a student would.

#include "common/fixtures.h"
#include "frame/core/settings.h"
#include "frame/core/verdicts.h"
#include "ui/imagebutton.h"

#include <QCheckBox>
#include <QLabel>
#include <QSettings>
#include <QTemporaryDir>
#include <QTest>

using namespace sd;
using namespace Qt::StringLiterals;

namespace {
bool isLit(QLabel *l)
{
    return l->palette().color(QPalette::WindowText) == QColor(169, 191, 222) && l->font().bold();
}
bool isWhite(QLabel *l)
{
    return l->palette().color(QPalette::WindowText) == QColor(Qt::white);
}
} // namespace

class TestMenus : public QObject
{
    Q_OBJECT

    test::DataDir dir;
    std::unique_ptr<test::App> app;

private Q_SLOTS:
    void initTestCase() { dir.writeRecords(DataFile::Rcmc, {{u"101"_s}, {u"102"_s}}); }
    void init() { app = std::make_unique<test::App>(dir.path()); }
    void cleanup() { app.reset(); }

    void startScreenFillsState()
    {
        QCOMPARE(app->topCode(), u"Intro"_s);
        QCOMPARE(app->state.DataDir, dir.path());
        QCOMPARE(app->state.ReadingDir, dir.path());
        QCOMPARE(app->state.HelpTopic, u"helpgen"_s);
        QCOMPARE(app->state.CurrentSound, u"start.wav"_s);
        QCOMPARE(app->text(u"lblPrac"_s), u"practice exercises"_s);
        QCOMPARE(app->text(u"lblAboutprog"_s), u"about the program"_s);
    }

    void practiceAndTestAreExclusive()
    {
        app->click(u"lblPrac"_s);
        QVERIFY(app->state.PracticeMode && !app->state.TestMode);
        QCOMPARE(int(app->state.ActivityIndex), 1);
        QCOMPARE(app->text(u"lblPaper3"_s), u"P a p e r   3  ( U s e  o f  E n g l i s h )"_s);
        app->click(u"lblBack"_s); // the caption works like its button
        QCOMPARE(app->topCode(), u"Intro"_s);
        app->click(u"lblTest"_s);
        QVERIFY(!app->state.PracticeMode && app->state.TestMode);
        QCOMPARE(int(app->state.ActivityIndex), 2);
    }

    void levelPreselection_data()
    {
        QTest::addColumn<int>("chosen");
        QTest::addColumn<bool>("leaveAfterExercise");
        QTest::newRow("level 3 kept") << 3 << false;
        QTest::newRow("level 2 kept") << 2 << false;
        QTest::newRow("level 1 kept") << 1 << false;
        QTest::newRow("level kept after an exercise was looked for") << 3 << true;
    }
    void levelPreselection()
    {
        QFETCH(int, chosen);
        QFETCH(bool, leaveAfterExercise);
        app->click(u"lblPrac"_s);
        app->click(u"lblrcmc"_s);
        QCOMPARE(app->topCode(), u"Pracchoice"_s);
        QVERIFY(app->get<ui::MenuLabel>(u"lblLevel1"_s)->isChosen()); // first visit: level 1
        app->click(u"lblLevel%1"_s.arg(chosen));
        QCOMPARE(app->state.ExerciseCode, u"0"_s);
        if (leaveAfterExercise) {
            app->click(u"lblEx4"_s); // not found
            app->click(u"Continue"_s);
        }
        app->click(u"Back"_s);
        app->click(u"lblrcmc"_s);
        for (int level = 1; level <= 3; ++level) {
            auto *l = app->get<ui::MenuLabel>(u"lblLevel%1"_s.arg(level));
            QCOMPARE(l->isChosen(), level == chosen);
            QCOMPARE(l->font().bold(), level == chosen);
            QVERIFY(isWhite(l));
        }
    }

    void highlightMovesBetweenLabels()
    {
        app->click(u"lblPrac"_s);
        app->click(u"lblrcmc"_s);
        auto *ex1 = app->get<QLabel>(u"lblEx1"_s);
        auto *ex2 = app->get<QLabel>(u"lblEx2"_s);
        auto *level2 = app->get<QLabel>(u"lblLevel2"_s);
        auto *level1 = app->get<ui::MenuLabel>(u"lblLevel1"_s);
        app->hover(u"lblEx1"_s);
        QVERIFY(isLit(ex1));
        QVERIFY(!isLit(ex2));
        app->hover(u"lblEx2"_s);
        QVERIFY(!isLit(ex1));
        QVERIFY(isWhite(ex1) && !ex1->font().bold());
        QVERIFY(isLit(ex2));
        app->hover(u"lblLevel2"_s);
        QVERIFY(isLit(level2));
        QVERIFY(!isLit(ex2));
        // The chosen level stays white and bold while another label is lit.
        QVERIFY(level1->isChosen() && isWhite(level1) && level1->font().bold());
    }

    void backToAMenuShowsNoStaleHighlight()
    {
        app->hover(u"lblPrac"_s);
        QVERIFY(isLit(app->get<QLabel>(u"lblPrac"_s)));
        app->click(u"lblPrac"_s);
        app->hover(u"lblrcmc"_s);
        app->click(u"Back"_s);
        QCOMPARE(app->topCode(), u"Intro"_s);
        QVERIFY(!isLit(app->get<QLabel>(u"lblPrac"_s)));
        QCOMPARE(int(app->state.HoverIndex), 0);
    }

    void settingsTakeEffectAtOnceAndAreKept()
    {
        app->click(u"lblSettings"_s);
        QCOMPARE(app->topCode(), u"Settings"_s);
        app->get<QCheckBox>(u"chkClock"_s)->click();
        app->get<QCheckBox>(u"chkSound"_s)->click();
        app->click(u"btnLarger"_s);
        app->click(u"btnLarger"_s);
        QCOMPARE(app->text(u"lblTextSize"_s), u"Text size: 120%"_s);
        QVERIFY(!app->state.ClockShown && !app->state.SoundOn);
        QVERIFY(!app->control(u"sldVolume"_s)->isEnabled());
        // A muted program plays nothing and reports nothing.
        app->sound.events.clear();
        PlaySound(app->state, 1);
        QVERIFY(app->sound.events.isEmpty());
        QSettings store(StudentSettings::storeOrganisation(), StudentSettings::storeApplication());
        const StudentSettings kept = StudentSettings::load(store);
        QVERIFY(!kept.clockShown && !kept.soundOn);
        QCOMPARE(kept.textStep, 2);
        app->click(u"Quit"_s);
        QCOMPARE(app->topCode(), u"Intro"_s);
        store.clear();
    }

    void keptSettingsAreChecked_data()
    {
        QTest::addColumn<QVariant>("volume");
        QTest::addColumn<QVariant>("step");
        QTest::addColumn<int>("volumeRead");
        QTest::addColumn<int>("stepRead");
        QTest::newRow("in range") << QVariant(30) << QVariant(-2) << 30 << -2;
        QTest::newRow("volume too loud, text too large") << QVariant(300) << QVariant(40) << 80 << 0;
        QTest::newRow("not numbers") << QVariant(u"loud"_s) << QVariant(u"big"_s) << 80 << 0;
    }
    void keptSettingsAreChecked()
    {
        QFETCH(QVariant, volume);
        QFETCH(QVariant, step);
        QTemporaryDir dir;
        QSettings store(dir.filePath(u"s.ini"_s), QSettings::IniFormat);
        store.setValue(u"sound/volume"_s, volume);
        store.setValue(u"text/step"_s, step);
        const StudentSettings s = StudentSettings::load(store);
        QTEST(s.volume, "volumeRead");
        QTEST(s.textStep, "stepRead");
    }

    void errorScreenBeepsAndSaysWhy_data()
    {
        QTest::addColumn<QStringList>("clicks"); // after "practice exercises"
        QTest::addColumn<QString>("message");
        QTest::addColumn<QString>("backOn"); // the screen left showing after "Continue"
        QTest::newRow("missing key") << QStringList{u"lblrcmc"_s, u"lblLevel2"_s, u"lblEx7"_s} << u"Not found"_s
                                     << u"Pracchoice"_s; // the menu stays as it was
        QTest::newRow("missing data file") << QStringList{u"lblueec"_s, u"lblLevel1"_s, u"lblEx1"_s} << u"No file"_s
                                           << u"Pracchoice"_s;
        QTest::newRow("sentence conversion without its file")
            << QStringList{u"lbluesc"_s, u"lblLevel1"_s, u"lblEx1"_s} << u"No file"_s << u"uescchoice"_s;
        QTest::newRow("word formation without its file")
            << QStringList{u"lbluewb"_s, u"lblLevel2"_s, u"lblEx3"_s} << u"No file"_s << u"uewbchoice"_s;
    }
    void errorScreenBeepsAndSaysWhy()
    {
        QFETCH(QStringList, clicks);
        app->click(u"lblPrac"_s);
        for (const QString &c : clicks)
            app->click(c);
        QCOMPARE(app->sound.events, QStringList{u"beep"_s});
        QCOMPARE(app->topCode(), u"Error"_s);
        QVERIFY(app->top()->isModalScreen());
        QTEST(app->text(u"Label1"_s), "message");
        QCOMPARE(app->text(u"lblContinue"_s), u"Continue"_s);
        // The page behind is dimmed and covered, so nothing on it lights up through the window.
        QWidget *page = app->nav.showing().first();
        QWidget *over = app->nav.host()->childAt(page->geometry().center());
        QVERIFY(over && !page->isAncestorOf(over) && over != page);
        app->click(u"Continue"_s);
        QTEST(app->topCode(), "backOn");
        QCOMPARE(app->nav.host()->childAt(page->geometry().center()) == over, false);
    }
};

QTEST_MAIN(TestMenus)
#include "tst_menus.moc"
