#include "common/QtCommonTools.h"
#include "hometest/linetablewidget.h"
#include "hometest/roomhand.h"
#include "hometest/signalhometestingwgt.h"

#include <QLineEdit>
#include <QPushButton>
#include <QtTest>

using RoomHouse::Rooms;

// Tests of rooms, and what becomes of rooms with unusual names.
class TestRoomResults : public QObject
{
    Q_OBJECT

private slots:
    void init() { m_hand.firstStart(); }
    void cleanup() { m_hand.close(); }
    void testsTwice();
    void testsAtNoSignal();
    void testsWithoutANetwork();
    void losingTheNetworkStopsTests();
    void hostileNamesLiveTheirWholeLife_data();
    void hostileNamesLiveTheirWholeLife();

private:
    RoomHand m_hand;
};

void TestRoomResults::testsTwice()
{
    m_hand.panel()->onNetworkReturned(QStringLiteral("Home"));
    m_hand.panel()->SetSignalValue(-38);
    m_hand.panel()->SetSignalSpeedValue(144);
    m_hand.clickRow(3);
    m_hand.click(m_hand.testButton(3));
    QCOMPARE(m_hand.cell(3), QStringLiteral("Kitchen\nNow:62% signal and 144 Mbps\nN/A"));
    m_hand.panel()->SetSignalValue(-71);
    m_hand.panel()->SetSignalSpeedValue(6);
    m_hand.click(m_hand.testButton(3));
    QCOMPARE(m_hand.cell(3),
        QStringLiteral("Kitchen\nNow:29% signal and 6 Mbps\nLast:62% signal and 144 Mbps"));
    QCOMPARE(m_hand.onDisk().value(QStringLiteral("Kitchen")), (HomeTest_Value{29, 6, 62, 144}));
    // What was "Last" is dropped.
    m_hand.click(m_hand.testButton(3));
    QCOMPARE(m_hand.onDisk().value(QStringLiteral("Kitchen")), (HomeTest_Value{29, 6, 29, 6}));
}

void TestRoomResults::testsAtNoSignal()
{
    m_hand.panel()->onNetworkReturned(QStringLiteral("Home"));
    m_hand.panel()->SetSignalValue(0);
    m_hand.clickRow(0);
    m_hand.click(m_hand.testButton(0));
    QCOMPARE(m_hand.cell(0), QStringLiteral("Bedroom1\nNow:0% signal and 0 Mbps\nN/A"));
    QCOMPARE(m_hand.onDisk().value(QStringLiteral("Bedroom1")), (HomeTest_Value{0, 0, -1, -1}));
}

void TestRoomResults::testsWithoutANetwork()
{
    // Not joined from the start.
    m_hand.panel()->SetSignalValue(-38);
    m_hand.clickRow(3);
    const Rooms before = m_hand.onDisk();
    QString notice;
    ModalHand hand;
    hand.then(RoomHand::takeNotice(&notice));
    m_hand.click(m_hand.testButton(3));
    QCOMPARE(hand.left() + hand.leftOpen(), 0);
    QCOMPARE(notice, QStringLiteral("No Network Connected!"));
    QCOMPARE(m_hand.cell(3), QStringLiteral("Kitchen\nN/A\nN/A"));
    QCOMPARE(m_hand.onDisk(), before);
}

void TestRoomResults::losingTheNetworkStopsTests()
{
    m_hand.panel()->onNetworkReturned(QStringLiteral("Home"));
    m_hand.panel()->SetSignalValue(-38);
    m_hand.clickRow(3);
    m_hand.click(m_hand.testButton(3));
    m_hand.panel()->onNetworkReturned(QString());
    QString notice;
    ModalHand hand;
    hand.then(RoomHand::takeNotice(&notice));
    m_hand.click(m_hand.testButton(3));
    QCOMPARE(hand.left() + hand.leftOpen(), 0);
    QCOMPARE(notice, QStringLiteral("No Network Connected!"));
    QCOMPARE(m_hand.onDisk().value(QStringLiteral("Kitchen")), (HomeTest_Value{62, 0, -1, -1}));
}

void TestRoomResults::hostileNamesLiveTheirWholeLife_data()
{
    QTest::addColumn<QString>("name");
    int number = 0;
    for (const QString &name : RoomHouse::hostileNames())
        QTest::addRow("name %d", number++) << name;
}

void TestRoomResults::hostileNamesLiveTheirWholeLife()
{
    QFETCH(QString, name);
    m_hand.panel()->onNetworkReturned(QStringLiteral("Home"));
    m_hand.panel()->SetSignalValue(-38);
    m_hand.panel()->SetSignalSpeedValue(144);
    // Long or unusual texts come from the clipboard rather than from keys.
    ModalHand hand;
    hand.then([&](QWidget *dialog) {
        RoomHand::edit(dialog)->insert(name);
        ModalHand::press(dialog, Qt::Key_Return);
    });
    m_hand.click(m_hand.button("HomeTesting_btn_Add"));
    QCOMPARE(hand.left() + hand.leftOpen(), 0);
    QCOMPARE(m_hand.cell(5), name + QStringLiteral("\nN/A\nN/A"));
    m_hand.clickRow(5);
    m_hand.click(m_hand.testButton(5));
    QCOMPARE(m_hand.cell(5), name + QStringLiteral("\nNow:62% signal and 144 Mbps\nN/A"));
    QVERIFY(!m_hand.panel()->grab().isNull());

    m_hand.restart();
    QCOMPARE(QtCommonTools::GetHomeTestingIni()->value(name), (HomeTest_Value{62, 144, -1, -1}));
    int row = 0;
    while (row < 6 && !m_hand.cell(row).startsWith(name + QLatin1Char('\n')))
        ++row;
    QVERIFY(row < 6);
    m_hand.rename(row, QStringLiteral("Plain"));
    QCOMPARE(m_hand.cell(row), QStringLiteral("Plain\nNow:62% signal and 144 Mbps\nN/A"));
    m_hand.remove(row);
    QCOMPARE(m_hand.onDisk().size(), 5);
    QVERIFY(!m_hand.onDisk().contains(name));
}

QTEST_MAIN(TestRoomResults)
#include "tst_roomresults.moc"
