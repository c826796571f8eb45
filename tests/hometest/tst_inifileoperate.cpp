#include "common/QtCommonTools.h"
#include "hometest/inifileoperate.h"
#include "hometest/roomhouse.h"
#include "support/messagelog.h"

#include <QFile>
#include <QSettings>
#include <QTemporaryDir>
#include <QtTest>

using RoomHouse::Rooms;
using RoomHouse::roomsIn;

namespace
{
const HomeTest_Value NoResult;
const HomeTest_Value Tested{62, 144, 40, 300};

/// A store whose settings object can be taken away.
class BareStore : public IniFileOperate
{
public:
    using IniFileOperate::IniFileOperate;
    void dropSettings()
    {
        delete m_pSettings;
        m_pSettings = nullptr;
    }
};
} // namespace

class TestIniFileOperate : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void firstStartWritesFiveRoomsAndReadsThemBack();
    void addingOverwrites();
    void resultsAreWrittenAsTextAndNoneAsNothing();
    void updatingAnUnknownRoomWritesTheFileOnly();
    void renamingKeepsTheResults();
    void renamingAnUnknownRoomMakesAnEmptyOne();
    void deletingRemovesTheWholeGroup();
    void changesAreOnDiskWhenTheCallReturns();
    void aChangeIsOneStepForOtherReaders();
    void everyNameSurvives_data();
    void everyNameSurvives();
    void namesDifferingInCaseAreDifferentRooms();
    void generalInSmallLettersComesBackWithACapital();
    void aSlashMakesNestedGroupsThatAreNotFoundAgain();
    void deletingANameOfSlashesLeavesTheOtherRooms();
    void deletingANameOfSlashesLeavesARoomNamedLikeAKey();
    void deletingANameThatSharesAGroupLeavesTheOtherRoom();
    void deletingANameThatIsAKeyOfAnotherRoomLeavesItsResults_data();
    void deletingANameThatIsAKeyOfAnotherRoomLeavesItsResults();
    void initTwiceIsHarmless();
    void withoutSettingsNothingHappensButAReport();
    void wrappersWithoutAStoreReport();
    void wrappersChangeMapAndFile();

private:
    QByteArray content() const;

    QScopedPointer<QTemporaryDir> m_folder;
    QString m_path;
};

void TestIniFileOperate::init()
{
    m_folder.reset(new QTemporaryDir);
    m_path = m_folder->filePath(QStringLiteral("WifiHomeTest.ini"));
    QtCommonTools::GetHomeTestingIni()->clear();
}

QByteArray TestIniFileOperate::content() const
{
    QFile file(m_path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void TestIniFileOperate::firstStartWritesFiveRoomsAndReadsThemBack()
{
    IniFileOperate store(m_path);
    store.InitialHomeTestIni();
    const Rooms &rooms = *QtCommonTools::GetHomeTestingIni();
    QCOMPARE(rooms.keys(), (QStringList{QStringLiteral("Bedroom1"), QStringLiteral("Bedroom2"),
                               QStringLiteral("Home Office"), QStringLiteral("Kitchen"),
                               QStringLiteral("Living Room")}));
    for (const HomeTest_Value &value : rooms)
        QCOMPARE(value, NoResult);
    QCOMPARE(roomsIn(m_path), rooms);
    QCOMPARE(content().count('['), 5);
    QCOMPARE(content().count("Percent=\n"), 10);
    QCOMPARE(content().count("Speed=\n"), 10);
    QVERIFY(content().contains("[Living%20Room]\n"));
}

void TestIniFileOperate::addingOverwrites()
{
    IniFileOperate store(m_path);
    Rooms rooms;
    store.AddWifiHomeTestIni(rooms, QStringLiteral("Attic"), Tested);
    QCOMPARE(rooms, (Rooms{{QStringLiteral("Attic"), Tested}}));
    store.AddWifiHomeTestIni(rooms, QStringLiteral("Attic"), NoResult);
    QCOMPARE(rooms, (Rooms{{QStringLiteral("Attic"), NoResult}}));
    QCOMPARE(roomsIn(m_path), rooms);
}

void TestIniFileOperate::resultsAreWrittenAsTextAndNoneAsNothing()
{
    IniFileOperate store(m_path);
    store.SetIntValueToHomeTestINI(QStringLiteral("Attic"), {62, -1, 0, -20});
    const QByteArray text = content();
    QVERIFY(text.contains("[Attic]\n"));
    QVERIFY(text.contains("NowPercent=62\n"));
    QVERIFY(text.contains("NowSpeed=\n"));
    QVERIFY(text.contains("LastPercent=0\n"));
    QVERIFY(text.contains("LastSpeed=-20\n"));
}

void TestIniFileOperate::updatingAnUnknownRoomWritesTheFileOnly()
{
    IniFileOperate store(m_path);
    Rooms rooms;
    store.UpdateHomeValueToINI(rooms, QStringLiteral("Attic"), Tested);
    QVERIFY(rooms.isEmpty());
    store.GetWifiHomeTestIni(rooms);
    QCOMPARE(rooms, (Rooms{{QStringLiteral("Attic"), Tested}}));
    store.UpdateHomeValueToINI(rooms, QStringLiteral("Attic"), NoResult);
    QCOMPARE(rooms, (Rooms{{QStringLiteral("Attic"), NoResult}}));
}

void TestIniFileOperate::renamingKeepsTheResults()
{
    IniFileOperate store(m_path);
    Rooms rooms;
    store.AddWifiHomeTestIni(rooms, QStringLiteral("Attic"), Tested);
    store.AddWifiHomeTestIni(rooms, QStringLiteral("Hall"), NoResult);
    store.UpdateHomeNameToINI(rooms, QStringLiteral("Attic"), QStringLiteral("Loft"));
    QCOMPARE(rooms, (Rooms{{QStringLiteral("Hall"), NoResult}, {QStringLiteral("Loft"), Tested}}));
    QCOMPARE(roomsIn(m_path), rooms);
    QVERIFY(!content().contains("Attic"));
}

void TestIniFileOperate::renamingAnUnknownRoomMakesAnEmptyOne()
{
    IniFileOperate store(m_path);
    Rooms rooms;
    store.UpdateHomeNameToINI(rooms, QStringLiteral("Attic"), QStringLiteral("Loft"));
    QCOMPARE(rooms, (Rooms{{QStringLiteral("Loft"), NoResult}}));
    QCOMPARE(roomsIn(m_path), rooms);
}

void TestIniFileOperate::deletingRemovesTheWholeGroup()
{
    QFile file(m_path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("[Attic]\nNowPercent=1\nNowSpeed=2\nLastPercent=3\nLastSpeed=4\nForeign=5\n"
               "[Hall]\nNowPercent=\n");
    file.close();
    IniFileOperate store(m_path);
    Rooms rooms;
    store.GetWifiHomeTestIni(rooms);
    QCOMPARE(rooms.size(), 2);
    store.DelHomeValueFromINI(rooms, QStringLiteral("Attic"));
    QCOMPARE(rooms.keys(), QStringList{QStringLiteral("Hall")});
    QVERIFY(!content().contains("Attic"));
    QVERIFY(!content().contains("Foreign"));
    QVERIFY(content().contains("[Hall]"));
}

void TestIniFileOperate::changesAreOnDiskWhenTheCallReturns()
{
    IniFileOperate store(m_path);
    Rooms rooms;
    store.AddWifiHomeTestIni(rooms, QStringLiteral("Attic"), NoResult);
    QCOMPARE(roomsIn(m_path), rooms);
    store.UpdateHomeValueToINI(rooms, QStringLiteral("Attic"), Tested);
    QCOMPARE(roomsIn(m_path), rooms);
    store.UpdateHomeNameToINI(rooms, QStringLiteral("Attic"), QStringLiteral("Loft"));
    QCOMPARE(roomsIn(m_path), rooms);
    store.DelHomeValueFromINI(rooms, QStringLiteral("Loft"));
    QCOMPARE(roomsIn(m_path), Rooms());
    store.SetIntValue(QStringLiteral("Hall/NowPercent"), 7);
    QCOMPARE(roomsIn(m_path), (Rooms{{QStringLiteral("Hall"), {7, -1, -1, -1}}}));
    QVERIFY(!QFile::exists(m_path + QStringLiteral(".lock")));
}

void TestIniFileOperate::aChangeIsOneStepForOtherReaders()
{
    // The file is replaced, never written in place: who has it open keeps the old one whole.
    IniFileOperate store(m_path);
    Rooms rooms;
    store.AddWifiHomeTestIni(rooms, QStringLiteral("Attic"), Tested);
    const QByteArray before = content();
    QFile reader(m_path);
    QVERIFY(reader.open(QIODevice::ReadOnly));
    store.UpdateHomeNameToINI(rooms, QStringLiteral("Attic"), QStringLiteral("Loft"));
    QCOMPARE(reader.readAll(), before);
    QCOMPARE(QDir(m_folder->path()).entryList(QDir::Files | QDir::Hidden),
        QStringList{QStringLiteral("WifiHomeTest.ini")});
}

void TestIniFileOperate::everyNameSurvives_data()
{
    QTest::addColumn<QString>("room");
    int number = 0;
    for (const QString &room : RoomHouse::hostileNames())
        QTest::addRow("name %d", number++) << room;
}

void TestIniFileOperate::everyNameSurvives()
{
    QFETCH(QString, room);
    const QString other = QStringLiteral("Other");
    IniFileOperate store(m_path);
    Rooms rooms;
    store.AddWifiHomeTestIni(rooms, other, NoResult);
    store.AddWifiHomeTestIni(rooms, room, Tested);
    QCOMPARE(roomsIn(m_path), (Rooms{{other, NoResult}, {room, Tested}}));
    store.UpdateHomeValueToINI(rooms, room, NoResult);
    store.UpdateHomeNameToINI(rooms, room, room + QLatin1Char('2'));
    QCOMPARE(roomsIn(m_path), (Rooms{{other, NoResult}, {room + QLatin1Char('2'), NoResult}}));
    store.UpdateHomeNameToINI(rooms, room + QLatin1Char('2'), room);
    store.DelHomeValueFromINI(rooms, room);
    QCOMPARE(roomsIn(m_path), (Rooms{{other, NoResult}}));
    QCOMPARE(rooms, (Rooms{{other, NoResult}}));
}

void TestIniFileOperate::namesDifferingInCaseAreDifferentRooms()
{
    IniFileOperate store(m_path);
    Rooms rooms;
    store.AddWifiHomeTestIni(rooms, QStringLiteral("kitchen"), Tested);
    store.AddWifiHomeTestIni(rooms, QStringLiteral("Kitchen"), NoResult);
    QCOMPARE(roomsIn(m_path), rooms);
    QCOMPARE(rooms.keys(), (QStringList{QStringLiteral("Kitchen"), QStringLiteral("kitchen")}));
}

void TestIniFileOperate::generalInSmallLettersComesBackWithACapital()
{
    // The one group name that the INI format of QSettings knows only in one spelling.
    IniFileOperate store(m_path);
    Rooms rooms;
    store.AddWifiHomeTestIni(rooms, QStringLiteral("general"), Tested);
    QCOMPARE(roomsIn(m_path), (Rooms{{QStringLiteral("General"), Tested}}));
}

void TestIniFileOperate::aSlashMakesNestedGroupsThatAreNotFoundAgain()
{
    IniFileOperate store(m_path);
    Rooms rooms;
    store.AddWifiHomeTestIni(rooms, QStringLiteral("Floor 1/Hall"), Tested);
    QVERIFY(rooms.contains(QStringLiteral("Floor 1/Hall")));
    QVERIFY(content().contains("[Floor%201]\n"));
    QVERIFY(content().contains("Hall\\NowPercent=62\n"));
    store.GetWifiHomeTestIni(rooms);
    QVERIFY(!rooms.contains(QStringLiteral("Floor 1/Hall")));
}

void TestIniFileOperate::deletingANameOfSlashesLeavesTheOtherRooms()
{
    IniFileOperate store(m_path);
    Rooms rooms;
    store.AddWifiHomeTestIni(rooms, QStringLiteral("Attic"), Tested);
    store.AddWifiHomeTestIni(rooms, QStringLiteral("/"), Tested);
    store.AddWifiHomeTestIni(rooms, QStringLiteral("//"), Tested);
    store.DelHomeValueFromINI(rooms, QStringLiteral("/"));
    QCOMPARE(roomsIn(m_path), (Rooms{{QStringLiteral("Attic"), Tested}}));
    QVERIFY(rooms.contains(QStringLiteral("//")));
    store.DelHomeValueFromINI(rooms, QStringLiteral("//"));
    QVERIFY(content().startsWith("[Attic]"));
}

void TestIniFileOperate::deletingANameOfSlashesLeavesARoomNamedLikeAKey()
{
    IniFileOperate store(m_path);
    Rooms rooms;
    store.AddWifiHomeTestIni(rooms, QStringLiteral("NowSpeed"), Tested);
    store.AddWifiHomeTestIni(rooms, QStringLiteral("/"), Tested);
    store.DelHomeValueFromINI(rooms, QStringLiteral("/"));
    QCOMPARE(rooms, (Rooms{{QStringLiteral("NowSpeed"), Tested}}));
    QCOMPARE(roomsIn(m_path), rooms);
}

void TestIniFileOperate::deletingANameThatSharesAGroupLeavesTheOtherRoom()
{
    IniFileOperate store(m_path);
    Rooms rooms;
    store.AddWifiHomeTestIni(rooms, QStringLiteral("Attic/"), NoResult);
    store.AddWifiHomeTestIni(rooms, QStringLiteral("Attic"), Tested);
    store.DelHomeValueFromINI(rooms, QStringLiteral("Attic/"));
    QCOMPARE(rooms.keys(), QStringList{QStringLiteral("Attic")});
    QCOMPARE(roomsIn(m_path), (Rooms{{QStringLiteral("Attic"), Tested}}));
}

void TestIniFileOperate::deletingANameThatIsAKeyOfAnotherRoomLeavesItsResults_data()
{
    QTest::addColumn<QString>("other");
    QTest::addColumn<QString>("deleted");
    QTest::newRow("a key of a room") << QStringLiteral("Kids") << QStringLiteral("Kids/NowPercent");
    QTest::newRow("another one") << QStringLiteral("Kids") << QStringLiteral("Kids/LastSpeed");
    QTest::newRow("superfluous slashes")
        << QStringLiteral("/Kids/") << QStringLiteral("Kids//NowSpeed/");
    QTest::newRow("a room in a room")
        << QStringLiteral("Kids/Bed") << QStringLiteral("Kids/Bed/NowPercent");
    QTest::newRow("a key of a room without a group")
        << QStringLiteral("/") << QStringLiteral("NowPercent");
}

void TestIniFileOperate::deletingANameThatIsAKeyOfAnotherRoomLeavesItsResults()
{
    QFETCH(QString, other);
    QFETCH(QString, deleted);
    IniFileOperate store(m_path);
    Rooms rooms;
    store.AddWifiHomeTestIni(rooms, other, Tested);
    store.AddWifiHomeTestIni(rooms, deleted, NoResult);
    store.DelHomeValueFromINI(rooms, deleted);
    QCOMPARE(rooms, (Rooms{{other, Tested}}));
    const QSettings file(m_path, QSettings::IniFormat);
    const QString group = other.split(QLatin1Char('/'), Qt::SkipEmptyParts).join(QLatin1Char('/'));
    const QString prefix = group.isEmpty() ? QString() : group + QLatin1Char('/');
    QCOMPARE(file.value(prefix + QStringLiteral("NowPercent")).toString(), QStringLiteral("62"));
    QCOMPARE(file.value(prefix + QStringLiteral("NowSpeed")).toString(), QStringLiteral("144"));
    QCOMPARE(file.value(prefix + QStringLiteral("LastPercent")).toString(), QStringLiteral("40"));
    QCOMPARE(file.value(prefix + QStringLiteral("LastSpeed")).toString(), QStringLiteral("300"));
    QCOMPARE(file.allKeys().size(), 4);
}

void TestIniFileOperate::initTwiceIsHarmless()
{
    IniFileOperate store(m_path);
    Rooms rooms;
    store.AddWifiHomeTestIni(rooms, QStringLiteral("Attic"), Tested);
    store.Init();
    store.GetWifiHomeTestIni(rooms);
    QCOMPARE(rooms, (Rooms{{QStringLiteral("Attic"), Tested}}));
}

void TestIniFileOperate::withoutSettingsNothingHappensButAReport()
{
    BareStore store(m_path);
    store.dropSettings();
    MessageLog log;
    const auto onlyReport = [&log](const char *function, int times) {
        const QStringList reports = log.criticals();
        log.clear();
        const QString expected = QStringLiteral("NUll pointfile:inifileoperate function:%1 line:")
                                     .arg(QString::fromLatin1(function));
        return reports.size() == times && reports.filter(expected).size() == times;
    };

    Rooms rooms{{QStringLiteral("Attic"), Tested}};
    store.GetWifiHomeTestIni(rooms);
    QVERIFY(onlyReport("GetWifiHomeTestIni", 1));
    QCOMPARE(rooms.size(), 1);

    QString key = QStringLiteral("Attic/NowPercent");
    int value = 77;
    store.GetIntValue(key, value);
    QVERIFY(onlyReport("GetIntValue", 1));
    QCOMPARE(value, 77);

    store.SetIntValue(key, 1);
    QVERIFY(onlyReport("SetIntValue", 1));
    store.SetIntValueToHomeTestINI(QStringLiteral("Attic"), Tested);
    QVERIFY(onlyReport("SetIntValue", 4));

    store.DelHomeValueFromINI(rooms, QStringLiteral("Attic"));
    QVERIFY(onlyReport("DelHomeValueFromINI", 1));
    QVERIFY(rooms.isEmpty());
    QVERIFY(!QFile::exists(m_path));
}

void TestIniFileOperate::wrappersWithoutAStoreReport()
{
    QVERIFY(!QtCommonTools::m_piniHomeTestInstance);
    MessageLog log;
    const QString room = QStringLiteral("Attic");
    QtCommonTools::AddHomeTestToINI(room, Tested);
    QtCommonTools::DelHomeValueFromINI(room);
    QtCommonTools::UpdateHomeNameToINI(room, QStringLiteral("Loft"));
    QtCommonTools::UpdateHomeValueToINI(room, Tested);
    const QStringList reports = log.criticals();
    const char *const functions[] = {
        "AddHomeTestToINI", "DelHomeValueFromINI", "UpdateHomeNameToINI", "UpdateHomeValueToINI"};
    QCOMPARE(reports.size(), 4);
    for (int i = 0; i < 4; ++i)
        QVERIFY(reports.at(i).startsWith(
            QStringLiteral("NUll pointfile:QtCommonTools function:%1 line:")
                .arg(QString::fromLatin1(functions[i]))));
    QVERIFY(QtCommonTools::GetHomeTestingIni()->isEmpty());
}

void TestIniFileOperate::wrappersChangeMapAndFile()
{
    QtCommonTools::m_piniHomeTestInstance = new IniFileOperate(m_path);
    QtCommonTools::AddHomeTestToINI(QStringLiteral("Attic"), NoResult);
    QVERIFY(QtCommonTools::HomeNameIsExisting(QStringLiteral("Attic")));
    QVERIFY(!QtCommonTools::HomeNameIsExisting(QStringLiteral("attic")));
    QVERIFY(!QtCommonTools::HomeNameIsExisting(QStringLiteral("Attic ")));
    QtCommonTools::UpdateHomeValueToINI(QStringLiteral("Attic"), Tested);
    QtCommonTools::UpdateHomeNameToINI(QStringLiteral("Attic"), QStringLiteral("Loft"));
    QCOMPARE(*QtCommonTools::GetHomeTestingIni(), (Rooms{{QStringLiteral("Loft"), Tested}}));
    QCOMPARE(roomsIn(m_path), *QtCommonTools::GetHomeTestingIni());
    QtCommonTools::DelHomeValueFromINI(QStringLiteral("Loft"));
    QVERIFY(QtCommonTools::GetHomeTestingIni()->isEmpty());
    QCOMPARE(roomsIn(m_path), Rooms());
    QtCommonTools::Release();
    QVERIFY(!QtCommonTools::m_piniHomeTestInstance);
}

QTEST_GUILESS_MAIN(TestIniFileOperate)
#include "tst_inifileoperate.moc"
