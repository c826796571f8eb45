#ifndef AIRLUME_LINUX_SCANMAPS_H
#define AIRLUME_LINUX_SCANMAPS_H

#include "linux/wifikernel.h"
#include "scan/wifiapiinterface.h"

namespace LinuxWifi
{

/// The scan maps of what one interface hears, in the order given. The access point whose BSSID is
/// `joined` is marked as joined, no other, whatever the kernel marks: a link of several radios
/// makes it mark several. Signal and rate of the joined one are those of `link` where it has them,
/// as they are fresh without a scan. A network that hides its name is named "(hidden) " and its
/// BSSID. Pure.
QList<ScanMap> scanMaps(const QVector<AccessPoint> &accessPoints, const QString &joined,
    const std::optional<StationLink> &link);

} // namespace LinuxWifi

#endif
