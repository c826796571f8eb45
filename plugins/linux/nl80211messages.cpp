#include "linux/nl80211messages.h"

#include "linux/channelnumber.h"
#include "linux/elementparser.h"
#include "linux/securitytext.h"
#include "linux/ssidtext.h"

#include <linux/nl80211.h>
#include <netlink/attr.h>
#include <netlink/genl/genl.h>
#include <netlink/msg.h>

#include <algorithm>
#include <array>
#include <cmath>

namespace LinuxWifi
{

namespace
{
const int AddressSize = 6;
const std::uint16_t PrivacyBit = 0x0010;
const quint64 NanosecondsInMs = 1000000;

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

/// NL80211_BSS_LAST_SEEN_BOOTTIME and the byte counters.
std::optional<quint64> longNumber(const nlattr *attribute)
{
    if (!attribute || nla_len(attribute) < static_cast<int>(sizeof(quint64)))
        return std::nullopt;
    return nla_get_u64(attribute);
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
    policy[NL80211_BSS_SEEN_MS_AGO].type = NLA_U32;
    policy[NL80211_BSS_MLO_LINK_ID].type = NLA_U8;
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
using StationAttributes = Attributes<NL80211_STA_INFO_MAX>;

/// Some drivers say 0 or more for want of a value, or right beside the access point.
std::optional<int> plausibleSignal(int decibels)
{
    const int lowest = -100;
    if (decibels >= 0)
        return std::nullopt;
    return std::max(decibels, lowest);
}

std::optional<int> signalOf(const AccessPointAttributes &bss)
{
    if (bss[NL80211_BSS_SIGNAL_MBM]) {
        const int hundredths = nla_get_s32(bss[NL80211_BSS_SIGNAL_MBM]);
        return plausibleSignal(static_cast<int>(std::lround(hundredths / 100.0)));
    }
    // A quality of 0 to 100 without a unit; half a decibel a step is the usual reading of it.
    if (bss[NL80211_BSS_SIGNAL_UNSPEC])
        return plausibleSignal(nla_get_u8(bss[NL80211_BSS_SIGNAL_UNSPEC]) / 2 - 100);
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

/// What NL80211_ATTR_STA_INFO holds. False when there is none, or it cannot be read.
bool readCounters(nlattr *nest, LinkCounters &counters)
{
    StationAttributes station;
    if (!parseNested<NL80211_STA_INFO_MAX>(nest, stationPolicy(), station))
        return false;
    // Carried as an unsigned octet, but it is a signed number of dBm.
    if (station[NL80211_STA_INFO_SIGNAL])
        counters.signal =
            plausibleSignal(static_cast<qint8>(nla_get_u8(station[NL80211_STA_INFO_SIGNAL])));
    counters.rate = rateOf(station[NL80211_STA_INFO_TX_BITRATE]);
    const std::optional<quint64> received = longNumber(station[NL80211_STA_INFO_RX_BYTES64]);
    const std::optional<quint64> sent = longNumber(station[NL80211_STA_INFO_TX_BYTES64]);
    if (received || sent)
        counters.bytes = received.value_or(0) + sent.value_or(0);
    return true;
}

/// The links of a multi-link device, each a nest of its own (nl80211_send_station() in
/// net/wireless/nl80211.c). Kernels before them send none.
QMap<int, LinkCounters> linksOf(nlattr *nest)
{
    QMap<int, LinkCounters> links;
    if (!nest)
        return links;
    nlattr *entry = nullptr;
    int left = 0;
    nla_for_each_nested(entry, nest, left)
    {
        MessageAttributes link;
        LinkCounters counters;
        if (nla_parse_nested(link.data(), MessageAttributes::maximum(), entry, nullptr) == 0 &&
            link[NL80211_ATTR_MLO_LINK_ID] && nla_len(link[NL80211_ATTR_MLO_LINK_ID]) >= 1 &&
            readCounters(link[NL80211_ATTR_STA_INFO], counters))
            links.insert(nla_get_u8(link[NL80211_ATTR_MLO_LINK_ID]), counters);
    }
    return links;
}

WifiInterface::Mode modeOf(quint32 type)
{
    switch (type) {
    case NL80211_IFTYPE_STATION:
        return WifiInterface::Mode::Station;
    case NL80211_IFTYPE_AP:
    case NL80211_IFTYPE_AP_VLAN:
    case NL80211_IFTYPE_P2P_GO:
        return WifiInterface::Mode::AccessPoint;
    case NL80211_IFTYPE_MONITOR:
        return WifiInterface::Mode::Monitor;
    default:
        return WifiInterface::Mode::Other;
    }
}

QVector<int> frequenciesOf(nlattr *nest)
{
    QVector<int> frequencies;
    if (!nest)
        return frequencies;
    nlattr *entry = nullptr;
    int left = 0;
    nla_for_each_nested(entry, nest, left)
    {
        if (const std::optional<quint32> frequency = number(entry))
            frequencies.append(static_cast<int>(*frequency));
    }
    return frequencies;
}

/// A scan that asks has at least one name to ask for, be it the empty one that all answer to.
bool probing(nlattr *names)
{
    return names && nla_len(names) > 0;
}
} // namespace

std::optional<WifiInterface> parseInterface(nlmsghdr *message)
{
    MessageAttributes attributes;
    if (!parseMessage(message, NL80211_CMD_NEW_INTERFACE, attributes))
        return std::nullopt;
    const std::optional<quint32> index = number(attributes[NL80211_ATTR_IFINDEX]);
    nlattr *const name = attributes[NL80211_ATTR_IFNAME];
    const std::optional<quint32> type = number(attributes[NL80211_ATTR_IFTYPE]);
    if (!index || !name || !type)
        return std::nullopt;

    WifiInterface interface;
    interface.mode = modeOf(*type);
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
    if (bss[NL80211_BSS_FREQUENCY]) {
        const quint32 frequency = nla_get_u32(bss[NL80211_BSS_FREQUENCY]);
        accessPoint.channel = channelOfFrequency(frequency);
        accessPoint.frequency = static_cast<int>(frequency);
    }
    accessPoint.signal = signalOf(bss);
    accessPoint.joined = joinedTo(bss);
    if (const std::optional<quint64> seen = longNumber(bss[NL80211_BSS_LAST_SEEN_BOOTTIME]))
        accessPoint.heardAt = static_cast<qint64>(*seen / NanosecondsInMs);
    if (bss[NL80211_BSS_SEEN_MS_AGO])
        accessPoint.age = nla_get_u32(bss[NL80211_BSS_SEEN_MS_AGO]);
    accessPoint.mldAddress = addressText(bss[NL80211_BSS_MLD_ADDR]);
    if (bss[NL80211_BSS_MLO_LINK_ID])
        accessPoint.linkId = nla_get_u8(bss[NL80211_BSS_MLO_LINK_ID]);

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
    StationLink link;
    if (!parseMessage(message, NL80211_CMD_NEW_STATION, attributes) ||
        !readCounters(attributes[NL80211_ATTR_STA_INFO], link))
        return std::nullopt;
    link.address = addressText(attributes[NL80211_ATTR_MAC]);
    link.byLink = linksOf(attributes[NL80211_ATTR_MLO_LINKS]);
    return link;
}

std::optional<ScanNotice> parseScanNotice(nlmsghdr *message)
{
    if (!genlmsg_valid_hdr(message, 0))
        return std::nullopt;
    ScanNotice notice;
    switch (genlmsg_hdr(message)->cmd) {
    case NL80211_CMD_TRIGGER_SCAN:
        notice.kind = ScanNotice::Kind::Started;
        break;
    case NL80211_CMD_NEW_SCAN_RESULTS:
        notice.kind = ScanNotice::Kind::Finished;
        break;
    case NL80211_CMD_SCAN_ABORTED:
        notice.kind = ScanNotice::Kind::Aborted;
        break;
    default:
        return std::nullopt;
    }
    MessageAttributes attributes;
    if (!parseMessage(message, genlmsg_hdr(message)->cmd, attributes))
        return std::nullopt;
    const std::optional<quint32> index = number(attributes[NL80211_ATTR_IFINDEX]);
    if (!index)
        return std::nullopt;
    notice.index = static_cast<int>(*index);
    notice.probing = probing(attributes[NL80211_ATTR_SCAN_SSIDS]);
    notice.frequencies = frequenciesOf(attributes[NL80211_ATTR_SCAN_FREQUENCIES]);
    return notice;
}

} // namespace LinuxWifi
