#include "linux/wpasupplicant.h"

#include "linux/buserror.h"

#include <QDBusObjectPath>
#include <QVariantMap>

namespace LinuxWifi
{

namespace
{
using Result = ScanAnswer::Result;

const QString Service = QStringLiteral("fi.w1.wpa_supplicant1");
const QString ManagerPath = QStringLiteral("/fi/w1/wpa_supplicant1");
const QString InterfaceInterface = QStringLiteral("fi.w1.wpa_supplicant1.Interface");

const QVector<ErrorMeaning> Meanings = {
    {"fi.w1.wpa_supplicant1.InterfaceUnknown", Result::NoInterface},
};
} // namespace

WpaSupplicant::WpaSupplicant(BusCaller &bus, const Patience &patience)
    : m_bus(bus)
    , m_patience(patience)
{
}

Manager WpaSupplicant::manager() const
{
    return Manager::WpaSupplicant;
}

QString WpaSupplicant::service() const
{
    return Service;
}

void WpaSupplicant::find(const QString &interface, QObject *context, const Found &found)
{
    QDBusMessage call = QDBusMessage::createMethodCall(
        Service, ManagerPath, Service, QStringLiteral("GetInterface"));
    call << interface;
    m_bus.call(call, m_patience.callMs, context, [this, found](const QDBusMessage &reply) {
        if (reply.type() == QDBusMessage::ReplyMessage)
            found({Finding::State::Managed,
                reply.arguments().value(0).value<QDBusObjectPath>().path(), {}});
        else
            found(findingOf(answerOf(reply, manager(), Meanings)));
    });
}

void WpaSupplicant::scan(const QString &object, QObject *context, const Scanned &scanned)
{
    scan(object, "active", context, [this, object, context, scanned](const ScanAnswer &answer) {
        // Some drivers refuse to send while they are busy, and listen all the same.
        if (answer.result == Result::Failed)
            scan(object, "passive", context, scanned);
        else
            scanned(answer);
    });
}

void WpaSupplicant::scan(
    const QString &object, const char *type, QObject *context, const Scanned &scanned)
{
    QDBusMessage call =
        QDBusMessage::createMethodCall(Service, object, InterfaceInterface, QStringLiteral("Scan"));
    call << QVariantMap{{QStringLiteral("Type"), QString::fromLatin1(type)}};
    m_bus.call(call, m_patience.scanMs, context, [this, scanned](const QDBusMessage &reply) {
        scanned(answerOf(reply, manager(), Meanings));
    });
}

} // namespace LinuxWifi
