#include "fuzz/require.h"
#include "scan/signalscanthread.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>

namespace
{
const QString Keys[] = {ScanKey::Ssid, ScanKey::Bssid, ScanKey::Connected, ScanKey::Signal,
    ScanKey::Channel, ScanKey::Security, ScanKey::LinkRate};
const int KeyCount = 7;
// More are sound, but slow to check against the plain way of naming.
const int MapLimit = 60;

/// Maps out of octets: fields of a selector, a length and that many octets. The selector's lower
/// seven bits choose one of the seven keys, 7 closes a map, 8 repeats the last one `length` times
/// under new addresses, others stand for keys that nobody knows. With the highest bit the octets
/// are UTF-16 code units, lone surrogates and all; without it UTF-8, valid or not.
QList<ScanMap> mapsFrom(const std::uint8_t *data, std::size_t size)
{
    QList<ScanMap> maps;
    ScanMap map;
    while (size >= 2 && maps.size() < MapLimit) {
        const int selector = data[0] & 0x7f;
        const bool wide = (data[0] & 0x80) != 0;
        const int length = data[1];
        data += 2;
        size -= 2;
        if (selector == KeyCount) {
            maps.append(map);
            map.clear();
            continue;
        }
        if (selector == KeyCount + 1) {
            ScanMap copy = maps.isEmpty() ? map : maps.last();
            for (int i = 0; i < length && maps.size() < MapLimit; ++i) {
                copy[ScanKey::Bssid] = QString::number(i);
                maps.append(copy);
            }
            continue;
        }
        const int taken = static_cast<int>(std::min<std::size_t>(size, std::size_t(length)));
        QString value;
        if (wide) {
            value.resize(taken / 2);
            std::memcpy(value.data(), data, static_cast<std::size_t>(taken / 2) * 2);
        } else {
            value = QString::fromUtf8(reinterpret_cast<const char *>(data), taken);
        }
        map[selector < KeyCount ? Keys[selector] : QString::number(selector)] = value;
        data += taken;
        size -= static_cast<std::size_t>(taken);
    }
    if (!map.isEmpty())
        maps.append(map);
    return maps;
}

/// The names the plain way gives: a null text for a map that is left out.
QStringList plainNames(const QList<ScanMap> &maps)
{
    QStringList names;
    QMap<QString, QString> taken;
    for (const ScanMap &map : maps) {
        QString name = map.value(ScanKey::Ssid);
        const QString bssid = map.value(ScanKey::Bssid);
        while (taken.contains(name) && taken.value(name) != bssid)
            name.append(QLatin1Char(' '));
        if (taken.contains(name)) {
            names.append(QString());
            continue;
        }
        taken.insert(name, bssid);
        names.append(name.isNull() ? QLatin1String("") : name);
    }
    return names;
}

/// The scan thread, one pass at a time and without its sleeps, and what it last sent.
class SteppedThread : public SignalScanThread
{
public:
    SteppedThread()
        : SignalScanThread(nullptr)
    {
        connect(this, &SignalScanThread::networkReturned, this,
            [this](const QString &ssid) { joined.append(ssid); });
        connect(this, &SignalScanThread::signalReturned, this, [this](int rssi) {
            require(rssi >= -100 && rssi <= 0);
            signalsSent.append(rssi);
        });
        connect(this, &SignalScanThread::speedReturned, this, [this](int mbps) {
            require(mbps >= 0);
            ++speeds;
        });
        connect(this, &SignalScanThread::dataReturned, this,
            [this](const QVector<WifiProperty> &networks) {
                ++vectors;
                data = networks;
            });
        onNicChanged(QStringLiteral("wlan0"));
    }

    void step()
    {
        joined.clear();
        signalsSent.clear();
        speeds = 0;
        vectors = 0;
        data.clear();
        pass();
    }

    QStringList joined;
    QVector<int> signalsSent;
    int speeds = 0;
    int vectors = 0;
    QVector<WifiProperty> data;
};

void checkRecord(const WifiProperty &record, const ScanMap &map, const QString &name)
{
    require(record.ssid == name && record.bssid == map.value(ScanKey::Bssid));
    require(record.security == map.value(ScanKey::Security));
    require(record.connected == (map.value(ScanKey::Connected) == QLatin1String("1")));
    require(record.rssi == map.value(ScanKey::Signal).toInt());
    require(record.channel == map.value(ScanKey::Channel).toInt());
    require(record.spareA == 0 && record.spareB == -1);
}

void checkFreshPass(
    const SteppedThread &thread, const QList<ScanMap> &maps, const QStringList &names)
{
    QStringList joined;
    QVector<int> signalsSent;
    int next = 0;
    for (int i = 0; i < maps.size(); ++i) {
        if (names.at(i).isNull())
            continue;
        require(next < thread.data.size());
        const WifiProperty &record = thread.data.at(next++);
        checkRecord(record, maps.at(i), names.at(i));
        if (!record.connected)
            continue;
        joined.append(record.ssid);
        signalsSent.append(record.rssi >= -100 && record.rssi <= 0 ? record.rssi : 0);
    }
    require(next == thread.data.size());
    require(thread.vectors == (maps.isEmpty() ? 0 : 1));
    require(thread.joined == joined && thread.signalsSent == signalsSent);
    require(thread.speeds == joined.size());
}
} // namespace

/// Any maps as the answer of a back end, through one round of passes: a fresh one, the four that
/// send it again, and a fresh one.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const QList<ScanMap> maps = mapsFrom(data, size);
    const QStringList names = plainNames(maps);
    SteppedThread thread;
    thread.onVisiableMapListReturned(maps);
    thread.step();
    checkFreshPass(thread, maps, names);
    if (maps.isEmpty())
        return 0;
    const int records = thread.data.size();
    for (int repeat = 0; repeat < 4; ++repeat) {
        thread.step();
        require(thread.vectors == 1 && thread.data.size() == records && thread.joined.isEmpty());
    }
    thread.step();
    checkFreshPass(thread, maps, names);
    return 0;
}
