#include "benchrun.h"

#include <QElapsedTimer>

#include <algorithm>
#include <cstdio>
#include <fcntl.h>
#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

extern char **environ;

namespace sd::bench {

Run runProcess(const QString &program, const QStringList &args, const QStringList &env)
{
    std::vector<QByteArray> argBytes{program.toLocal8Bit()};
    for (const QString &a : args)
        argBytes.push_back(a.toLocal8Bit());
    std::vector<char *> argv;
    for (QByteArray &a : argBytes)
        argv.push_back(a.data());
    argv.push_back(nullptr);

    std::vector<QByteArray> envBytes;
    for (char **e = environ; *e; ++e)
        envBytes.emplace_back(*e);
    for (const QString &e : env)
        envBytes.push_back(e.toLocal8Bit());
    std::vector<char *> envp;
    for (QByteArray &e : envBytes)
        envp.push_back(e.data());
    envp.push_back(nullptr);

    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, 1, "/dev/null", O_WRONLY, 0);
    posix_spawn_file_actions_addopen(&actions, 2, "/dev/null", O_WRONLY, 0);
    Run run;
    QElapsedTimer t;
    t.start();
    pid_t pid = 0;
    const int spawned = posix_spawn(&pid, argv[0], &actions, nullptr, argv.data(), envp.data());
    posix_spawn_file_actions_destroy(&actions);
    if (spawned != 0)
        return run;
    int status = 0;
    rusage usage{};
    if (wait4(pid, &status, 0, &usage) != pid)
        return run;
    run.ms = double(t.nsecsElapsed()) / 1e6;
    run.peakMb = double(usage.ru_maxrss) / 1024.0;
    run.ok = WIFEXITED(status) && WEXITSTATUS(status) == 0;
    return run;
}

Run medianRun(int runs, const std::function<Run()> &one)
{
    std::vector<Run> all;
    bool ok = true;
    for (int i = 0; i < runs; ++i) {
        all.push_back(one());
        ok = ok && all.back().ok;
    }
    std::sort(all.begin(), all.end(), [](const Run &a, const Run &b) { return a.ms < b.ms; });
    Run m = all.at(all.size() / 2);
    m.ok = ok;
    return m;
}

double medianMs(int runs, const std::function<void()> &work)
{
    std::vector<double> ms;
    for (int i = 0; i < runs; ++i) {
        QElapsedTimer t;
        t.start();
        work();
        ms.push_back(double(t.nsecsElapsed()) / 1e6);
    }
    std::sort(ms.begin(), ms.end());
    return ms.at(ms.size() / 2);
}

namespace {
int decimalsFor(double v)
{
    return v < 10 ? 2 : v < 100 ? 1 : 0;
}
} // namespace

void printRatio(const char *name, double value, double reference, const char *referenceName, const char *unit,
                const QString &note)
{
    std::printf("%s %.2fx %s (%.*f %s vs %.*f %s%s%s)\n", name, reference > 0 ? value / reference : 0.0,
                referenceName, decimalsFor(value), value, unit, decimalsFor(reference), reference, unit,
                note.isEmpty() ? "" : ", ", qPrintable(note));
    std::fflush(stdout);
}

} // namespace sd::bench
