// The main window's connection table. Signals of the worker threads arrive queued.

#include "app/airlume.h"

#include "channels/channelinterfacewgt.h"
#include "common/QtCommonTools.h"
#include "graphs/signal2gplot.h"
#include "graphs/signal5gplot.h"
#include "graphs/signalstrengthdashboard.h"
#include "graphs/signaltimeplot.h"
#include "hometest/signalhometestingwgt.h"
#include "i18n/ipclocalsocket.h"
#include "netlist/signaltreeview.h"
#include "scan/signalnetworkscanthread.h"
#include "scan/signalscanthread.h"

#include <QPushButton>
#include <QTabWidget>

void Airlume::connectViews()
{
    connect(m_pMinimizeBtn, SIGNAL(clicked()), this, SLOT(onBtnMinimizeClicked()));
    connect(m_pRestoreBtn, SIGNAL(clicked()), this, SLOT(onBtnRestoreClicked()));
    connect(m_pMaximizeBtn, SIGNAL(clicked()), this, SLOT(onBtnRestoreClicked()));
    connect(m_pCloseBtn, SIGNAL(clicked()), this, SLOT(onBtnCloseClicked()));
    connect(m_pTabWidget, SIGNAL(currentChanged(int)), m_pHomeTesting, SLOT(ClickedTab()));

    // startScan() and stopScan() wait for a start and stop control that the window does not show.
    connect(this, SIGNAL(startScan()), m_pTreeView, SLOT(onStartScan()));
    // A signal to a signal on purpose: the list hands it on to its model.
    connect(this, SIGNAL(stopScan()), m_pTreeView, SIGNAL(stopScan()));
    connect(this, SIGNAL(startScan()), m_pTimePlot, SLOT(onStartScan()));
    connect(this, SIGNAL(stopScan()), m_pTimePlot, SLOT(onStopScan()));
    connect(m_pTreeView, SIGNAL(showCurve(int, QString, bool)), m_pTimePlot,
        SLOT(onShowCurve(int, QString, bool)));
    connect(m_pTreeView, SIGNAL(showCurve(int, QString, bool)), m_p2GPlot,
        SLOT(onShowCurve(int, QString, bool)));
    connect(this, SIGNAL(startScan()), m_p2GPlot, SLOT(onStartScan()));
    connect(this, SIGNAL(stopScan()), m_p2GPlot, SLOT(onStopScan()));
    connect(QtCommonTools::GetIpcUdpClient(), SIGNAL(ChangeLanguage()), this,
        SLOT(slotChangeLanguage()));
    connect(m_pTreeView, SIGNAL(showCurve(int, QString, bool)), m_p5GPlot,
        SLOT(onShowCurve(int, QString, bool)));
    connect(this, SIGNAL(startScan()), m_p5GPlot, SLOT(onStartScan()));
    connect(this, SIGNAL(stopScan()), m_p5GPlot, SLOT(onStopScan()));
    connect(this, SIGNAL(MaxWindow()), m_pHomeTesting, SLOT(ResMaxWindow()));
    connect(this, SIGNAL(RestoreWindow()), m_pHomeTesting, SLOT(ResRestoreWindow()));
    connect(
        this, SIGNAL(signalUpdateWindowSize()), m_pChannelInterface, SLOT(slotUpdateWindowSize()));
}

void Airlume::connectThreads()
{
    qRegisterMetaType<QList<QMap<QString, QString>>>("QList<QMap<QString,QString> >");
    connect(m_pNetworkScanThread, SIGNAL(nicReturned(QString)), m_pScanThread,
        SLOT(onNicChanged(QString)));
    connect(m_pNetworkScanThread,
        SIGNAL(visiableNetworkMapListReturned(QList<QMap<QString, QString>>)), m_pScanThread,
        SLOT(onVisiableMapListReturned(QList<QMap<QString, QString>>)));
    connect(
        m_pNetworkScanThread, SIGNAL(statusChange(QString)), this, SLOT(onStatusChange(QString)));
    connect(m_pScanThread, SIGNAL(statusChange(QString)), this, SLOT(onStatusChange(QString)));
    connect(
        m_pScanThread, SIGNAL(networkReturned(QString)), this, SLOT(onNetworkReturned(QString)));
    connect(m_pScanThread, SIGNAL(networkReturned(QString)), m_pDashboard,
        SLOT(onNetworkReturned(QString)));
    connect(m_pScanThread, SIGNAL(networkReturned(QString)), m_pChannelInterface,
        SLOT(onNetworkReturned(QString)));
    connect(m_pScanThread, SIGNAL(networkReturned(QString)), m_pHomeTesting,
        SLOT(onNetworkReturned(QString)));
    connect(m_pScanThread, SIGNAL(networkReturned(QString)), m_pTreeView,
        SLOT(onNetworkReturned(QString)));

    qRegisterMetaType<QVector<WifiProperty>>("QVector<WifiProperty>");
    connect(m_pScanThread, SIGNAL(dataReturned(QVector<WifiProperty>)), m_pTreeView,
        SLOT(onDataReturned(QVector<WifiProperty>)));
    connect(m_pScanThread, SIGNAL(dataReturned(QVector<WifiProperty>)), m_pChannelInterface,
        SLOT(slotDataReturned(QVector<WifiProperty>)));
    connect(m_pScanThread, SIGNAL(signalReturned(int)), m_pDashboard, SLOT(SetSignalValue(int)));
    connect(m_pScanThread, SIGNAL(signalReturned(int)), m_pHomeTesting, SLOT(SetSignalValue(int)));
    connect(m_pScanThread, SIGNAL(dataReturned(QVector<WifiProperty>)), m_pTimePlot,
        SLOT(onDataReturned(QVector<WifiProperty>)));
    connect(m_pScanThread, SIGNAL(dataReturned(QVector<WifiProperty>)), m_p2GPlot,
        SLOT(onDataReturned(QVector<WifiProperty>)));
    connect(m_pScanThread, SIGNAL(dataReturned(QVector<WifiProperty>)), m_p5GPlot,
        SLOT(onDataReturned(QVector<WifiProperty>)));
    connect(m_pTreeView, SIGNAL(signalEmpty()), this, SLOT(slotEmpty()));

    connect(
        m_pScanThread, SIGNAL(speedReturned(int)), m_pHomeTesting, SLOT(SetSignalSpeedValue(int)));
    connect(m_pScanThread, SIGNAL(networkLeft()), this, SLOT(onNetworkLeft()));
}
