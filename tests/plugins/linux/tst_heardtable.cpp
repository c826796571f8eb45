#include "linux/heardtable.h"

#include <QTest>

using namespace LinuxWifi;

namespace
{
const int Low = 2412; // MHz
const int High = 5180;

/// The air of one interface, in which time goes on.
struct Table {
    HeardTable table;
    qint64 now = 1000000;

    AccessPoint accessPoint(const char *bssid, int frequency = Low, const char *ssid = "Home") const
    {
        AccessPoint result;
        result.bssid = QString::fromLatin1(bssid);
        result.ssid = QString::fromUtf8(ssid);
        result.frequency = frequency;
        result.channel = frequency == Low ? 1 : 36;
        result.signal = -50;
        result.heardAt = now;
        return result;
    }

    /// A scan of these frequencies ends, and the kernel's list is then `list`.
    void scan(
        const QVector<int> &frequencies, const QVector<AccessPoint> &list = {}, bool probing = true)
    {
        FinishedScan scan;
        scan.frequencies = frequencies;
        scan.probing = probing;
        table.heard(list, now);
        table.finished(scan);
        now += 12000;
    }

    QStringList names() const
    {
        QStringList names;
        const QVector<AccessPoint> records = table.records(now);
        for (const AccessPoint &record : records)
            names.append(record.bssid);
        names.sort();
        return names;
    }
};

const QStringList Both{QStringLiteral("a"), QStringLiteral("b")};
const QStringList OnlyA{QStringLiteral("a")};
const QStringList OnlyB{QStringLiteral("b")};
} // namespace

class TestHeardTable : public QObject
{
    Q_OBJECT

private slots:
    void everyAccessPointIsThereOnce();
    void listThatShrinksTakesNothingAway();
    void bandsAddUp();
    void newestRecordCounts_data();
    void newestRecordCounts();
    void namelessRecordTakesNoNameAway_data();
    void namelessRecordTakesNoNameAway();
    void oneMissedScanIsForgiven();
    void twoMissedScansAreTheEnd();
    void scanThatDidNotCoverTheFrequencySaysNothing();
    void oldEntryOfTheKernelBringsNobodyBack();
    void heardAnewItIsBack();
    void withoutScansTheTimeLimitHolds();
    void probesDoNotFindWhoHides();
    void passiveScanJudgesWhoHidesToo();
    void hidingNetworkWhoseNameIsKnownStillHides();
    void joinedNeverLeaves();
    void joinedIsWhatTheLastListSays();
    void joinedThatWasLeftAgesFromThen();
    void ageServesWhereThereIsNoTime();
    void withoutAnyTimeTheListCounts();
};

void TestHeardTable::everyAccessPointIsThereOnce()
{
    Table t;
    t.table.heard({t.accessPoint("a"), t.accessPoint("b"), t.accessPoint("a")}, t.now);
    QCOMPARE(t.names(), Both);
}

void TestHeardTable::listThatShrinksTakesNothingAway()
{
    Table t;
    t.table.heard({t.accessPoint("a"), t.accessPoint("b")}, t.now);
    t.now += 30000;
    t.table.heard({}, t.now);
    QCOMPARE(t.names(), Both);
}

void TestHeardTable::bandsAddUp()
{
    Table t;
    for (int i = 0; i < 10; ++i) {
        t.scan({Low}, {t.accessPoint("a", Low)});
        t.scan({High}, {t.accessPoint("b", High)});
        QCOMPARE(t.names(), Both);
    }
}

void TestHeardTable::newestRecordCounts_data()
{
    QTest::addColumn<bool>("newestFirst");
    QTest::newRow("newest first") << true;
    QTest::newRow("newest last") << false;
}

void TestHeardTable::newestRecordCounts()
{
    // An access point that has moved to another channel, and has another name and security.
    QFETCH(bool, newestFirst);
    Table t;
    const AccessPoint before = t.accessPoint("a", Low, "Before");
    t.now += 5000;
    AccessPoint after = t.accessPoint("a", High, "After");
    after.security = QStringLiteral("WPA3-SAE");
    after.signal = -40;
    t.table.heard({newestFirst ? after : before, newestFirst ? before : after}, t.now);
    const QVector<AccessPoint> records = t.table.records(t.now);
    QCOMPARE(records.size(), 1);
    QCOMPARE(records.first().channel, 36);
    QCOMPARE(records.first().ssid, QStringLiteral("After"));
    QCOMPARE(records.first().security, QStringLiteral("WPA3-SAE"));
    QCOMPARE(records.first().signal.value_or(0), -40);
}

void TestHeardTable::namelessRecordTakesNoNameAway_data()
{
    QTest::addColumn<bool>("namelessFirst");
    QTest::addColumn<bool>("namelessNewer");
    for (int bits = 0; bits < 4; ++bits)
        QTest::addRow("%d", bits) << ((bits & 1) != 0) << ((bits & 2) != 0);
}

void TestHeardTable::namelessRecordTakesNoNameAway()
{
    QFETCH(bool, namelessFirst);
    QFETCH(bool, namelessNewer);
    Table t;
    AccessPoint named = t.accessPoint("a");
    AccessPoint nameless = t.accessPoint("a", Low, "");
    *(namelessNewer ? named : nameless).heardAt -= 5000;
    for (int i = 0; i < 3; ++i) {
        t.table.heard({namelessFirst ? nameless : named, namelessFirst ? named : nameless}, t.now);
        const QVector<AccessPoint> records = t.table.records(t.now);
        QCOMPARE(records.size(), 1);
        QCOMPARE(records.first().ssid, QStringLiteral("Home"));
    }
}

void TestHeardTable::oneMissedScanIsForgiven()
{
    Table t;
    t.scan({Low}, {t.accessPoint("a")});
    for (int i = 0; i < 10; ++i) {
        t.scan({Low});
        QCOMPARE(t.names(), OnlyA);
        t.scan({Low}, {t.accessPoint("a")});
        QCOMPARE(t.names(), OnlyA);
    }
}

void TestHeardTable::twoMissedScansAreTheEnd()
{
    Table t;
    t.scan({Low}, {t.accessPoint("a"), t.accessPoint("b")});
    t.scan({Low}, {t.accessPoint("b")});
    QCOMPARE(t.names(), Both);
    t.scan({Low}, {t.accessPoint("b")});
    QCOMPARE(t.names(), OnlyB);
}

void TestHeardTable::scanThatDidNotCoverTheFrequencySaysNothing()
{
    Table t;
    t.scan({Low, High}, {t.accessPoint("a")});
    for (int i = 0; i < 5; ++i)
        t.scan({High});
    t.scan({}); // events were lost
    QCOMPARE(t.names(), OnlyA);
}

void TestHeardTable::oldEntryOfTheKernelBringsNobodyBack()
{
    Table t;
    const AccessPoint old = t.accessPoint("a");
    t.scan({Low}, {old});
    t.scan({Low}, {old});
    t.scan({Low}, {old});
    QCOMPARE(t.names(), QStringList());
    t.table.heard({old}, t.now);
    QCOMPARE(t.names(), QStringList());
}

void TestHeardTable::heardAnewItIsBack()
{
    Table t;
    t.scan({Low}, {t.accessPoint("a")});
    t.scan({Low});
    t.scan({Low});
    QCOMPARE(t.names(), QStringList());
    t.table.heard({t.accessPoint("a")}, t.now);
    QCOMPARE(t.names(), OnlyA);
    t.scan({Low});
    QCOMPARE(t.names(), OnlyA);
}

void TestHeardTable::withoutScansTheTimeLimitHolds()
{
    Table t;
    t.table.heard({t.accessPoint("a")}, t.now);
    t.now += HeardTable::KeptMs - 1;
    QCOMPARE(t.names(), OnlyA);
    t.now += 1;
    QCOMPARE(t.names(), QStringList());
    // Nor does an entry that old come in.
    AccessPoint old = t.accessPoint("b");
    *old.heardAt -= HeardTable::KeptMs;
    t.table.heard({old}, t.now);
    QCOMPARE(t.names(), QStringList());
}

void TestHeardTable::probesDoNotFindWhoHides()
{
    Table t;
    t.scan({Low}, {t.accessPoint("a", Low, "")});
    const qint64 heardAt = t.now - 12000;
    while (t.now + 12000 < heardAt + HeardTable::NamelessKeptMs) {
        t.scan({Low});
        QCOMPARE(t.names(), OnlyA);
    }
    t.now = heardAt + HeardTable::NamelessKeptMs;
    QCOMPARE(t.names(), QStringList());
}

void TestHeardTable::passiveScanJudgesWhoHidesToo()
{
    Table t;
    t.scan({Low}, {t.accessPoint("a", Low, "")}, false);
    t.scan({Low}, {}, false);
    QCOMPARE(t.names(), OnlyA);
    t.scan({Low}, {}, false);
    QCOMPARE(t.names(), QStringList());
}

void TestHeardTable::hidingNetworkWhoseNameIsKnownStillHides()
{
    // It was joined once, which told its name.
    Table t;
    t.scan({Low}, {t.accessPoint("a", Low, "Secret")});
    t.scan({Low}, {t.accessPoint("a", Low, "")});
    for (int i = 0; i < 6; ++i)
        t.scan({Low});
    QCOMPARE(t.names(), OnlyA);
    QCOMPARE(t.table.records(t.now).first().ssid, QStringLiteral("Secret"));
}

void TestHeardTable::joinedNeverLeaves()
{
    Table t;
    AccessPoint joined = t.accessPoint("a");
    joined.joined = true;
    for (int i = 0; i < 20; ++i) {
        t.scan({Low}, {joined});
        QCOMPARE(t.names(), OnlyA);
    }
}

void TestHeardTable::joinedIsWhatTheLastListSays()
{
    Table t;
    AccessPoint joined = t.accessPoint("a");
    joined.joined = true;
    t.table.heard({joined}, t.now);
    QVERIFY(t.table.records(t.now).first().joined);
    t.table.heard({}, t.now);
    QVERIFY(!t.table.records(t.now).first().joined);
    t.table.heard({joined}, t.now);
    t.table.heard({t.accessPoint("a")}, t.now);
    QVERIFY(!t.table.records(t.now).first().joined);
    // Both entries of one access point are there.
    t.table.heard({joined, t.accessPoint("a", Low, "")}, t.now);
    QVERIFY(t.table.records(t.now).first().joined);
    t.table.heard({t.accessPoint("a", Low, ""), joined}, t.now);
    QVERIFY(t.table.records(t.now).first().joined);
    AccessPoint younger = t.accessPoint("a", Low, "");
    *younger.heardAt += 20;
    t.table.heard({joined, younger}, t.now);
    QVERIFY(t.table.records(t.now).first().joined);
}

void TestHeardTable::joinedThatWasLeftAgesFromThen()
{
    Table t;
    AccessPoint joined = t.accessPoint("a");
    joined.joined = true;
    t.now += 200000;
    t.table.heard({joined}, t.now);
    t.now += 4000;
    joined.joined = false;
    t.table.heard({joined}, t.now);
    QCOMPARE(t.names(), OnlyA);
    t.now += HeardTable::KeptMs;
    t.table.heard({joined}, t.now);
    QCOMPARE(t.names(), QStringList());
}

void TestHeardTable::ageServesWhereThereIsNoTime()
{
    Table t;
    const qint64 heardAt = t.now;
    AccessPoint entry = t.accessPoint("a");
    entry.heardAt.reset();
    const auto entryNow = [&](int jitter) {
        entry.age = t.now - heardAt + jitter;
        return entry;
    };
    t.scan({Low}, {entryNow(0)});
    t.scan({Low}, {entryNow(-7)});
    QCOMPARE(t.names(), OnlyA);
    t.scan({Low}, {entryNow(-20)});
    QCOMPARE(t.names(), QStringList());
}

void TestHeardTable::withoutAnyTimeTheListCounts()
{
    Table t;
    AccessPoint entry = t.accessPoint("a");
    entry.heardAt.reset();
    for (int i = 0; i < 20; ++i)
        t.scan({Low}, {entry});
    QCOMPARE(t.names(), OnlyA);
    t.scan({Low});
    t.scan({Low});
    QCOMPARE(t.names(), QStringList());
}

QTEST_GUILESS_MAIN(TestHeardTable)
#include "tst_heardtable.moc"
