#ifndef AIRLUME_LINUX_WIFIMANAGER_H
#define AIRLUME_LINUX_WIFIMANAGER_H

#include "linux/scanrequester.h"

#include <QDBusMessage>

#include <functional>

class QObject;

namespace LinuxWifi
{

/// Somebody through whom methods can be called over a message bus.
class BusCaller
{
public:
    using Answered = std::function<void(const QDBusMessage &reply)>;

    virtual ~BusCaller() = default;

    /// Returns at once; `answered` is called with the reply or an error, unless `context` is gone.
    virtual void call(
        const QDBusMessage &message, int timeoutMs, QObject *context, const Answered &answered) = 0;
};

/// How long an answer is waited for, in ms.
struct Patience {
    int callMs = 5000; ///< To a question; NetworkManager asks polkit before it answers.
    /// To the request for a scan: iwd answers when the scan before it is over, ConnMan when the
    /// scan itself is.
    int scanMs = 25000;
};

/// What a manager says about an interface.
struct Finding {
    enum class State {
        Managed, ///< It manages the interface: nobody else is to be asked.
        Unknown, ///< It does not.
        Refused, ///< It does not say, or it manages it and cannot scan now; `refusal` tells.
    };
    State state = State::Unknown;
    QString object; ///< The interface's object, when managed.
    ScanAnswer refusal;
};

/// One of the programs that manage Wi-Fi interfaces, as seen through D-Bus. Nothing is kept between
/// two requests, so that nothing is left over when the manager or the adapter went away and came
/// back. One thread, that of the bus.
class WifiManager
{
public:
    using Found = std::function<void(const Finding &finding)>;
    using Scanned = std::function<void(const ScanAnswer &answer)>;

    virtual ~WifiManager() = default;

    virtual Manager manager() const = 0;
    /// The name it owns on the bus while it runs.
    virtual QString service() const = 0;
    /// Asks whether it manages the interface. `found` is called once, later, unless `context` is
    /// gone.
    virtual void find(const QString &interface, QObject *context, const Found &found) = 0;
    /// Asks for a scan with an interface that was found. `scanned` as above.
    virtual void scan(const QString &object, QObject *context, const Scanned &scanned) = 0;
};

} // namespace LinuxWifi

#endif
