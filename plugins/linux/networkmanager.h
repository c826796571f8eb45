#ifndef AIRLUME_LINUX_NETWORKMANAGER_H
#define AIRLUME_LINUX_NETWORKMANAGER_H

#include "linux/wifimanager.h"

namespace LinuxWifi
{

/// NetworkManager, with whichever program it has scan for it.
class NetworkManager : public WifiManager
{
public:
    /// Each call through `bus` may take `timeoutMs`. NetworkManager asks polkit before
    /// it answers.
    NetworkManager(BusCaller &bus, int timeoutMs);

    Manager manager() const override;
    QString service() const override;
    void find(const QString &interface, QObject *context, const Found &found) override;
    void scan(const QString &object, QObject *context, const Scanned &scanned) override;

private:
    void findState(const QString &object, QObject *context, const Found &found);

    BusCaller &m_bus;
    const int m_timeoutMs;
};

} // namespace LinuxWifi

#endif
