#include "linux/buserror.h"

namespace LinuxWifi
{

namespace
{
using Result = ScanAnswer::Result;

// "No such method" is how a bus says that the adapter's object is gone.
const QVector<ErrorMeaning> Shared = {
    {"org.freedesktop.DBus.Error.ServiceUnknown", Result::NoService},
    {"org.freedesktop.DBus.Error.NameHasNoOwner", Result::NoService},
    {"org.freedesktop.DBus.Error.Disconnected", Result::NoBus},
    {"org.freedesktop.DBus.Error.AccessDenied", Result::NotPermitted},
    {"org.freedesktop.DBus.Error.InteractiveAuthorizationRequired", Result::NotPermitted},
    {"org.freedesktop.DBus.Error.UnknownMethod", Result::NoInterface},
    {"org.freedesktop.DBus.Error.UnknownObject", Result::NoInterface},
    {"org.freedesktop.DBus.Error.UnknownInterface", Result::NoInterface},
    {"org.freedesktop.DBus.Error.NoReply", Result::NoReply},
    {"org.freedesktop.DBus.Error.Timeout", Result::NoReply},
    {"org.freedesktop.DBus.Error.TimedOut", Result::NoReply},
};
} // namespace

ScanAnswer answerOf(
    const QDBusMessage &reply, Manager manager, const QVector<ErrorMeaning> &meanings)
{
    if (reply.type() == QDBusMessage::ReplyMessage)
        return {Result::Accepted, {}, manager};
    const QString detail = reply.errorName() + QStringLiteral(": ") + reply.errorMessage();
    for (const ErrorMeaning &meaning : meanings + Shared) {
        if (reply.errorName() == QLatin1String(meaning.name))
            return {meaning.result, detail,
                meaning.result == Result::NoBus ? Manager::Nobody : manager};
    }
    return {Result::Failed, detail, manager};
}

Finding findingOf(const ScanAnswer &refusal)
{
    // A manager that ended meanwhile manages nothing.
    if (refusal.result == Result::NoInterface || refusal.result == Result::NoService)
        return {};
    return {Finding::State::Refused, {}, refusal};
}

} // namespace LinuxWifi
