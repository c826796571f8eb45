#include "hometest/inifileoperate.h"
#include "hometest/roomhouse.h"
#include "support/messagelog.h"

#include <QFile>
#include <QTemporaryDir>
#include <QtTest>

using RoomHouse::Rooms;
using RoomHouse::roomsIn;

namespace
{
const HomeTest_Value Tested{62, 144, 40, 300};
} // namespace

// What the room store makes of files that it did not write.
class TestRoomReading : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void readsOneValue_data();
    void readsOneValue();
    void readsFilesOfOtherTools();
    void readsHostileFilesWithoutFalling_data();
    void readsHostileFilesWithoutFalling();
    void missingKeysDoNotTakeTheNeighboursValues();
    void loadingReplacesTheMap();
    void anEmptyFileHasNoRooms();

private:
    void write(const QByteArray &content);
    QByteArray content() const;

    QScopedPointer<QTemporaryDir> m_folder;
    QString m_path;
};

void TestRoomReading::init()
{
    m_folder.reset(new QTemporaryDir);
    m_path = m_folder->filePath(QStringLiteral("WifiHomeTest.ini"));
}

void TestRoomReading::write(const QByteArray &content)
{
    QFile file(m_path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(content), qint64(content.size()));
}

QByteArray TestRoomReading::content() const
{
    QFile file(m_path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void TestRoomReading::readsOneValue_data()
{
    QTest::addColumn<QByteArray>("written");
    QTest::addColumn<int>("value");
    QTest::newRow("number") << QByteArray("NowPercent=62") << 62;
    QTest::newRow("negative") << QByteArray("NowPercent=-5") << -5;
    QTest::newRow("minus one") << QByteArray("NowPercent=-1") << -1;
    QTest::newRow("empty") << QByteArray("NowPercent=") << -1;
    QTest::newRow("quoted and empty") << QByteArray("NowPercent=\"\"") << -1;
    QTest::newRow("missing") << QByteArray("Other=1") << -1;
    QTest::newRow("quoted") << QByteArray("NowPercent=\"62\"") << 62;
    QTest::newRow("blanks around") << QByteArray("NowPercent =  62  ") << 62;
    QTest::newRow("word") << QByteArray("NowPercent=abc") << 0;
    QTest::newRow("with a unit") << QByteArray("NowPercent=62%") << 0;
    QTest::newRow("fraction") << QByteArray("NowPercent=6.2") << 0;
    QTest::newRow("hexadecimal") << QByteArray("NowPercent=0x10") << 0;
    QTest::newRow("too large") << QByteArray("NowPercent=99999999999") << 0;
}

void TestRoomReading::readsOneValue()
{
    QFETCH(QByteArray, written);
    QFETCH(int, value);
    write("[Attic]\n" + written + "\n");
    IniFileOperate store(m_path);
    QString key = QStringLiteral("Attic/NowPercent");
    int read = 12345;
    store.GetIntValue(key, read);
    QCOMPARE(read, value);
}

void TestRoomReading::readsFilesOfOtherTools()
{
    write("; written by hand\r\n\r\n[Living%20Room]\r\nLastSpeed=300\r\nNowPercent = 62\r\n"
          "Unknown=1\r\n[K\xfc"
          "che]\r\nNowSpeed=\"144\"\r\n[%U5BDD%U5BA4]\r\n");
    IniFileOperate store(m_path);
    Rooms rooms;
    store.GetWifiHomeTestIni(rooms);
    QCOMPARE(rooms, (Rooms{{QStringLiteral("Living Room"), {62, -1, -1, 300}},
                        {QStringLiteral("K\u00fcche"), {-1, 144, -1, -1}}}));
}

void TestRoomReading::readsHostileFilesWithoutFalling_data()
{
    QTest::addColumn<QByteArray>("written");
    QTest::newRow("garbage") << QByteArray("\x00\xff\xfe[[[]]\n=\n==\n[", 15);
    QTest::newRow("no line break") << QByteArray("[Attic");
    QTest::newRow("unclosed quote") << QByteArray("[Attic]\nNowPercent=\"62\n[Hall]\n");
    QTest::newRow("keys before groups") << QByteArray("NowPercent=1\n[Attic]\n");
    QTest::newRow("same group twice")
        << QByteArray("[Attic]\nNowPercent=1\n[Attic]\nNowPercent=2\n");
    QTest::newRow("bad escapes") << QByteArray("[%ZZ%U12%]\nNowPercent=\\x\\q\n");
    QTest::newRow("bad variant") << QByteArray("[Attic]\nNowPercent=@Variant(\\0\\0\\0\\x7f)\n");
    QTest::newRow("list") << QByteArray("[Attic]\nNowPercent=1, 2, 3\n");
    QTest::newRow("long line") << QByteArray(
        "[Attic]\nNowPercent=" + QByteArray(1000000, '9') + "\n");
}

void TestRoomReading::readsHostileFilesWithoutFalling()
{
    QFETCH(QByteArray, written);
    write(written);
    MessageLog log;
    IniFileOperate store(m_path);
    Rooms rooms;
    store.GetWifiHomeTestIni(rooms);
    // What follows can be stored and is found again.
    store.AddWifiHomeTestIni(rooms, QStringLiteral("New"), Tested);
    QCOMPARE(roomsIn(m_path).value(QStringLiteral("New")), Tested);
    QCOMPARE(log.criticals(), QStringList());
}

void TestRoomReading::missingKeysDoNotTakeTheNeighboursValues()
{
    write("[A]\nNowPercent=1\nNowSpeed=2\nLastPercent=3\nLastSpeed=4\n[B]\nNowPercent=5\n");
    IniFileOperate store(m_path);
    Rooms rooms;
    store.GetWifiHomeTestIni(rooms);
    QCOMPARE(rooms.value(QStringLiteral("B")), (HomeTest_Value{5, -1, -1, -1}));
}

void TestRoomReading::loadingReplacesTheMap()
{
    write("[A]\nNowPercent=1\n");
    IniFileOperate store(m_path);
    Rooms rooms{{QStringLiteral("Gone"), Tested}};
    store.GetWifiHomeTestIni(rooms);
    QCOMPARE(rooms.keys(), QStringList{QStringLiteral("A")});
}

void TestRoomReading::anEmptyFileHasNoRooms()
{
    write(QByteArray());
    IniFileOperate store(m_path);
    Rooms rooms{{QStringLiteral("Old"), Tested}};
    store.GetWifiHomeTestIni(rooms);
    QVERIFY(rooms.isEmpty());
    QCOMPARE(content(), QByteArray());
}

QTEST_GUILESS_MAIN(TestRoomReading)
#include "tst_roomreading.moc"
