#ifndef AIRLUME_LINUX_LINUXWIFIPLUGIN_H
#define AIRLUME_LINUX_LINUXWIFIPLUGIN_H

#include "linux/backend.h"
#include "linux/backgroundthread.h"
#include "linux/managerrequester.h"
#include "linux/nl80211kernel.h"
#include "linux/scanwatcher.h"

#include <QObject>

namespace LinuxWifi
{

/// The Linux back end: nl80211, with whoever manages the interface asked to scan where this user
/// may not. Works without root. Problems are reported as critical messages, each once.
class LinuxWifiPlugin : public QObject, public WiFiApiInterface
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID WiFiApiInterface_iid)
    Q_INTERFACES(WiFiApiInterface)

public:
    LinuxWifiPlugin();
    ~LinuxWifiPlugin() override;

    bool initWiFiApi() override;
    bool releaseWiFiApi() override;
    bool isWiFiNicUsable(const QString &nic, int flag) override;
    /// Not offered: the radio switch belongs to the user's network settings.
    bool setWiFiRadio(const QString &nic, bool on) override;
    bool startWiFiScan(const QString &nic) override;
    bool getVisiableNetworkMapList(QString &nic, QList<ScanMap> &networks) override;
    bool getConnectedNetworkMap(QString &nic, ScanMap &network) override;
    bool getWiFiNicAddress(const QString &nic, QString &address) override;
    bool getWiFiNicList(QStringList &nics) override;

private:
    Nl80211Kernel m_kernel;
    BackgroundThread m_background;
    ScanWatcher m_watcher;
    ManagerRequester m_requester;
    Backend m_backend;
};

} // namespace LinuxWifi

#endif
