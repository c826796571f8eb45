#include "linux/scantriggerpolicy.h"

#include <algorithm>

namespace LinuxWifi
{

namespace
{
qint64 intervalMs(ScanTriggerPolicy::Use use)
{
    switch (use) {
    case ScanTriggerPolicy::Use::Idle:
        return ScanTriggerPolicy::IdleIntervalMs;
    case ScanTriggerPolicy::Use::Joined:
        return ScanTriggerPolicy::JoinedIntervalMs;
    case ScanTriggerPolicy::Use::Busy:
        break;
    }
    return ScanTriggerPolicy::BusyIntervalMs;
}

qint64 refusedIntervalMs(int refusals)
{
    qint64 interval = ScanTriggerPolicy::RefusedIntervalMs;
    for (int i = 1; i < refusals && interval < ScanTriggerPolicy::LongestRefusedIntervalMs; ++i)
        interval *= 2;
    return std::min<qint64>(interval, ScanTriggerPolicy::LongestRefusedIntervalMs);
}
} // namespace

ScanTriggerPolicy::ScanTriggerPolicy(Clock clock)
    : m_clock(std::move(clock))
{
}

bool ScanTriggerPolicy::due(int interface, Use use) const
{
    const auto last = m_last.constFind(interface);
    if (last == m_last.constEnd())
        return true;
    const qint64 interval =
        last->refusals > 0 ? refusedIntervalMs(last->refusals) : intervalMs(use);
    return m_clock() - last->at >= interval;
}

void ScanTriggerPolicy::started(int interface)
{
    startedAt(interface, m_clock());
}

void ScanTriggerPolicy::startedAt(int interface, qint64 at)
{
    Attempt &last = m_last[interface];
    last.at = std::max(last.at, at);
}

void ScanTriggerPolicy::accepted(int interface)
{
    m_last[interface].refusals = 0;
}

void ScanTriggerPolicy::refused(int interface)
{
    Attempt &last = m_last[interface];
    last.at = m_clock();
    ++last.refusals;
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
