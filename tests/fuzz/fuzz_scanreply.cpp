#include "fuzz/require.h"
#include "linux/heardtable.h"
#include "linux/linktraffic.h"
#include "linux/listorder.h"
#include "linux/nl80211messages.h"
#include "linux/scanmaps.h"
#include "linux/ssidtext.h"

#include <QSet>

#include <linux/netlink.h>

#include <algorithm>
#include <cstring>
#include <vector>

using namespace LinuxWifi;

namespace
{
const int HighestChannel = 6233;

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

void checkMap(const ScanMap &map, bool joined)
{
    require(map.value(QStringLiteral("current_connected")) ==
            (joined ? QStringLiteral("1") : QStringLiteral("0")));
    checkAddress(map.value(QStringLiteral("bssid")));
    checkName(map.value(QStringLiteral("ssid")));
    require(!map.value(QStringLiteral("ssid")).isEmpty());
    bool isNumber = false;
    map.value(QStringLiteral("channel")).toInt(&isNumber);
    require(isNumber);
    const int signal = map.value(QStringLiteral("WLAN_NETWORK_SIGNAL")).toInt(&isNumber);
    require(isNumber && signal >= -100 && signal < 0);
    const QString rate = map.value(QStringLiteral("link_rate"), QStringLiteral("0"));
    require(rate.toInt() >= 0 && QString::number(rate.toInt()) == rate);
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
        }
        if (const auto accessPoint = parseAccessPoint(message)) {
            checkAccessPoint(*accessPoint);
            m_accessPoints.append(*accessPoint);
        }
        if (const auto link = parseStationLink(message)) {
            if (!link->address.isEmpty())
                checkAddress(link->address);
            require(!link->signal || (*link->signal >= -100 && *link->signal < 0));
            require(!link->rate || *link->rate >= 0);
            m_link = link;
        }
        if (const auto notice = parseScanNotice(message))
            m_scan.frequencies = notice->frequencies;
    }

    void check()
    {
        const qint64 now = 1000000000;
        HeardTable table;
        table.heard(m_accessPoints, now);
        table.finished(m_scan);
        QVector<AccessPoint> records = table.records(now);
        LinkTraffic traffic;
        if (m_link)
            traffic.take(*m_link, now);
        const QString joined = traffic.carrier(records);
        const int count = records.size();
        ListOrder().sort(records, joined);
        require(records.size() == count);
        QSet<QString> bssids;
        for (const ScanMap &map : scanMaps(records, joined, m_link)) {
            const QString bssid = map.value(QStringLiteral("bssid"));
            require(!bssids.contains(bssid));
            bssids.insert(bssid);
            checkMap(map, bssid == joined);
        }
        require(joined.isEmpty() || bssids.contains(joined));
    }

private:
    QVector<AccessPoint> m_accessPoints;
    std::optional<StationLink> m_link;
    FinishedScan m_scan;
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
