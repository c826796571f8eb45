#ifndef AIRLUME_LINUX_SCANTRIGGERPOLICY_H
#define AIRLUME_LINUX_SCANTRIGGERPOLICY_H

#include <QHash>

#include <functional>

namespace LinuxWifi
{

/// Decides when a new scan may be started. Reading the kernel's cache costs nothing, a scan costs
/// the user packets: while joined the radio leaves its channel for most of 9 to 12 s, and programs
/// that scan every 10 s are known for lost packets. So a link that carries something is left alone
/// longer. Pure but for the clock; one thread.
class ScanTriggerPolicy
{
public:
    /// What the radio is used for, which says how long is between the starts of two scans.
    enum class Use {
        Idle,   ///< Not joined: a scan takes 3 to 6 s and disturbs nobody.
        Joined, ///< Joined, but next to nothing is sent or received.
        Busy,   ///< Joined, and the user would notice.
    };
    static constexpr qint64 IdleIntervalMs = 8000;
    /// Asked each four seconds, that makes scans which start 12 to 16 s apart.
    static constexpr qint64 JoinedIntervalMs = 12000;
    static constexpr qint64 BusyIntervalMs = 20000;
    /// After somebody refused or failed to scan; twice as long after each further time.
    static constexpr qint64 RefusedIntervalMs = 30000;
    static constexpr qint64 LongestRefusedIntervalMs = 120000;

    /// Milliseconds of the boot-time clock: after a suspend a scan is due.
    using Clock = std::function<qint64()>;

    explicit ScanTriggerPolicy(Clock clock);

    /// True when a scan may be started on the interface with this index. Never started: true.
    bool due(int interface, Use use) const;
    /// A scan has been started, or was under way already.
    void started(int interface);
    /// A scan was started then, whoever asked for it.
    void startedAt(int interface, qint64 at);
    /// Whoever was asked last does scan.
    void accepted(int interface);
    /// The scan could not be started; leave whoever refused alone for a while.
    void refused(int interface);
    /// The interface cannot be used: once it can, it may scan at once.
    void forget(int interface);
    /// All interfaces are gone.
    void forgetAll();

private:
    struct Attempt {
        qint64 at = 0;
        int refusals = 0; ///< In a row.
    };
    const Clock m_clock;
    QHash<int, Attempt> m_last;
};

} // namespace LinuxWifi

#endif
