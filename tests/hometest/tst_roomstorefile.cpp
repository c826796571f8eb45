#include "common/QtCommonTools.h"
#include "hometest/inifileoperate.h"
#include "hometest/roomhouse.h"
#include "hometest/roomstorefile.h"
#include "hometest/tinymount.h"
#include "support/messagelog.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QLockFile>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QtTest>

using RoomHouse::Rooms;
using RoomHouse::roomsIn;

namespace
{
const HomeTest_Value Tested{62, 144, 40, 300};
const QString FileName = QStringLiteral("WifiHomeTest.ini");
const QString Attic = QStringLiteral("Attic");
} // namespace

// Where the room file lies, and what becomes of it on a bad disk.
class TestRoomStoreFile : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();

    void liesBesideTheProgram();
    void aFullFolderIsStillTheFolder();
    void liesInTheDataFolderWhereTheProgramCannotWrite();
    void takesTheProgramsFileOverOnce();
    void takesNothingOverFromADirectory();
    void aFailedTakeOverIsTriedAgain();
    void anAbandonedLockIsRemoved();
    void aLockInUseStays();
    void syncingAFolderThatIsNotThereIsHarmless();

    void aFirstStartOnAFullDiskWorksInMemory();
    void aFullDiskLeavesTheFileWhole();
    void whatAFullDiskRefusedIsWrittenWithTheNextChange();
    void aReadOnlyFolderIsReadAndLeftAlone();
    void aFileReplacedByADirectoryIsAnEmptyList();

    void startsBesideTheProgramWithFiveRooms();
    void startsWithTheFileThatIsThere();
    void anExistingEmptyFileStaysEmpty();
    void startsInTheDataFolderOfAnInstalledProgram();
    void releaseIsHarmlessTwice();

private:
    static void write(const QString &path, const QByteArray &content);
    static QByteArray content(const QString &path);
    QString path(const QString &name) const { return m_folder->filePath(name); }

    QScopedPointer<QTemporaryDir> m_folder;
};

void TestRoomStoreFile::initTestCase()
{
    TinyMount::enterPrivateNamespace();
}

void TestRoomStoreFile::init()
{
    m_folder.reset(new QTemporaryDir);
    QtCommonTools::GetHomeTestingIni()->clear();
}

void TestRoomStoreFile::write(const QString &path, const QByteArray &content)
{
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(content), qint64(content.size()));
}

QByteArray TestRoomStoreFile::content(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void TestRoomStoreFile::liesBesideTheProgram()
{
    QCOMPARE(RoomStoreFile::Locate(m_folder->path(), path(QStringLiteral("data"))), path(FileName));
    QVERIFY(!QFile::exists(path(QStringLiteral("data"))));
    QVERIFY(!QFile::exists(path(FileName)));
}

void TestRoomStoreFile::aFullFolderIsStillTheFolder()
{
    TinyMount disk(path(QStringLiteral("full")), "size=16k");
    if (!disk.isMounted())
        QSKIP("no right to mount a small disk");
    disk.fill();
    QCOMPARE(RoomStoreFile::Locate(disk.path(), path(QStringLiteral("data"))),
        disk.path() + QLatin1Char('/') + FileName);
}

void TestRoomStoreFile::liesInTheDataFolderWhereTheProgramCannotWrite()
{
    TinyMount disk(path(QStringLiteral("program")), "ro");
    if (!disk.isMounted())
        QSKIP("no right to mount a read-only disk");
    const QString data = path(QStringLiteral("deep/data"));
    QCOMPARE(RoomStoreFile::Locate(disk.path(), data), data + QLatin1Char('/') + FileName);
    QVERIFY(QFileInfo(data).isDir());
    QVERIFY(!QFile::exists(data + QLatin1Char('/') + FileName));
}

void TestRoomStoreFile::takesTheProgramsFileOverOnce()
{
    TinyMount disk(path(QStringLiteral("program")), "size=64k");
    if (!disk.isMounted())
        QSKIP("no right to mount a disk");
    const QByteArray rooms("; shipped\n[Attic]\nNowPercent=62\n");
    write(disk.path() + QLatin1Char('/') + FileName, rooms);
    QVERIFY(disk.makeReadOnly());
    const QString data = path(QStringLiteral("data"));
    const QString own = RoomStoreFile::Locate(disk.path(), data);
    QCOMPARE(content(own), rooms);
    QCOMPARE(QDir(data).entryList(QDir::Files | QDir::Hidden), QStringList{FileName});

    // What the user has made of it since, even nothing at all, is not overwritten.
    write(own, QByteArray());
    QCOMPARE(RoomStoreFile::Locate(disk.path(), data), own);
    QCOMPARE(content(own), QByteArray());
}

void TestRoomStoreFile::takesNothingOverFromADirectory()
{
    TinyMount disk(path(QStringLiteral("program")), "size=64k");
    if (!disk.isMounted())
        QSKIP("no right to mount a disk");
    QVERIFY(QDir(disk.path()).mkdir(FileName));
    QVERIFY(disk.makeReadOnly());
    QVERIFY(!QFile::exists(RoomStoreFile::Locate(disk.path(), path(QStringLiteral("data")))));
}

void TestRoomStoreFile::aFailedTakeOverIsTriedAgain()
{
    TinyMount program(path(QStringLiteral("program")), "size=64k");
    TinyMount data(path(QStringLiteral("data")), "size=16k");
    if (!program.isMounted() || !data.isMounted())
        QSKIP("no right to mount a disk");
    write(program.path() + QLatin1Char('/') + FileName, "[Attic]\nNowPercent=62\n");
    QVERIFY(program.makeReadOnly());
    data.fill();
    const QString own = RoomStoreFile::Locate(program.path(), data.path());
    QVERIFY(!QFile::exists(own));
    data.empty();
    QCOMPARE(RoomStoreFile::Locate(program.path(), data.path()), own);
    QVERIFY(content(own).contains("[Attic]"));
}

void TestRoomStoreFile::anAbandonedLockIsRemoved()
{
    const QString lock = path(FileName) + QStringLiteral(".lock");
    write(lock, QByteArray());
    QElapsedTimer time;
    time.start();
    RoomStoreFile::DropAbandonedLock(path(FileName));
    QVERIFY(!QFile::exists(lock));
    QVERIFY2(time.elapsed() < 5000, qPrintable(QString::number(time.elapsed())));
}

void TestRoomStoreFile::aLockInUseStays()
{
    QLockFile lock(path(FileName) + QStringLiteral(".lock"));
    QVERIFY(lock.lock());
    RoomStoreFile::DropAbandonedLock(path(FileName));
    QVERIFY(QFile::exists(path(FileName) + QStringLiteral(".lock")));
    RoomStoreFile::DropAbandonedLock(path(QStringLiteral("no such file")));
}

void TestRoomStoreFile::syncingAFolderThatIsNotThereIsHarmless()
{
    RoomStoreFile::SyncFolder(path(QStringLiteral("no/such/file")));
    RoomStoreFile::SyncFolder(QString());
}

void TestRoomStoreFile::aFirstStartOnAFullDiskWorksInMemory()
{
    TinyMount disk(path(QStringLiteral("full")), "size=16k");
    if (!disk.isMounted())
        QSKIP("no right to mount a small disk");
    disk.fill();
    QString file = disk.path() + QLatin1Char('/') + FileName;
    MessageLog log;
    {
        IniFileOperate store(file);
        store.InitialHomeTestIni();
        Rooms &rooms = *QtCommonTools::GetHomeTestingIni();
        QCOMPARE(rooms.size(), 5);
        store.AddWifiHomeTestIni(rooms, Attic, Tested);
        QCOMPARE(rooms.value(Attic), Tested);
    }
    QVERIFY(!QFile::exists(file));
    QCOMPARE(log.criticals(), QStringList());
}

void TestRoomStoreFile::aFullDiskLeavesTheFileWhole()
{
    TinyMount disk(path(QStringLiteral("full")), "size=64k");
    if (!disk.isMounted())
        QSKIP("no right to mount a small disk");
    QString file = disk.path() + QLatin1Char('/') + FileName;
    IniFileOperate store(file);
    Rooms rooms;
    store.AddWifiHomeTestIni(rooms, Attic, Tested);
    const QByteArray before = content(file);
    disk.fill();
    store.AddWifiHomeTestIni(rooms, QString(5000, QLatin1Char('x')), Tested);
    store.UpdateHomeValueToINI(rooms, Attic, HomeTest_Value());
    store.DelHomeValueFromINI(rooms, Attic);
    QCOMPARE(content(file), before);
    QVERIFY(RoomHouse::isReadable(file));
    QCOMPARE(rooms.keys(), QStringList{QString(5000, QLatin1Char('x'))});
}

void TestRoomStoreFile::whatAFullDiskRefusedIsWrittenWithTheNextChange()
{
    TinyMount disk(path(QStringLiteral("full")), "size=64k");
    if (!disk.isMounted())
        QSKIP("no right to mount a small disk");
    QString file = disk.path() + QLatin1Char('/') + FileName;
    IniFileOperate store(file);
    Rooms rooms;
    disk.fill();
    store.AddWifiHomeTestIni(rooms, Attic, Tested);
    disk.empty();
    store.AddWifiHomeTestIni(rooms, QStringLiteral("Hall"), Tested);
    QCOMPARE(roomsIn(file), rooms);
    QCOMPARE(rooms.size(), 2);
}

void TestRoomStoreFile::aReadOnlyFolderIsReadAndLeftAlone()
{
    TinyMount disk(path(QStringLiteral("program")), "size=64k");
    if (!disk.isMounted())
        QSKIP("no right to mount a disk");
    QString file = disk.path() + QLatin1Char('/') + FileName;
    write(file, "[Attic]\nNowPercent=62\n");
    const QByteArray before = content(file);
    QVERIFY(disk.makeReadOnly());
    MessageLog log;
    IniFileOperate store(file);
    Rooms rooms;
    store.GetWifiHomeTestIni(rooms);
    QCOMPARE(rooms.value(Attic).nowPercent, 62);
    store.UpdateHomeValueToINI(rooms, Attic, Tested);
    store.AddWifiHomeTestIni(rooms, QStringLiteral("Hall"), Tested);
    QCOMPARE(rooms.value(Attic), Tested);
    QCOMPARE(content(file), before);
    QCOMPARE(log.criticals(), QStringList());
}

void TestRoomStoreFile::aFileReplacedByADirectoryIsAnEmptyList()
{
    QVERIFY(QDir(m_folder->path()).mkdir(FileName));
    QString file = path(FileName);
    MessageLog log;
    IniFileOperate store(file);
    Rooms rooms;
    store.GetWifiHomeTestIni(rooms);
    QVERIFY(rooms.isEmpty());
    store.AddWifiHomeTestIni(rooms, Attic, Tested);
    store.UpdateHomeNameToINI(rooms, Attic, QStringLiteral("Loft"));
    QCOMPARE(rooms, (Rooms{{QStringLiteral("Loft"), Tested}}));
    QVERIFY(QFileInfo(file).isDir());
    QVERIFY(QDir(file).isEmpty());
    QCOMPARE(log.criticals(), QStringList());
}

void TestRoomStoreFile::startsBesideTheProgramWithFiveRooms()
{
    RoomHouse::restartWithoutFile();
    QCOMPARE(QtCommonTools::GetHomeTestingIni()->size(), 5);
    QCOMPARE(roomsIn(RoomHouse::file()), *QtCommonTools::GetHomeTestingIni());
    QVERIFY(QtCommonTools::m_piniHomeTestInstance);
    QtCommonTools::Release();
    QVERIFY(!QtCommonTools::m_piniHomeTestInstance);
}

void TestRoomStoreFile::startsWithTheFileThatIsThere()
{
    write(RoomHouse::file(), "[Attic]\nNowPercent=abc\nNowSpeed=144\n");
    RoomHouse::restart();
    QCOMPARE(*QtCommonTools::GetHomeTestingIni(), (Rooms{{Attic, HomeTest_Value{0, 144, -1, -1}}}));
    QtCommonTools::Release();
}

void TestRoomStoreFile::anExistingEmptyFileStaysEmpty()
{
    write(RoomHouse::file(), QByteArray());
    RoomHouse::restart();
    QVERIFY(QtCommonTools::GetHomeTestingIni()->isEmpty());
    QtCommonTools::Release();
    QVERIFY(QFile::exists(RoomHouse::file()));
    QCOMPARE(content(RoomHouse::file()), QByteArray());
}

void TestRoomStoreFile::startsInTheDataFolderOfAnInstalledProgram()
{
    write(RoomHouse::file(), "[Attic]\nNowPercent=62\n");
    const QString data = QStandardPaths::writableLocation(QStandardPaths::AppDataLocation);
    QVERIFY(data.startsWith(QDir::homePath()));
    {
        TinyMount program(QCoreApplication::applicationDirPath(), TinyMount::ReadOnlyView);
        if (!program.isMounted())
            QSKIP("no right to mount a read-only view");
        RoomHouse::restart();
        QCOMPARE(QtCommonTools::GetHomeTestingIni()->keys(), QStringList{Attic});
        QtCommonTools::AddHomeTestToINI(QStringLiteral("Hall"), Tested);
        RoomHouse::restart();
        QCOMPARE(QtCommonTools::GetHomeTestingIni()->size(), 2);
        QtCommonTools::Release();
    }
    QCOMPARE(content(RoomHouse::file()), QByteArray("[Attic]\nNowPercent=62\n"));
    QCOMPARE(roomsIn(data + QLatin1Char('/') + FileName).size(), 2);
    QFile::remove(RoomHouse::file());
}

void TestRoomStoreFile::releaseIsHarmlessTwice()
{
    RoomHouse::restartWithoutFile();
    QtCommonTools::Release();
    QtCommonTools::Release();
    QVERIFY(!QtCommonTools::m_piniHomeTestInstance);
}

QTEST_GUILESS_MAIN(TestRoomStoreFile)
#include "tst_roomstorefile.moc"
