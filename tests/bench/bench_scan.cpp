// What one pass of the scan thread costs, beside reading the same maps into plain records, and how
// that grows with the number of networks.

#include "bench/sidebyside.h"
#include "scan/signalscanthread.h"
#include "support/testair.h"

#include <QCoreApplication>

#include <memory>
#include <vector>

namespace
{
/// The scan thread, one pass at a time, with one receiver that keeps the records.
class SteppedThread : public SignalScanThread
{
public:
    explicit SteppedThread(const QList<ScanMap> &maps)
        : SignalScanThread(nullptr)
    {
        connect(this, &SignalScanThread::dataReturned, this,
            [this](const QVector<WifiProperty> &networks) { m_records = networks; });
        onNicChanged(QStringLiteral("wlan0"));
        onVisiableMapListReturned(maps);
    }

    using SignalScanThread::pass;

private:
    QVector<WifiProperty> m_records;
};

QVector<WifiProperty> plainRecords(const QList<ScanMap> &maps)
{
    QVector<WifiProperty> records;
    for (const ScanMap &map : maps) {
        WifiProperty record;
        record.ssid = map.value(ScanKey::Ssid);
        record.bssid = map.value(ScanKey::Bssid);
        record.connected = map.value(ScanKey::Connected) == ScanJoined;
        record.security = map.value(ScanKey::Security);
        record.rssi = map.value(ScanKey::Signal).toInt();
        record.channel = map.value(ScanKey::Channel).toInt();
        records.append(record);
    }
    return records;
}

/// `names`: how many different names the maps have, in turns.
QList<ScanMap> scanMaps(int count, int names)
{
    QList<ScanMap> maps;
    for (int i = 0; i < count; ++i) {
        maps.append(TestAir::scanMap(QStringLiteral("Network %1").arg(i % names),
            QStringLiteral("06:00:00:00:%1").arg(i, 4, 16, QLatin1Char('0'))));
    }
    return maps;
}

void benchFreshPass(const char *what, const QList<ScanMap> &maps, std::size_t rounds)
{
    // Only the first pass of a thread is surely a fresh one, and one does not count.
    std::vector<std::unique_ptr<SteppedThread>> threads;
    for (std::size_t round = 0; round <= rounds; ++round)
        threads.push_back(std::make_unique<SteppedThread>(maps));
    auto next = threads.begin();
    SideBySide::report(what, maps.size(),
        SideBySide::compareProcessor(
            rounds, [&] { (*next++)->pass(); }, [&] { plainRecords(maps); }));
}
} // namespace

int main(int argc, char *argv[])
{
    const SideBySide::Extent extent(argc, argv);
    const QCoreApplication application(argc, argv);
    for (int count : extent.networks())
        benchFreshPass("scan pass", scanMaps(count, qMax(count, 1)), extent.rounds(41, count));
    for (int count : extent.networks())
        benchFreshPass("scan pass, one name for all", scanMaps(count, 1), extent.rounds(41, count));
    return 0;
}
