#include "elementbuilder.h"

#include <QTest>

using namespace ElementBuilder;
using LinuxWifi::InformationElements;
using State = LinuxWifi::SecurityElement::State;

Q_DECLARE_METATYPE(LinuxWifi::SecurityElement::State)

class TestElementParser : public QObject
{
    Q_OBJECT

private slots:
    void nothingGivesNothing();
    void namesOfAllLengthsAreKeptAsHeard_data();
    void namesOfAllLengthsAreKeptAsHeard();
    void nameOfMoreThan32OctetsIsNoName();
    void firstNameCounts();
    void elementsAreFoundBehindOthers();
    void vendorElementsOfOthersAreNotWpa();
    void securityElementsAreRead_data();
    void securityElementsAreRead();
    void protectionOfManagementFramesIsRead_data();
    void protectionOfManagementFramesIsRead();
    void overridesAreReadBesideTheElement();
    void brokenOverridesAreMalformed_data();
    void brokenOverridesAreMalformed();
    void wapiElementsAreRead_data();
    void wapiElementsAreRead();
    void marksOfTheAllianceAreSeen();
    void firstSecurityElementCounts();
    void lyingLengthsEndTheList_data();
    void lyingLengthsEndTheList();
    void everyCutIsSurvived();
    void everyChangedOctetIsSurvived();
};

void TestElementParser::nothingGivesNothing()
{
    const InformationElements elements = LinuxWifi::parseElements(nullptr, 0);
    QVERIFY(!elements.hasName);
    QVERIFY(!elements.truncated);
    QVERIFY(elements.rsn.state == State::Absent);
    QVERIFY(elements.wpa.state == State::Absent);
}

void TestElementParser::namesOfAllLengthsAreKeptAsHeard_data()
{
    QTest::addColumn<QByteArray>("octets");
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("one") << QByteArray("x");
    QTest::newRow("32 octets") << QByteArray(32, 'y');
    QTest::newRow("NUL inside") << QByteArray("a\0b", 3);
    QTest::newRow("only NUL") << QByteArray(8, '\0');
    QTest::newRow("no UTF-8") << QByteArray("\xff\xfe\x80");
}

void TestElementParser::namesOfAllLengthsAreKeptAsHeard()
{
    QFETCH(QByteArray, octets);
    const InformationElements elements = parse(name(octets));
    QVERIFY(elements.hasName);
    QCOMPARE(QByteArray::fromStdString(elements.name), octets);
    QVERIFY(!elements.truncated);
}

void TestElementParser::nameOfMoreThan32OctetsIsNoName()
{
    const InformationElements elements = parse(name(QByteArray(33, 'z')) + name("right"));
    QVERIFY(elements.hasName);
    QCOMPARE(elements.name, std::string("right"));
}

void TestElementParser::firstNameCounts()
{
    QCOMPARE(parse(name("first") + name("second")).name, std::string("first"));
    QCOMPARE(parse(name("") + name("second")).name, std::string());
}

void TestElementParser::elementsAreFoundBehindOthers()
{
    const QByteArray rates = element(1, QByteArray::fromHex("82848b96"));
    const QByteArray empty = element(42, {});
    const InformationElements elements =
        parse(rates + empty + wpa({2}) + name("Home") + rates + rsn({2}) + element(255, "\x23"));
    QCOMPARE(elements.name, std::string("Home"));
    QVERIFY(elements.rsn.state == State::Valid);
    QVERIFY(elements.wpa.state == State::Valid);
    QVERIFY(!elements.truncated);
}

void TestElementParser::vendorElementsOfOthersAreNotWpa()
{
    const QByteArray wmm = element(221, QByteArray::fromHex("0050f2020101"));
    const QByteArray other = element(221, QByteArray::fromHex("00904c01ff"));
    const QByteArray tooShort = element(221, QByteArray::fromHex("0050f2"));
    QVERIFY(parse(wmm + other + tooShort).wpa.state == State::Absent);
}

void TestElementParser::securityElementsAreRead_data()
{
    QTest::addColumn<QByteArray>("octets");
    QTest::addColumn<State>("rsn");
    QTest::addColumn<State>("wpa");
    QTest::addColumn<QVector<quint32>>("suites");

    const auto rsnRow = [](const char *title, const QByteArray &body, State state,
                            const QVector<quint32> &suites = {}) {
        QTest::newRow(title) << element(48, body) << state << State::Absent << suites;
    };
    const auto hex = [](const char *text) { return QByteArray::fromHex(text); };
    const QVector<quint32> enterprise{0x000FAC01};

    QTest::newRow("one suite") << rsn({2}) << State::Valid << State::Absent
                               << QVector<quint32>{0x000FAC02};
    QTest::newRow("three suites") << rsn({2, 8, 6}) << State::Valid << State::Absent
                                  << QVector<quint32>{0x000FAC02, 0x000FAC08, 0x000FAC06};
    QTest::newRow("WPA") << wpa({2}) << State::Absent << State::Valid
                         << QVector<quint32>{0x0050F202};
    QTest::newRow("WPA, version only") << element(221, hex("0050f2010100")) << State::Absent
                                       << State::Valid << QVector<quint32>{0x0050F201};
    QTest::newRow("WPA, no version")
        << element(221, hex("0050f201")) << State::Absent << State::Malformed << QVector<quint32>{};
    rsnRow("version only: the default", hex("0100"), State::Valid, enterprise);
    rsnRow("up to the group cipher", hex("0100000fac04"), State::Valid, enterprise);
    rsnRow("up to the pairwise ciphers", hex("0100000fac040100000fac04"), State::Valid, enterprise);
    rsnRow("with capabilities and keys",
        hex("0100000fac040100000fac040100000fac028000010000112233"), State::Valid, {0x000FAC02});
    rsnRow("empty", {}, State::Malformed);
    rsnRow("half a version", hex("01"), State::Malformed);
    rsnRow("version 0", hex("0000"), State::Malformed);
    rsnRow("version 2", hex("0200000fac040100000fac040100000fac02"), State::Malformed);
    rsnRow("half a group cipher", hex("0100000f"), State::Malformed);
    rsnRow("half a pairwise count", hex("0100000fac0401"), State::Malformed);
    rsnRow("no pairwise cipher", hex("0100000fac040000"), State::Malformed);
    rsnRow("pairwise count too large", hex("0100000fac040200000fac04"), State::Malformed);
    rsnRow("pairwise count 65535", hex("0100000fac04ffff000fac04"), State::Malformed);
    rsnRow("half a suite count", hex("0100000fac040100000fac0401"), State::Malformed);
    rsnRow("no suite", hex("0100000fac040100000fac040000"), State::Malformed);
    rsnRow("suite count too large", hex("0100000fac040100000fac040200000fac02"), State::Malformed);
    rsnRow("suite count 16384, which overflows 16 bits times four",
        hex("0100000fac040100000fac040040000fac02"), State::Malformed);
    rsnRow("half a suite", hex("0100000fac040100000fac040100000fac"), State::Malformed);
}

void TestElementParser::securityElementsAreRead()
{
    QFETCH(QByteArray, octets);
    QFETCH(State, rsn);
    QFETCH(State, wpa);
    QFETCH(QVector<quint32>, suites);
    const InformationElements elements = parse(octets);
    QVERIFY(elements.rsn.state == rsn);
    QVERIFY(elements.wpa.state == wpa);
    const auto &found = rsn == State::Absent ? elements.wpa.suites : elements.rsn.suites;
    QCOMPARE(QVector<quint32>(found.begin(), found.end()), suites);
    QVERIFY(!elements.truncated);
}

void TestElementParser::protectionOfManagementFramesIsRead_data()
{
    QTest::addColumn<QByteArray>("octets");
    QTest::addColumn<bool>("capable");
    QTest::addColumn<bool>("required");
    const QByteArray body = securityBody({0x000FAC05}, 0x000FAC04);
    QTest::newRow("none") << rsn({5}) << false << false;
    QTest::newRow("capable") << rsn({5}, ProtectionCapable) << true << false;
    QTest::newRow("required") << rsn({5}, ProtectionRequired) << true << true;
    QTest::newRow("all other bits") << rsn({5}, 0xFF3F) << false << false;
    QTest::newRow("capabilities left out") << element(48, body) << false << false;
    QTest::newRow("half the capabilities") << element(48, body + "\xc0") << false << false;
    QTest::newRow("keys behind them")
        << element(48, body + number(0xC0) + number(0) + suite(0x000FAC06)) << true << true;
}

void TestElementParser::protectionOfManagementFramesIsRead()
{
    QFETCH(QByteArray, octets);
    QFETCH(bool, capable);
    QFETCH(bool, required);
    const InformationElements elements = parse(octets);
    QVERIFY(elements.rsn.state == State::Valid);
    QCOMPARE(elements.rsn.protectionCapable, capable);
    QCOMPARE(elements.rsn.protectionRequired, required);
}

void TestElementParser::overridesAreReadBesideTheElement()
{
    const InformationElements elements = parse(
        rsnOverride({24}, ProtectionRequired, 2) + rsn({2}) + rsnOverride({8}, ProtectionCapable));
    QCOMPARE(elements.rsn.suites, std::vector<std::uint32_t>{0x000FAC02});
    QCOMPARE(elements.rsnOverride.suites, std::vector<std::uint32_t>{0x000FAC08});
    QCOMPARE(elements.rsnOverride2.suites, std::vector<std::uint32_t>{0x000FAC18});
    QVERIFY(!elements.rsn.protectionCapable);
    QVERIFY(elements.rsnOverride.protectionCapable && !elements.rsnOverride.protectionRequired);
    QVERIFY(elements.rsnOverride2.protectionRequired);
    QVERIFY(elements.wpa.state == State::Absent);
}

void TestElementParser::brokenOverridesAreMalformed_data()
{
    QTest::addColumn<QByteArray>("body");
    const QByteArray whole = rsnBody({8, 24}, ProtectionRequired);
    // Where a field begins, what follows may be left out.
    const QVector<int> fields{2, 6, 12, 22, 23};
    for (int length = 0; length < whole.size(); ++length) {
        if (!fields.contains(length))
            QTest::addRow("%d octets", length) << whole.left(length);
    }
    QTest::newRow("version 2") << number(2) + whole.mid(2);
    QTest::newRow("254 suites, one there") << number(1) + suite(0x000FAC04) + number(1) +
                                                  suite(0x000FAC04) + number(254) +
                                                  suite(0x000FAC08);
}

void TestElementParser::brokenOverridesAreMalformed()
{
    QFETCH(QByteArray, body);
    for (const std::uint32_t vendorType : {0x506F9A29U, 0x506F9A2AU}) {
        const InformationElements elements = parse(vendor(vendorType, body) + rsn({2}));
        const bool first = vendorType == 0x506F9A29;
        const auto &broken = first ? elements.rsnOverride : elements.rsnOverride2;
        const auto &other = first ? elements.rsnOverride2 : elements.rsnOverride;
        QVERIFY(broken.state == State::Malformed);
        QVERIFY(broken.suites.empty());
        QVERIFY(other.state == State::Absent);
        QVERIFY(elements.rsn.state == State::Valid);
    }
}

void TestElementParser::wapiElementsAreRead_data()
{
    QTest::addColumn<QByteArray>("octets");
    QTest::addColumn<State>("state");
    QTest::addColumn<QVector<quint32>>("suites");
    const auto hexRow = [](const char *title, const char *body, State state,
                            const QVector<quint32> &suites = {}) {
        QTest::newRow(title) << element(68, QByteArray::fromHex(body)) << state << suites;
    };
    QTest::newRow("passphrase") << wapi({2}) << State::Valid << QVector<quint32>{0x00147202};
    QTest::newRow("both") << wapi({1, 2}) << State::Valid
                          << QVector<quint32>{0x00147201, 0x00147202};
    QTest::newRow("the first counts")
        << wapi({1}) + wapi({2}) << State::Valid << QVector<quint32>{0x00147201};
    hexRow("ends with the suites", "0100010000147202", State::Valid, {0x00147202});
    hexRow("empty", "", State::Malformed);
    hexRow("half a version", "01", State::Malformed);
    hexRow("version only", "0100", State::Malformed);
    hexRow("version 2", "0200010000147202", State::Malformed);
    hexRow("half a count", "010001", State::Malformed);
    hexRow("half a suite", "01000100001472", State::Malformed);
    hexRow("no suite", "0100000000147202", State::Malformed);
    hexRow("count too large", "0100020000147202", State::Malformed);
    hexRow("count 65535", "0100ffff00147202", State::Malformed);
    // Four octets are the access delay of the four kinds of traffic.
    hexRow("access delays", "01000100", State::Absent);
    hexRow("access delays unknown", "ffffffff", State::Absent);
}

void TestElementParser::wapiElementsAreRead()
{
    QFETCH(QByteArray, octets);
    QFETCH(State, state);
    QFETCH(QVector<quint32>, suites);
    const InformationElements elements = parse(octets);
    QVERIFY(elements.wapi.state == state);
    const auto &found = elements.wapi.suites;
    QCOMPARE(QVector<quint32>(found.begin(), found.end()), suites);
    QVERIFY(elements.rsn.state == State::Absent && elements.wpa.state == State::Absent);
}

void TestElementParser::marksOfTheAllianceAreSeen()
{
    QVERIFY(parse(oweTransition()).oweTransition);
    QVERIFY(!parse(oweTransition()).osen);
    QVERIFY(parse(osen()).osen);
    QVERIFY(!parse(osen()).oweTransition);
    // What they hold is of no interest, so that it may be anything.
    QVERIFY(parse(vendor(0x506F9A1C)).oweTransition);
    QVERIFY(parse(vendor(0x506F9A12)).osen);
    const InformationElements others =
        parse(vendor(0x506F9A10, "x") + vendor(0x506F9A2B, "x") + vendor(0x0050F21C, "x") +
              element(221, QByteArray::fromHex("506f9a")));
    QVERIFY(!others.oweTransition && !others.osen);
    QVERIFY(others.rsnOverride.state == State::Absent);
    QVERIFY(others.rsnOverride2.state == State::Absent);
}

void TestElementParser::firstSecurityElementCounts()
{
    const InformationElements elements = parse(element(48, "\x01") + rsn({2}));
    QVERIFY(elements.rsn.state == State::Malformed);
    QVERIFY(elements.rsn.suites.empty());
    QCOMPARE(parse(rsnOverride({8}) + rsnOverride({9})).rsnOverride.suites,
        std::vector<std::uint32_t>{0x000FAC08});
}

void TestElementParser::lyingLengthsEndTheList_data()
{
    QTest::addColumn<QByteArray>("octets");
    QTest::newRow("an id alone") << name("Home") + QByteArray("\x30");
    QTest::newRow("one octet missing") << name("Home") + element(48, "\x01", 2);
    QTest::newRow("all octets missing") << name("Home") + element(48, {}, 20);
    QTest::newRow("length 255") << name("Home") + element(221, "abc", 255);
    QTest::newRow("name reaches past the end") << name("Home") + element(0, "abc", 32);
}

void TestElementParser::lyingLengthsEndTheList()
{
    QFETCH(QByteArray, octets);
    const InformationElements elements = parse(octets);
    QVERIFY(elements.truncated);
    QCOMPARE(elements.name, std::string("Home"));
    QVERIFY(elements.rsn.state == State::Absent);
}

void TestElementParser::everyCutIsSurvived()
{
    const QByteArray whole = name("Büro 5G") + element(1, "\x82\x84") + rsn({2, 8}) + wpa({2});
    int truncated = 0;
    for (int length = 0; length < whole.size(); ++length) {
        const InformationElements elements = parse(whole.left(length));
        truncated += elements.truncated ? 1 : 0;
    }
    // All cuts but those at the beginnings of the four elements.
    QCOMPARE(truncated, whole.size() - 4);
}

void TestElementParser::everyChangedOctetIsSurvived()
{
    const QByteArray whole =
        name("Home") + rsn({2, 8}) + wpa({1, 2}) + rsnOverride({24}) + wapi({2}) + oweTransition();
    for (int at = 0; at < whole.size(); ++at) {
        for (int value = 0; value < 256; ++value) {
            QByteArray changed = whole;
            changed[at] = static_cast<char>(value);
            const InformationElements elements = parse(changed);
            QVERIFY(elements.name.size() <= 32);
            QCOMPARE(elements.rsn.state == State::Valid, !elements.rsn.suites.empty());
            QCOMPARE(elements.wpa.state == State::Valid, !elements.wpa.suites.empty());
            QCOMPARE(
                elements.rsnOverride.state == State::Valid, !elements.rsnOverride.suites.empty());
            QCOMPARE(elements.wapi.state == State::Valid, !elements.wapi.suites.empty());
        }
    }
}

QTEST_GUILESS_MAIN(TestElementParser)
#include "tst_elementparser.moc"
