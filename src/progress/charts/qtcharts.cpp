// The charts module: Qt Charts behind the ChartFactory interface.

#include "chartfactory.h"

#include <QBarCategoryAxis>
#include <QBarSeries>
#include <QBarSet>
#include <QChart>
#include <QChartView>
#include <QDateTimeAxis>
#include <QLineSeries>
#include <QScatterSeries>
#include <QValueAxis>

namespace sd::charts {

namespace {

/// Small type, so that the axes keep their labels in a chart a third of the window wide.
void useSmallType(QChart *chart)
{
    QFont labels = chart->font(), titles = chart->font();
    labels.setPointSizeF(7);
    titles.setPointSizeF(8);
    titles.setBold(true);
    chart->setTitleFont(titles);
    chart->legend()->setFont(labels);
    for (QAbstractAxis *axis : chart->axes()) {
        axis->setLabelsFont(labels);
        axis->setTitleFont(labels);
    }
}

QChartView *viewOf(QChart *chart, const QString &title, QWidget *parent)
{
    chart->setTitle(title);
    useSmallType(chart);
    chart->legend()->setAlignment(Qt::AlignBottom);
    chart->setMargins(QMargins(4, 4, 4, 4));
    auto *view = new QChartView(chart, parent);
    view->setRenderHint(QPainter::Antialiasing);
    view->setAccessibleName(title);
    view->setFocusPolicy(Qt::NoFocus);
    return view;
}

QValueAxis *percentAxis()
{
    auto *axis = new QValueAxis;
    axis->setRange(0, 100);
    axis->setLabelFormat(QStringLiteral("%d%"));
    axis->setTickCount(5);
    axis->setTitleText(QStringLiteral("Percentage"));
    return axis;
}

class QtChartFactory final : public ChartFactory
{
public:
    QWidget *percentOverTime(const QString &title, const QList<LineSeries> &series, QWidget *parent) override
    {
        auto *chart = new QChart;
        auto *dates = new QDateTimeAxis;
        dates->setFormat(QStringLiteral("d MMM"));
        dates->setTitleText(QStringLiteral("Date"));
        dates->setTickCount(4);
        QDateTime first, last;
        for (const LineSeries &s : series)
            for (const auto &p : s.points) {
                if (!first.isValid() || p.first < first)
                    first = p.first;
                if (!last.isValid() || p.first > last)
                    last = p.first;
            }
        if (first.isValid()) {
            // One day at least, so that a single point sits inside the chart.
            dates->setRange(first.addSecs(-3600), std::max(last, first.addDays(1)));
        }
        QValueAxis *percent = percentAxis();
        chart->addAxis(dates, Qt::AlignBottom);
        chart->addAxis(percent, Qt::AlignLeft);
        for (const LineSeries &s : series) {
            if (s.points.isEmpty())
                continue;
            auto *line = new QLineSeries;
            line->setName(s.name);
            QPen pen = line->pen();
            pen.setWidth(2);
            pen.setStyle(s.dashed ? Qt::DashLine : Qt::SolidLine);
            line->setPen(pen);
            line->setPointsVisible(true);
            for (const auto &p : s.points)
                line->append(double(p.first.toMSecsSinceEpoch()), p.second);
            chart->addSeries(line);
            line->attachAxis(dates);
            line->attachAxis(percent);
        }
        return viewOf(chart, title, parent);
    }

    QWidget *averages(const QString &title, const QList<Bar> &bars, QWidget *parent) override
    {
        auto *chart = new QChart;
        auto *set = new QBarSet(QStringLiteral("Average percentage"));
        QStringList labels;
        for (const Bar &b : bars) {
            *set << b.percent;
            labels.append(b.label);
        }
        auto *series = new QBarSeries;
        series->append(set);
        series->setLabelsVisible(true);
        series->setLabelsFormat(QStringLiteral("@value%"));
        series->setLabelsPrecision(3);
        chart->addSeries(series);
        auto *kinds = new QBarCategoryAxis;
        kinds->append(labels);
        chart->addAxis(kinds, Qt::AlignBottom);
        QValueAxis *percent = percentAxis();
        chart->addAxis(percent, Qt::AlignLeft);
        series->attachAxis(kinds);
        series->attachAxis(percent);
        chart->legend()->hide();
        return viewOf(chart, title, parent);
    }
};

} // namespace

} // namespace sd::charts

extern "C" Q_DECL_EXPORT sd::charts::ChartFactory *studydesk_chart_factory()
{
    static sd::charts::QtChartFactory factory;
    return &factory;
}
