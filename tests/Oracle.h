// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDir>
#include <QFileInfo>
#include <QProcess>
#include <QStandardPaths>
#include <QtTest>

// Independent readers (xlrd, mdbtools, pdftotext, the desktop's validators) asked about our
// files, and the folder of files other programs made. A reader has three outcomes: absent
// (the test skips, except under CI, where it fails), failed (the test fails with the reader's
// own words), read. Use them through NUBO_READ and NUBO_FIXTURES_DIR, which end the test.
namespace nubo::test {

struct OracleRun
{
    enum class Outcome { Absent, Failed, Read };
    Outcome outcome = Outcome::Absent;
    QString what; // the reader's name, or the folder, for the messages
    QByteArray out;
    QByteArray err;
};

// What a program says may stand for "I am not here" (a Python module missing, say).
inline constexpr int kOracleAbsentStatus = 77;

inline bool underCi()
{
    return qEnvironmentVariableIsSet("CI");
}

// Every copy of program on PATH, in PATH's order (program itself when it is a path).
inline QStringList executablesOnPath(const QString& program)
{
    if (program.contains(QLatin1Char('/'))) {
        const QString found = QStandardPaths::findExecutable(program);
        return found.isEmpty() ? QStringList() : QStringList{found};
    }
    QStringList found;
    for (const QString& dir :
         qEnvironmentVariable("PATH").split(QLatin1Char(':'), Qt::SkipEmptyParts)) {
        const QString path = QStandardPaths::findExecutable(program, {dir});
        const QString real = QFileInfo(path).canonicalFilePath();
        if (!path.isEmpty() && !found.contains(real))
            found.append(real);
    }
    return found;
}

// One run of an executable: exit status 0 is a read, kOracleAbsentStatus an absent reader,
// anything else, a crash or a timeout a failure.
inline OracleRun runOnce(const QString& executable, const QStringList& args, int timeoutMs)
{
    OracleRun run;
    QProcess process;
    process.start(executable, args);
    const bool ended = process.waitForFinished(timeoutMs);
    const bool normal = ended && process.exitStatus() == QProcess::NormalExit;
    run.out = process.readAllStandardOutput();
    run.err = process.readAllStandardError();
    if (normal && process.exitCode() == kOracleAbsentStatus)
        return run;
    const bool read = normal && process.exitCode() == 0;
    run.outcome = read ? OracleRun::Outcome::Read : OracleRun::Outcome::Failed;
    if (!ended)
        run.err.prepend("no answer in time; ");
    else if (!normal)
        run.err.prepend("crashed; ");
    else if (!read)
        run.err.prepend("exit status " + QByteArray::number(process.exitCode()) + "; ");
    return run;
}

// Runs program with args, never through a shell: the first copy on PATH that is not absent
// answers (an interpreter early on PATH may lack the module a later one has).
inline OracleRun runOracle(const QString& program, const QStringList& args, int timeoutMs = 60000)
{
    OracleRun run;
    for (const QString& executable : executablesOnPath(program)) {
        run = runOnce(executable, args, timeoutMs);
        if (run.outcome != OracleRun::Outcome::Absent)
            break;
    }
    run.what = program;
    return run;
}

// The message a test ends with, or empty when it goes on; *skip tells skip from fail.
inline QString oracleVerdict(const OracleRun& run, bool* skip)
{
    *skip = false;
    switch (run.outcome) {
    case OracleRun::Outcome::Read:
        return {};
    case OracleRun::Outcome::Absent:
        *skip = !underCi();
        return run.what + QStringLiteral(" is not installed") +
               (*skip ? QString() : QStringLiteral(" (required under CI)"));
    case OracleRun::Outcome::Failed:
        break;
    }
    // Validators print their findings on stdout; a long stdout is the reading, not the reason.
    const QByteArray said = run.out.size() < 2000 ? run.err + run.out : run.err;
    return run.what + QStringLiteral(" rejected our file: ") + QString::fromLocal8Bit(said);
}

// The folder of files made by other programs (NUBO_FIXTURES), or empty when it is missing.
inline QString fixturesDir()
{
    const QString path = qEnvironmentVariable("NUBO_FIXTURES");
    return !path.isEmpty() && QDir(path).exists() ? path : QString();
}

} // namespace nubo::test

// Ends the test unless run read the file: skips when the reader is absent outside CI, fails
// otherwise with the reader's stderr.
#define NUBO_READ(run)                                                                             \
    do {                                                                                           \
        bool skip_ = false;                                                                        \
        const QString verdict_ = nubo::test::oracleVerdict(run, &skip_);                           \
        if (skip_)                                                                                 \
            QSKIP(qPrintable(verdict_));                                                           \
        if (!verdict_.isEmpty())                                                                   \
            QFAIL(qPrintable(verdict_));                                                           \
    } while (false)

// Declares QDir name at the fixtures folder; ends the test when it is missing (a skip outside
// CI, a failure under it).
#define NUBO_FIXTURES_DIR(name)                                                                    \
    const QDir name(nubo::test::fixturesDir());                                                    \
    if (nubo::test::fixturesDir().isEmpty()) {                                                     \
        if (!nubo::test::underCi())                                                                \
            QSKIP("the fixtures folder (NUBO_FIXTURES) is missing");                               \
        QFAIL("the fixtures folder (NUBO_FIXTURES) is missing, and CI needs it");                  \
    }
