#include "linux/backend.h"

#include "linux/problemtexts.h"
#include "linux/scanmaps.h"

#include <algorithm>
#include <cerrno>

namespace LinuxWifi
{

namespace
{
// Somebody scans with an interface when a scan of it is not longer ago than this.
const qint64 ScannedWithinMs = 60000;
const qint64 LookAgainMs = 10000;

/// A joined network that hides its name may stand without it in the kernel's list.
void nameJoined(QVector<AccessPoint> &accessPoints, const QString &name)
{
    for (AccessPoint &accessPoint : accessPoints) {
        if (accessPoint.joined && accessPoint.ssid.isEmpty())
            accessPoint.ssid = name;
    }
}

/// These pass by themselves: no reason to let go of the interface.
bool passes(int error)
{
    return error == EAGAIN || error == EINTR || error == ENOBUFS;
}
} // namespace

Backend::Backend(WifiKernel &kernel, ScanRequester &requester, ScanEvents &events,
    ScanTriggerPolicy::Clock clock, ProblemReporter::Sink problems)
    : m_kernel(kernel)
    , m_events(events)
    , m_clock(std::move(clock))
    , m_reporter(std::move(problems))
    , m_starter(kernel, requester, m_clock, m_reporter)
{
}

bool Backend::interfaceNames(QStringList &names)
{
    QVector<InterfaceCandidate> candidates;
    if (!readInterfaces(candidates))
        return false;
    names.append(InterfaceChoice::listed(candidates, best(candidates)));
    return true;
}

bool Backend::usable(const QString &name)
{
    QVector<InterfaceCandidate> candidates;
    if (!readInterfaces(candidates))
        return false;
    for (const InterfaceCandidate &candidate : qAsConst(candidates)) {
        if (candidate.interface.name == name)
            return candidate.usable;
    }
    return false;
}

bool Backend::networks(const QString &name, QList<ScanMap> &networks)
{
    m_starter.takeAnswer();
    const std::optional<WifiInterface> interface = chooseInterface(name);
    m_events.watch(interface ? interface->index : 0);
    takeFinishedScans();
    QList<ScanMap> heard;
    if (!m_loss.answer(interface && readNetworks(*interface, heard)))
        return false;
    networks += heard;
    return true;
}

bool Backend::joinedNetwork(const QString &name, ScanMap &network)
{
    QList<ScanMap> networks;
    if (!this->networks(name, networks))
        return false;
    for (const ScanMap &candidate : qAsConst(networks)) {
        if (candidate.value(ScanKey::Connected) == ScanJoined) {
            network = candidate;
            return true;
        }
    }
    return false;
}

bool Backend::startScan(const QString &name)
{
    m_starter.takeAnswer();
    const std::optional<WifiInterface> interface = chooseInterface(name);
    if (!interface)
        return false;
    const auto use = interface->joinedName.isEmpty() ? ScanTriggerPolicy::Use::Idle
                                                     : ScanTriggerPolicy::Use::Joined;
    return m_starter.scan(*interface, use, m_events.running(interface->index));
}

bool Backend::address(const QString &name, QString &address)
{
    QVector<InterfaceCandidate> candidates;
    if (!readInterfaces(candidates))
        return false;
    for (const InterfaceCandidate &candidate : qAsConst(candidates)) {
        if (candidate.interface.name == name) {
            address = candidate.interface.address;
            return true;
        }
    }
    return false;
}

/// The interfaces in station mode. What is known about those that are gone or switched off is
/// forgotten.
bool Backend::readInterfaces(QVector<InterfaceCandidate> &candidates)
{
    QVector<WifiInterface> interfaces;
    const int error = m_kernel.interfaces(interfaces);
    std::optional<WifiInterface> other;
    QHash<int, Air> air;
    for (const WifiInterface &interface : qAsConst(interfaces)) {
        if (interface.mode != WifiInterface::Mode::Station) {
            if (!other)
                other = interface;
            continue;
        }
        InterfaceCandidate candidate{interface};
        candidate.usable = m_kernel.linkState(interface.name).usable();
        if (candidate.usable && m_air.contains(interface.index))
            air.insert(interface.index, m_air.value(interface.index));
        candidates.append(candidate);
    }
    if (!passes(error))
        m_air = air;
    m_loss.listed(!candidates.isEmpty());
    if (candidates.isEmpty())
        m_starter.forgetAll();
    if (error)
        m_reporter.report(Topic::Interface, ProblemTexts::interfacesUnreadable(error));
    else if (candidates.isEmpty())
        m_reporter.report(Topic::Interface,
            other ? ProblemTexts::notAStation(*other) : ProblemTexts::noInterface());
    return error == 0;
}

std::optional<WifiInterface> Backend::best(QVector<InterfaceCandidate> candidates)
{
    const auto usable = [](const InterfaceCandidate &candidate) { return candidate.usable; };
    const auto joined = [](const InterfaceCandidate &candidate) {
        return candidate.usable && !candidate.interface.joinedName.isEmpty();
    };
    // Who scans matters only where nothing else tells which of several to take.
    if (std::count_if(candidates.cbegin(), candidates.cend(), usable) > 1 &&
        std::none_of(candidates.cbegin(), candidates.cend(), joined)) {
        for (InterfaceCandidate &candidate : candidates) {
            candidate.scanned = candidate.usable && scanned(candidate.interface.index);
            candidate.unmanaged = m_starter.isUnmanaged(candidate.interface.index);
        }
    }
    return m_choice.choose(candidates);
}

bool Backend::scanned(int index)
{
    const qint64 now = m_clock();
    Scanned &scanned = m_scanned[index];
    // Scans from before the first query were not told.
    if (now - scanned.at >= ScannedWithinMs && now - scanned.lookedAt >= LookAgainMs) {
        scanned.lookedAt = now;
        QVector<AccessPoint> accessPoints;
        m_kernel.accessPoints(index, accessPoints);
        for (const AccessPoint &accessPoint : qAsConst(accessPoints)) {
            const qint64 heardAt = accessPoint.heardAt.value_or(now - accessPoint.age.value_or(0));
            scanned.at = std::max(scanned.at, heardAt);
        }
    }
    return now - scanned.at < ScannedWithinMs;
}

std::optional<WifiInterface> Backend::chooseInterface(const QString &name)
{
    QVector<InterfaceCandidate> candidates;
    if (!readInterfaces(candidates) || candidates.isEmpty())
        return std::nullopt;

    std::optional<WifiInterface> chosen;
    std::optional<WifiInterface> unusable;
    if (name.isEmpty())
        chosen = best(candidates);
    for (const InterfaceCandidate &candidate : qAsConst(candidates)) {
        const bool meant = name.isEmpty() || candidate.interface.name == name;
        if (candidate.usable && meant && !name.isEmpty())
            chosen = candidate.interface;
        if (!candidate.usable)
            m_starter.forget(candidate.interface.index);
        if (!candidate.usable && meant && !unusable)
            unusable = candidate.interface;
    }
    if (chosen)
        m_reporter.resolved(Topic::Interface);
    else if (unusable)
        m_reporter.report(Topic::Interface,
            ProblemTexts::unusable(unusable->name, m_kernel.linkState(unusable->name)));
    else
        m_reporter.report(Topic::Interface, ProblemTexts::unknownInterface(name));
    return chosen;
}

void Backend::takeFinishedScans()
{
    const QVector<FinishedScan> scans = m_events.take();
    for (const FinishedScan &scan : scans) {
        m_scanned[scan.index].at = scan.finishedAt;
        const auto air = m_air.find(scan.index);
        if (!scan.read || air == m_air.end())
            continue;
        air->table.heard(scan.heard, scan.finishedAt);
        air->table.finished(scan);
        // One of a few channels, for a known network's sake, makes no other superfluous.
        if (air->table.coveredBy(scan.frequencies))
            m_starter.finished(scan);
    }
}

bool Backend::readNetworks(const WifiInterface &interface, QList<ScanMap> &networks)
{
    QVector<AccessPoint> list;
    const qint64 now = m_clock();
    Air &air = m_air[interface.index];
    const int error = m_kernel.accessPoints(interface.index, list);
    if (error) {
        m_reporter.report(Topic::Networks, ProblemTexts::networksUnreadable(interface.name, error));
        if (!passes(error))
            return false;
    } else {
        m_reporter.resolved(Topic::Networks);
        nameJoined(list, interface.joinedName);
        air.table.heard(list, now);
    }

    QVector<AccessPoint> accessPoints = air.table.records(now);
    const std::optional<StationLink> link = readLink(interface, accessPoints);
    if (link)
        air.traffic.take(*link, now);
    const QString joined = air.traffic.carrier(accessPoints);
    // What it is shown with when it has just been left.
    if (link && link->signal)
        air.table.measured(joined, *link->signal);
    air.order.sort(accessPoints, joined);
    networks.append(scanMaps(accessPoints, joined, link));

    auto use = ScanTriggerPolicy::Use::Idle;
    if (!joined.isEmpty())
        use = air.traffic.busy() ? ScanTriggerPolicy::Use::Busy : ScanTriggerPolicy::Use::Joined;
    m_starter.scan(interface, use, m_events.running(interface.index));
    return true;
}

/// Several drivers answer for one address only, others only the whole list.
std::optional<StationLink> Backend::readLink(
    const WifiInterface &interface, const QVector<AccessPoint> &accessPoints)
{
    QStringList addresses;
    for (const AccessPoint &accessPoint : accessPoints) {
        if (!accessPoint.joined)
            continue;
        if (!accessPoint.mldAddress.isEmpty() && !addresses.contains(accessPoint.mldAddress))
            addresses.prepend(accessPoint.mldAddress);
        addresses.append(accessPoint.bssid);
    }
    if (addresses.isEmpty()) {
        m_reporter.resolved(Topic::Link);
        return std::nullopt;
    }

    for (const QString &address : qAsConst(addresses)) {
        StationLink link;
        if (m_kernel.stationLink(interface.index, address, link) == 0) {
            m_reporter.resolved(Topic::Link);
            return link;
        }
    }
    QVector<StationLink> links;
    if (const int error = m_kernel.stationLinks(interface.index, links)) {
        m_reporter.report(Topic::Link, ProblemTexts::linkUnreadable(interface.name, error));
        return std::nullopt;
    }
    m_reporter.resolved(Topic::Link);
    const auto own = std::find_if(links.cbegin(), links.cend(),
        [&](const StationLink &link) { return addresses.contains(link.address); });
    if (own != links.cend())
        return *own;
    // A multi-link device of which the kernel did not tell the address.
    return links.size() == 1 ? std::make_optional(links.first()) : std::nullopt;
}

} // namespace LinuxWifi
