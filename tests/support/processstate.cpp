#include "support/processstate.h"

#include <QDir>
#include <QFile>

#include <ctime>
#include <unistd.h>

namespace
{
int entries(qint64 processId, const char *folder)
{
    const QDir dir(QStringLiteral("/proc/%1/%2").arg(processId).arg(QLatin1String(folder)));
    return dir.entryList(QDir::AllEntries | QDir::System | QDir::NoDotAndDotDot).size();
}

/// Of a line "VmRSS:   123 kB".
double megabytes(const QByteArray &status, const char *name)
{
    const QList<QByteArray> lines = status.split('\n');
    for (const QByteArray &line : lines) {
        if (line.startsWith(name))
            return line.mid(line.indexOf(':') + 1).trimmed().split(' ').first().toDouble() / 1024.0;
    }
    return 0.0;
}
} // namespace

std::optional<ProcessState> processState(qint64 processId)
{
    QFile file(QStringLiteral("/proc/%1/status").arg(processId));
    clockid_t clock;
    timespec used{};
    if (!file.open(QIODevice::ReadOnly) ||
        clock_getcpuclockid(static_cast<pid_t>(processId), &clock) != 0 ||
        clock_gettime(clock, &used) != 0)
        return std::nullopt;
    const QByteArray status = file.readAll();
    ProcessState state;
    state.ownMb = megabytes(status, "RssAnon:");
    state.residentMb = megabytes(status, "VmRSS:");
    state.peakMb = megabytes(status, "VmHWM:");
    state.handles = entries(processId, "fd");
    state.threads = entries(processId, "task");
    state.cpuMs = static_cast<double>(used.tv_sec) * 1e3 + static_cast<double>(used.tv_nsec) / 1e6;
    return state;
}
