#include "linux/nl80211messages.h"

#include "linux/channelnumber.h"
#include "linux/elementparser.h"
#include "linux/securitytext.h"
#include "linux/ssidtext.h"

#include <linux/nl80211.h>
#include <netlink/attr.h>
#include <netlink/genl/genl.h>
#include <netlink/msg.h>

#include <array>
#include <cmath>

namespace LinuxWifi
{

namespace
{
const int AddressSize = 6;
const std::uint16_t PrivacyBit = 0x0010;

/// The attributes of one level by their number.
template <std::size_t Maximum> class Attributes
{
public:
    static constexpr int maximum() { return static_cast<int>(Maximum); }
    nlattr **data() { return m_attributes.data(); }

    nlattr *operator[](int number) const { return m_attributes[static_cast<std::size_t>(number)]; }

private:
    std::array<nlattr *, Maximum + 1> m_attributes{};
};

using MessageAttributes = Attributes<NL80211_ATTR_MAX>;

bool parseMessage(nlmsghdr *message, int command, MessageAttributes &attributes)
{
    if (!genlmsg_valid_hdr(message, 0) || genlmsg_hdr(message)->cmd != command)
        return false;
    return genlmsg_parse(message, 0, attributes.data(), NL80211_ATTR_MAX, nullptr) == 0;
}

template <std::size_t Maximum>
bool parseNested(
    nlattr *nest, const std::array<nla_policy, Maximum + 1> &policy, Attributes<Maximum> &inner)
{
    return nest && nla_parse_nested(inner.data(), inner.maximum(), nest, policy.data()) == 0;
}

std::optional<quint32> number(const nlattr *attribute)
{
    if (!attribute || nla_len(attribute) < static_cast<int>(sizeof(quint32)))
        return std::nullopt;
    return nla_get_u32(attribute);
}

QString addressText(const nlattr *attribute)
{
    if (!attribute || nla_len(attribute) < AddressSize)
        return {};
    const QByteArray octets(static_cast<const char *>(nla_data(attribute)), AddressSize);
    return QString::fromLatin1(octets.toHex(':'));
}

QString nameText(const std::string &octets)
{
    // Behind a blank, as a byte order mark at the very start would be dropped.
    return QString::fromStdString(' ' + ssidText(octets)).mid(1);
}

std::string octetsOf(const nlattr *attribute)
{
    const char *const octets = static_cast<const char *>(nla_data(attribute));
    return std::string(octets, octets + nla_len(attribute));
}

InformationElements elementsOf(const nlattr *attribute)
{
    if (!attribute) {
        // Nothing was heard of its elements; that is not the same as having none.
        InformationElements unknown;
        unknown.truncated = true;
        return unknown;
    }
    return parseElements(static_cast<const std::uint8_t *>(nla_data(attribute)),
        static_cast<std::size_t>(nla_len(attribute)));
}

std::array<nla_policy, NL80211_BSS_MAX + 1> accessPointPolicy()
{
    std::array<nla_policy, NL80211_BSS_MAX + 1> policy{};
    policy[NL80211_BSS_FREQUENCY].type = NLA_U32;
    policy[NL80211_BSS_CAPABILITY].type = NLA_U16;
    policy[NL80211_BSS_SIGNAL_MBM].type = NLA_U32;
    policy[NL80211_BSS_SIGNAL_UNSPEC].type = NLA_U8;
    policy[NL80211_BSS_STATUS].type = NLA_U32;
    return policy;
}

std::array<nla_policy, NL80211_STA_INFO_MAX + 1> stationPolicy()
{
    std::array<nla_policy, NL80211_STA_INFO_MAX + 1> policy{};
    policy[NL80211_STA_INFO_SIGNAL].type = NLA_U8;
    policy[NL80211_STA_INFO_TX_BITRATE].type = NLA_NESTED;
    return policy;
}

std::array<nla_policy, NL80211_RATE_INFO_MAX + 1> ratePolicy()
{
    std::array<nla_policy, NL80211_RATE_INFO_MAX + 1> policy{};
    policy[NL80211_RATE_INFO_BITRATE].type = NLA_U16;
    policy[NL80211_RATE_INFO_BITRATE32].type = NLA_U32;
    return policy;
}

using AccessPointAttributes = Attributes<NL80211_BSS_MAX>;

std::optional<int> signalOf(const AccessPointAttributes &bss)
{
    if (bss[NL80211_BSS_SIGNAL_MBM]) {
        const int hundredths = nla_get_s32(bss[NL80211_BSS_SIGNAL_MBM]);
        return static_cast<int>(std::lround(hundredths / 100.0));
    }
    // A quality of 0 to 100 without a unit; half a decibel a step is the usual reading of it.
    if (bss[NL80211_BSS_SIGNAL_UNSPEC])
        return nla_get_u8(bss[NL80211_BSS_SIGNAL_UNSPEC]) / 2 - 100;
    return std::nullopt;
}

bool joinedTo(const AccessPointAttributes &bss)
{
    return bss[NL80211_BSS_STATUS] &&
           nla_get_u32(bss[NL80211_BSS_STATUS]) == NL80211_BSS_STATUS_ASSOCIATED;
}

std::optional<int> rateOf(nlattr *nest)
{
    Attributes<NL80211_RATE_INFO_MAX> rate;
    if (!parseNested<NL80211_RATE_INFO_MAX>(nest, ratePolicy(), rate))
        return std::nullopt;
    // In 100 kbit/s. The 16 bits of the older one do not hold the fastest rates.
    quint32 tenths = 0;
    if (rate[NL80211_RATE_INFO_BITRATE32])
        tenths = nla_get_u32(rate[NL80211_RATE_INFO_BITRATE32]);
    else if (rate[NL80211_RATE_INFO_BITRATE])
        tenths = nla_get_u16(rate[NL80211_RATE_INFO_BITRATE]);
    if (tenths == 0)
        return std::nullopt;
    return static_cast<int>(std::lround(tenths / 10.0));
}
} // namespace

std::optional<WifiInterface> parseInterface(nlmsghdr *message)
{
    MessageAttributes attributes;
    if (!parseMessage(message, NL80211_CMD_NEW_INTERFACE, attributes))
        return std::nullopt;
    const std::optional<quint32> index = number(attributes[NL80211_ATTR_IFINDEX]);
    nlattr *const name = attributes[NL80211_ATTR_IFNAME];
    if (number(attributes[NL80211_ATTR_IFTYPE]) != quint32(NL80211_IFTYPE_STATION) || !index ||
        !name)
        return std::nullopt;

    WifiInterface interface;
    interface.index = static_cast<int>(*index);
    interface.name = QString::fromUtf8(QByteArray::fromStdString(octetsOf(name)).constData());
    interface.address = addressText(attributes[NL80211_ATTR_MAC]);
    if (nlattr *const joinedName = attributes[NL80211_ATTR_SSID])
        interface.joinedName = nameText(octetsOf(joinedName));
    return interface;
}

std::optional<AccessPoint> parseAccessPoint(nlmsghdr *message)
{
    MessageAttributes attributes;
    AccessPointAttributes bss;
    if (!parseMessage(message, NL80211_CMD_NEW_SCAN_RESULTS, attributes) ||
        !parseNested<NL80211_BSS_MAX>(attributes[NL80211_ATTR_BSS], accessPointPolicy(), bss))
        return std::nullopt;

    AccessPoint accessPoint;
    accessPoint.bssid = addressText(bss[NL80211_BSS_BSSID]);
    if (accessPoint.bssid.isEmpty())
        return std::nullopt;
    if (bss[NL80211_BSS_FREQUENCY])
        accessPoint.channel = channelOfFrequency(nla_get_u32(bss[NL80211_BSS_FREQUENCY]));
    accessPoint.signal = signalOf(bss);
    accessPoint.joined = joinedTo(bss);

    // A hidden network's name may be in its probe response only; those elements come first.
    const bool answered = bss[NL80211_BSS_INFORMATION_ELEMENTS] != nullptr;
    const InformationElements elements =
        elementsOf(bss[answered ? NL80211_BSS_INFORMATION_ELEMENTS : NL80211_BSS_BEACON_IES]);
    const bool privacy =
        bss[NL80211_BSS_CAPABILITY] && (nla_get_u16(bss[NL80211_BSS_CAPABILITY]) & PrivacyBit);
    accessPoint.ssid = nameText(elements.name);
    accessPoint.security = QString::fromStdString(securityText(elements, privacy));
    return accessPoint;
}

std::optional<StationLink> parseStationLink(nlmsghdr *message)
{
    MessageAttributes attributes;
    Attributes<NL80211_STA_INFO_MAX> station;
    if (!parseMessage(message, NL80211_CMD_NEW_STATION, attributes) ||
        !parseNested<NL80211_STA_INFO_MAX>(
            attributes[NL80211_ATTR_STA_INFO], stationPolicy(), station))
        return std::nullopt;

    StationLink link;
    link.address = addressText(attributes[NL80211_ATTR_MAC]);
    // Carried as an unsigned octet, but it is a signed number of dBm.
    if (station[NL80211_STA_INFO_SIGNAL])
        link.signal = static_cast<qint8>(nla_get_u8(station[NL80211_STA_INFO_SIGNAL]));
    link.rate = rateOf(station[NL80211_STA_INFO_TX_BITRATE]);
    return link;
}

} // namespace LinuxWifi
