#ifndef AIRLUME_LINUX_SCANTRIGGERPOLICY_H
#define AIRLUME_LINUX_SCANTRIGGERPOLICY_H

#include <QHash>

#include <functional>

namespace LinuxWifi
{

/// Decides when a new scan may be started. Reading the kernel's cache costs nothing, a scan costs
/// the user packets: while joined the radio leaves its channel for most of 9 to 12 s, and programs
/// that scan every 10 s are known for lost packets. The kernel keeps what it heard for 30 s, so
/// nothing disappears at these intervals. Pure but for the clock; one thread.
class ScanTriggerPolicy
{
public:
    static const qint64 JoinedIntervalMs = 20000;  ///< Between two scans of a joined interface.
    static const qint64 IdleIntervalMs = 8000;     ///< Of one that is not: a scan takes 3 to 6 s.
    static const qint64 RefusedIntervalMs = 30000; ///< After somebody refused or failed to scan.

    /// Milliseconds of a clock that never goes back.
    using Clock = std::function<qint64()>;

    explicit ScanTriggerPolicy(Clock clock);

    /// True when a scan may be started on the interface with this index. Never started: true.
    bool due(int interface, bool joined) const;
    /// A scan has been started, or was under way already.
    void started(int interface);
    /// The scan could not be started; leave whoever refused alone for a while.
    void refused(int interface);
    /// The interface cannot be used: once it can, it may scan at once.
    void forget(int interface);
    /// All interfaces are gone.
    void forgetAll();

private:
    struct Attempt {
        qint64 at = 0;
        bool refused = false;
    };
    const Clock m_clock;
    QHash<int, Attempt> m_last;
};

} // namespace LinuxWifi

#endif
