#ifndef AIRLUME_LINUX_CONNMAN_H
#define AIRLUME_LINUX_CONNMAN_H

#include "linux/wifimanager.h"

namespace LinuxWifi
{

/// ConnMan, which manages all Wi-Fi interfaces together.
class ConnMan : public WifiManager
{
public:
    /// Each call through `bus` may take `timeoutMs`.
    ConnMan(BusCaller &bus, int timeoutMs);

    Manager manager() const override;
    QString service() const override;
    void find(const QString &interface, QObject *context, const Found &found) override;
    void scan(const QString &object, QObject *context, const Scanned &scanned) override;

private:
    BusCaller &m_bus;
    const int m_timeoutMs;
};

} // namespace LinuxWifi

#endif
