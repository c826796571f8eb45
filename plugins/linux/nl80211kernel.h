#ifndef AIRLUME_LINUX_NL80211KERNEL_H
#define AIRLUME_LINUX_NL80211KERNEL_H

#include "linux/netlinksocket.h"
#include "linux/wifikernel.h"

namespace LinuxWifi
{

/// The running kernel, asked through nl80211. Needs no privilege but for triggerScan().
class Nl80211Kernel : public WifiKernel
{
public:
    Nl80211Kernel();

    int interfaces(QVector<WifiInterface> &interfaces) override;
    LinkState linkState(const QString &name) override;
    int accessPoints(int index, QVector<AccessPoint> &accessPoints) override;
    int stationLink(int index, const QString &address, StationLink &link) override;
    int stationLinks(int index, QVector<StationLink> &links) override;
    int triggerScan(int index) override;
    void close() override;

private:
    NetlinkSocket m_socket;
};

} // namespace LinuxWifi

#endif
