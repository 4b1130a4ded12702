#pragma once

// What the charts module offers. The module is the only part of the program that links Qt Charts;
// it is loaded when the progress screen first opens, so the start screen never pays for it.

#include <QDateTime>
#include <QList>
#include <QString>

class QWidget;

namespace sd::charts {

/// One line of a percentage-over-time chart.
struct LineSeries
{
    QString name;
    QList<QPair<QDateTime, double>> points; ///< oldest first
    bool dashed = false;                    ///< told apart by the line as well as by colour
};

/// One bar of the averages chart.
struct Bar
{
    QString label; ///< shown under the bar, with the number of exercises it averages
    double percent = 0;
};

class ChartFactory
{
public:
    virtual ~ChartFactory() = default;
    /// A line chart with dates along the bottom and 0 to 100 % up the side.
    virtual QWidget *percentOverTime(const QString &title, const QList<LineSeries> &series, QWidget *parent) = 0;
    /// A bar chart with 0 to 100 % up the side.
    virtual QWidget *averages(const QString &title, const QList<Bar> &bars, QWidget *parent) = 0;
};

/// The name of the function the module exports: `ChartFactory *studydesk_chart_factory()`.
inline constexpr char FactorySymbol[] = "studydesk_chart_factory";
using FactoryFunction = ChartFactory *(*)();

} // namespace sd::charts
