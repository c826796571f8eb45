#include "fuzz/require.h"
#include "linux/nl80211messages.h"
#include "linux/scanmaps.h"
#include "linux/ssidtext.h"

#include <linux/netlink.h>

#include <algorithm>
#include <cstring>
#include <vector>

using namespace LinuxWifi;

namespace
{
const int HighestChannel = (45000 - 5950) / 5;

void checkAddress(const QString &address)
{
    require(address.size() == 17);
    for (int i = 0; i < address.size(); ++i) {
        const QChar character = address.at(i);
        require(i % 3 == 2 ? character == QLatin1Char(':')
                           : QStringLiteral("0123456789abcdef").contains(character));
    }
}

void checkName(const QString &name)
{
    // Whole characters only: nothing is lost on the way through UTF-8. (The blank keeps a byte
    // order mark in its place.)
    const QString shielded = QLatin1Char(' ') + name;
    require(QString::fromUtf8(shielded.toUtf8()) == shielded);
    const std::string text = name.toStdString();
    require(ssidText(text) == text);
}

void checkAccessPoint(const AccessPoint &accessPoint)
{
    checkAddress(accessPoint.bssid);
    checkName(accessPoint.ssid);
    require(accessPoint.channel >= 0 && accessPoint.channel <= HighestChannel);
    require(!accessPoint.security.isEmpty() && accessPoint.security.size() < 200);
    for (const QChar character : accessPoint.security)
        require(character >= QLatin1Char(' ') && character <= QLatin1Char('~'));
}

void checkMaps(const QVector<AccessPoint> &accessPoints, const QList<ScanMap> &maps)
{
    require(maps.size() == accessPoints.size());
    const bool joined = std::any_of(accessPoints.cbegin(), accessPoints.cend(),
        [](const AccessPoint &accessPoint) { return accessPoint.joined; });
    for (int i = 0; i < maps.size(); ++i) {
        const ScanMap &map = maps.at(i);
        const QString mark = joined && i == 0 ? QStringLiteral("1") : QStringLiteral("0");
        require(map.value(QStringLiteral("current_connected")) == mark);
        checkAddress(map.value(QStringLiteral("bssid")));
        checkName(map.value(QStringLiteral("ssid")));
        for (const QString &key :
            {QStringLiteral("channel"), QStringLiteral("WLAN_NETWORK_SIGNAL")}) {
            bool isNumber = false;
            map.value(key).toInt(&isNumber);
            require(isNumber);
        }
        const QString rate = map.value(QStringLiteral("link_rate"), QStringLiteral("0"));
        require(rate.toInt() >= 0 && QString::number(rate.toInt()) == rate);
    }
}

/// What one dump of the kernel's gives.
class Reply
{
public:
    void add(nlmsghdr *message)
    {
        if (const auto interface = parseInterface(message)) {
            if (!interface->address.isEmpty())
                checkAddress(interface->address);
            checkName(interface->joinedName);
            m_joinedName = interface->joinedName;
        }
        if (const auto accessPoint = parseAccessPoint(message)) {
            checkAccessPoint(*accessPoint);
            m_accessPoints.append(*accessPoint);
        }
        if (const auto link = parseStationLink(message)) {
            if (!link->address.isEmpty())
                checkAddress(link->address);
            require(!link->signal || (*link->signal >= -128 && *link->signal <= 127));
            require(!link->rate || *link->rate >= 0);
            m_links.append(*link);
        }
    }

    void check() const
    {
        checkMaps(m_accessPoints, scanMaps(m_accessPoints, m_links, m_joinedName));
    }

private:
    QVector<AccessPoint> m_accessPoints;
    QVector<StationLink> m_links;
    QString m_joinedName;
};
} // namespace

/// Any octets as messages one after another, as they come out of the socket.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    Reply reply;
    while (size >= sizeof(nlmsghdr)) {
        nlmsghdr header;
        std::memcpy(&header, data, sizeof(header));
        // libnl hands on only what lies wholly within what it received.
        if (header.nlmsg_len < sizeof(header) || header.nlmsg_len > size)
            header.nlmsg_len = static_cast<std::uint32_t>(size);
        // A copy of exactly this size, so that the first octet too many is seen.
        std::vector<std::uint8_t> message(data, data + header.nlmsg_len);
        std::memcpy(message.data(), &header, sizeof(header));
        reply.add(reinterpret_cast<nlmsghdr *>(message.data()));
        const std::size_t step = std::min<std::size_t>(size, NLMSG_ALIGN(header.nlmsg_len));
        data += step;
        size -= step;
    }
    reply.check();
    return 0;
}
