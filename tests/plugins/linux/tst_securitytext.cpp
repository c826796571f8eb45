#include "elementbuilder.h"
#include "linux/securitytext.h"

#include <QTest>

using namespace ElementBuilder;

class TestSecurityText : public QObject
{
    Q_OBJECT

private slots:
    void textNamesWhatIsOffered_data();
    void textNamesWhatIsOffered();
    void textNamesEnterpriseGenerations_data();
    void textNamesEnterpriseGenerations();
    void textFollowsOverrides_data();
    void textFollowsOverrides();
    void textNamesWhatIsBesideRsn_data();
    void textNamesWhatIsBesideRsn();
    void everyKnownSuiteHasItsKind_data();
    void everyKnownSuiteHasItsKind();
    void brokenElementsNeverReadAsOpen();
    void longListsOfUnknownSuitesStayShort();
};

void TestSecurityText::textNamesWhatIsOffered_data()
{
    QTest::addColumn<QByteArray>("octets");
    QTest::addColumn<bool>("privacy");
    QTest::addColumn<QString>("text");
    const auto row = [](const char *text, const QByteArray &octets, bool privacy = true) {
        QTest::addRow("%s (%s)", text, octets.toHex().constData())
            << octets << privacy << QString::fromLatin1(text);
    };
    row("Open", {}, false);
    row("Open", name("Cafe"), false);
    row("WEP", name("Old"), true);
    row("WPA-PSK", wpa({2}));
    row("WPA-802.1X", wpa({1}));
    row("WPA-PSK, WPA-802.1X", wpa({1, 2}));
    row("WPA2-PSK", rsn({2}));
    row("WPA2-PSK", rsn({2}), false); // the element counts, not the bit
    row("WPA2-PSK", rsn({2, 6, 4}));
    row("WPA2-802.1X", rsn({1}));
    row("WPA2-802.1X", element(48, QByteArray::fromHex("0100")));
    row("WPA3-SAE", rsn({8}));
    row("WPA2/WPA3", rsn({2, 8}));
    row("WPA2/WPA3", rsn({8, 2}));
    row("WPA/WPA2-PSK", wpa({2}) + rsn({2}));
    row("WPA/WPA2-PSK", rsn({2}) + wpa({2}));
    row("WPA/WPA2-802.1X", wpa({1}) + rsn({1}));
    row("WPA/WPA2/WPA3", wpa({2}) + rsn({2, 8}));
    row("WPA-PSK, WPA3-SAE", wpa({2}) + rsn({8}));
    row("WPA2-PSK, WPA-802.1X", wpa({1}) + rsn({2}));
    row("WPA2-PSK, WPA2-802.1X", rsn({1, 2}));
    row("OWE", rsn({18}));
    row("Suite B", rsn({11}));
    row("WPA2-802.1X, Suite B", rsn({1, 11}));
    row("WPA2-802.1X, FILS", rsn({1, 14}));
    row("Suite 00-0F-AC:99", rsn({99}));
    row("Suite 00-0F-AC:99", rsn({99}), false);
    row("Suite 00-0F-AC:0", rsn({0}));
    row("WPA2-PSK, Suite 00-0F-AC:99", rsn({2, 99, 99}));
    const auto suites = [](const QVector<std::uint32_t> &values) {
        return element(48, securityBody(values, 0x000FAC04));
    };
    row("DPP", suites({0x506F9A02}));
    row("WPA2/WPA3, DPP", suites({0x506F9A02, 0x000FAC02, 0x000FAC08}));
    row("OSEN", suites({0x506F9A01}));
    row("Suite 50-6F-9A:3", suites({0x506F9A03}));
    row("WPA2-802.1X, CCKM", suites({0x00409600, 0x000FAC01}));
    row("Suite 00-40-96:1", suites({0x00409601}));
    row("Suite 00-0F-AC:255", rsn({255}));
    row("Suite 00-00-00:0", suites({0}));
    row("Suite FF-FF-FF:255", suites({0xFFFFFFFF}), false);
    row("Unknown", element(48, number(2) + rsnBody({2}, 0).mid(2)), true); // version 2
    row("Suite 00-50-F2:7", wpa({7}));
    // a suite of WPA in the RSN element is not one of RSN
    row("Suite 00-50-F2:2", element(48, securityBody({0x0050F202}, 0x000FAC04)));
    row("Unknown", element(48, QByteArray::fromHex("01")), false);
    row("Unknown", element(48, QByteArray::fromHex("01")), true);
    row("Unknown", element(221, QByteArray::fromHex("0050f20102")), false);
    row("WPA-PSK", element(48, {}) + wpa({2}));
    row("WPA2-PSK", element(221, QByteArray::fromHex("0050f201")) + rsn({2}));
    row("Unknown", name("Cut") + element(48, {}, 20), false);
    row("WPA2-PSK", rsn({2}) + element(7, {}, 20));
}

void TestSecurityText::textNamesEnterpriseGenerations_data()
{
    QTest::addColumn<QByteArray>("octets");
    QTest::addColumn<QString>("text");
    const auto row = [](const char *text, const QByteArray &octets) {
        QTest::addRow("%s (%s)", text, octets.toHex().constData())
            << octets << QString::fromLatin1(text);
    };
    // With SHA-256 it is WPA3 where all frames of management are protected, ...
    row("WPA2-802.1X", rsn({5}));
    row("WPA2-802.1X", rsn({5}, ProtectionCapable));
    row("WPA3-Enterprise", rsn({5}, ProtectionRequired));
    row("WPA3-Enterprise", rsn({3, 5}, ProtectionRequired));
    row("WPA2-802.1X", rsn({3, 5}, ProtectionCapable));
    row("WPA2-802.1X", rsn({3}, ProtectionRequired));
    // ... and beside WPA2 where they can be.
    row("WPA2-802.1X", rsn({1, 5}));
    row("WPA2/WPA3-Enterprise", rsn({1, 5}, ProtectionCapable));
    row("WPA2/WPA3-Enterprise", rsn({5, 1}, ProtectionRequired));
    row("WPA2/WPA3-Enterprise", rsn({1, 3, 5}, ProtectionCapable));
    row("WPA2-802.1X", rsn({1}, ProtectionRequired));
    row("WPA2-802.1X", rsn({1, 3}, ProtectionCapable));
    // SHA-384 is of WPA3 only.
    row("WPA3-Enterprise", rsn({22}));
    row("WPA3-Enterprise", rsn({23}, ProtectionRequired));
    row("WPA2/WPA3-Enterprise", rsn({1, 23}, ProtectionCapable));
    row("WPA3-Enterprise 192", rsn({12}, ProtectionRequired));
    row("WPA3-Enterprise 192", rsn({12, 13}, ProtectionRequired));
    row("WPA3-Enterprise, 192-bit", rsn({5, 12}, ProtectionRequired));
    row("WPA2/WPA3-Enterprise, 192-bit", rsn({1, 5, 12}, ProtectionCapable));
    row("WPA2-802.1X, WPA3-Enterprise 192", rsn({1, 12}, ProtectionCapable));
    row("WPA/WPA2/WPA3-Enterprise", wpa({1}) + rsn({1, 5}, ProtectionCapable));
    row("WPA-802.1X, WPA3-Enterprise", wpa({1}) + rsn({5}, ProtectionRequired));
    row("WPA3-SAE, WPA3-Enterprise", rsn({5, 8}, ProtectionRequired));
    // The passphrase has its generation by the suite alone.
    row("WPA2-PSK", rsn({6}, ProtectionRequired));
    row("WPA2-PSK", rsn({2, 6}, ProtectionCapable));
}

void TestSecurityText::textNamesEnterpriseGenerations()
{
    QFETCH(QByteArray, octets);
    QFETCH(QString, text);
    QCOMPARE(QString::fromStdString(LinuxWifi::securityText(parse(octets), true)), text);
}

void TestSecurityText::textFollowsOverrides_data()
{
    QTest::addColumn<QByteArray>("octets");
    QTest::addColumn<QString>("text");
    const auto row = [](const char *text, const QByteArray &octets) {
        QTest::addRow("%s (%s)", text, octets.toHex().constData())
            << octets << QString::fromLatin1(text);
    };
    row("WPA2/WPA3", rsn({2}) + rsnOverride({8}));
    row("WPA2/WPA3", rsnOverride({8}) + rsn({2}));
    row("WPA2/WPA3", rsn({2}) + rsnOverride({24}, ProtectionRequired, 2));
    row("WPA2/WPA3", rsn({2}) + rsnOverride({8}) + rsnOverride({24}, ProtectionRequired, 2));
    row("WPA2/WPA3", rsn({2, 8}) + rsnOverride({24}));
    row("WPA/WPA2/WPA3", wpa({2}) + rsn({2}) + rsnOverride({8}));
    row("WPA3-SAE", rsn({8}) + rsnOverride({24}));
    row("WPA3-SAE", rsnOverride({8}));
    row("WPA2/WPA3-Enterprise", rsn({1}) + rsnOverride({5}));
    // Each element is judged by its own capabilities.
    row("WPA2-802.1X", rsn({5}) + rsnOverride({1}));
    row("WPA2-PSK, OWE", rsn({2}) + rsnOverride({18}));
    row("WPA2-PSK, Suite 00-0F-AC:99", rsn({2}) + rsnOverride({99}));
    row("WPA2-PSK", rsn({2}) + vendor(0x506F9A29, "\1"));
    row("WPA2-PSK", rsn({2}) + vendor(0x506F9A2B, QByteArray::fromHex("20"))); // of the extension
    row("Unknown", vendor(0x506F9A29, "\1"));
    row("Unknown", vendor(0x506F9A2A));
    row("Unknown", rsn({}) + vendor(0x506F9A2A));
}

void TestSecurityText::textFollowsOverrides()
{
    QFETCH(QByteArray, octets);
    QFETCH(QString, text);
    const LinuxWifi::InformationElements elements = parse(octets);
    for (const bool privacy : {false, true})
        QCOMPARE(QString::fromStdString(LinuxWifi::securityText(elements, privacy)), text);
}

void TestSecurityText::textNamesWhatIsBesideRsn_data()
{
    QTest::addColumn<QByteArray>("octets");
    QTest::addColumn<bool>("privacy");
    QTest::addColumn<QString>("text");
    const auto row = [](const char *text, const QByteArray &octets, bool privacy) {
        QTest::addRow("%s (%s)", text, octets.toHex().constData())
            << octets << privacy << QString::fromLatin1(text);
    };
    row("OWE transition", name("Cafe") + oweTransition(), false);
    row("OWE transition", vendor(0x506F9A1C), false);
    row("OWE transition", oweTransition(), true);
    row("OWE", rsn({18}, ProtectionRequired) + oweTransition(), true);
    row("Unknown", oweTransition() + element(48, {}), false);
    row("Unknown", oweTransition() + element(7, {}, 20), false);
    row("OSEN", osen(), true);
    row("OSEN", osen(), false);
    row("WPA2-802.1X, OSEN", rsn({1}) + osen(), true);
    row("WAPI-PSK", wapi({2}), true);
    row("WAPI-PSK", wapi({2}), false);
    row("WAPI-CERT", wapi({1}), true);
    row("WAPI-PSK, WAPI-CERT", wapi({1, 2}), true);
    row("WPA2-PSK, WAPI-PSK", wapi({2}) + rsn({2}), true);
    row("Suite 00-14-72:3", wapi({3}), true);
    row("Unknown", element(68, "\1"), true);
    row("WPA2-PSK", element(68, "\1") + rsn({2}), true);
    row("Open", element(68, QByteArray(4, '\5')), false); // access delays
    row("WEP", element(68, QByteArray(4, '\5')), true);
}

void TestSecurityText::textNamesWhatIsBesideRsn()
{
    QFETCH(QByteArray, octets);
    QFETCH(bool, privacy);
    QFETCH(QString, text);
    QCOMPARE(QString::fromStdString(LinuxWifi::securityText(parse(octets), privacy)), text);
}

void TestSecurityText::textNamesWhatIsOffered()
{
    QFETCH(QByteArray, octets);
    QFETCH(bool, privacy);
    QFETCH(QString, text);
    QCOMPARE(QString::fromStdString(LinuxWifi::securityText(parse(octets), privacy)), text);
}

void TestSecurityText::everyKnownSuiteHasItsKind_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<QString>("text");
    const QVector<QPair<QString, QVector<int>>> kinds{
        {QStringLiteral("WPA2-802.1X"), {1, 3, 5}},
        {QStringLiteral("WPA2-PSK"), {2, 4, 6, 19, 20}},
        {QStringLiteral("WPA3-SAE"), {8, 9, 24, 25}},
        {QStringLiteral("Suite B"), {11}},
        {QStringLiteral("WPA3-Enterprise 192"), {12, 13}},
        {QStringLiteral("WPA3-Enterprise"), {22, 23}},
        {QStringLiteral("FILS"), {14, 15, 16, 17}},
        {QStringLiteral("OWE"), {18}},
        {QStringLiteral("PASN"), {21}},
        {QString(), {7, 10, 26, 128, 255}},
    };
    for (const auto &kind : kinds) {
        for (const int type : kind.second) {
            QTest::addRow("%d", type)
                << type
                << (kind.first.isEmpty() ? QStringLiteral("Suite 00-0F-AC:%1").arg(type)
                                         : kind.first);
        }
    }
}

void TestSecurityText::everyKnownSuiteHasItsKind()
{
    QFETCH(int, type);
    QFETCH(QString, text);
    QCOMPARE(QString::fromStdString(LinuxWifi::securityText(parse(rsn({type})), true)), text);
}

void TestSecurityText::brokenElementsNeverReadAsOpen()
{
    // However a secured network's elements are cut or one octet of the RSN element is changed. The
    // cut in front of the element leaves nothing that could be known.
    const QByteArray whole = rsn({2, 8});
    for (int length = 1; length < whole.size(); ++length) {
        const std::string text = LinuxWifi::securityText(parse(whole.left(length)), false);
        QCOMPARE(text, std::string("Unknown"));
    }
    for (int at = 1; at < whole.size(); ++at) {
        for (int value = 0; value < 256; ++value) {
            QByteArray changed = whole;
            changed[at] = static_cast<char>(value);
            QVERIFY(LinuxWifi::securityText(parse(changed), false) != "Open");
        }
    }
}

void TestSecurityText::longListsOfUnknownSuitesStayShort()
{
    QVector<int> types;
    for (int type = 100; type < 150; ++type)
        types.append(type);
    QCOMPARE(QString::fromStdString(LinuxWifi::securityText(parse(rsn(types)), true)),
        QStringLiteral("Suite 00-0F-AC:100, Suite 00-0F-AC:101, Suite 00-0F-AC:102, ..."));
}

QTEST_GUILESS_MAIN(TestSecurityText)
#include "tst_securitytext.moc"
