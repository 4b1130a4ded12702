#pragma once

#include "frame/appscreen.h"
#include "frame/core/history.h"

#include <QLabel>

class QTableWidget;

namespace sd {

namespace charts {
class ChartFactory;
}

/// "MY PROGRESS": a chart of the percentage over time for each paper (practice and tests told
/// apart), a bar chart of the average per kind of exercise, the tests sat, the agreement with the
/// examiner on the samples, the compositions saved; `Mistakes` "my mistakes", `Export`
/// "Export..." (the history as CSV) and `Quit` "Close". A fault of the history shows in `lblProblem`.
class Progress : public AppScreen
{
    Q_OBJECT
public:
    Progress(ProgramState &state, Navigator &nav);

    static QString nothingYet() { return QStringLiteral("Nothing here yet: do an exercise and come back."); }

protected:
    void showEvent(QShowEvent *e) override;

private:
    /// The charts module, loaded on the first opening; null (with the reason shown) when missing.
    charts::ChartFactory *loadCharts();
    void fill();
    void exportHistory();

    QString m_chartsProblem; ///< why the charts module could not be loaded
    QLabel *m_problem = nullptr;
    QTableWidget *m_tests = nullptr, *m_compositions = nullptr;
    QLabel *m_agreement = nullptr;
    QList<QWidget *> m_charts;
};

/// "MY MISTAKES": every item last answered wrong in practice, newest first (`tblMistakes`);
/// `Open` (or Return on a row) opens that exercise; `Quit` "Close".
class Mistakes : public AppScreen
{
    Q_OBJECT
public:
    Mistakes(ProgramState &state, Navigator &nav);

protected:
    void showEvent(QShowEvent *e) override;

private:
    void fill();
    void openChosen();

    QTableWidget *m_table = nullptr;
    QLabel *m_none = nullptr;
    ui::ImageButton *m_open = nullptr;
    QList<Mistake> m_items;
};

/// "Multiple choice, level 2, exercise 7"
QString exerciseTitle(const ProgramState &state, int kind, int level, const QString &exercise);

} // namespace sd
