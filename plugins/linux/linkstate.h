#ifndef AIRLUME_LINUX_LINKSTATE_H
#define AIRLUME_LINUX_LINKSTATE_H

#include "linux/wifikernel.h"

namespace LinuxWifi
{

/// Reads whether an interface is up and whether its radio is switched off (rfkill). `sysfs` is
/// where the kernel's sysfs is mounted; everyone may read these files. An interface that does not
/// exist is not up; a radio without switches is not blocked.
LinkState readLinkState(const QString &name, const QString &sysfs = QStringLiteral("/sys"));

} // namespace LinuxWifi

#endif
