#include "linux/nl80211kernel.h"

#include "linux/linkstate.h"
#include "linux/nl80211messages.h"
#include "linux/repeated.h"

#include <linux/nl80211.h>
#include <netlink/attr.h>

#include <cerrno>

namespace LinuxWifi
{

const int WifiKernel::NoWifiSupport = EPROTONOSUPPORT;

namespace
{
NetlinkSocket::Fill ofInterface(int index)
{
    return [index](nl_msg *request) {
        return nla_put_u32(request, NL80211_ATTR_IFINDEX, static_cast<quint32>(index)) == 0;
    };
}

bool ofAll(nl_msg *)
{
    return true;
}

/// One list of the kernel's, asked for again while it changes under the reader.
template <typename Value>
int list(NetlinkSocket &socket, quint8 command, const NetlinkSocket::Fill &fill,
    std::optional<Value> (*parse)(nlmsghdr *), QVector<Value> &values)
{
    const int error = repeated([&] {
        values.clear();
        return socket.dump(command, fill, [&](nlmsghdr *message) {
            if (const std::optional<Value> value = parse(message))
                values.append(*value);
        });
    });
    if (error)
        values.clear();
    return error;
}
} // namespace

Nl80211Kernel::Nl80211Kernel()
    : m_socket("nl80211")
{
}

int Nl80211Kernel::interfaces(QVector<WifiInterface> &interfaces)
{
    return list(m_socket, NL80211_CMD_GET_INTERFACE, ofAll, parseInterface, interfaces);
}

LinkState Nl80211Kernel::linkState(const QString &name)
{
    return readLinkState(name);
}

int Nl80211Kernel::accessPoints(int index, QVector<AccessPoint> &accessPoints)
{
    return list(m_socket, NL80211_CMD_GET_SCAN, ofInterface(index), parseAccessPoint, accessPoints);
}

int Nl80211Kernel::stationLink(int index, const QString &address, StationLink &link)
{
    const QByteArray octets = QByteArray::fromHex(address.toLatin1());
    const auto fill = [&](nl_msg *request) {
        return ofInterface(index)(request) &&
               nla_put(request, NL80211_ATTR_MAC, octets.size(), octets.constData()) == 0;
    };
    std::optional<StationLink> answer;
    const int error = repeated([&] {
        return m_socket.request(NL80211_CMD_GET_STATION, fill,
            [&answer](nlmsghdr *message) { answer = parseStationLink(message); });
    });
    if (error)
        return error;
    if (!answer)
        return ENOENT;
    link = *answer;
    return 0;
}

int Nl80211Kernel::stationLinks(int index, QVector<StationLink> &links)
{
    return list(m_socket, NL80211_CMD_GET_STATION, ofInterface(index), parseStationLink, links);
}

int Nl80211Kernel::triggerScan(int index)
{
    const auto fill = [index](nl_msg *request) {
        if (nla_put_u32(request, NL80211_ATTR_IFINDEX, static_cast<quint32>(index)) != 0)
            return false;
        // One name of no length asks every access point to answer; without it the scan would only
        // listen, which takes twice as long.
        nlattr *const names = nla_nest_start(request, NL80211_ATTR_SCAN_SSIDS);
        return names && nla_put(request, 1, 0, "") == 0 && nla_nest_end(request, names) == 0;
    };
    return repeated(
        [&] { return m_socket.request(NL80211_CMD_TRIGGER_SCAN, fill, [](nlmsghdr *) {}); });
}

void Nl80211Kernel::close()
{
    m_socket.close();
}

} // namespace LinuxWifi
