#include "linux/linkstate.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

using LinuxWifi::LinkState;
using LinuxWifi::readLinkState;

class TestLinkState : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void flagsTellWhetherItIsUp_data();
    void flagsTellWhetherItIsUp();
    void switchesTellWhetherItIsBlocked_data();
    void switchesTellWhetherItIsBlocked();
    void oneOfSeveralSwitchesIsEnough();
    void missingInterfaceIsNotUsable();
    void radioWithoutSwitchesIsNotBlocked();
    void unreadableFilesAreSurvived();
    void loopbackOfThisMachineIsUp();

private:
    void write(const QString &path, const QByteArray &text);
    LinkState read() const { return readLinkState(QStringLiteral("wlan0"), m_folder->path()); }

    std::unique_ptr<QTemporaryDir> m_folder;
};

void TestLinkState::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    QVERIFY(m_folder->isValid());
}

void TestLinkState::write(const QString &path, const QByteArray &text)
{
    const QString whole = m_folder->filePath(QStringLiteral("class/net/wlan0/") + path);
    QVERIFY(QDir().mkpath(QFileInfo(whole).path()));
    QFile file(whole);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(text);
}

void TestLinkState::flagsTellWhetherItIsUp_data()
{
    QTest::addColumn<QByteArray>("flags");
    QTest::addColumn<bool>("up");
    QTest::newRow("up") << QByteArray("0x1003\n") << true;
    QTest::newRow("down") << QByteArray("0x1002\n") << false;
    QTest::newRow("empty") << QByteArray() << false;
    QTest::newRow("nonsense") << QByteArray("up\n") << false;
}

void TestLinkState::flagsTellWhetherItIsUp()
{
    QFETCH(QByteArray, flags);
    QFETCH(bool, up);
    write(QStringLiteral("flags"), flags);
    QCOMPARE(read().up, up);
    QCOMPARE(read().usable(), up);
}

void TestLinkState::switchesTellWhetherItIsBlocked_data()
{
    QTest::addColumn<QByteArray>("soft");
    QTest::addColumn<QByteArray>("hard");
    QTest::newRow("free") << QByteArray("0\n") << QByteArray("0\n");
    QTest::newRow("soft") << QByteArray("1\n") << QByteArray("0\n");
    QTest::newRow("hard") << QByteArray("0\n") << QByteArray("1\n");
    QTest::newRow("both") << QByteArray("1\n") << QByteArray("1\n");
}

void TestLinkState::switchesTellWhetherItIsBlocked()
{
    QFETCH(QByteArray, soft);
    QFETCH(QByteArray, hard);
    write(QStringLiteral("flags"), "0x1003\n");
    write(QStringLiteral("phy80211/rfkill3/soft"), soft);
    write(QStringLiteral("phy80211/rfkill3/hard"), hard);
    QCOMPARE(read().softBlocked, soft == "1\n");
    QCOMPARE(read().hardBlocked, hard == "1\n");
    QCOMPARE(read().usable(), soft == "0\n" && hard == "0\n");
}

void TestLinkState::oneOfSeveralSwitchesIsEnough()
{
    write(QStringLiteral("flags"), "0x1003\n");
    write(QStringLiteral("phy80211/rfkill0/soft"), "1\n");
    write(QStringLiteral("phy80211/rfkill1/soft"), "0\n");
    QVERIFY(read().softBlocked);
}

void TestLinkState::missingInterfaceIsNotUsable()
{
    QVERIFY(!read().usable());
    QVERIFY(!readLinkState(QString(), m_folder->path()).usable());
}

void TestLinkState::radioWithoutSwitchesIsNotBlocked()
{
    write(QStringLiteral("flags"), "0x1003\n");
    write(QStringLiteral("phy80211/name"), "phy0\n");
    QVERIFY(read().usable());
}

void TestLinkState::unreadableFilesAreSurvived()
{
    write(QStringLiteral("flags/is a folder"), "");
    write(QStringLiteral("phy80211/rfkill0"), "a file, no folder");
    QVERIFY(!read().usable());
}

void TestLinkState::loopbackOfThisMachineIsUp()
{
    if (!QFile::exists(QStringLiteral("/sys/class/net/lo/flags")))
        QSKIP("no sysfs here");
    QVERIFY(readLinkState(QStringLiteral("lo")).up);
}

QTEST_GUILESS_MAIN(TestLinkState)
#include "tst_linkstate.moc"
