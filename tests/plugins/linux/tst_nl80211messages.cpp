#include "elementbuilder.h"
#include "linux/nl80211messages.h"

#include <QTest>

#include <linux/nl80211.h>
#include <netlink/attr.h>
#include <netlink/genl/genl.h>
#include <netlink/msg.h>

using namespace ElementBuilder;
using namespace LinuxWifi;

namespace
{
/// A message as the kernel would send it.
class Message
{
public:
    explicit Message(int command)
        : m_message(nlmsg_alloc())
    {
        genlmsg_put(m_message, 1, 1, 28, 0, NLM_F_MULTI, static_cast<quint8>(command), 1);
    }
    ~Message() { nlmsg_free(m_message); }
    Q_DISABLE_COPY(Message)

    Message &u8(int type, int value)
    {
        nla_put_u8(m_message, type, static_cast<quint8>(value));
        return *this;
    }
    Message &u16(int type, int value)
    {
        nla_put_u16(m_message, type, static_cast<quint16>(value));
        return *this;
    }
    Message &u32(int type, quint32 value)
    {
        nla_put_u32(m_message, type, value);
        return *this;
    }
    Message &s32(int type, int value) { return u32(type, static_cast<quint32>(value)); }
    Message &octets(int type, const QByteArray &value)
    {
        nla_put(m_message, type, value.size(), value.constData());
        return *this;
    }
    Message &text(int type, const char *value)
    {
        nla_put_string(m_message, type, value);
        return *this;
    }
    Message &begin(int type)
    {
        m_nests.append(nla_nest_start(m_message, type));
        return *this;
    }
    Message &end()
    {
        nla_nest_end(m_message, m_nests.takeLast());
        return *this;
    }
    nlmsghdr *header() { return nlmsg_hdr(m_message); }

private:
    nl_msg *m_message;
    QVector<nlattr *> m_nests;
};

const QByteArray Address = QByteArray::fromHex("0200000004ff");

Message &addInterface(Message &message, quint32 type = NL80211_IFTYPE_STATION)
{
    return message.u32(NL80211_ATTR_IFINDEX, 7)
        .text(NL80211_ATTR_IFNAME, "wlp3s0")
        .u32(NL80211_ATTR_IFTYPE, type)
        .octets(NL80211_ATTR_MAC, Address);
}

/// An access point with all there is; `beginAccessPoint` leaves the nest open.
Message &beginAccessPoint(Message &message)
{
    return message.u32(NL80211_ATTR_IFINDEX, 7)
        .begin(NL80211_ATTR_BSS)
        .octets(NL80211_BSS_BSSID, Address)
        .u32(NL80211_BSS_FREQUENCY, 5180);
}
} // namespace

class TestNl80211Messages : public QObject
{
    Q_OBJECT

private slots:
    void stationInterfaceIsRead();
    void joinedInterfaceKnowsTheName();
    void otherInterfacesAreLeftOut_data();
    void otherInterfacesAreLeftOut();
    void accessPointIsRead();
    void signalIsRounded_data();
    void signalIsRounded();
    void qualityStandsInForTheSignal();
    void missingSignalIsNoSignal();
    void onlyAssociatedIsJoined_data();
    void onlyAssociatedIsJoined();
    void hiddenNameComesFromTheProbeResponse();
    void beaconElementsServeWithoutAProbeResponse();
    void byteOrderMarkIsPartOfTheName();
    void missingElementsNeverReadAsOpen();
    void accessPointWithoutAddressIsLeftOut();
    void shortAttributesAreRefused();
    void stationLinkIsRead();
    void rateOf32BitsIsPreferred();
    void missingRateIsNoRate_data();
    void missingRateIsNoRate();
    void otherMessagesGiveNothing();
    void cutMessagesAreSurvived();
};

void TestNl80211Messages::stationInterfaceIsRead()
{
    Message message(NL80211_CMD_NEW_INTERFACE);
    const auto interface = parseInterface(addInterface(message).header());
    QVERIFY(interface.has_value());
    QCOMPARE(interface->index, 7);
    QCOMPARE(interface->name, QStringLiteral("wlp3s0"));
    QCOMPARE(interface->address, QStringLiteral("02:00:00:00:04:ff"));
    QCOMPARE(interface->joinedName, QString());
}

void TestNl80211Messages::joinedInterfaceKnowsTheName()
{
    Message message(NL80211_CMD_NEW_INTERFACE);
    addInterface(message).octets(NL80211_ATTR_SSID, QByteArray("B\xc3\xbcro\xff"));
    QCOMPARE(parseInterface(message.header())->joinedName, QStringLiteral("Büro\\xff"));
}

void TestNl80211Messages::otherInterfacesAreLeftOut_data()
{
    QTest::addColumn<quint32>("type");
    QTest::newRow("access point") << quint32(NL80211_IFTYPE_AP);
    QTest::newRow("monitor") << quint32(NL80211_IFTYPE_MONITOR);
    QTest::newRow("ad hoc") << quint32(NL80211_IFTYPE_ADHOC);
    QTest::newRow("P2P device") << quint32(NL80211_IFTYPE_P2P_DEVICE);
    QTest::newRow("not known yet") << 99U;
}

void TestNl80211Messages::otherInterfacesAreLeftOut()
{
    QFETCH(quint32, type);
    Message message(NL80211_CMD_NEW_INTERFACE);
    QVERIFY(!parseInterface(addInterface(message, type).header()));
    // A device without a network interface, although in station mode.
    Message nameless(NL80211_CMD_NEW_INTERFACE);
    nameless.u32(NL80211_ATTR_IFTYPE, NL80211_IFTYPE_STATION);
    QVERIFY(!parseInterface(nameless.header()));
}

void TestNl80211Messages::accessPointIsRead()
{
    Message message(NL80211_CMD_NEW_SCAN_RESULTS);
    beginAccessPoint(message)
        .u16(NL80211_BSS_CAPABILITY, 0x0411)
        .s32(NL80211_BSS_SIGNAL_MBM, -5700)
        .octets(NL80211_BSS_INFORMATION_ELEMENTS, name("Home") + rsn({2, 8}))
        .end();
    const auto accessPoint = parseAccessPoint(message.header());
    QVERIFY(accessPoint.has_value());
    QCOMPARE(accessPoint->bssid, QStringLiteral("02:00:00:00:04:ff"));
    QCOMPARE(accessPoint->ssid, QStringLiteral("Home"));
    QCOMPARE(accessPoint->security, QStringLiteral("WPA2/WPA3"));
    QCOMPARE(accessPoint->channel, 36);
    QCOMPARE(accessPoint->signal.value_or(1), -57);
    QVERIFY(!accessPoint->joined);
}

void TestNl80211Messages::signalIsRounded_data()
{
    QTest::addColumn<int>("hundredths");
    QTest::addColumn<int>("signal");
    const QVector<QPair<int, int>> rows{{-4800, -48}, {-4849, -48}, {-4851, -49}, {-4899, -49},
        {-10000, -100}, {-10720, -107}, {0, 0}, {-49, 0}, {-51, -1}, {320, 3}};
    for (const auto &row : rows)
        QTest::addRow("%d", row.first) << row.first << row.second;
}

void TestNl80211Messages::signalIsRounded()
{
    QFETCH(int, hundredths);
    QFETCH(int, signal);
    Message message(NL80211_CMD_NEW_SCAN_RESULTS);
    beginAccessPoint(message).s32(NL80211_BSS_SIGNAL_MBM, hundredths).end();
    const auto accessPoint = parseAccessPoint(message.header());
    QVERIFY(accessPoint && accessPoint->signal);
    QCOMPARE(*accessPoint->signal, signal);
}

void TestNl80211Messages::qualityStandsInForTheSignal()
{
    Message message(NL80211_CMD_NEW_SCAN_RESULTS);
    beginAccessPoint(message).u8(NL80211_BSS_SIGNAL_UNSPEC, 80).end();
    QCOMPARE(parseAccessPoint(message.header())->signal.value_or(1), -60);
}

void TestNl80211Messages::missingSignalIsNoSignal()
{
    Message message(NL80211_CMD_NEW_SCAN_RESULTS);
    beginAccessPoint(message).end();
    QVERIFY(!parseAccessPoint(message.header())->signal);
}

void TestNl80211Messages::onlyAssociatedIsJoined_data()
{
    QTest::addColumn<quint32>("status");
    QTest::addColumn<bool>("joined");
    QTest::newRow("authenticated") << quint32(NL80211_BSS_STATUS_AUTHENTICATED) << false;
    QTest::newRow("associated") << quint32(NL80211_BSS_STATUS_ASSOCIATED) << true;
    QTest::newRow("ad hoc") << quint32(NL80211_BSS_STATUS_IBSS_JOINED) << false;
}

void TestNl80211Messages::onlyAssociatedIsJoined()
{
    QFETCH(quint32, status);
    QFETCH(bool, joined);
    Message message(NL80211_CMD_NEW_SCAN_RESULTS);
    beginAccessPoint(message).u32(NL80211_BSS_STATUS, status).end();
    QCOMPARE(parseAccessPoint(message.header())->joined, joined);
}

void TestNl80211Messages::hiddenNameComesFromTheProbeResponse()
{
    Message message(NL80211_CMD_NEW_SCAN_RESULTS);
    beginAccessPoint(message)
        .octets(NL80211_BSS_BEACON_IES, name("") + rsn({2}))
        .octets(NL80211_BSS_INFORMATION_ELEMENTS, name("Hidden") + rsn({2}))
        .end();
    QCOMPARE(parseAccessPoint(message.header())->ssid, QStringLiteral("Hidden"));
}

void TestNl80211Messages::beaconElementsServeWithoutAProbeResponse()
{
    Message message(NL80211_CMD_NEW_SCAN_RESULTS);
    beginAccessPoint(message).octets(NL80211_BSS_BEACON_IES, name("Shy") + rsn({8})).end();
    const auto accessPoint = parseAccessPoint(message.header());
    QCOMPARE(accessPoint->ssid, QStringLiteral("Shy"));
    QCOMPARE(accessPoint->security, QStringLiteral("WPA3-SAE"));
}

void TestNl80211Messages::byteOrderMarkIsPartOfTheName()
{
    // Dropped, it would make two networks one, or a named network a hidden one.
    Message message(NL80211_CMD_NEW_SCAN_RESULTS);
    beginAccessPoint(message)
        .octets(NL80211_BSS_INFORMATION_ELEMENTS, name("\xef\xbb\xbf\xef\xbb\xbf") + rsn({2}))
        .end();
    QCOMPARE(parseAccessPoint(message.header())->ssid, QString(2, QChar(0xfeff)));
}

void TestNl80211Messages::missingElementsNeverReadAsOpen()
{
    Message message(NL80211_CMD_NEW_SCAN_RESULTS);
    beginAccessPoint(message).end();
    const auto accessPoint = parseAccessPoint(message.header());
    QCOMPARE(accessPoint->ssid, QString());
    QCOMPARE(accessPoint->security, QStringLiteral("Unknown"));
}

void TestNl80211Messages::accessPointWithoutAddressIsLeftOut()
{
    Message none(NL80211_CMD_NEW_SCAN_RESULTS);
    none.begin(NL80211_ATTR_BSS).u32(NL80211_BSS_FREQUENCY, 2412).end();
    QVERIFY(!parseAccessPoint(none.header()));
    Message tooShort(NL80211_CMD_NEW_SCAN_RESULTS);
    tooShort.begin(NL80211_ATTR_BSS).octets(NL80211_BSS_BSSID, Address.left(5)).end();
    QVERIFY(!parseAccessPoint(tooShort.header()));
    Message nothing(NL80211_CMD_NEW_SCAN_RESULTS);
    QVERIFY(!parseAccessPoint(nothing.header()));
}

void TestNl80211Messages::shortAttributesAreRefused()
{
    Message signal(NL80211_CMD_NEW_SCAN_RESULTS);
    beginAccessPoint(signal).u8(NL80211_BSS_SIGNAL_MBM, 1).end();
    QVERIFY(!parseAccessPoint(signal.header()));
    Message index(NL80211_CMD_NEW_INTERFACE);
    index.u8(NL80211_ATTR_IFINDEX, 7)
        .text(NL80211_ATTR_IFNAME, "wlan0")
        .u32(NL80211_ATTR_IFTYPE, NL80211_IFTYPE_STATION);
    QVERIFY(!parseInterface(index.header()));
}

void TestNl80211Messages::stationLinkIsRead()
{
    Message message(NL80211_CMD_NEW_STATION);
    message.octets(NL80211_ATTR_MAC, Address)
        .begin(NL80211_ATTR_STA_INFO)
        .u8(NL80211_STA_INFO_SIGNAL, 256 - 57)
        .begin(NL80211_STA_INFO_TX_BITRATE)
        .u16(NL80211_RATE_INFO_BITRATE, 2406)
        .end()
        .end();
    const auto link = parseStationLink(message.header());
    QVERIFY(link.has_value());
    QCOMPARE(link->address, QStringLiteral("02:00:00:00:04:ff"));
    QCOMPARE(link->signal.value_or(1), -57);
    QCOMPARE(link->rate.value_or(-1), 241);
}

void TestNl80211Messages::rateOf32BitsIsPreferred()
{
    Message message(NL80211_CMD_NEW_STATION);
    message.begin(NL80211_ATTR_STA_INFO)
        .begin(NL80211_STA_INFO_TX_BITRATE)
        .u16(NL80211_RATE_INFO_BITRATE, 65535)
        .u32(NL80211_RATE_INFO_BITRATE32, 115294)
        .end()
        .end();
    const auto link = parseStationLink(message.header());
    QVERIFY(link && link->rate);
    QCOMPARE(*link->rate, 11529);
    QVERIFY(!link->signal);
}

void TestNl80211Messages::missingRateIsNoRate_data()
{
    QTest::addColumn<bool>("empty");
    QTest::newRow("no rate attribute") << false;
    QTest::newRow("empty rate attribute") << true;
}

void TestNl80211Messages::missingRateIsNoRate()
{
    QFETCH(bool, empty);
    Message message(NL80211_CMD_NEW_STATION);
    message.begin(NL80211_ATTR_STA_INFO).u8(NL80211_STA_INFO_SIGNAL, 200);
    if (empty)
        message.begin(NL80211_STA_INFO_TX_BITRATE).u32(NL80211_RATE_INFO_BITRATE32, 0).end();
    message.end();
    const auto link = parseStationLink(message.header());
    QVERIFY(link.has_value());
    QVERIFY(!link->rate);
}

void TestNl80211Messages::otherMessagesGiveNothing()
{
    Message message(NL80211_CMD_NEW_WIPHY);
    addInterface(message);
    QVERIFY(!parseInterface(message.header()));
    QVERIFY(!parseAccessPoint(message.header()));
    QVERIFY(!parseStationLink(message.header()));
}

void TestNl80211Messages::cutMessagesAreSurvived()
{
    Message message(NL80211_CMD_NEW_SCAN_RESULTS);
    beginAccessPoint(message)
        .s32(NL80211_BSS_SIGNAL_MBM, -5700)
        .octets(NL80211_BSS_INFORMATION_ELEMENTS, name("Home") + rsn({2}))
        .end();
    const QByteArray whole(
        reinterpret_cast<const char *>(message.header()), int(message.header()->nlmsg_len));
    for (int length = int(sizeof(nlmsghdr)); length < whole.size(); ++length) {
        std::vector<char> cut(whole.begin(), whole.begin() + length);
        auto *const header = reinterpret_cast<nlmsghdr *>(cut.data());
        header->nlmsg_len = static_cast<quint32>(length);
        parseAccessPoint(header);
        parseInterface(header);
        parseStationLink(header);
    }
}

QTEST_GUILESS_MAIN(TestNl80211Messages)
#include "tst_nl80211messages.moc"
