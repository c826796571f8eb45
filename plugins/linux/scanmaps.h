#ifndef AIRLUME_LINUX_SCANMAPS_H
#define AIRLUME_LINUX_SCANMAPS_H

#include "linux/wifikernel.h"
#include "scan/wifiapiinterface.h"

namespace LinuxWifi
{

/// The scan maps of what one interface hears: the joined network first, so that it keeps its plain
/// name among others of the same name, the rest in the kernel's order. The joined network's signal
/// is the one of its link in `links` where that has one: it is fresh without a scan. A link of
/// several radios makes the kernel mark several access points as joined; only one is marked here.
/// `joinedName` names a joined network that hides its name. Pure.
QList<ScanMap> scanMaps(QVector<AccessPoint> accessPoints, const QVector<StationLink> &links,
    const QString &joinedName);

} // namespace LinuxWifi

#endif
