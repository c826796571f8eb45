#ifndef AIRLUME_LINUX_NETLINKERROR_H
#define AIRLUME_LINUX_NETLINKERROR_H

namespace LinuxWifi
{

/// The errno for an error of libnl itself (a negative NLE_ code): EAGAIN and EINTR where asking
/// again helps, which includes a list that changed while it was read; EIO for whatever has none of
/// its own. Errors of the kernel do not come this way. Pure.
int errnoOfNetlinkError(int code);

} // namespace LinuxWifi

#endif
