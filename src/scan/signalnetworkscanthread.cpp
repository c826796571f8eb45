#include "scan/signalnetworkscanthread.h"

#include "scan/wifiapi.h"

#include <QDebug>

namespace
{
const unsigned long PeriodSeconds = 4;
}

QString SignalNetworkScanThread::noRadioStatus()
{
    return QStringLiteral("Please make sure turn on the wireless radio.");
}

SignalNetworkScanThread::SignalNetworkScanThread(QObject *parent)
    : QThread(parent)
{
}

SignalNetworkScanThread::~SignalNetworkScanThread()
{
    requestInterruption();
    quit();
    wait();
}

void SignalNetworkScanThread::setNic(const QString &nic)
{
    m_nic = nic;
}

void SignalNetworkScanThread::run()
{
    QString nicArgument;
    QList<ScanMap> networks;
    while (!isInterruptionRequested()) {
        discover(nicArgument, networks);
        sleep(PeriodSeconds);
    }
}

void SignalNetworkScanThread::discover(QString &nicArgument, QList<ScanMap> &networks)
{
    const QString nic = getWiFiNicUsableInWiFi();
    if (m_nic.isEmpty()) {
        if (nic.isEmpty()) {
            reportNoRadio();
            emit nicReturned(QString());
            return;
        }
        emit statusChange(QStringLiteral("Scanning..."));
        m_nic = nic;
        qDebug() << "nic:" << m_nic;
        emit nicReturned(m_nic);
    } else if (nic.isEmpty()) {
        qDebug() << "nic emtpy";
        reportNoRadio();
        emit nicReturned(QString());
        // m_nic keeps its name on purpose: only a failed query starts the search anew.
        return;
    }
    query(nicArgument, networks);
}

void SignalNetworkScanThread::query(QString &nicArgument, QList<ScanMap> &networks)
{
    networks.clear();
    if (_wifiApi_inf && _wifiApi_inf->getVisiableNetworkMapList(nicArgument, networks)) {
        if (!networks.isEmpty())
            emit visiableNetworkMapListReturned(networks);
        return;
    }
    reportNoRadio();
    m_nic.clear();
    emit nicReturned(m_nic);
}

void SignalNetworkScanThread::reportNoRadio()
{
    emit statusChange(noRadioStatus());
}
