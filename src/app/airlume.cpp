#include "app/airlume.h"

#include "app/placement.h"
#include "app/windowaccessible.h"
#include "channels/channelinterfacewgt.h"
#include "common/QtCommonTools.h"
#include "common/diagnostics.h"
#include "graphs/signal2gplot.h"
#include "graphs/signal5gplot.h"
#include "graphs/signalstrengthdashboard.h"
#include "graphs/signaltimeplot.h"
#include "hometest/signalhometestingwgt.h"
#include "i18n/ipclocalsocket.h"
#include "i18n/languagelabels.h"
#include "netlist/signaltreeview.h"
#include "scan/signalnetworkscanthread.h"
#include "scan/signalscanthread.h"
#include "scan/wifiapi.h"

#include <QApplication>
#include <QDebug>
#include <QDesktopWidget>
#include <QFile>
#include <QLabel>
#include <QMouseEvent>
#include <QPluginLoader>
#include <QPushButton>
#include <QScreen>
#include <QStackedLayout>
#include <QTabWidget>
#include <QWindow>

#include <unistd.h>

namespace
{
const QSize NormalMaximumSize(800, 700);
/// Height of the band at the top in which a double click toggles the size.
const int TitleBandHeight = 50;

bool systemPlacesWindows()
{
    return SystemPlacesWindows(QGuiApplication::platformName());
}
} // namespace

Airlume::Airlume(QWidget *parent)
    : QWidget(parent)
{
    installWindowAccessible();
    installEventFilter(this);
    setMinimumWidth(SmallestWindow.width());
    setObjectName(QStringLiteral("Airlume"));
    setWindowTitle(QStringLiteral("Airlume"));
    setWindowFlags(Qt::FramelessWindowHint);

    loadBackEnd();
    QtCommonTools::Init();
    if (!buildLayout())
        return;
    connectViews();
    fitFonts();

    m_pTabWidget->setCurrentIndex(0);
    createThreads();
    applyStyleSheet();
    setSizePolicy(QSizePolicy::Minimum, QSizePolicy::Minimum);
    // Narrower than the minimum width, which wins.
    limitSize(NormalMaximumSize);
    const int available = QGuiApplication::primaryScreen()->availableGeometry().height();
    resize(SmallestWindow.width(), qMin(NormalMaximumSize.height(), available));
    m_pTreeView->setFocus();
    m_pScanThread->start();
    m_pNetworkScanThread->start();
}

Airlume::~Airlume()
{
    if (m_pNetworkScanThread) {
        m_pNetworkScanThread->disconnect();
        delete m_pNetworkScanThread;
    }
    if (m_pScanThread) {
        m_pScanThread->setExit();
        m_pScanThread->disconnect();
        delete m_pScanThread;
    }
    delete m_pHomeTesting;
    delete m_pDashboard;
    QtCommonTools::Release();
}

/// Looks for the back end on Qt's library paths. Without one the program runs and hears nothing.
void Airlume::loadBackEnd()
{
    QPluginLoader loader(WiFiApiLibrary);
    _wifiApi_inf = qobject_cast<WiFiApiInterface *>(loader.instance());
}

void Airlume::createThreads()
{
    m_pScanThread = new SignalScanThread(this);
    m_pNetworkScanThread = new SignalNetworkScanThread(this);
    connectThreads();
}

void Airlume::applyStyleSheet()
{
    QFile file(QStringLiteral(":/qss/Airlume.qss"));
    if (!file.open(QIODevice::ReadOnly))
        return;
    qDebug() << "open qss success";
    setStyleSheet(QString::fromUtf8(file.readAll()));
}

bool Airlume::eventFilter(QObject *watched, QEvent *event)
{
    if (!watched->isWidgetType())
        return false;

    switch (event->type()) {
    case QEvent::MouseButtonPress: {
        const QMouseEvent *mouse = static_cast<QMouseEvent *>(event);
        if (mouse->button() == Qt::LeftButton) {
            m_bDragging = true;
            m_dragOffset = mouse->screenPos().toPoint() - frameGeometry().topLeft();
        }
        break;
    }
    case QEvent::MouseButtonRelease:
        if (static_cast<QMouseEvent *>(event)->button() == Qt::LeftButton)
            m_bDragging = false;
        break;
    case QEvent::MouseButtonDblClick:
        if (static_cast<QMouseEvent *>(event)->localPos().toPoint().y() < TitleBandHeight)
            onBtnRestoreClicked();
        break;
    case QEvent::MouseMove: {
        const QMouseEvent *mouse = static_cast<QMouseEvent *>(event);
        if ((mouse->buttons() & Qt::LeftButton) && m_bDragging && !isFullScreen())
            dragTo(mouse->screenPos().toPoint());
        break;
    }
    default:
        break;
    }
    return false;
}

void Airlume::dragTo(const QPoint &cursor)
{
    if (!systemPlacesWindows()) {
        move(cursor - m_dragOffset);
        return;
    }
    // The system moves the window until the button is let go, which it may keep to itself.
    m_bDragging = false;
    windowHandle()->startSystemMove();
}

void Airlume::onStatusChange(QString status)
{
    m_pStatusLabel->setText(status);
    m_pStatusLabel->setToolTip(
        status == SignalNetworkScanThread::noRadioStatus()
            ? QStringLiteral("The command airlume-plugincheck tells what is wrong and what to do.")
            : QString());
}

void Airlume::onNetworkReturned(QString ssid)
{
    if (ssid == LanguageLabels::m_strEmpty) {
        m_strConnected = QtCommonTools::tr(LanguageLabels::m_strLangBoardNoNetworkConn);
    } else {
        m_strConnected = QtCommonTools::tr(LanguageLabels::m_strLangBoardConnectedNetwork) +
                         QLatin1Char(' ') + ssid;
    }
    m_pConnectedLabel->setText(m_strConnected);
}

void Airlume::onNetworkLeft()
{
    const QString none;
    onNetworkReturned(none);
    m_pDashboard->onNetworkReturned(none);
    m_pChannelInterface->NetworkLeft();
    m_pHomeTesting->onNetworkReturned(none);
    m_pHomeTesting->SetSignalValue(0);
    m_pHomeTesting->SetSignalSpeedValue(0);
    // An empty name would empty it.
    m_pTreeView->NetworkLeft();
}

void Airlume::slotNewProcess() {}

void Airlume::onStartBtnClicked() {}

void Airlume::onBtnCloseClicked()
{
    // On purpose: closing never waits for a thread or a back end.
    _exit(0);
}

void Airlume::onBtnMinimizeClicked()
{
    showMinimized();
}

void Airlume::onBtnRestoreClicked()
{
    const bool bySystem = isMaximisedBySystem();
    // First, since a change of the window's state comes back through changeEvent().
    m_bMaximized = !m_bMaximized;
    if (!m_bMaximized) {
        limitSize(NormalMaximumSize);
        qDebug() << "restore window";
        if (bySystem)
            setWindowState(windowState() & ~Qt::WindowMaximized);
        else
            setGeometry(m_normalGeometry);
        m_pSizeButtons->setCurrentWidget(m_pMaximizeBtn);
    } else {
        qDebug() << "show max window";
        m_normalGeometry = geometry();
        limitSize(QApplication::desktop()->size());
        // Of the right size but where it is now, the window would hang out of the screen.
        if (bySystem)
            setWindowState(windowState() | Qt::WindowMaximized);
        else
            setGeometry(QGuiApplication::primaryScreen()->availableGeometry());
        m_pSizeButtons->setCurrentWidget(m_pRestoreBtn);
    }
    tellSize();
}

/// Where the system sizes windows Qt would hold its sizes within the limit, and the system ends a
/// program whose maximised window has another size: there resizeEvent() sees to the limit.
void Airlume::limitSize(const QSize &largest)
{
    if (!systemPlacesWindows())
        setMaximumSize(largest);
}

/// Where the screen is smaller than the window may be, the system would end the program.
bool Airlume::isMaximisedBySystem() const
{
    const QSize screen = QGuiApplication::primaryScreen()->availableGeometry().size();
    return systemPlacesWindows() && screen.expandedTo(minimumSize()) == screen;
}

void Airlume::tellSize()
{
    if (m_bMaximized)
        emit MaxWindow();
    else
        emit RestoreWindow();
    emit signalUpdateWindowSize();
}

void Airlume::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    // The desktop's font is another one. Not while the window is being built.
    if (event->type() == QEvent::FontChange && m_pScanThread)
        fitFonts();
    // By a key of the desktop, or by dragging a maximised window away from the edge.
    if (event->type() == QEvent::WindowStateChange && systemPlacesWindows() &&
        isMaximized() != m_bMaximized)
        onBtnRestoreClicked();
}

void Airlume::closeEvent(QCloseEvent *)
{
    // Otherwise the event loop would end, and the window's destructor wait for the back end.
    onBtnCloseClicked();
}

void Airlume::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    if (!systemPlacesWindows())
        return;
    // The system's size arrives later than the click that asked for it. Not before may the window
    // shrink.
    if (!m_bMaximized && !isFullScreen())
        resize(size().boundedTo(NormalMaximumSize).expandedTo(minimumSize()));
    tellSize();
}

void Airlume::slotChangeLanguage()
{
    if (!m_pTreeView) {
        AIRLUME_NULL_POINT();
        return;
    }
    m_pTreeView->ChangeLanguage();
    if (!m_pDashboard) {
        AIRLUME_NULL_POINT();
        return;
    }
    m_pDashboard->update();
    if (!m_pConnectedLabel) {
        AIRLUME_NULL_POINT();
        return;
    }
    // On purpose the stored text keeps its language until the next joined network is reported.
    m_pConnectedLabel->setText(m_strConnected);
    if (!m_pTabWidget) {
        AIRLUME_NULL_POINT();
        return;
    }
    const QString titles[] = {LanguageLabels::m_strLangSignalGraph,
        LanguageLabels::m_strLangChannelGraph, LanguageLabels::m_strLangChannelInterface,
        LanguageLabels::m_strHomeTestTitle};
    if (m_pTabWidget->count() >= 4) {
        for (int tab = 0; tab < 4; ++tab)
            m_pTabWidget->setTabText(tab, QtCommonTools::tr(titles[tab]));
        nameTabs();
    }
    if (!m_pHomeTesting) {
        AIRLUME_NULL_POINT();
        return;
    }
    m_pHomeTesting->ChangeLanguage();
    if (!m_pChannelInterface) {
        AIRLUME_NULL_POINT();
        return;
    }
    m_pChannelInterface->ChangeLanguage();
}

void Airlume::slotEmpty()
{
    m_pTimePlot->EmptyCurveData();
    m_p2GPlot->EmptyCurveData();
    m_p5GPlot->EmptyCurveData();
}
