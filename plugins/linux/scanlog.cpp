#include "linux/scanlog.h"

namespace LinuxWifi
{

namespace
{
// Airlume asks every four seconds. What nobody asks for is not kept without limit.
const int MaximumScans = 16;
} // namespace

void ScanLog::setWatched(int index)
{
    const QMutexLocker lock(&m_mutex);
    m_watched = index;
}

int ScanLog::watched() const
{
    const QMutexLocker lock(&m_mutex);
    return m_watched;
}

void ScanLog::started(int index, qint64 now)
{
    const QMutexLocker lock(&m_mutex);
    m_running.insert(index, now);
}

void ScanLog::finished(
    const ScanNotice &notice, const std::optional<QVector<AccessPoint>> &list, qint64 now)
{
    const QMutexLocker lock(&m_mutex);
    FinishedScan scan;
    scan.index = notice.index;
    scan.finishedAt = now;
    scan.startedAt = m_running.value(notice.index, now);
    scan.probing = notice.probing;
    scan.frequencies = notice.frequencies;
    scan.read = list.has_value();
    scan.heard = list.value_or(QVector<AccessPoint>());
    m_running.remove(notice.index);
    append(scan);
}

void ScanLog::aborted(int index)
{
    const QMutexLocker lock(&m_mutex);
    m_running.remove(index);
}

void ScanLog::lost(const std::optional<QVector<AccessPoint>> &list, qint64 now)
{
    const QMutexLocker lock(&m_mutex);
    m_running.clear();
    if (!list)
        return;
    FinishedScan scan;
    scan.index = m_watched;
    scan.startedAt = now;
    scan.finishedAt = now;
    scan.read = true;
    scan.heard = *list;
    append(scan);
}

std::optional<qint64> ScanLog::running(int index) const
{
    const QMutexLocker lock(&m_mutex);
    const auto running = m_running.constFind(index);
    return running == m_running.constEnd() ? std::nullopt : std::make_optional(running.value());
}

QVector<FinishedScan> ScanLog::take()
{
    const QMutexLocker lock(&m_mutex);
    QVector<FinishedScan> finished;
    finished.swap(m_finished);
    return finished;
}

void ScanLog::append(const FinishedScan &scan)
{
    if (m_finished.size() == MaximumScans)
        m_finished.removeFirst();
    m_finished.append(scan);
}

} // namespace LinuxWifi
