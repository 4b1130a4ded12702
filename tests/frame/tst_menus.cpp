// Start screen and practice menus, driven as a student would.

#include "common/fixtures.h"
#include "ui/imagebutton.h"

#include <QLabel>
#include <QTest>

using namespace sd;

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

private Q_SLOTS:
    void startScreenFillsState();
    void practiceAndTestAreExclusive();
    void levelPreselection_data();
    void levelPreselection();
    void highlightMovesBetweenLabels();
    void missingKeyBeepsAndShowsNotFound();
    void missingDataFileSaysNoFile();
    void kindsWithoutScreensSaySoPlainly_data();
    void kindsWithoutScreensSaySoPlainly();
    void backReturnsToTheStartScreen();
};

void TestMenus::startScreenFillsState()
{
    test::DataDir dir;
    test::App app(dir.path());
    QCOMPARE(app.topCode(), QStringLiteral("Intro"));
    QCOMPARE(app.state.DataDir, dir.path());
    QCOMPARE(app.state.ReadingDir, dir.path());
    QCOMPARE(app.state.HelpTopic, QStringLiteral("helpgen"));
    QCOMPARE(app.state.CurrentSound, QStringLiteral("start.wav"));
    QCOMPARE(app.text(QStringLiteral("lblPrac")), QStringLiteral("practice exercises"));
    QCOMPARE(app.text(QStringLiteral("lblAboutprog")), QStringLiteral("about the program"));
}

void TestMenus::practiceAndTestAreExclusive()
{
    test::DataDir dir;
    test::App app(dir.path());
    app.click(QStringLiteral("lblPrac"));
    QVERIFY(app.state.PracticeMode && !app.state.TestMode);
    QCOMPARE(int(app.state.ActivityIndex), 1);
    app.click(QStringLiteral("Back"));
    app.click(QStringLiteral("lblTest"));
    QVERIFY(!app.state.PracticeMode && app.state.TestMode);
    QCOMPARE(int(app.state.ActivityIndex), 2);
}

void TestMenus::levelPreselection_data()
{
    QTest::addColumn<int>("chosen");
    QTest::addColumn<bool>("leaveAfterExercise");
    QTest::newRow("level 3 kept") << 3 << false;
    QTest::newRow("level 2 kept") << 2 << false;
    QTest::newRow("level 1 kept") << 1 << false;
    QTest::newRow("level kept after an exercise was looked for") << 3 << true;
}

void TestMenus::levelPreselection()
{
    QFETCH(int, chosen);
    QFETCH(bool, leaveAfterExercise);
    test::DataDir dir;
    dir.writeRecords(DataFile::Rcmc, {{QStringLiteral("101")}});
    test::App app(dir.path());
    app.click(QStringLiteral("lblPrac"));
    app.click(QStringLiteral("lblrcmc"));
    QCOMPARE(app.topCode(), QStringLiteral("Pracchoice"));
    QVERIFY(app.get<ui::MenuLabel>(QStringLiteral("lblLevel1"))->isChosen()); // first visit: level 1
    app.click(QStringLiteral("lblLevel%1").arg(chosen));
    QCOMPARE(app.state.ExerciseCode, QStringLiteral("0"));
    if (leaveAfterExercise) {
        app.click(QStringLiteral("lblEx4")); // not found
        app.click(QStringLiteral("Continue"));
    }
    app.click(QStringLiteral("Back"));
    app.click(QStringLiteral("lblrcmc"));
    for (int level = 1; level <= 3; ++level) {
        auto *l = app.get<ui::MenuLabel>(QStringLiteral("lblLevel%1").arg(level));
        QCOMPARE(l->isChosen(), level == chosen);
        QCOMPARE(l->font().bold(), level == chosen);
        QVERIFY(isWhite(l));
    }
}

void TestMenus::highlightMovesBetweenLabels()
{
    test::DataDir dir;
    test::App app(dir.path());
    app.click(QStringLiteral("lblPrac"));
    app.click(QStringLiteral("lblrcmc"));
    auto *ex1 = app.get<QLabel>(QStringLiteral("lblEx1"));
    auto *ex2 = app.get<QLabel>(QStringLiteral("lblEx2"));
    auto *level2 = app.get<QLabel>(QStringLiteral("lblLevel2"));
    auto *level1 = app.get<ui::MenuLabel>(QStringLiteral("lblLevel1"));
    app.hover(QStringLiteral("lblEx1"));
    QVERIFY(isLit(ex1));
    QVERIFY(!isLit(ex2));
    app.hover(QStringLiteral("lblEx2"));
    QVERIFY(!isLit(ex1));
    QVERIFY(isWhite(ex1) && !ex1->font().bold());
    QVERIFY(isLit(ex2));
    app.hover(QStringLiteral("lblLevel2"));
    QVERIFY(isLit(level2));
    QVERIFY(!isLit(ex2));
    // The chosen level stays white and bold while another label is lit.
    QVERIFY(level1->isChosen() && isWhite(level1) && level1->font().bold());
}

void TestMenus::missingKeyBeepsAndShowsNotFound()
{
    test::DataDir dir;
    dir.writeRecords(DataFile::Rcmc, {{QStringLiteral("101")}, {QStringLiteral("102")}});
    test::App app(dir.path());
    app.openPractice(QStringLiteral("lblrcmc"), 2, 7);
    QCOMPARE(app.sound.events, QStringList{QStringLiteral("beep")});
    QCOMPARE(app.topCode(), QStringLiteral("Error"));
    QVERIFY(app.top()->isModalScreen());
    QCOMPARE(app.text(QStringLiteral("Label1")), QStringLiteral("Not found"));
    QCOMPARE(app.text(QStringLiteral("lblContinue")), QStringLiteral("Continue"));
    QCOMPARE(app.state.ExerciseKey, QStringLiteral("207"));
    app.click(QStringLiteral("Continue"));
    QCOMPARE(app.topCode(), QStringLiteral("Pracchoice")); // the menu stays as it was
}

void TestMenus::missingDataFileSaysNoFile()
{
    test::DataDir dir;
    test::App app(dir.path());
    app.openPractice(QStringLiteral("lblueec"), 1, 1);
    QCOMPARE(app.topCode(), QStringLiteral("Error"));
    QCOMPARE(app.text(QStringLiteral("Label1")), QStringLiteral("No file"));
}

void TestMenus::kindsWithoutScreensSaySoPlainly_data()
{
    QTest::addColumn<QString>("label");
    QTest::addColumn<QString>("message");
    QTest::newRow("sentence conversion") << QStringLiteral("lbluesc")
                                         << QStringLiteral("Sentence Conversion exercises are not available in this version yet.");
    QTest::newRow("word formation") << QStringLiteral("lbluewb")
                                    << QStringLiteral("Word Formation exercises are not available in this version yet.");
    QTest::newRow("writing") << QStringLiteral("lblComp")
                             << QStringLiteral("Writing exercises are not available in this version yet.");
}

void TestMenus::kindsWithoutScreensSaySoPlainly()
{
    QFETCH(QString, label);
    QFETCH(QString, message);
    test::DataDir dir;
    test::App app(dir.path());
    app.click(QStringLiteral("lblPrac"));
    app.click(label);
    QCOMPARE(app.topCode(), QStringLiteral("Error"));
    QCOMPARE(app.text(QStringLiteral("Label1")), message);
    app.click(QStringLiteral("Continue"));
    QCOMPARE(app.topCode(), QStringLiteral("Practype"));
}

void TestMenus::backReturnsToTheStartScreen()
{
    test::DataDir dir;
    test::App app(dir.path());
    app.click(QStringLiteral("lblPrac"));
    QCOMPARE(app.text(QStringLiteral("lblPaper3")), QStringLiteral("P a p e r   3  ( U s e  o f  E n g l i s h )"));
    app.click(QStringLiteral("lblBack")); // the caption works like its button
    QCOMPARE(app.topCode(), QStringLiteral("Intro"));
}

QTEST_MAIN(TestMenus)
#include "tst_menus.moc"
