#include "progressscreens.h"

#include "charts/chartfactory.h"
#include "frame/core/state.h"
#include "frame/menus.h"
#include "frame/modules.h"

#include <QCoreApplication>
#include <QDir>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLocale>
#include <QSaveFile>
#include <QStandardPaths>
#include <QTableWidget>

namespace sd {

namespace {

const QLocale english(QLocale::English, QLocale::UnitedKingdom);

QString dateText(const QDateTime &t)
{
    return english.toString(t.toUTC().date(), QStringLiteral("d MMM yyyy"));
}

QString paperName(int paper)
{
    static const char *const names[] = {"", "Reading", "Writing", "Use of English"};
    return paper >= 1 && paper <= 3 ? QString::fromLatin1(names[paper]) : QString();
}

int sectionsOfPaper(int paper)
{
    return paper == 1 ? 4 : paper == 2 ? 2 : 5;
}

QTableWidget *addTable(ui::Screen *screen, const QString &name, const QStringList &headers, QRect rect)
{
    auto *t = new QTableWidget(0, int(headers.size()), screen);
    t->setObjectName(name);
    t->setHorizontalHeaderLabels(headers);
    t->setEditTriggers(QAbstractItemView::NoEditTriggers);
    t->setSelectionBehavior(QAbstractItemView::SelectRows);
    t->setSelectionMode(QAbstractItemView::SingleSelection);
    t->verticalHeader()->hide();
    t->horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    screen->place(t, rect, 10);
    return t;
}

void setRow(QTableWidget *t, int row, const QStringList &cells)
{
    for (int c = 0; c < cells.size(); ++c)
        t->setItem(row, c, new QTableWidgetItem(cells.at(c)));
}

} // namespace

QString exerciseTitle(const ProgramState &state, int kind, int level, const QString &exercise)
{
    return QStringLiteral("%1, level %2, exercise %3").arg(state.KindNames[kind]).arg(level).arg(exercise.right(2).toInt());
}

Progress::Progress(ProgramState &s, Navigator &nav) : AppScreen(QStringLiteral("Progress"), s, nav)
{
    setBackgroundPicture(QStringLiteral("background"));
    addLabel(QStringLiteral("lblTitle"), QStringLiteral("MY PROGRESS"), QRect(112, 6, 800, 40), 22, true, Qt::AlignCenter);
    m_problem = addLabel(QStringLiteral("lblProblem"), QString(), QRect(16, 46, 992, 28), 11, true, Qt::AlignCenter);
    m_problem->setWordWrap(true);
    addLabel(QStringLiteral("lblTestsTitle"), QStringLiteral("Test papers sat"), QRect(512, 334, 496, 22), 11, true);
    m_tests = addTable(this, QStringLiteral("tblTests"),
                       {QStringLiteral("Paper"), QStringLiteral("Test"), QStringLiteral("Date"), QStringLiteral("Time taken"),
                        QStringLiteral("Sections"), QStringLiteral("Percentage"), QStringLiteral("Verdict")},
                       QRect(512, 358, 496, 202));
    m_tests->setAccessibleName(QStringLiteral("Test papers sat"));
    m_agreement = addLabel(QStringLiteral("lblAgreement"), QString(), QRect(16, 570, 480, 100), 12, false,
                           Qt::AlignLeft | Qt::AlignTop);
    m_agreement->setWordWrap(true);
    addLabel(QStringLiteral("lblCompositionsTitle"), QStringLiteral("Compositions saved"), QRect(512, 568, 496, 22), 11, true);
    m_compositions = addTable(this, QStringLiteral("tblCompositions"),
                              {QStringLiteral("Title"), QStringLiteral("Words"), QStringLiteral("Date")},
                              QRect(512, 592, 496, 82));
    m_compositions->setAccessibleName(QStringLiteral("Compositions saved"));

    ui::ImageButton *mistakes = addButton(QStringLiteral("Mistakes"), QStringLiteral("seewrong"), QRect(286, 684, 48, 48),
                                          QStringLiteral("lblMistakes"), QStringLiteral("my mistakes"),
                                          QRect(226, 732, 168, 30));
    ui::ImageButton *exportButton = addButton(QStringLiteral("Export"), QStringLiteral("save"), QRect(488, 684, 48, 48),
                                              QStringLiteral("lblExport"), QStringLiteral("Export..."),
                                              QRect(428, 732, 168, 30));
    ui::ImageButton *quit = addButton(QStringLiteral("Quit"), QStringLiteral("back"), QRect(690, 684, 48, 48),
                                      QStringLiteral("lblQuit"), QStringLiteral("Close"), QRect(630, 732, 168, 30));
    onClick(mistakes, [this] { this->nav().open(QStringLiteral("Mistakes")); });
    onClick(exportButton, [this] { exportHistory(); });
    onClick(quit, [this] { closeScreen(); });
}

void Progress::showEvent(QShowEvent *e)
{
    // Each time it shows, back from the mistakes list or an exercise too: what was done since shows.
    fill();
    AppScreen::showEvent(e);
}

charts::ChartFactory *Progress::loadCharts()
{
    const auto make =
        reinterpret_cast<charts::FactoryFunction>(moduleFunction("studydesk_charts", charts::FactorySymbol, &m_chartsProblem));
    return make ? make() : nullptr;
}

void Progress::fill()
{
    const ProgressSummary summary = state.History->summary();

    qDeleteAll(m_charts);
    m_charts.clear();
    charts::ChartFactory *factory = loadCharts();
    const auto place = [this](QWidget *w, const QString &name, QRect r) {
        w->setObjectName(name);
        AppScreen::place(w, r, 9);
        w->show();
        m_charts.append(w);
    };
    const auto nothing = [this, &place](int n, QRect r, const QString &text) {
        QLabel *l = new QLabel(text, this);
        l->setTextFormat(Qt::PlainText);
        l->setAlignment(Qt::AlignCenter);
        l->setWordWrap(true);
        l->setFrameShape(QFrame::Box);
        place(l, QStringLiteral("lblNothing%1").arg(n), r);
    };
    const QString missing = QStringLiteral("The charts cannot be shown: ") + m_chartsProblem;

    for (int paper = 1; paper <= 3; ++paper) {
        const QRect r(16 + (paper - 1) * 336, 76, 320, 250);
        charts::LineSeries practice{QStringLiteral("Practice"), {}, false}, tests{QStringLiteral("Tests"), {}, true};
        for (const ProgressSummary::Point &p : summary.points)
            if (p.paper == paper)
                (p.test ? tests : practice).points.append({p.at, p.percent});
        if (practice.points.isEmpty() && tests.points.isEmpty())
            nothing(paper, r, paperName(paper) + QStringLiteral("\n\n") + nothingYet());
        else if (!factory)
            nothing(paper, r, missing);
        else
            place(factory->percentOverTime(paperName(paper), {practice, tests}, this), QStringLiteral("chtPaper%1").arg(paper), r);
    }
    const QRect kinds(16, 334, 480, 226);
    QList<charts::Bar> bars;
    for (const ProgressSummary::KindAverage &k : summary.kinds)
        bars.append({QStringLiteral("%1 (%2)").arg(state.KindNames[k.kind]).arg(k.count), k.percent});
    const QString kindsTitle = QStringLiteral("Average by kind of exercise (number done)");
    if (bars.isEmpty())
        nothing(4, kinds, kindsTitle + QStringLiteral("\n\n") + nothingYet());
    else if (!factory)
        nothing(4, kinds, missing);
    else
        place(factory->averages(kindsTitle, bars, this), QStringLiteral("chtKinds"), kinds);

    m_tests->setRowCount(int(summary.tests.size()));
    for (int row = 0; row < summary.tests.size(); ++row) {
        const ProgressSummary::TestRow &t = summary.tests.at(row);
        setRow(m_tests, row,
               {paperName(t.paper), QString::number(t.test), dateText(t.at), QStringLiteral("%1 min").arg(t.seconds / 60),
                QStringLiteral("%1 of %2").arg(t.sectionsDone).arg(sectionsOfPaper(t.paper)),
                t.percent ? QStringLiteral("%1%").arg(*t.percent) : QStringLiteral("-"), t.verdict});
    }
    m_agreement->setText(summary.gradingsCounted == 0
                             ? QStringLiteral("Sample compositions: you have not scored a sample yet.")
                             : QStringLiteral("Sample compositions: your verdict agreed with the examiner's on %1 of the "
                                              "last %2 you scored.")
                                   .arg(summary.gradingsAgreed)
                                   .arg(summary.gradingsCounted));
    m_compositions->setRowCount(int(summary.compositions.size()));
    for (int row = 0; row < summary.compositions.size(); ++row) {
        const ProgressSummary::CompositionRow &c = summary.compositions.at(row);
        setRow(m_compositions, row, {c.title, QString::number(c.words), dateText(c.savedAt)});
    }
    // Asked last: the queries above may have met the fault.
    m_problem->setText(state.History->problem());
    m_problem->setVisible(!m_problem->text().isEmpty());
    nameControlsForScreenReaders();
}

void Progress::exportHistory()
{
    const QString proposed = QDir(QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation))
                                 .filePath(QStringLiteral("studydesk-history.csv"));
    const QString path = state.SaveAs->askSaveFile(QStringLiteral("Export your history"), proposed,
                                                   QStringLiteral("CSV file (*.csv)"));
    if (path.isEmpty())
        return;
    QSaveFile file(path);
    if (file.open(QIODevice::WriteOnly) && state.History->exportCsv(file) && file.commit()) {
        nav().showMessage(QStringLiteral("Your history was exported to %1.").arg(QDir::toNativeSeparators(path)));
        return;
    }
    file.cancelWriting();
    const QString reason = file.error() != QFileDevice::NoError ? file.errorString() : state.History->problem();
    nav().showMessage(QStringLiteral("Your history could not be exported: %1").arg(reason));
}

Mistakes::Mistakes(ProgramState &s, Navigator &nav) : AppScreen(QStringLiteral("Mistakes"), s, nav)
{
    setBackgroundPicture(QStringLiteral("background"));
    addLabel(QStringLiteral("lblTitle"), QStringLiteral("MY MISTAKES"), QRect(112, 10, 800, 44), 22, true, Qt::AlignCenter);
    addLabel(QStringLiteral("lblInstruction"),
             QStringLiteral("Every question you last answered wrong, newest first. Choose one and open its exercise."),
             QRect(40, 56, 944, 30), 12, false, Qt::AlignCenter);
    m_table = addTable(this, QStringLiteral("tblMistakes"),
                       {QStringLiteral("Exercise"), QStringLiteral("Question"), QStringLiteral("Your answer"),
                        QStringLiteral("Correct answer")},
                       QRect(40, 96, 944, 560));
    m_table->setAccessibleName(QStringLiteral("Mistakes"));
    m_table->horizontalHeader()->setSectionResizeMode(0, QHeaderView::ResizeToContents);
    m_none = addLabel(QStringLiteral("lblNothing"), QStringLiteral("No mistakes to go over."), QRect(40, 300, 944, 40), 14,
                      true, Qt::AlignCenter);
    connect(m_table, &QTableWidget::cellActivated, this, [this] { guarded([this] { openChosen(); }); });

    ui::ImageButton *open = addButton(QStringLiteral("Open"), QStringLiteral("next"), QRect(386, 670, 52, 52),
                                      QStringLiteral("lblOpen"), QStringLiteral("Open exercise"), QRect(326, 724, 172, 30));
    ui::ImageButton *quit = addButton(QStringLiteral("Quit"), QStringLiteral("back"), QRect(586, 670, 52, 52),
                                      QStringLiteral("lblQuit"), QStringLiteral("Close"), QRect(526, 724, 172, 30));
    m_open = open;
    onClick(open, [this] { openChosen(); });
    onClick(quit, [this] { closeScreen(); });
}

void Mistakes::showEvent(QShowEvent *e)
{
    // Back from an exercise: what was put right since has left the list.
    fill();
    AppScreen::showEvent(e);
}

void Mistakes::fill()
{
    m_items = state.History->mistakes();
    m_table->setRowCount(int(m_items.size()));
    for (int row = 0; row < m_items.size(); ++row) {
        const Mistake &m = m_items.at(row);
        setRow(m_table, row,
               {exerciseTitle(state, m.kind, m.level, m.exercise), QString::number(m.question), m.given, m.expected});
    }
    m_none->setVisible(m_items.isEmpty());
    m_table->setVisible(!m_items.isEmpty());
    m_open->setVisible(!m_items.isEmpty());
    m_open->caption()->setVisible(!m_items.isEmpty());
    if (!m_items.isEmpty())
        m_table->selectRow(0);
}

void Mistakes::openChosen()
{
    const int row = m_table->currentRow();
    if (row < 0 || row >= m_items.size())
        return;
    const Mistake m = m_items.at(row);
    state.PracticeMode = true;
    state.TestMode = false;
    state.ActivityIndex = 1;
    ChoosePracticeKind(state, m.kind);
    const QString menu = practiceMenuScreen(m.kind);
    if (!nav().isRegistered(menu)) {
        showNotAvailable(nav(), state, state.KindNames[m.kind] + QStringLiteral(" exercises"));
        return;
    }
    // Through the kind's menu, so that leaving the exercise lands where it always does.
    if (auto *exercises = dynamic_cast<ExerciseMenu *>(nav().open(menu)))
        exercises->openExercise(m.level, m.exercise.right(2).toInt());
}

} // namespace sd
