#ifndef AIRLUME_TESTS_BENCH_WATCHEDPROGRAM_H
#define AIRLUME_TESTS_BENCH_WATCHEDPROGRAM_H

#include "support/processstate.h"

#include <QProcess>
#include <QTemporaryDir>

/// A program as a process of its own, in a home of its own, with the watch plug-in in it. Ended by
/// the destructor.
class WatchedProgram
{
public:
    /// When the first window stood painted.
    struct FirstPaint {
        double wallMs = 0.; ///< Since the program was started.
        double cpuMs = 0.;  ///< Processor time of the program.
    };

    /// `program`: its name in the build folder; `networks`: how many made-up ones the simulated
    /// back end reports.
    WatchedProgram(const char *program, int networks, const QStringList &arguments = {});
    ~WatchedProgram();

    /// Starts the program and waits for its first painted window; without one the benchmark ends.
    FirstPaint start();
    /// Sends a command to the watch plug-in; its answer.
    qint64 ask(const QByteArray &command);

    /// What the program holds now; when it has ended the benchmark ends.
    ProcessState held() const;

private:
    QByteArray readLine();

    QTemporaryDir m_folder;
    QProcess m_process;
};

#endif
