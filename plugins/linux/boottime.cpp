#include "linux/boottime.h"

#include <ctime>

namespace LinuxWifi
{

qint64 bootTimeMs()
{
    timespec now = {};
    clock_gettime(CLOCK_BOOTTIME, &now);
    return qint64(now.tv_sec) * 1000 + now.tv_nsec / 1000000;
}

} // namespace LinuxWifi
