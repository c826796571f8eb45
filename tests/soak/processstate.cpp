#include "soak/processstate.h"

#include <QDir>
#include <QFile>

#include <unistd.h>

namespace
{
QByteArray procFile(qint64 processId, const char *name)
{
    QFile file(QStringLiteral("/proc/%1/%2").arg(processId).arg(QLatin1String(name)));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

int entries(qint64 processId, const char *folder)
{
    const QDir dir(QStringLiteral("/proc/%1/%2").arg(processId).arg(QLatin1String(folder)));
    return dir.entryList(QDir::AllEntries | QDir::System | QDir::NoDotAndDotDot).size();
}

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

ProcessState processState(qint64 processId)
{
    ProcessState state;
    const QByteArray status = procFile(processId, "status");
    state.ownMb = megabytes(status, "RssAnon:");
    state.residentMb = megabytes(status, "VmRSS:");
    state.handles = entries(processId, "fd");
    state.threads = entries(processId, "task");
    // The fields from the third on follow the program's name, which stands in brackets.
    const QByteArray stat = procFile(processId, "stat");
    const QList<QByteArray> fields = stat.mid(stat.lastIndexOf(')') + 2).split(' ');
    state.cpuSeconds = (fields.value(11).toDouble() + fields.value(12).toDouble()) /
                       static_cast<double>(sysconf(_SC_CLK_TCK));
    return state;
}
