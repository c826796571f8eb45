#include "linux/heardtable.h"

#include <algorithm>

namespace LinuxWifi
{

namespace
{
// An age is counted in jiffies and told a moment before it is read: it makes a time that jitters.
const qint64 JitterMs = 500;

qint64 heardAtOf(const AccessPoint &accessPoint, qint64 now)
{
    // The link lives, whatever scans heard.
    if (accessPoint.joined)
        return now;
    // An entry may be younger than the look at the clock; it is not newer than a link that lives.
    if (accessPoint.heardAt)
        return std::min(*accessPoint.heardAt, now);
    return now - accessPoint.age.value_or(0);
}
} // namespace

bool HeardTable::Record::expired(qint64 now) const
{
    return !accessPoint.joined && now - heardAt >= (hides ? NamelessKeptMs : KeptMs);
}

bool HeardTable::Record::left(qint64 now) const
{
    return expired(now) || (!accessPoint.joined && missed >= MissedScans);
}

void HeardTable::heard(const QVector<AccessPoint> &list, qint64 now)
{
    for (Record &record : m_records)
        record.accessPoint.joined = false;
    for (const AccessPoint &accessPoint : list)
        take(accessPoint, heardAtOf(accessPoint, now));
    for (auto record = m_records.begin(); record != m_records.end();) {
        if (record->expired(now))
            record = m_records.erase(record);
        else
            ++record;
    }
}

void HeardTable::take(const AccessPoint &accessPoint, qint64 heardAt)
{
    Record &record = m_records[accessPoint.bssid];
    const bool known = !record.accessPoint.bssid.isEmpty();
    const bool newer = heardAt > record.heardAt;
    const QString name = record.accessPoint.ssid;
    if (!known || newer || (accessPoint.joined && !record.accessPoint.joined)) {
        if (known && heardAt > record.heardAt + JitterMs)
            record.missed = 0;
        record.accessPoint = accessPoint;
        record.hides = accessPoint.ssid.isEmpty();
        record.heardAt = std::max(record.heardAt, heardAt);
        if (accessPoint.ssid.isEmpty())
            record.accessPoint.ssid = name;
    } else if (name.isEmpty()) {
        record.accessPoint.ssid = accessPoint.ssid;
    }
}

void HeardTable::measured(const QString &bssid, int signal)
{
    const auto record = m_records.find(bssid);
    if (record != m_records.end())
        record->accessPoint.signal = signal;
}

void HeardTable::finished(const FinishedScan &scan)
{
    for (Record &record : m_records) {
        if (!scan.frequencies.contains(record.accessPoint.frequency))
            continue;
        const bool heard = !record.judged || record.heardAt > record.judgedAt + JitterMs;
        const bool fair = !scan.probing || !record.hides;
        if (heard)
            record.missed = 0;
        else if (fair)
            ++record.missed;
        record.judged = true;
        record.judgedAt = record.heardAt;
    }
}

bool HeardTable::coveredBy(const QVector<int> &frequencies) const
{
    return std::all_of(m_records.cbegin(), m_records.cend(),
        [&](const Record &record) { return frequencies.contains(record.accessPoint.frequency); });
}

QVector<AccessPoint> HeardTable::records(qint64 now) const
{
    QVector<AccessPoint> records;
    for (const Record &record : m_records) {
        if (!record.left(now))
            records.append(record.accessPoint);
    }
    return records;
}

} // namespace LinuxWifi
