#ifndef AIRLUME_LINUX_SCANEVENTS_H
#define AIRLUME_LINUX_SCANEVENTS_H

#include "linux/wifikernel.h"

namespace LinuxWifi
{

/// A scan that has ended, whoever asked for it.
struct FinishedScan {
    int index = 0;        ///< Of the interface.
    qint64 startedAt = 0; ///< ms of the boot-time clock.
    qint64 finishedAt = 0;
    bool probing = true;      ///< It asked the access points to answer.
    QVector<int> frequencies; ///< MHz, those that it covered.
    /// The kernel's list as the scan left it, and whether it could be read.
    QVector<AccessPoint> heard;
    bool read = false;
};

/// What the kernel tells about scans.
class ScanEvents
{
public:
    virtual ~ScanEvents() = default;

    /// Listens from now on, if it does not yet, and reads the list after each scan of the interface
    /// with this index; 0 for none. Returns at once.
    virtual void watch(int index) = 0;
    /// When the scan that is running on the interface was started; nothing while none is.
    virtual std::optional<qint64> running(int index) = 0;
    /// The scans that ended since the last call, in their order. After events were lost there is
    /// one without frequencies, for its list.
    virtual QVector<FinishedScan> take() = 0;
};

} // namespace LinuxWifi

#endif
