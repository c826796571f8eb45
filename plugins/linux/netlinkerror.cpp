#include "linux/netlinkerror.h"

#include <netlink/errno.h>

#include <cerrno>

namespace LinuxWifi
{

int errnoOfNetlinkError(int code)
{
    switch (-code) {
    case NLE_AGAIN:
        return EAGAIN;
    case NLE_INTR:
    case NLE_DUMP_INTR:
        return EINTR;
    case NLE_NOMEM:
        return ENOBUFS;
    default:
        return EIO;
    }
}

} // namespace LinuxWifi
