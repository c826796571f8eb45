#include "elementbuilder.h"
#include "linux/nl80211messages.h"

#include <QTest>

#include <linux/nl80211.h>
#include <netlink/attr.h>
#include <netlink/genl/genl.h>
#include <netlink/msg.h>

using namespace ElementBuilder;
using namespace LinuxWifi;

Q_DECLARE_METATYPE(LinuxWifi::WifiInterface::Mode)
Q_DECLARE_METATYPE(LinuxWifi::ScanNotice::Kind)

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
    Message &u64(int type, quint64 value)
    {
        nla_put_u64(m_message, type, value);
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
    void interfaceModeIsRead_data();
    void interfaceModeIsRead();
    void devicesWithoutAnInterfaceAreLeftOut();
    void accessPointIsRead();
    void signalIsRounded_data();
    void signalIsRounded();
    void qualityStandsInForTheSignal();
    void missingSignalIsNoSignal();
    void signalOfZeroOrMoreIsNone_data();
    void signalOfZeroOrMoreIsNone();
    void timeOfHearingIsRead();
    void linkOfAMultiLinkDeviceIsRead();
    void onlyAssociatedIsJoined_data();
    void onlyAssociatedIsJoined();
    void hiddenNameComesFromTheProbeResponse();
    void beaconElementsServeWithoutAProbeResponse();
    void byteOrderMarkIsPartOfTheName();
    void missingElementsNeverReadAsOpen();
    void accessPointWithoutAddressIsLeftOut();
    void shortAttributesAreRefused();
    void stationLinkIsRead();
    void linksOfAStationAreRead();
    void malformedLinksAreLeftOut();
    void noticesOfScansAreRead_data();
    void noticesOfScansAreRead();
    void scanThatOnlyListensIsTold();
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

void TestNl80211Messages::interfaceModeIsRead_data()
{
    using Mode = WifiInterface::Mode;
    QTest::addColumn<quint32>("type");
    QTest::addColumn<Mode>("mode");
    QTest::newRow("station") << quint32(NL80211_IFTYPE_STATION) << Mode::Station;
    QTest::newRow("access point") << quint32(NL80211_IFTYPE_AP) << Mode::AccessPoint;
    QTest::newRow("P2P group") << quint32(NL80211_IFTYPE_P2P_GO) << Mode::AccessPoint;
    QTest::newRow("monitor") << quint32(NL80211_IFTYPE_MONITOR) << Mode::Monitor;
    QTest::newRow("ad hoc") << quint32(NL80211_IFTYPE_ADHOC) << Mode::Other;
    QTest::newRow("not known yet") << 99U << Mode::Other;
}

void TestNl80211Messages::interfaceModeIsRead()
{
    QFETCH(quint32, type);
    QFETCH(WifiInterface::Mode, mode);
    Message message(NL80211_CMD_NEW_INTERFACE);
    const auto interface = parseInterface(addInterface(message, type).header());
    QVERIFY(interface.has_value());
    QCOMPARE(interface->mode, mode);
}

void TestNl80211Messages::devicesWithoutAnInterfaceAreLeftOut()
{
    Message nameless(NL80211_CMD_NEW_INTERFACE);
    nameless.u32(NL80211_ATTR_IFTYPE, NL80211_IFTYPE_P2P_DEVICE);
    QVERIFY(!parseInterface(nameless.header()));
    Message typeless(NL80211_CMD_NEW_INTERFACE);
    typeless.u32(NL80211_ATTR_IFINDEX, 7).text(NL80211_ATTR_IFNAME, "wlan0");
    QVERIFY(!parseInterface(typeless.header()));
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
        {-10000, -100}, {-10720, -100}, {-51, -1}};
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

void TestNl80211Messages::signalOfZeroOrMoreIsNone_data()
{
    QTest::addColumn<int>("signal");
    for (const int signal : {0, 1, 20, 127})
        QTest::addRow("%d", signal) << signal;
}

void TestNl80211Messages::signalOfZeroOrMoreIsNone()
{
    QFETCH(int, signal);
    Message heard(NL80211_CMD_NEW_SCAN_RESULTS);
    beginAccessPoint(heard).s32(NL80211_BSS_SIGNAL_MBM, signal * 100).end();
    QVERIFY(!parseAccessPoint(heard.header())->signal);
    Message station(NL80211_CMD_NEW_STATION);
    station.begin(NL80211_ATTR_STA_INFO).u8(NL80211_STA_INFO_SIGNAL, signal).end();
    QVERIFY(!parseStationLink(station.header())->signal);
    // The lowest that an octet holds lies below the scale.
    Message lowest(NL80211_CMD_NEW_STATION);
    lowest.begin(NL80211_ATTR_STA_INFO).u8(NL80211_STA_INFO_SIGNAL, 128).end();
    QCOMPARE(parseStationLink(lowest.header())->signal.value_or(1), -100);
}

void TestNl80211Messages::timeOfHearingIsRead()
{
    Message message(NL80211_CMD_NEW_SCAN_RESULTS);
    beginAccessPoint(message)
        .u32(NL80211_BSS_SEEN_MS_AGO, 1234)
        .u64(NL80211_BSS_LAST_SEEN_BOOTTIME, 98765432100000)
        .end();
    const auto accessPoint = parseAccessPoint(message.header());
    QCOMPARE(accessPoint->heardAt.value_or(0), qint64(98765432));
    QCOMPARE(accessPoint->age.value_or(0), qint64(1234));
    QCOMPARE(accessPoint->frequency, 5180);
    Message without(NL80211_CMD_NEW_SCAN_RESULTS);
    beginAccessPoint(without).end();
    QVERIFY(!parseAccessPoint(without.header())->heardAt);
    QVERIFY(!parseAccessPoint(without.header())->age);
}

void TestNl80211Messages::linkOfAMultiLinkDeviceIsRead()
{
    Message message(NL80211_CMD_NEW_SCAN_RESULTS);
    beginAccessPoint(message)
        .u32(NL80211_BSS_STATUS, NL80211_BSS_STATUS_ASSOCIATED)
        .u8(NL80211_BSS_MLO_LINK_ID, 2)
        .octets(NL80211_BSS_MLD_ADDR, QByteArray::fromHex("0200000000aa"))
        .end();
    const auto accessPoint = parseAccessPoint(message.header());
    QVERIFY(accessPoint->joined);
    QCOMPARE(accessPoint->linkId.value_or(-1), 2);
    QCOMPARE(accessPoint->mldAddress, QStringLiteral("02:00:00:00:00:aa"));
    Message plain(NL80211_CMD_NEW_SCAN_RESULTS);
    beginAccessPoint(plain).end();
    QVERIFY(!parseAccessPoint(plain.header())->linkId);
    QCOMPARE(parseAccessPoint(plain.header())->mldAddress, QString());
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

void TestNl80211Messages::linksOfAStationAreRead()
{
    // The shape of nl80211_send_station(): a nest for each link, numbered from 1.
    Message message(NL80211_CMD_NEW_STATION);
    message.octets(NL80211_ATTR_MAC, Address)
        .begin(NL80211_ATTR_STA_INFO)
        .u64(NL80211_STA_INFO_RX_BYTES64, 7000000000)
        .u64(NL80211_STA_INFO_TX_BYTES64, 5)
        .end()
        .begin(NL80211_ATTR_MLO_LINKS);
    for (const int link : {0, 2}) {
        message.begin(link + 1)
            .u8(NL80211_ATTR_MLO_LINK_ID, link)
            .octets(NL80211_ATTR_MAC, Address)
            .begin(NL80211_ATTR_STA_INFO)
            .u8(NL80211_STA_INFO_SIGNAL, 256 - 40 - link)
            .u64(NL80211_STA_INFO_TX_BYTES64, 100)
            .begin(NL80211_STA_INFO_TX_BITRATE)
            .u32(NL80211_RATE_INFO_BITRATE32, 28820)
            .end()
            .end()
            .end();
    }
    message.end();
    const auto link = parseStationLink(message.header());
    QVERIFY(link.has_value());
    QCOMPARE(link->bytes.value_or(0), quint64(7000000005));
    QVERIFY(!link->signal);
    QCOMPARE(link->byLink.keys(), (QList<int>{0, 2}));
    QCOMPARE(link->byLink.value(0).signal.value_or(1), -40);
    QCOMPARE(link->byLink.value(2).signal.value_or(1), -42);
    QCOMPARE(link->byLink.value(2).rate.value_or(0), 2882);
    QCOMPARE(link->byLink.value(2).bytes.value_or(0), quint64(100));
}

void TestNl80211Messages::malformedLinksAreLeftOut()
{
    Message message(NL80211_CMD_NEW_STATION);
    message.begin(NL80211_ATTR_STA_INFO)
        .u8(NL80211_STA_INFO_SIGNAL, 200)
        .end()
        .begin(NL80211_ATTR_MLO_LINKS)
        .octets(1, QByteArray("\x09\x00\x01", 3)) // shorter than it says
        .octets(2, QByteArray())
        .begin(3)
        .octets(NL80211_ATTR_MLO_LINK_ID, QByteArray())
        .begin(NL80211_ATTR_STA_INFO)
        .u8(NL80211_STA_INFO_SIGNAL, 200)
        .end()
        .end()
        .begin(4)
        .u8(NL80211_ATTR_MLO_LINK_ID, 4) // without what it is about
        .end()
        .end();
    const auto link = parseStationLink(message.header());
    QVERIFY(link.has_value());
    QVERIFY(link->byLink.isEmpty());
}

void TestNl80211Messages::noticesOfScansAreRead_data()
{
    using Kind = ScanNotice::Kind;
    QTest::addColumn<int>("command");
    QTest::addColumn<Kind>("kind");
    QTest::newRow("started") << int(NL80211_CMD_TRIGGER_SCAN) << Kind::Started;
    QTest::newRow("finished") << int(NL80211_CMD_NEW_SCAN_RESULTS) << Kind::Finished;
    QTest::newRow("aborted") << int(NL80211_CMD_SCAN_ABORTED) << Kind::Aborted;
}

void TestNl80211Messages::noticesOfScansAreRead()
{
    QFETCH(int, command);
    QFETCH(ScanNotice::Kind, kind);
    Message message(command);
    message.u32(NL80211_ATTR_IFINDEX, 7)
        .begin(NL80211_ATTR_SCAN_SSIDS)
        .octets(0, QByteArray())
        .end()
        .begin(NL80211_ATTR_SCAN_FREQUENCIES)
        .u32(0, 2412)
        .u32(1, 5975)
        .octets(2, QByteArray("x"))
        .end();
    const auto notice = parseScanNotice(message.header());
    QVERIFY(notice.has_value());
    QCOMPARE(notice->kind, kind);
    QCOMPARE(notice->index, 7);
    QVERIFY(notice->probing);
    QCOMPARE(notice->frequencies, (QVector<int>{2412, 5975}));
    Message nobodys(command);
    QVERIFY(!parseScanNotice(nobodys.header()));
}

void TestNl80211Messages::scanThatOnlyListensIsTold()
{
    Message empty(NL80211_CMD_NEW_SCAN_RESULTS);
    empty.u32(NL80211_ATTR_IFINDEX, 7).octets(NL80211_ATTR_SCAN_SSIDS, QByteArray());
    QVERIFY(!parseScanNotice(empty.header())->probing);
    Message none(NL80211_CMD_NEW_SCAN_RESULTS);
    none.u32(NL80211_ATTR_IFINDEX, 7);
    QVERIFY(!parseScanNotice(none.header())->probing);
    QVERIFY(parseScanNotice(none.header())->frequencies.isEmpty());
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
    QVERIFY(!parseScanNotice(message.header()));
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
        parseScanNotice(header);
    }
}

QTEST_GUILESS_MAIN(TestNl80211Messages)
#include "tst_nl80211messages.moc"
