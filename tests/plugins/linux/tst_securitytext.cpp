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
    row("Suite B", rsn({12}));
    row("WPA2-802.1X, Suite B", rsn({1, 12}));
    row("WPA2-802.1X, FILS", rsn({1, 14}));
    row("Suite 00-0F-AC:99", rsn({99}));
    row("Suite 00-0F-AC:99", rsn({99}), false);
    row("Suite 00-0F-AC:0", rsn({0}));
    row("WPA2-PSK, Suite 00-0F-AC:99", rsn({2, 99, 99}));
    row("Suite 50-6F-9A:2", element(48, securityBody({0x506F9A02}, 0x000FAC04)));
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
        {QStringLiteral("Suite B"), {11, 12, 13}},
        {QStringLiteral("FILS"), {14, 15, 16, 17}},
        {QStringLiteral("OWE"), {18}},
        {QString(), {7, 10, 21, 22, 23, 26, 128, 255}},
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
