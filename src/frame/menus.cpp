#include "menus.h"

#include "core/services.h"
#include "core/settings.h"
#include "core/state.h"

#include <QCheckBox>
#include <QCoreApplication>
#include <QPushButton>
#include <QSlider>

#include <algorithm>
#include <cmath>

namespace sd {

namespace {
QLabel *title(ui::Screen *s, const QString &name, const QString &text, QRect r, qreal pt = 20)
{
    return s->addLabel(name, text, r, pt, true, Qt::AlignCenter);
}
} // namespace

Introback::Introback(ProgramState &s, Navigator &nav) : AppScreen(QStringLiteral("Introback"), s, nav)
{
    setBackgroundPicture(QStringLiteral("background"));
    addPicture(QStringLiteral("logo"), QStringLiteral("logo"), QRect(32, 24, 96, 96));
    addLabel(QStringLiteral("lblTitle"), QStringLiteral("StudyDesk"), QRect(140, 40, 500, 60), 30, true);
}

Intro::Intro(ProgramState &s, Navigator &nav) : AppScreen(QStringLiteral("Intro"), s, nav)
{
    setBackgroundPicture(QStringLiteral("background"));
    // Filled once, here, and never reset: the start directory, the name tables, the help topic.
    auto *file1 = new QLabel(this);
    file1->setTextFormat(Qt::PlainText);
    file1->setObjectName(QStringLiteral("File1"));
    file1->setText(s.StartDir);
    file1->hide();
    s.setDataDir(s.StartDir);
    QLabel *ruta = addLabel(QStringLiteral("lblRuta"), s.DataDir, QRect(20, 740, 900, 20), 8);
    ruta->hide();
    s.HelpTopic = QStringLiteral("helpgen");
    s.fillNameTables();

    addPicture(QStringLiteral("logo"), QStringLiteral("logo"), QRect(432, 60, 160, 160));
    title(this, QStringLiteral("lblTitle"), QStringLiteral("StudyDesk"), QRect(212, 230, 600, 60), 34);
    addLabel(QStringLiteral("lblSubtitle"), QStringLiteral("Reading  \u00B7  Writing  \u00B7  Use of English"),
             QRect(212, 290, 600, 30), 14, false, Qt::AlignCenter);

    const Qt::Alignment c = Qt::AlignCenter;
    const auto entry = [](int n) { return QRect(362, 336 + n * 54, 300, 44); };
    ui::MenuLabel *prog = addMenuLabel(QStringLiteral("lblAboutprog"), QStringLiteral("about the program"), entry(0), 18, c);
    ui::MenuLabel *about = addMenuLabel(QStringLiteral("lblAbout"), QStringLiteral("about the exam"), entry(1), 18, c);
    ui::MenuLabel *prac = addMenuLabel(QStringLiteral("lblPrac"), QStringLiteral("practice exercises"), entry(2), 18, c);
    ui::MenuLabel *test = addMenuLabel(QStringLiteral("lblTest"), QStringLiteral("test papers"), entry(3), 18, c);
    ui::MenuLabel *progress = addMenuLabel(QStringLiteral("lblProgress"), QStringLiteral("my progress"), entry(4), 18, c);
    ui::MenuLabel *settings = addMenuLabel(QStringLiteral("lblSettings"), QStringLiteral("settings"), entry(5), 18, c);
    ui::MenuLabel *exit = addMenuLabel(QStringLiteral("lblExit"), QStringLiteral("exit"), entry(6), 18, c);
    onClick(settings, [this] { this->nav().open(QStringLiteral("Settings")); });
    onClick(progress, [this] {
        if (this->nav().isRegistered(QStringLiteral("Progress")))
            this->nav().open(QStringLiteral("Progress"));
    });
    onClick(exit, [] { QCoreApplication::quit(); });

    onClick(about, [this] { openHelp(QStringLiteral("helpgen")); });
    onClick(prog, [this] { openHelp(QStringLiteral("helpprog")); });
    onClick(prac, [this] {
        state.PracticeMode = true;
        state.ActivityIndex = 1;
        state.TestMode = false;
        goOn(QStringLiteral("Practype"));
    });
    onClick(test, [this] {
        state.PracticeMode = false;
        state.TestMode = true;
        state.ActivityIndex = 2;
        goOn(QStringLiteral("Examtype"));
    });
}

void Intro::goOn(const QString &next)
{
    if (!nav().isRegistered(next)) {
        showNotAvailable(nav(), state, QStringLiteral("The test papers"));
        return;
    }
    nav().open(next);
}

const char *Practype::kindLabel(int kind)
{
    static const char *labels[] = {"lblrche", "lblrcmc", "lblrcre", "lblrcma", "lblComp",
                                   "lblueca", "lbluecb", "lbluesc", "lblueec", "lbluewb"};
    return labels[kind - 1];
}

Practype::Practype(ProgramState &s, Navigator &nav) : AppScreen(QStringLiteral("Practype"), s, nav)
{
    setBackgroundPicture(QStringLiteral("background"));
    title(this, QStringLiteral("lblSelect"), QStringLiteral("CHOOSE THE TYPE OF EXERCISE"), QRect(112, 30, 800, 50), 22);
    addLabel(QStringLiteral("lblPaper1"), QStringLiteral("P a p e r   1  ( R e a d i n g )"), QRect(100, 110, 400, 36), 14,
             true);
    addLabel(QStringLiteral("lblPaper2"), QStringLiteral("P a p e r   2"), QRect(100, 390, 400, 36), 14, true);
    addLabel(QStringLiteral("lblPaper3"), QStringLiteral("P a p e r   3  ( U s e  o f  E n g l i s h )"),
             QRect(540, 110, 440, 36), 14, true);
    const QRect reading(130, 160, 340, 40), uoe(570, 160, 340, 40);
    for (int k = 1; k <= 10; ++k) {
        QRect r;
        if (k <= 4)
            r = reading.translated(0, (k - 1) * 52);
        else if (k == 5)
            r = QRect(130, 440, 340, 40);
        else
            r = uoe.translated(0, (k - 6) * 52);
        ui::MenuLabel *l = addMenuLabel(QString::fromLatin1(kindLabel(k)), s.KindNames[k], r, 16);
        onClick(l, [this, k] { choose(k); });
    }
    ui::ImageButton *back = addButton(QStringLiteral("Back"), QStringLiteral("back"), QRect(486, 650, 52, 52),
                                      QStringLiteral("lblBack"), QStringLiteral("Back"));
    onClick(back, [this] { closeScreen(); });
}

void ChoosePracticeKind(ProgramState &state, int kind)
{
    state.ExerciseKind = kind;
    if (kind == 5) {
        state.PaperIndex = 2;
        state.DataDir = state.WritingDir;
    } else if (kind < 5) {
        state.PaperIndex = 1;
        state.DataDir = state.ReadingDir;
    } else {
        state.PaperIndex = 3;
        state.DataDir = state.UseOfEnglishDir;
    }
    SelectDataFile(state, kind);
}

QString practiceMenuScreen(int kind)
{
    return kind == 8    ? QStringLiteral("uescchoice")
           : kind == 10 ? QStringLiteral("uewbchoice")
           : kind == 5  ? QStringLiteral("compoption")
                        : QStringLiteral("Pracchoice");
}

void LevelMenuRows::add(AppScreen *screen, const ProgramState &s, int kind, const QString &levelCaption,
                        const QString &exerciseCaption, const std::function<void(int)> &chooseLevel,
                        const std::function<void(int)> &chooseExercise)
{
    screen->addHeadingPlate(1, s.ActivityHeadings[s.ActivityIndex].toUpper(), QRect(84, 20, 272, 42));
    screen->addHeadingPlate(2, s.PaperHeadings[s.PaperIndex].toUpper(), QRect(376, 20, 272, 42));
    screen->addHeadingPlate(3, s.KindNames[kind].toUpper(), QRect(668, 20, 272, 42));
    title(screen, QStringLiteral("lblSelect1"), QStringLiteral("SELECT LEVEL AND EXERCISE"), QRect(112, 90, 800, 50), 22);
    const auto onClick = [screen](ui::MenuLabel *label, const std::function<void(int)> &choose, int n) {
        QObject::connect(label, &ui::MenuLabel::clicked, screen, [screen, choose, n] { screen->guarded([&] { choose(n); }); });
    };
    for (int level = 1; level <= 3; ++level) {
        ui::MenuLabel *l = screen->addMenuLabel(QStringLiteral("lblLevel%1").arg(level), levelCaption.arg(level),
                                                QRect(150, 190 + (level - 1) * 70, 260, 50), 20);
        onClick(l, chooseLevel, level);
        m_levels.append(l);
    }
    const auto caption = [](int n) { return QRect(500 + ((n - 1) / 5) * 250, 180 + ((n - 1) % 5) * 60, 170, 44); };
    for (int n = 1; n <= 10; ++n)
        onClick(screen->addMenuLabel(QStringLiteral("lblEx%1").arg(n), exerciseCaption.arg(n), caption(n), 16), chooseExercise, n);
    for (int n = 1; n <= 10; ++n) {
        const QRect c = caption(n);
        m_marks.append(screen->addLabel(QStringLiteral("lblBest%1").arg(n), QString(), QRect(c.right() + 4, c.y(), 70, c.height()),
                                        13, false, Qt::AlignLeft | Qt::AlignVCenter));
    }
}

void LevelMenuRows::showChosenLevel(const QString &levelCode)
{
    for (int i = 0; i < m_levels.size(); ++i)
        m_levels[i]->setChosen(levelCode == QString::number(i + 1));
}

QString LevelMenuRows::markText(double score, double max)
{
    const auto number = [](double v) { return QString::number(v, 'g', v == std::floor(v) ? 6 : 3); };
    return number(score) + u'/' + number(max);
}

void LevelMenuRows::showBest(ProgramState &state, int kind, int level)
{
    const QMap<int, BestScore> best = state.History->bestScores(kind, level);
    for (int n = 1; n <= m_marks.size(); ++n) {
        QLabel *l = m_marks.at(n - 1);
        const auto it = best.constFind(n);
        if (it == best.constEnd()) {
            l->setText(QStringLiteral("new"));
            l->setAccessibleName(QStringLiteral("Exercise %1 not done yet").arg(n));
        } else {
            l->setText(markText(it->score, it->max));
            l->setAccessibleName(QStringLiteral("Exercise %1, best score %2 out of %3")
                                     .arg(n)
                                     .arg(it->score)
                                     .arg(it->max));
        }
    }
}

void Practype::choose(int kind)
{
    ChoosePracticeKind(state, kind);
    const QString next = practiceMenuScreen(kind);
    if (!nav().isRegistered(next)) {
        showNotAvailable(nav(), state, state.KindNames[kind] + QStringLiteral(" exercises"));
        return;
    }
    nav().open(next);
}

QString Pracchoice::exerciseScreen(int kind)
{
    static const char *codes[] = {"rche", "rcmc", "rcre", "rcma", "compoption",
                                  "ueca", "uecb", "uesc", "ueec", "uewb"};
    return kind >= 1 && kind <= 10 ? QString::fromLatin1(codes[kind - 1]) : QString();
}

Pracchoice::Pracchoice(ProgramState &s, Navigator &nav) : AppScreen(QStringLiteral("Pracchoice"), s, nav)
{
    setBackgroundPicture(QStringLiteral("background"));
    m_rows.add(this, s, s.ExerciseKind, QStringLiteral(" LEVEL  %1"), QStringLiteral(" Exercise %1"),
               [this](int level) { chooseLevel(level); }, [this](int n) { chooseExercise(n); });
    ui::ImageButton *back = addButton(QStringLiteral("Back"), QStringLiteral("back"), QRect(486, 650, 52, 52),
                                      QStringLiteral("lblBack"), QStringLiteral("Back"));
    onClick(back, [this] { closeScreen(); });

    // The last level chosen is shown again; anything else starts at level 1.
    static const QStringList kept{QStringLiteral("2"), QStringLiteral("3"), QStringLiteral("4"), QStringLiteral("5")};
    if (!kept.contains(s.LevelCode))
        s.LevelCode = QStringLiteral("1");
    s.CurrentRecord = 0;
    m_code = addLabel(QStringLiteral("lblCode"), s.ExerciseCode, QRect(20, 740, 100, 20), 8);
    m_code->hide();
    s.HoverIndex = 0;
    showChosenLevel();
}

void Pracchoice::showEvent(QShowEvent *e)
{
    // Back from an exercise: its score may be the best now.
    m_rows.showBest(state, state.ExerciseKind, state.LevelCode.toInt());
    AppScreen::showEvent(e);
}

void Pracchoice::openExercise(int level, int exercise)
{
    chooseLevel(level);
    chooseExercise(exercise);
}

void Pracchoice::showChosenLevel()
{
    m_rows.showChosenLevel(state.LevelCode);
    // A screen reader names the exercise with the level it belongs to.
    for (int n = 1; n <= 10; ++n)
        if (auto *l = findChild<QLabel *>(QStringLiteral("lblEx%1").arg(n)))
            l->setAccessibleName(QStringLiteral("Exercise %1, level %2").arg(n).arg(state.LevelCode));
}

void Pracchoice::chooseLevel(int level)
{
    state.LevelCode = QString::number(level);
    state.ExerciseCode = QStringLiteral("0");
    m_code->setText(state.ExerciseCode);
    showChosenLevel();
    m_rows.showBest(state, state.ExerciseKind, level);
}

void Pracchoice::chooseExercise(int n)
{
    state.ExerciseCode = QStringLiteral("%1").arg(n, 2, 10, QLatin1Char('0'));
    m_code->setText(state.ExerciseCode);
    const QString next = exerciseScreen(state.ExerciseKind);
    if (!FindOrShowError(nav(), [this] { return FindPracticeRecord(state); }))
        return;
    if (!nav().isRegistered(next)) {
        CloseDataFile(state);
        showNotAvailable(nav(), state, state.KindNames[state.ExerciseKind] + QStringLiteral(" exercises"));
        return;
    }
    nav().open(next);
}

ErrorScreen::ErrorScreen(ProgramState &s, Navigator &nav) : AppScreen(QStringLiteral("Error"), s, nav)
{
    setDesignSize(QSize(460, 240));
    setWindowTitle(QStringLiteral("StudyDesk"));
    if (s.SoundOn)
        s.Sound.beep();
    addLabel(QStringLiteral("Label1"), s.ErrorText, QRect(20, 20, 420, 120), 14, true, Qt::AlignCenter);
    ui::ImageButton *cont = addButton(QStringLiteral("Continue"), QStringLiteral("continue"), QRect(204, 146, 52, 52),
                                      QStringLiteral("lblContinue"), QStringLiteral("Continue"));
    onClick(cont, [this] { closeScreen(); });
}

Settings::Settings(ProgramState &s, Navigator &nav) : AppScreen(QStringLiteral("Settings"), s, nav)
{
    setBackgroundPicture(QStringLiteral("background"));
    title(this, QStringLiteral("lblSelect1"), QStringLiteral("SETTINGS"), QRect(112, 60, 800, 60), 24);
    auto check = [this](const QString &name, const QString &text, bool on, int y) {
        auto *box = new QCheckBox(text, this);
        box->setObjectName(name);
        box->setChecked(on);
        box->setAccessibleName(text);
        place(box, QRect(262, y, 500, 44), 16);
        connect(box, &QCheckBox::toggled, this, [this] { changed(); });
        return box;
    };
    check(QStringLiteral("chkClock"), QStringLiteral("Show the clock on exercise screens"), s.ClockShown, 170);
    check(QStringLiteral("chkSound"), QStringLiteral("Play sounds"), s.SoundOn, 240);
    addLabel(QStringLiteral("lblVolume"), QStringLiteral("Volume"), QRect(300, 300, 140, 40), 14);
    auto *volume = new QSlider(Qt::Horizontal, this);
    volume->setObjectName(QStringLiteral("sldVolume"));
    volume->setRange(0, 100);
    volume->setSingleStep(10);
    volume->setPageStep(20);
    volume->setValue(s.Volume);
    volume->setEnabled(s.SoundOn);
    volume->setAccessibleName(QStringLiteral("Volume"));
    place(volume, QRect(450, 300, 300, 40));
    connect(volume, &QSlider::valueChanged, this, [this] { changed(); });
    check(QStringLiteral("chkWebPages"), QStringLiteral("Show passages as web pages"), s.ShowWebPages, 370);

    m_textSize = addLabel(QStringLiteral("lblTextSize"), QString(), QRect(262, 440, 300, 44), 16);
    auto step = [this](const QString &name, const QString &caption, int x, int delta) {
        auto *b = new QPushButton(caption, this);
        b->setObjectName(name);
        b->setAccessibleName(name == QStringLiteral("btnNormal") ? QStringLiteral("Normal text size")
                             : delta > 0                         ? QStringLiteral("Larger text")
                                                                 : QStringLiteral("Smaller text"));
        place(b, QRect(x, 442, 64, 40), 14);
        connect(b, &QPushButton::clicked, this, [this, delta] {
            state.TextStep = delta == 0 ? 0
                                        : std::clamp(state.TextStep + delta, StudentSettings::SmallestTextStep,
                                                     StudentSettings::LargestTextStep);
            changed();
        });
    };
    step(QStringLiteral("btnSmaller"), QStringLiteral("A-"), 572, -1);
    step(QStringLiteral("btnNormal"), QStringLiteral("A"), 642, 0);
    step(QStringLiteral("btnLarger"), QStringLiteral("A+"), 712, +1);
    showTextSize();

    ui::ImageButton *quit = addButton(QStringLiteral("Quit"), QStringLiteral("back"), QRect(486, 620, 52, 52),
                                      QStringLiteral("lblQuit"), QStringLiteral("Close"));
    onClick(quit, [this] { closeScreen(); });
}

void Settings::showTextSize()
{
    m_textSize->setText(StudentSettings::textSizeCaption(state.TextStep));
}

void Settings::changed()
{
    state.ClockShown = findChild<QCheckBox *>(QStringLiteral("chkClock"))->isChecked();
    state.SoundOn = findChild<QCheckBox *>(QStringLiteral("chkSound"))->isChecked();
    state.Volume = findChild<QSlider *>(QStringLiteral("sldVolume"))->value();
    state.ShowWebPages = findChild<QCheckBox *>(QStringLiteral("chkWebPages"))->isChecked();
    findChild<QSlider *>(QStringLiteral("sldVolume"))->setEnabled(state.SoundOn);
    showTextSize();
    StudentSettings::keep(state);
}

MessageBox::MessageBox(ProgramState &s, Navigator &nav) : AppScreen(QStringLiteral("MessageBox"), s, nav)
{
    setDesignSize(QSize(460, 240));
    setWindowTitle(QStringLiteral("StudyDesk"));
    addLabel(QStringLiteral("lblMessage"), s.MessageText, QRect(20, 20, 420, 120), 13, false, Qt::AlignCenter);
    ui::ImageButton *ok = addButton(QStringLiteral("OK"), QStringLiteral("continue"), QRect(204, 146, 52, 52),
                                    QStringLiteral("lblOK"), QStringLiteral("OK"));
    onClick(ok, [this] { closeScreen(); });
}

bool FindOrShowError(Navigator &nav, const std::function<SearchResult()> &search)
{
    try {
        if (search() == SearchResult::Found)
            return true;
        nav.showError(QStringLiteral("Not found"));
    } catch (const FileTooLargeError &e) {
        nav.showError(e.message());
    } catch (const ProgramError &) {
        // The kind's data file is missing or cannot be read.
        nav.showError(QStringLiteral("No file"));
    }
    return false;
}

void showNotAvailable(Navigator &nav, ProgramState &, const QString &what)
{
    nav.showError(what + QStringLiteral(" are not available in this version yet."));
}

} // namespace sd
