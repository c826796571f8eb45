#ifndef AIRLUME_LINUX_WPASUPPLICANT_H
#define AIRLUME_LINUX_WPASUPPLICANT_H

#include "linux/wifimanager.h"

namespace LinuxWifi
{

/// wpa_supplicant with its D-Bus interface, where nobody above it manages the interface.
class WpaSupplicant : public WifiManager
{
public:
    /// Calls go through `bus`.
    WpaSupplicant(BusCaller &bus, const Patience &patience);

    Manager manager() const override;
    QString service() const override;
    void find(const QString &interface, QObject *context, const Found &found) override;
    void scan(const QString &object, QObject *context, const Scanned &scanned) override;

private:
    void scan(const QString &object, const char *type, QObject *context, const Scanned &scanned);

    BusCaller &m_bus;
    const Patience m_patience;
};

} // namespace LinuxWifi

#endif
