#ifndef AIRLUME_LINUX_SCANSTARTER_H
#define AIRLUME_LINUX_SCANSTARTER_H

#include "linux/problemreporter.h"
#include "linux/scanevents.h"
#include "linux/scanrequester.h"
#include "linux/scantriggerpolicy.h"

#include <QSet>

namespace LinuxWifi
{

/// Has new scans made when they are due: by the kernel where this user may, otherwise by whoever
/// manages the radio. Waits for nothing. One thread; owns nothing of what it is given.
class ScanStarter
{
public:
    ScanStarter(WifiKernel &kernel, ScanRequester &requester, ScanTriggerPolicy::Clock clock,
        ProblemReporter &reporter);

    /// What came of the last request. To be called before each query.
    void takeAnswer();
    /// Somebody has scanned all that matters.
    void finished(const FinishedScan &scan);
    /// Starts a scan if it is due; `running` is when the one that is still running was started.
    /// False when the kernel refuses.
    bool scan(
        const WifiInterface &interface, ScanTriggerPolicy::Use use, std::optional<qint64> running);

    /// Those who run said when asked last that none of them manages the interface.
    bool isUnmanaged(int index) const { return m_unmanaged.contains(index); }

    /// The interface cannot be used at present, or is gone.
    void forget(int index);
    void forgetAll();

private:
    WifiKernel &m_kernel;
    ScanRequester &m_requester;
    const ScanTriggerPolicy::Clock m_clock;
    ScanTriggerPolicy m_policy;
    ProblemReporter &m_reporter;
    bool m_mayTrigger = true;  ///< Until the kernel says that this user may not.
    WifiInterface m_requested; ///< The interface that a scan was requested for.
    bool m_unready = false;    ///< The last answer was that the interface cannot scan yet.
    QSet<int> m_unmanaged;     ///< Interfaces.
};

} // namespace LinuxWifi

#endif
