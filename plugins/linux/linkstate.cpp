#include "linux/linkstate.h"

#include <QDir>
#include <QFile>

#include <net/if.h>

namespace LinuxWifi
{

namespace
{
QByteArray fileText(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    return file.readAll().trimmed();
}
} // namespace

LinkState readLinkState(const QString &name, const QString &sysfs)
{
    LinkState state;
    const QString device = sysfs + QStringLiteral("/class/net/") + name;
    state.up = (fileText(device + QStringLiteral("/flags")).toUInt(nullptr, 0) & IFF_UP) != 0;

    const QDir radio(device + QStringLiteral("/phy80211"));
    const QStringList switches =
        radio.entryList({QStringLiteral("rfkill*")}, QDir::Dirs | QDir::NoDotAndDotDot);
    for (const QString &entry : switches) {
        const QString path = radio.filePath(entry);
        state.softBlocked |= fileText(path + QStringLiteral("/soft")) == "1";
        state.hardBlocked |= fileText(path + QStringLiteral("/hard")) == "1";
    }
    return state;
}

} // namespace LinuxWifi
