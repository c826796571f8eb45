#ifndef AIRLUME_SCAN_SIGNALSCANTHREAD_H
#define AIRLUME_SCAN_SIGNALSCANTHREAD_H

#include "scan/wifiapiinterface.h"
#include "scan/wifiproperty.h"

#include <QHash>
#include <QMutex>
#include <QSet>
#include <QThread>

#include <atomic>

/// Turns the scan maps of the discovery thread into records and publishes them every 3 s. Never
/// calls the back end.
///
/// The object and its slots live in the GUI thread, run() on its own. The destructor ends the loop
/// and waits for it: up to 3 s.
class SignalScanThread : public QThread
{
    Q_OBJECT

public:
    explicit SignalScanThread(QObject *parent);
    ~SignalScanThread() override;

    /// From now on neither fresh records nor the joined network are published. Any thread.
    void setExit();
    /// Makes `nic` the interface in use. Only before the thread is started.
    void setNic(const QString &nic);

public slots:
    /// The interface now in use; empty when there is none.
    void onNicChanged(QString nic);
    /// The latest scan maps.
    void onVisiableMapListReturned(QList<QMap<QString, QString>> networks);

signals:
    /// Connected to the status line; nothing sends it yet.
    void statusChange(QString status);
    /// The records of one pass, fresh or repeated. SSIDs are unique within it.
    void dataReturned(QVector<WifiProperty> data);
    /// Name of the joined network as in the records; empty when there is no interface.
    void networkReturned(QString ssid);
    /// Signal of the joined network in dBm, -100 to 0; 0 when it lies outside or there is none.
    void signalReturned(int rssi);
    /// Link rate of the joined network in Mbps; 0 when unknown or there is none.
    void speedReturned(int mbps);
    /// The interface is there and no longer joined to any network. No empty networkReturned(): that
    /// one means no interface, and empties the list.
    void networkLeft();

protected:
    void run() override;

    /// One pass of the loop, without its sleep.
    void pass();

private:
    void scanNetwork();
    /// What has been found out about the names tried for one name from the air.
    struct TriedNames {
        QString reached;      ///< The longest one tried; those before it are all taken.
        QSet<QString> bssids; ///< Who took those before it.
    };
    bool makeUnique(QString &name, const QString &bssid, QHash<QString, TriedNames> &tried) const;

    QString m_nic;
    // What both threads touch without the lock.
    std::atomic<bool> m_hasNic{false}; ///< m_nic is not empty.
    std::atomic<bool> m_exit{false};
    QMutex m_mutex;
    QMap<QString, QString> m_ssidToBssid;
    QVector<WifiProperty> m_lastData;
    int m_repeatCount = 0;
    QList<ScanMap> m_mapList;
    bool m_wasJoined = false; ///< A network was, on the last fresh pass. run() alone.
};

#endif
