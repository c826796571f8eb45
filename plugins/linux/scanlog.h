#ifndef AIRLUME_LINUX_SCANLOG_H
#define AIRLUME_LINUX_SCANLOG_H

#include "linux/nl80211messages.h"
#include "linux/scanevents.h"

#include <QHash>
#include <QMutex>

namespace LinuxWifi
{

/// What has been told about scans, from the thread that hears of it to the one that asks. Any
/// thread.
class ScanLog
{
public:
    /// The interface whose list is of interest; 0 for none.
    void setWatched(int index);
    int watched() const;

    void started(int index, qint64 now);
    /// Ends the scan that was running; `list` is the kernel's list after it, if it was read.
    void finished(
        const ScanNotice &notice, const std::optional<QVector<AccessPoint>> &list, qint64 now);
    void aborted(int index);
    /// Events were lost: no scan is known to be running any more.
    void lost(const std::optional<QVector<AccessPoint>> &list, qint64 now);

    std::optional<qint64> running(int index) const;
    QVector<FinishedScan> take();

private:
    void append(const FinishedScan &scan);

    mutable QMutex m_mutex; ///< Guards all below.
    int m_watched = 0;
    QHash<int, qint64> m_running;
    QVector<FinishedScan> m_finished;
};

} // namespace LinuxWifi

#endif
