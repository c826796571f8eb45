#include "linux/backend.h"

#include "linux/problemtexts.h"
#include "linux/scanmaps.h"

#include <cerrno>

namespace LinuxWifi
{

Backend::Backend(WifiKernel &kernel, ScanRequester &requester, ScanTriggerPolicy::Clock clock,
    ProblemReporter::Sink problems)
    : m_kernel(kernel)
    , m_requester(requester)
    , m_policy(std::move(clock))
    , m_reporter(std::move(problems))
{
}

bool Backend::interfaceNames(QStringList &names)
{
    QVector<WifiInterface> interfaces;
    if (!readInterfaces(interfaces))
        return false;
    for (const WifiInterface &interface : qAsConst(interfaces))
        names.append(interface.name);
    return true;
}

bool Backend::usable(const QString &name)
{
    QVector<WifiInterface> interfaces;
    if (!readInterfaces(interfaces))
        return false;
    for (const WifiInterface &interface : qAsConst(interfaces)) {
        if (interface.name == name)
            return m_kernel.linkState(name).usable();
    }
    return false;
}

bool Backend::networks(const QString &name, QList<ScanMap> &networks)
{
    takeScanAnswer();
    const std::optional<WifiInterface> interface = chooseInterface(name);
    const bool vanished = m_vanished;
    m_vanished = false;
    m_answering = interface && !vanished && readNetworks(*interface, networks);
    return m_answering;
}

bool Backend::joinedNetwork(const QString &name, ScanMap &network)
{
    QList<ScanMap> networks;
    if (!this->networks(name, networks))
        return false;
    for (const ScanMap &candidate : qAsConst(networks)) {
        if (candidate.value(QStringLiteral("current_connected")) == QStringLiteral("1")) {
            network = candidate;
            return true;
        }
    }
    return false;
}

bool Backend::startScan(const QString &name)
{
    takeScanAnswer();
    const std::optional<WifiInterface> interface = chooseInterface(name);
    return interface && scan(*interface, !interface->joinedName.isEmpty());
}

bool Backend::address(const QString &name, QString &address)
{
    QVector<WifiInterface> interfaces;
    if (!readInterfaces(interfaces))
        return false;
    for (const WifiInterface &interface : qAsConst(interfaces)) {
        if (interface.name == name) {
            address = interface.address;
            return true;
        }
    }
    return false;
}

bool Backend::readInterfaces(QVector<WifiInterface> &interfaces)
{
    const int error = m_kernel.interfaces(interfaces);
    if (interfaces.isEmpty()) {
        m_vanished = m_vanished || m_answering;
        m_policy.forgetAll();
    }
    if (error)
        m_reporter.report(Topic::Interface, ProblemTexts::interfacesUnreadable(error));
    else if (interfaces.isEmpty())
        m_reporter.report(Topic::Interface, ProblemTexts::noInterface());
    return error == 0;
}

std::optional<WifiInterface> Backend::chooseInterface(const QString &name)
{
    QVector<WifiInterface> interfaces;
    if (!readInterfaces(interfaces) || interfaces.isEmpty())
        return std::nullopt;

    std::optional<WifiInterface> chosen;
    std::optional<WifiInterface> unusable;
    for (const WifiInterface &interface : qAsConst(interfaces)) {
        if (!name.isEmpty() && interface.name != name)
            continue;
        if (!m_kernel.linkState(interface.name).usable()) {
            m_policy.forget(interface.index);
            if (!unusable)
                unusable = interface;
        } else if (!chosen || (chosen->joinedName.isEmpty() && !interface.joinedName.isEmpty())) {
            chosen = interface;
        }
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

bool Backend::readNetworks(const WifiInterface &interface, QList<ScanMap> &networks)
{
    QVector<AccessPoint> accessPoints;
    if (const int error = m_kernel.accessPoints(interface.index, accessPoints)) {
        m_reporter.report(Topic::Networks, ProblemTexts::networksUnreadable(interface.name, error));
        // These pass by themselves: no reason to let go of the interface.
        return error == EAGAIN || error == EINTR || error == ENOBUFS;
    }
    m_reporter.resolved(Topic::Networks);

    bool joined = false;
    for (const AccessPoint &accessPoint : qAsConst(accessPoints))
        joined = joined || accessPoint.joined;
    QVector<StationLink> links;
    if (joined)
        links = readLinks(interface);
    else
        m_reporter.resolved(Topic::Link);
    networks.append(scanMaps(accessPoints, links, interface.joinedName));
    scan(interface, joined);
    return true;
}

QVector<StationLink> Backend::readLinks(const WifiInterface &interface)
{
    QVector<StationLink> links;
    const int error = m_kernel.stationLinks(interface.index, links);
    if (error)
        m_reporter.report(Topic::Link, ProblemTexts::linkUnreadable(interface.name, error));
    else
        m_reporter.resolved(Topic::Link);
    return links;
}

bool Backend::scan(const WifiInterface &interface, bool joined)
{
    if (!m_policy.due(interface.index, joined))
        return true;
    if (m_mayTrigger) {
        const int error = m_kernel.triggerScan(interface.index);
        if (error == 0 || error == EBUSY) {
            m_policy.started(interface.index);
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

void Backend::takeScanAnswer()
{
    const std::optional<ScanAnswer> answer = m_requester.takeAnswer();
    if (!answer)
        return;
    if (answer->result == ScanAnswer::Result::Accepted) {
        m_unready = false;
        m_reporter.resolved(Topic::Scan);
        return;
    }
    // NetworkManager needs a moment for an adapter that has just been plugged in or switched on.
    const bool unready = answer->result == ScanAnswer::Result::NotAvailable ||
                         answer->result == ScanAnswer::Result::NoInterface;
    if (!unready || m_unready) {
        m_policy.refused(m_requested.index);
        m_reporter.report(Topic::Scan, ProblemTexts::scanRefused(m_requested.name, *answer));
    }
    m_unready = unready;
}

} // namespace LinuxWifi
