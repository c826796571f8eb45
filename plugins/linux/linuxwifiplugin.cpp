#include "linux/linuxwifiplugin.h"

#include "linux/boottime.h"

#include <QDebug>

namespace LinuxWifi
{

LinuxWifiPlugin::LinuxWifiPlugin()
    : m_watcher(m_background, bootTimeMs)
    , m_requester(m_background)
    , m_backend(m_kernel, m_requester, m_watcher, bootTimeMs,
          [](const QString &text) { qCritical().noquote() << text; })
{
}

LinuxWifiPlugin::~LinuxWifiPlugin()
{
    m_background.end();
}

bool LinuxWifiPlugin::initWiFiApi()
{
    return true;
}

bool LinuxWifiPlugin::releaseWiFiApi()
{
    m_kernel.close();
    return true;
}

bool LinuxWifiPlugin::isWiFiNicUsable(const QString &nic, int flag)
{
    Q_UNUSED(flag)
    return m_backend.usable(nic);
}

bool LinuxWifiPlugin::setWiFiRadio(const QString &nic, bool on)
{
    Q_UNUSED(nic)
    Q_UNUSED(on)
    return false;
}

bool LinuxWifiPlugin::startWiFiScan(const QString &nic)
{
    return m_backend.startScan(nic);
}

bool LinuxWifiPlugin::getVisiableNetworkMapList(QString &nic, QList<ScanMap> &networks)
{
    return m_backend.networks(nic, networks);
}

bool LinuxWifiPlugin::getConnectedNetworkMap(QString &nic, ScanMap &network)
{
    return m_backend.joinedNetwork(nic, network);
}

bool LinuxWifiPlugin::getWiFiNicAddress(const QString &nic, QString &address)
{
    return m_backend.address(nic, address);
}

bool LinuxWifiPlugin::getWiFiNicList(QStringList &nics)
{
    return m_backend.interfaceNames(nics);
}

} // namespace LinuxWifi
