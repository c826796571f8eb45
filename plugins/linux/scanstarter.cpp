#include "linux/scanstarter.h"

#include "linux/problemtexts.h"

#include <cerrno>

namespace LinuxWifi
{

namespace
{
// A scan whose end was not told by then will not be told any more.
const qint64 LongestScanMs = 30000;
} // namespace

ScanStarter::ScanStarter(WifiKernel &kernel, ScanRequester &requester,
    ScanTriggerPolicy::Clock clock, ProblemReporter &reporter)
    : m_kernel(kernel)
    , m_requester(requester)
    , m_clock(clock)
    , m_policy(std::move(clock))
    , m_reporter(reporter)
{
}

void ScanStarter::takeAnswer()
{
    const std::optional<ScanAnswer> answer = m_requester.takeAnswer();
    if (!answer)
        return;
    if (answer->result == ScanAnswer::Result::NoInterface)
        m_unmanaged.insert(m_requested.index);
    else
        m_unmanaged.remove(m_requested.index);
    if (answer->result == ScanAnswer::Result::Accepted) {
        m_unready = false;
        m_policy.accepted(m_requested.index);
        m_reporter.resolved(Topic::Scan);
        return;
    }
    // A manager needs a moment for an adapter that has just been plugged in or switched on.
    const bool unready = answer->result == ScanAnswer::Result::NotAvailable ||
                         answer->result == ScanAnswer::Result::NoInterface;
    if (!unready || m_unready) {
        m_policy.refused(m_requested.index);
        m_reporter.report(Topic::Scan, ProblemTexts::scanRefused(m_requested.name, *answer));
    }
    m_unready = unready;
}

void ScanStarter::finished(const FinishedScan &scan)
{
    m_policy.startedAt(scan.index, scan.startedAt);
}

bool ScanStarter::scan(
    const WifiInterface &interface, ScanTriggerPolicy::Use use, std::optional<qint64> running)
{
    if (running && m_clock() - *running < LongestScanMs)
        return true;
    if (!m_policy.due(interface.index, use))
        return true;
    if (m_mayTrigger) {
        const int error = m_kernel.triggerScan(interface.index);
        // Somebody's scan is running, perhaps of one channel only: once more with the next query.
        if (error == EBUSY) {
            m_reporter.resolved(Topic::Scan);
            return true;
        }
        if (error == 0) {
            m_policy.started(interface.index);
            m_policy.accepted(interface.index);
            m_reporter.resolved(Topic::Scan);
            return true;
        }
        if (error != EPERM) {
            m_policy.refused(interface.index);
            m_reporter.report(Topic::Scan, ProblemTexts::scanRefused(interface.name, error));
            return false;
        }
        m_mayTrigger = false;
    }
    m_policy.started(interface.index);
    m_requested = interface;
    m_requester.request(interface.name);
    return true;
}

void ScanStarter::forget(int index)
{
    m_policy.forget(index);
    m_unmanaged.remove(index);
}

void ScanStarter::forgetAll()
{
    m_policy.forgetAll();
    m_unmanaged.clear();
}

} // namespace LinuxWifi
