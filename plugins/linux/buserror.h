#ifndef AIRLUME_LINUX_BUSERROR_H
#define AIRLUME_LINUX_BUSERROR_H

#include "linux/wifimanager.h"

#include <QVector>

namespace LinuxWifi
{

/// What an error of a manager's own means.
struct ErrorMeaning {
    const char *name;
    ScanAnswer::Result result;
};

/// What a reply to the request for a scan stands for: accepted, or what its error means, by the
/// manager's own meanings or else by those that all share. Pure.
ScanAnswer answerOf(
    const QDBusMessage &reply, Manager manager, const QVector<ErrorMeaning> &meanings);

/// What an error in place of an interface stands for. Pure.
Finding findingOf(const ScanAnswer &refusal);

} // namespace LinuxWifi

#endif
