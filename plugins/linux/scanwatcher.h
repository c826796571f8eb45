#ifndef AIRLUME_LINUX_SCANWATCHER_H
#define AIRLUME_LINUX_SCANWATCHER_H

#include "linux/backgroundthread.h"
#include "linux/nl80211kernel.h"
#include "linux/scanlog.h"

#include <QPointer>

#include <atomic>
#include <functional>

namespace LinuxWifi
{

/// Hears of every scan in the background thread and reads the kernel's list at once: the next scan
/// of another band may empty it. Does not own the thread, which must end before this does.
class ScanWatcher : public ScanEvents
{
public:
    using Clock = std::function<qint64()>;

    /// `clock` gives ms of the boot-time clock, in any thread.
    ScanWatcher(BackgroundThread &thread, Clock clock);
    ~ScanWatcher() override;

    void watch(int index) override;
    std::optional<qint64> running(int index) override;
    QVector<FinishedScan> take() override;

private:
    BackgroundThread &m_thread;
    const Clock m_clock;
    Nl80211Kernel m_kernel; ///< The thread's own: that of the queries is theirs.
    ScanLog m_log;
    QPointer<QObject> m_listener; ///< Of the thread, and used there only.
    std::atomic_bool m_listening{false};
};

} // namespace LinuxWifi

#endif
