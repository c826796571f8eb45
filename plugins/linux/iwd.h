#ifndef AIRLUME_LINUX_IWD_H
#define AIRLUME_LINUX_IWD_H

#include "linux/wifimanager.h"

namespace LinuxWifi
{

/// iwd, where it manages interfaces for itself.
class Iwd : public WifiManager
{
public:
    /// Each call through `bus` may take `timeoutMs`.
    Iwd(BusCaller &bus, int timeoutMs);

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
