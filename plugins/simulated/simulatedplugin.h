#ifndef AIRLUME_SIMULATED_SIMULATEDPLUGIN_H
#define AIRLUME_SIMULATED_SIMULATEDPLUGIN_H

#include "common/interfaceloss.h"
#include "scan/wifiapiinterface.h"
#include "simulated/simulatedair.h"

#include <QObject>

#include <functional>
#include <memory>

/// The simulated back end: the neighbourhood built in, or the one of the file that the environment
/// variable AIRLUME_SCENARIO names. A file with a mistake in it gives one critical message and a
/// machine without an interface.
///
/// The first call reads the environment and is the zero of the scenario's time. All calls from one
/// thread at a time; each is answered from memory.
class SimulatedPlugin : public QObject, public WiFiApiInterface
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID WiFiApiInterface_iid)
    Q_INTERFACES(WiFiApiInterface)

public:
    /// Milliseconds of a clock that never goes back.
    using Clock = std::function<qint64()>;

    SimulatedPlugin();
    /// Runs on `clock` instead of the machine's.
    explicit SimulatedPlugin(Clock clock);

    /// False when the scenario file has a mistake in it.
    bool initWiFiApi() override;
    /// Forgets everything: the next call starts the scenario from its beginning, read afresh.
    bool releaseWiFiApi() override;
    bool isWiFiNicUsable(const QString &nic, int flag) override;
    bool setWiFiRadio(const QString &nic, bool on) override;
    /// There is nothing to start: the air is always known. True when `nic` can be used.
    bool startWiFiScan(const QString &nic) override;
    /// False also once after getWiFiNicList() had nothing to give: see InterfaceLoss.
    bool getVisiableNetworkMapList(QString &nic, QList<ScanMap> &networks) override;
    bool getConnectedNetworkMap(QString &nic, ScanMap &network) override;
    bool getWiFiNicAddress(const QString &nic, QString &address) override;
    bool getWiFiNicList(QStringList &nics) override;

private:
    /// The air as it is now.
    SimulatedAir &air();

    Clock m_clock;
    qint64 m_start = 0;
    double m_timeScale = 1.0;
    bool m_sound = false;
    InterfaceLoss m_loss;
    std::unique_ptr<SimulatedAir> m_air;
};

#endif
