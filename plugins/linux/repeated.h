#ifndef AIRLUME_LINUX_REPEATED_H
#define AIRLUME_LINUX_REPEATED_H

#include <cerrno>

namespace LinuxWifi
{

/// Calls `function` (which gives 0 or an errno) until it ends otherwise than with EINTR or EAGAIN,
/// but at most three times: both pass by themselves, and nobody may be kept waiting.
template <typename Function> int repeated(Function function)
{
    const int attempts = 3;
    int error = 0;
    for (int i = 0; i < attempts; ++i) {
        error = function();
        if (error != EINTR && error != EAGAIN)
            break;
    }
    return error;
}

} // namespace LinuxWifi

#endif
