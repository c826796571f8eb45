#ifndef AIRLUME_SCAN_SIGNALNETWORKSCANTHREAD_H
#define AIRLUME_SCAN_SIGNALNETWORKSCANTHREAD_H

#include "scan/wifiapiinterface.h"

#include <QMutex>
#include <QThread>

/// Asks the back end every 4 s for the interface to use and the networks it hears. The only thread
/// that talks to the back end.
///
/// The object lives in the GUI thread, run() on its own. The destructor ends the loop and waits for
/// it: up to 4 s, or for as long as a call of the back end takes.
class SignalNetworkScanThread : public QThread
{
    Q_OBJECT

public:
    /// The status text while no interface can scan.
    static QString noRadioStatus();

    explicit SignalNetworkScanThread(QObject *parent);
    ~SignalNetworkScanThread() override;

    /// Makes `nic` the interface in use. Only before the thread is started.
    void setNic(const QString &nic);

signals:
    /// A text for the status line.
    void statusChange(QString status);
    /// What the interface hears; never empty.
    void visiableNetworkMapListReturned(QList<QMap<QString, QString>> networks);
    /// The interface now in use; empty when there is none.
    void nicReturned(QString nic);

protected:
    void run() override;

    /// One pass of the loop, without its sleep. `nicArgument` and `networks` are handed to the back
    /// end and kept from pass to pass.
    void discover(QString &nicArgument, QList<ScanMap> &networks);

private:
    void query(QString &nicArgument, QList<ScanMap> &networks);
    void reportNoRadio();

    QString m_nic;
    QMutex m_mutex; ///< For what other threads may share one day: m_nic belongs to run() alone.
};

#endif
