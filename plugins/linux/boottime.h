#ifndef AIRLUME_LINUX_BOOTTIME_H
#define AIRLUME_LINUX_BOOTTIME_H

#include <QtGlobal>

namespace LinuxWifi
{

/// Milliseconds since the machine was started, suspends included: the clock by which the kernel
/// stamps what it hears (CLOCK_BOOTTIME). Never goes back. Any thread.
qint64 bootTimeMs();

} // namespace LinuxWifi

#endif
