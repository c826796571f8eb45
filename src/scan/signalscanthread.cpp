#include "scan/signalscanthread.h"

namespace
{
const unsigned long FirstSleepSeconds = 1;
const unsigned long PeriodSeconds = 3;
/// Passes that send the last records again before fresh ones are built.
const int RepeatLimit = 4;

/// Signals outside the range of a real radio count as none.
int limitedSignal(int rssi)
{
    return rssi < -100 || rssi > 0 ? 0 : rssi;
}
} // namespace

SignalScanThread::SignalScanThread(QObject *parent)
    : QThread(parent)
{
}

SignalScanThread::~SignalScanThread()
{
    requestInterruption();
    quit();
    wait();
}

void SignalScanThread::setExit()
{
    m_exit = true;
}

void SignalScanThread::setNic(const QString &nic)
{
    m_nic = nic;
    m_hasNic = !nic.isEmpty();
}

void SignalScanThread::onNicChanged(QString nic)
{
    QMutexLocker lock(&m_mutex);
    setNic(nic);
}

void SignalScanThread::onVisiableMapListReturned(QList<QMap<QString, QString>> networks)
{
    QMutexLocker lock(&m_mutex);
    m_mapList.clear();
    m_mapList = networks;
}

void SignalScanThread::run()
{
    // Shared by all instances: only the first sleep of the process is the short one.
    static bool bIsFirst = false;

    if (isInterruptionRequested())
        return;
    do {
        pass();
        if (!bIsFirst) {
            bIsFirst = true;
            sleep(FirstSleepSeconds);
        } else {
            sleep(PeriodSeconds);
        }
    } while (!isInterruptionRequested());
}

void SignalScanThread::pass()
{
    // Whether there is an interface is asked without the lock; scanNetwork() takes it.
    if (m_hasNic) {
        m_ssidToBssid.clear();
        scanNetwork();
        return;
    }
    emit signalReturned(0);
    emit speedReturned(0);
    emit networkReturned(QString());
    // Who hears that has heard that the network is left.
    m_wasJoined = false;
}

void SignalScanThread::scanNetwork()
{
    // Held while emitting too: every receiver is connected queued and runs later.
    QMutexLocker lock(&m_mutex);

    // On purpose only every fifth pass is built from the latest maps; the four between send the
    // previous records again.
    if (m_repeatCount != RepeatLimit && !m_lastData.isEmpty()) {
        emit dataReturned(m_lastData);
        ++m_repeatCount;
        return;
    }

    QVector<WifiProperty> result;
    bool isJoined = false;
    QHash<QString, TriedNames> tried;
    for (const ScanMap &map : qAsConst(m_mapList)) {
        const QString bssid = map.value(ScanKey::Bssid);
        QString name = map.value(ScanKey::Ssid);
        if (!makeUnique(name, bssid, tried))
            continue;

        WifiProperty property;
        property.ssid = name;
        property.bssid = bssid;
        property.connected = map.value(ScanKey::Connected) == ScanJoined;
        property.security = map.value(ScanKey::Security);
        property.rssi = map.value(ScanKey::Signal).toInt();
        property.channel = map.value(ScanKey::Channel).toInt();
        property.spareB = -1;
        isJoined = isJoined || property.connected;
        if (property.connected && !m_exit) {
            emit networkReturned(property.ssid);
            emit signalReturned(limitedSignal(property.rssi));
            emit speedReturned(qMax(0, map.value(ScanKey::LinkRate).toInt()));
        }
        result.append(property);
        m_ssidToBssid.insert(name, bssid);
    }
    if (!result.isEmpty() && !m_exit) {
        if (m_wasJoined && !isJoined)
            emit networkLeft();
        m_wasJoined = isJoined;
        m_lastData = result;
        emit dataReturned(result);
        m_repeatCount = 0;
    }
}

/// Appends blanks to `name` until this pass has not used it. False when the access point was taken
/// already under one of the names tried.
///
/// A name once taken stays taken for the pass. So the next access point of the same name goes on
/// where the last one stopped: a crowd of hidden networks would take minutes otherwise.
bool SignalScanThread::makeUnique(
    QString &name, const QString &bssid, QHash<QString, TriedNames> &tried) const
{
    auto used = m_ssidToBssid.constFind(name);
    if (used == m_ssidToBssid.constEnd())
        return true;

    TriedNames &names = tried[name];
    if (names.bssids.contains(bssid))
        return false;
    if (!names.reached.isEmpty()) {
        name = names.reached;
        used = m_ssidToBssid.constFind(name);
    }
    while (used != m_ssidToBssid.constEnd() && used.value() != bssid) {
        names.bssids.insert(used.value());
        name.append(QLatin1Char(' '));
        used = m_ssidToBssid.constFind(name);
    }
    names.reached = name;
    return used == m_ssidToBssid.constEnd();
}
