#ifndef AIRLUME_LINUX_CONNMAN_H
#define AIRLUME_LINUX_CONNMAN_H

#include "linux/wifimanager.h"

namespace LinuxWifi
{

/// ConnMan, which manages all Wi-Fi interfaces together.
class ConnMan : public WifiManager
{
public:
    /// Calls go through `bus`.
    ConnMan(BusCaller &bus, const Patience &patience);

    Manager manager() const override;
    QString service() const override;
    void find(const QString &interface, QObject *context, const Found &found) override;
    void scan(const QString &object, QObject *context, const Scanned &scanned) override;

private:
    BusCaller &m_bus;
    const Patience m_patience;
};

} // namespace LinuxWifi

#endif
