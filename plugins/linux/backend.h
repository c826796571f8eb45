#ifndef AIRLUME_LINUX_BACKEND_H
#define AIRLUME_LINUX_BACKEND_H

#include "linux/problemreporter.h"
#include "linux/scanrequester.h"
#include "linux/scantriggerpolicy.h"
#include "linux/wifikernel.h"
#include "scan/wifiapiinterface.h"

namespace LinuxWifi
{

/// What the plug-in does, with everything outside of it handed in. Answers from what the kernel
/// knows and never waits for a scan. One thread at a time; owns nothing of what it is given.
class Backend
{
public:
    Backend(WifiKernel &kernel, ScanRequester &requester, ScanTriggerPolicy::Clock clock,
        ProblemReporter::Sink problems);

    /// Names of the interfaces in station mode, in the kernel's order. False when they could not be
    /// read; a machine without any gives an empty list.
    bool interfaceNames(QStringList &names);

    /// True when the interface is up and its radio is on.
    bool usable(const QString &name);

    /// Appends what the named interface hears, and starts a new scan when it is time. An empty name
    /// means: the first usable interface that is joined to a network, or else the first usable one.
    ///
    /// False when no interface can be used. Also false once after interfaceNames() had nothing to
    /// give between two calls: Airlume forgets its interface then only when a query fails, and
    /// would go on without data for ever.
    bool networks(const QString &name, QList<ScanMap> &networks);

    /// What networks() gives for the joined network; false when there is none.
    bool joinedNetwork(const QString &name, ScanMap &network);

    /// Starts a scan unless there was one a moment ago. False when it is not possible.
    bool startScan(const QString &name);

    /// Hardware address of the interface; false when there is no such interface.
    bool address(const QString &name, QString &address);

private:
    bool readInterfaces(QVector<WifiInterface> &interfaces);
    std::optional<WifiInterface> chooseInterface(const QString &name);
    bool readNetworks(const WifiInterface &interface, QList<ScanMap> &networks);
    QVector<StationLink> readLinks(const WifiInterface &interface);
    bool scan(const WifiInterface &interface, bool joined);
    void takeScanAnswer();

    WifiKernel &m_kernel;
    ScanRequester &m_requester;
    ScanTriggerPolicy m_policy;
    ProblemReporter m_reporter;
    bool m_mayTrigger = true;  ///< Until the kernel says that this user may not.
    bool m_answering = false;  ///< The last query succeeded.
    bool m_vanished = false;   ///< Since then there was a time without any interface.
    WifiInterface m_requested; ///< The interface that a scan was requested for.
    bool m_unready = false;    ///< The last answer was that the interface cannot scan yet.
};

} // namespace LinuxWifi

#endif
