#ifndef AIRLUME_LINUX_HEARDTABLE_H
#define AIRLUME_LINUX_HEARDTABLE_H

#include "linux/scanevents.h"

#include <QHash>

namespace LinuxWifi
{

/// What one interface has heard, one record a BSSID. The kernel's list alone does not serve: it
/// forgets after one missed scan, shrinks between the bands of a scan that goes band by band, and
/// keeps an access point that moved to another channel twice. Pure; times are ms of the boot-time
/// clock, and never go back.
class HeardTable
{
public:
    /// No record stays longer without being heard.
    static constexpr qint64 KeptMs = 90000;
    /// But one that hides its name: it answers no probe, so that a scan which asks and goes on
    /// after 30 to 60 ms meets its beacon (each 102 ms) in every second try or seldomer.
    static constexpr qint64 NamelessKeptMs = 180000;
    /// So many scans in a row that should have heard it.
    static constexpr int MissedScans = 2;

    /// Takes the kernel's list as it was at `now`. The newest record of a BSSID counts, and one
    /// without a name takes none away.
    void heard(const QVector<AccessPoint> &list, qint64 now);

    /// The joined access point is heard with `signal` (dBm) now, which is fresher than its last
    /// scan.
    void measured(const QString &bssid, int signal);

    /// Judges the records by a scan that has finished, after heard() had the list that it left.
    void finished(const FinishedScan &scan);

    /// Whether a scan of these frequencies could hear whatever is known.
    bool coveredBy(const QVector<int> &frequencies) const;

    /// What is in the air, in no order, the joined ones as the last list said.
    QVector<AccessPoint> records(qint64 now) const;

private:
    struct Record {
        AccessPoint accessPoint;
        bool hides = false; ///< Its name was not in what was heard last, known or not.
        qint64 heardAt = 0;
        qint64 judgedAt = 0; ///< What heardAt was when a scan was last held against it.
        int missed = 0;      ///< Scans in a row that did not hear it.
        bool judged = false;

        bool expired(qint64 now) const;
        /// Left, as it was not heard any more. It stays for a while all the same, as the kernel
        /// goes on listing it.
        bool left(qint64 now) const;
    };
    void take(const AccessPoint &accessPoint, qint64 heardAt);

    QHash<QString, Record> m_records; ///< By BSSID.
};

} // namespace LinuxWifi

#endif
