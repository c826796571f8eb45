#include "linux/connman.h"

#include "linux/buserror.h"

#include <QDBusArgument>
#include <QDBusObjectPath>
#include <QVariantMap>

namespace LinuxWifi
{

namespace
{
using Result = ScanAnswer::Result;

const QString Service = QStringLiteral("net.connman");
const QString ManagerInterface = QStringLiteral("net.connman.Manager");
const QString TechnologyInterface = QStringLiteral("net.connman.Technology");

const QVector<ErrorMeaning> Meanings = {
    {"net.connman.Error.InProgress", Result::Accepted},
    {"net.connman.Error.PermissionDenied", Result::NotPermitted},
    {"net.connman.Error.NotSupported", Result::NotAvailable},
    {"net.connman.Error.AlreadyDisabled", Result::NotAvailable},
};

Finding findingIn(const QDBusArgument &technologies)
{
    Finding finding;
    technologies.beginArray();
    while (!technologies.atEnd()) {
        QDBusObjectPath object;
        QVariantMap properties;
        technologies.beginStructure();
        technologies >> object >> properties;
        technologies.endStructure();
        if (properties.value(QStringLiteral("Type")).toString() != QStringLiteral("wifi"))
            continue;
        if (properties.value(QStringLiteral("Powered")).toBool())
            finding = {Finding::State::Managed, object.path(), {}};
        else
            finding = {Finding::State::Refused, {},
                {Result::NotAvailable, QStringLiteral("not powered"), Manager::ConnMan}};
    }
    technologies.endArray();
    return finding;
}
} // namespace

ConnMan::ConnMan(BusCaller &bus, const Patience &patience)
    : m_bus(bus)
    , m_patience(patience)
{
}

Manager ConnMan::manager() const
{
    return Manager::ConnMan;
}

QString ConnMan::service() const
{
    return Service;
}

void ConnMan::find(const QString &interface, QObject *context, const Found &found)
{
    Q_UNUSED(interface)
    const QDBusMessage call = QDBusMessage::createMethodCall(
        Service, QStringLiteral("/"), ManagerInterface, QStringLiteral("GetTechnologies"));
    m_bus.call(call, m_patience.callMs, context, [this, found](const QDBusMessage &reply) {
        if (reply.type() != QDBusMessage::ReplyMessage)
            found(findingOf(answerOf(reply, manager(), Meanings)));
        else if (reply.signature() == QStringLiteral("a(oa{sv})"))
            found(findingIn(reply.arguments().value(0).value<QDBusArgument>()));
        else
            found({});
    });
}

void ConnMan::scan(const QString &object, QObject *context, const Scanned &scanned)
{
    const QDBusMessage call = QDBusMessage::createMethodCall(
        Service, object, TechnologyInterface, QStringLiteral("Scan"));
    m_bus.call(call, m_patience.scanMs, context, [this, scanned](const QDBusMessage &reply) {
        scanned(answerOf(reply, manager(), Meanings));
    });
}

} // namespace LinuxWifi
