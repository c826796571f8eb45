#include "plugincheck/wire.h"

#include <QtTest>

using namespace PluginCheck;

class TestWire : public QObject
{
    Q_OBJECT

private slots:
    void answersArriveAsTheyWereSent();
    void parcelsArriveHoweverTheyAreCut();
    void anythingElseIsToldFromAParcel_data();
    void anythingElseIsToldFromAParcel();
};

void TestWire::answersArriveAsTheyWereSent()
{
    Answers sent;
    sent.at = 1234;
    sent.listed = true;
    sent.interfaces = QStringList{QStringLiteral("a"), QString()};
    sent.usable = {true, false};
    sent.queried = false;
    sent.networks = {{{QStringLiteral("ssid"), QString(QChar(0xd800))}}, {}};
    sent.interfacesAgain = QStringList();
    sent.needsName = true;
    sent.alike = {false, true};
    sent.queryTime = 0.25;
    Unpacker unpacker;
    unpacker.add(parcel(Parcel::Answered, sent));
    const std::optional<QByteArray> content = unpacker.next();
    QVERIFY(content);
    QDataStream stream(*content);
    Parcel kind{};
    Answers got;
    stream >> kind >> got;
    QVERIFY(stream.atEnd());
    QVERIFY(kind == Parcel::Answered);
    QCOMPARE(got.at, sent.at);
    QVERIFY(got.listed && got.needsName);
    QCOMPARE(got.interfaces, sent.interfaces);
    QCOMPARE(got.usable, sent.usable);
    QVERIFY(got.queried == false);
    QCOMPARE(got.networks, sent.networks);
    QVERIFY(!got.networksAgain);
    QVERIFY(got.interfacesAgain == QStringList());
    QCOMPARE(got.alike, sent.alike);
    QCOMPARE(got.listTime, -1.0);
    QCOMPARE(got.queryTime, 0.25);
}

void TestWire::parcelsArriveHoweverTheyAreCut()
{
    const QByteArray octets = sealed(QByteArray("first\0x", 7)) + sealed({}) + sealed("third");
    Unpacker unpacker;
    QList<QByteArray> got;
    for (int i = 0; i < octets.size(); ++i) {
        unpacker.add(octets.mid(i, 1));
        while (const std::optional<QByteArray> content = unpacker.next())
            got.append(*content);
        QVERIFY(!unpacker.isSpoilt());
    }
    QCOMPARE(got, (QList<QByteArray>{QByteArray("first\0x", 7), QByteArray(), "third"}));
}

void TestWire::anythingElseIsToldFromAParcel_data()
{
    QTest::addColumn<QByteArray>("octets");
    const QByteArray whole = sealed("content");
    QTest::newRow("text") << QByteArray("scribble");
    QTest::newRow("one octet") << QByteArray("x");
    QTest::newRow("text before") << "x" + whole;
    QTest::newRow("text in the middle") << whole.left(15) + "x" + whole.mid(15) + whole;
    QTest::newRow("length of gigabytes")
        << whole.left(whole.indexOf("content") - 4) + QByteArray(4, '\xff') + "content";
}

void TestWire::anythingElseIsToldFromAParcel()
{
    QFETCH(QByteArray, octets);
    Unpacker unpacker;
    unpacker.add(octets);
    QVERIFY(!unpacker.next());
    QVERIFY(unpacker.isSpoilt());
    unpacker.add(sealed("more"));
    QVERIFY(!unpacker.next());
}

QTEST_APPLESS_MAIN(TestWire)

#include "tst_wire.moc"
