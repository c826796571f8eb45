#include "linux/scantriggerpolicy.h"

namespace LinuxWifi
{

ScanTriggerPolicy::ScanTriggerPolicy(Clock clock)
    : m_clock(std::move(clock))
{
}

bool ScanTriggerPolicy::due(int interface, bool joined) const
{
    const auto last = m_last.constFind(interface);
    if (last == m_last.constEnd())
        return true;
    qint64 interval = joined ? JoinedIntervalMs : IdleIntervalMs;
    if (last->refused)
        interval = RefusedIntervalMs;
    return m_clock() - last->at >= interval;
}

void ScanTriggerPolicy::started(int interface)
{
    m_last.insert(interface, {m_clock(), false});
}

void ScanTriggerPolicy::refused(int interface)
{
    m_last.insert(interface, {m_clock(), true});
}

void ScanTriggerPolicy::forget(int interface)
{
    m_last.remove(interface);
}

void ScanTriggerPolicy::forgetAll()
{
    m_last.clear();
}

} // namespace LinuxWifi
