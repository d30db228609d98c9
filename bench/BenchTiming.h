// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// How the benchmarks time a step and count what a program printed.
#include <QElapsedTimer>
#include <QProcess>
#include <QString>
#include <QStringList>

#include <functional>

namespace nubo::bench {

// The fastest of `runs` timed runs, in milliseconds, after `warming` untimed ones; count gets
// the last run's result.
inline double bestOf(int runs, int warming, const std::function<qint64()>& run, qint64& count)
{
    double best = 1e18;
    for (int i = 0; i < warming + runs; ++i) {
        QElapsedTimer timer;
        timer.start();
        count = run();
        if (i >= warming)
            best = qMin(best, double(timer.nsecsElapsed()) / 1e6);
    }
    return best;
}

// The lines a program prints on its standard output, once it has ended.
inline qint64 printedLines(const QString& program, const QStringList& args)
{
    QProcess process;
    process.start(program, args);
    process.waitForFinished(-1);
    return process.readAllStandardOutput().count('\n');
}

} // namespace nubo::bench
