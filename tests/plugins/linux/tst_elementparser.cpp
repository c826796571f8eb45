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

void TestElementParser::firstSecurityElementCounts()
{
    const InformationElements elements = parse(element(48, "\x01") + rsn({2}));
    QVERIFY(elements.rsn.state == State::Malformed);
    QVERIFY(elements.rsn.suites.empty());
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
    const QByteArray whole = name("Home") + rsn({2, 8}) + wpa({1, 2});
    for (int at = 0; at < whole.size(); ++at) {
        for (int value = 0; value < 256; ++value) {
            QByteArray changed = whole;
            changed[at] = static_cast<char>(value);
            const InformationElements elements = parse(changed);
            QVERIFY(elements.name.size() <= 32);
            QCOMPARE(elements.rsn.state == State::Valid, !elements.rsn.suites.empty());
            QCOMPARE(elements.wpa.state == State::Valid, !elements.wpa.suites.empty());
        }
    }
}

QTEST_GUILESS_MAIN(TestElementParser)
#include "tst_elementparser.moc"
