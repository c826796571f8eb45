#include "hometest/hometestvalue.h"
#include "hometest/roomtext.h"

#include <QtTest>

class TestRoomText : public QObject
{
    Q_OBJECT

private slots:
    void turnsDbmIntoPercentWithoutClamping_data();
    void turnsDbmIntoPercentWithoutClamping();
    void wordsTheResults_data();
    void wordsTheResults();
    void givesTheNameBack_data();
    void givesTheNameBack();
    void freshResultsAreNone();
};

void TestRoomText::turnsDbmIntoPercentWithoutClamping_data()
{
    QTest::addColumn<int>("dBm");
    QTest::addColumn<int>("percent");
    QTest::newRow("usual") << -38 << 62;
    QTest::newRow("best") << -1 << 99;
    QTest::newRow("no signal stays 0") << 0 << 0;
    QTest::newRow("worst") << -100 << 0;
    QTest::newRow("below") << -130 << -30;
    QTest::newRow("above") << 5 << 105;
}

void TestRoomText::turnsDbmIntoPercentWithoutClamping()
{
    QFETCH(int, dBm);
    QFETCH(int, percent);
    QCOMPARE(RoomText::PercentOf(dBm), percent);
}

void TestRoomText::wordsTheResults_data()
{
    QTest::addColumn<QString>("room");
    QTest::addColumn<int>("nowPercent");
    QTest::addColumn<int>("nowSpeed");
    QTest::addColumn<int>("lastPercent");
    QTest::addColumn<int>("lastSpeed");
    QTest::addColumn<QString>("text");
    QTest::newRow("never tested") << QStringLiteral("Attic") << -1 << -1 << -1 << -1
                                  << QStringLiteral("Attic\nN/A\nN/A");
    QTest::newRow("once") << QStringLiteral("Kitchen") << 62 << 144 << -1 << -1
                          << QStringLiteral("Kitchen\nNow:62% signal and 144 Mbps\nN/A");
    QTest::newRow("twice")
        << QStringLiteral("Kitchen") << 0 << 0 << 62 << 144
        << QStringLiteral("Kitchen\nNow:0% signal and 0 Mbps\nLast:62% signal and 144 Mbps");
    QTest::newRow("only the percent decides")
        << QStringLiteral("Hall") << -1 << 300 << 40 << -1
        << QStringLiteral("Hall\nN/A\nLast:40% signal and -1 Mbps");
    QTest::newRow("negative percent") << QStringLiteral("Hall") << -20 << 6 << -1 << 7
                                      << QStringLiteral("Hall\nNow:-20% signal and 6 Mbps\nN/A");
    QTest::newRow("place markers in the name")
        << QStringLiteral("%1 %2 %L3") << 1 << 2 << 3 << 4
        << QStringLiteral("%1 %2 %L3\nNow:1% signal and 2 Mbps\nLast:3% signal and 4 Mbps");
}

void TestRoomText::wordsTheResults()
{
    QFETCH(QString, room);
    QFETCH(int, nowPercent);
    QFETCH(int, nowSpeed);
    QFETCH(int, lastPercent);
    QFETCH(int, lastSpeed);
    QFETCH(QString, text);
    const HomeTest_Value value{nowPercent, nowSpeed, lastPercent, lastSpeed};
    QCOMPARE(RoomText::CellText(room, value), text);
    QCOMPARE(RoomText::RoomOf(text), room);
}

void TestRoomText::givesTheNameBack_data()
{
    QTest::addColumn<QString>("cell");
    QTest::addColumn<QString>("room");
    QTest::newRow("three lines") << QStringLiteral("Hall\nN/A\nN/A") << QStringLiteral("Hall");
    QTest::newRow("one line") << QStringLiteral("Hall") << QStringLiteral("Hall");
    QTest::newRow("empty") << QString() << QString();
    QTest::newRow("empty first line") << QStringLiteral("\nN/A") << QString();
}

void TestRoomText::givesTheNameBack()
{
    QFETCH(QString, cell);
    QFETCH(QString, room);
    QCOMPARE(RoomText::RoomOf(cell), room);
}

void TestRoomText::freshResultsAreNone()
{
    const HomeTest_Value fresh;
    QCOMPARE(fresh.nowPercent, -1);
    QCOMPARE(fresh.nowSpeed, -1);
    QCOMPARE(fresh.lastPercent, -1);
    QCOMPARE(fresh.lastSpeed, -1);
}

QTEST_APPLESS_MAIN(TestRoomText)
#include "tst_roomtext.moc"
