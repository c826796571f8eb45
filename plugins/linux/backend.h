#ifndef AIRLUME_LINUX_BACKEND_H
#define AIRLUME_LINUX_BACKEND_H

#include "common/interfaceloss.h"
#include "linux/heardtable.h"
#include "linux/interfacechoice.h"
#include "linux/linktraffic.h"
#include "linux/listorder.h"
#include "linux/problemreporter.h"
#include "linux/scanstarter.h"
#include "scan/wifiapiinterface.h"

#include <limits>

namespace LinuxWifi
{

/// What the plug-in does, with everything outside of it handed in. Answers from what has been heard
/// and never waits for a scan. One thread at a time; owns nothing of what it is given.
class Backend
{
public:
    /// `clock` gives ms of the boot-time clock.
    Backend(WifiKernel &kernel, ScanRequester &requester, ScanEvents &events,
        ScanTriggerPolicy::Clock clock, ProblemReporter::Sink problems);

    /// Names of the interfaces in station mode, so that Airlume takes the one that is listened
    /// with. False when they could not be read; a machine without any gives an empty list.
    bool interfaceNames(QStringList &names);

    /// True when the interface is up and its radio is on.
    bool usable(const QString &name);

    /// Appends what the named interface hears, and starts a new scan when it is time. An empty name
    /// means: the one that is joined to a network, or else one that somebody scans.
    ///
    /// False when no interface can be used. Also false once after interfaceNames() had nothing to
    /// give between two calls: see InterfaceLoss.
    bool networks(const QString &name, QList<ScanMap> &networks);

    /// What networks() gives for the joined network; false when there is none.
    bool joinedNetwork(const QString &name, ScanMap &network);

    /// Starts a scan unless there was one a moment ago. False when it is not possible.
    bool startScan(const QString &name);

    /// Hardware address of the interface; false when there is no such interface.
    bool address(const QString &name, QString &address);

private:
    /// All that is known about one interface's air.
    struct Air {
        HeardTable table;
        ListOrder order;
        LinkTraffic traffic;
    };

    /// When something was heard with an interface last, ms, and when that was looked up.
    struct Scanned {
        qint64 at = std::numeric_limits<int>::min();
        qint64 lookedAt = std::numeric_limits<int>::min();
    };

    bool readInterfaces(QVector<InterfaceCandidate> &candidates);
    std::optional<WifiInterface> chooseInterface(const QString &name);
    std::optional<WifiInterface> best(QVector<InterfaceCandidate> candidates);
    bool scanned(int index);
    void takeFinishedScans();
    bool readNetworks(const WifiInterface &interface, QList<ScanMap> &networks);
    std::optional<StationLink> readLink(
        const WifiInterface &interface, const QVector<AccessPoint> &accessPoints);

    WifiKernel &m_kernel;
    ScanEvents &m_events;
    const ScanTriggerPolicy::Clock m_clock;
    ProblemReporter m_reporter;
    ScanStarter m_starter;
    InterfaceLoss m_loss;
    InterfaceChoice m_choice;
    QHash<int, Air> m_air;         ///< By interface.
    QHash<int, Scanned> m_scanned; ///< By interface.
};

} // namespace LinuxWifi

#endif
