#include "simulated/simulatedplugin.h"

#include "simulated/scenariofile.h"

#include <QDebug>
#include <QElapsedTimer>

namespace
{
SimulatedPlugin::Clock machineClock()
{
    QElapsedTimer timer;
    timer.start();
    return [timer] { return timer.elapsed(); };
}
} // namespace

SimulatedPlugin::SimulatedPlugin()
    : SimulatedPlugin(machineClock())
{
}

SimulatedPlugin::SimulatedPlugin(Clock clock)
    : m_clock(std::move(clock))
{
}

SimulatedAir &SimulatedPlugin::air()
{
    if (!m_air) {
        QString path = qEnvironmentVariable("AIRLUME_SCENARIO");
        if (path.isEmpty())
            path = QStringLiteral(":/simulated/neighbourhood.json");
        const ScenarioFileResult file = ReadScenarioFile(path);
        m_sound = file.problem.isEmpty();
        if (!m_sound)
            qCritical().noquote() << file.problem;
        m_air = std::make_unique<SimulatedAir>(file.scenario);
        m_timeScale = file.scenario.timeScale;
        m_start = m_clock();
    }
    m_air->advanceTo(static_cast<double>(m_clock() - m_start) / 1000.0 * m_timeScale);
    return *m_air;
}

bool SimulatedPlugin::initWiFiApi()
{
    air();
    return m_sound;
}

bool SimulatedPlugin::releaseWiFiApi()
{
    m_air.reset();
    m_loss = InterfaceLoss();
    return true;
}

bool SimulatedPlugin::isWiFiNicUsable(const QString &nic, int flag)
{
    Q_UNUSED(flag)
    return air().isUsable(nic);
}

bool SimulatedPlugin::setWiFiRadio(const QString &nic, bool on)
{
    return air().setRadio(nic, on);
}

bool SimulatedPlugin::startWiFiScan(const QString &nic)
{
    return air().isUsable(nic);
}

bool SimulatedPlugin::getVisiableNetworkMapList(QString &nic, QList<ScanMap> &networks)
{
    QList<ScanMap> heard;
    if (!m_loss.answer(air().networks(nic, heard)))
        return false;
    networks += heard;
    return true;
}

bool SimulatedPlugin::getConnectedNetworkMap(QString &nic, ScanMap &network)
{
    return air().joinedNetwork(nic, network);
}

bool SimulatedPlugin::getWiFiNicAddress(const QString &nic, QString &address)
{
    return air().address(nic, address);
}

bool SimulatedPlugin::getWiFiNicList(QStringList &nics)
{
    QStringList listed;
    const bool result = air().interfaces(listed);
    m_loss.listed(!listed.isEmpty());
    nics += listed;
    return result;
}
