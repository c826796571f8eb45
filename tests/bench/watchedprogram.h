#ifndef AIRLUME_TESTS_BENCH_WATCHEDPROGRAM_H
#define AIRLUME_TESTS_BENCH_WATCHEDPROGRAM_H

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

    /// Resident memory in MB (2²⁰ octets), with what is shared with other programs.
    double residentMb() const;
    /// Processor time that the program and the kernel for it have used, in ms.
    double cpuMs() const;

private:
    QByteArray readLine();

    QTemporaryDir m_folder;
    QProcess m_process;
};

#endif
