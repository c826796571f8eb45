#ifndef AIRLUME_LINUX_NETWORKMANAGER_H
#define AIRLUME_LINUX_NETWORKMANAGER_H

#include "linux/wifimanager.h"

namespace LinuxWifi
{

/// NetworkManager, with whichever program it has scan for it.
class NetworkManager : public WifiManager
{
public:
    /// Calls go through `bus`.
    NetworkManager(BusCaller &bus, const Patience &patience);

    Manager manager() const override;
    QString service() const override;
    void find(const QString &interface, QObject *context, const Found &found) override;
    void scan(const QString &object, QObject *context, const Scanned &scanned) override;

private:
    void findState(const QString &object, QObject *context, const Found &found);

    BusCaller &m_bus;
    const Patience m_patience;
};

} // namespace LinuxWifi

#endif
