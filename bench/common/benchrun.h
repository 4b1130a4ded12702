// Helpers of the benchmarks: child processes timed with their peak memory, medians, and the one
// line each figure is printed on, its ratio to its reference first.
#pragma once

#include <QString>
#include <QStringList>

#include <functional>

namespace sd::bench {

struct Run
{
    double ms = 0;        ///< wall time from the start of the process to its end
    double peakMb = 0;    ///< its peak resident memory
    bool ok = false;      ///< exited normally with status 0
};

/// Runs `program` with `args`, its output thrown away, and waits for it; `env` adds NAME=VALUE pairs.
Run runProcess(const QString &program, const QStringList &args, const QStringList &env = {});
/// The median of `runs` runs (the one with the median time; ok only when all were).
Run medianRun(int runs, const std::function<Run()> &one);
/// Milliseconds of the work, the median of `runs`.
double medianMs(int runs, const std::function<void()> &work);

/// "name 1.31x reference (61 ms vs 47 ms)": value over reference, then both with their unit.
void printRatio(const char *name, double value, double reference, const char *referenceName, const char *unit,
                const QString &note = {});

} // namespace sd::bench
