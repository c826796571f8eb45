#include "app/builtwindow.h"
#include "app/slotlog.h"

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
#include "support/messagelog.h"
#include "support/testair.h"

#include <QPushButton>
#include <QTabWidget>
#include <QtTest>

#include <cstdlib>
#include <functional>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

using Emission = std::function<void()>;
Q_DECLARE_METATYPE(Emission)

namespace
{
/// Notes the queued calls that reach an object.
class QueuedCalls : public QObject
{
public:
    void watch(QObject *receiver) { receiver->installEventFilter(this); }

    bool eventFilter(QObject *receiver, QEvent *event) override
    {
        if (event->type() == QEvent::MetaCall && QThread::currentThread() == qApp->thread())
            receivers.append(QString::fromLatin1(receiver->metaObject()->className()));
        return false;
    }

    QStringList receivers;
};
} // namespace

/// Whether every signal reaches its receivers: all of them, nobody else, each once, in the order
/// of the window's connections, and those of the worker threads by way of the event loop.
class TestAirlumeConnections : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();

    void signalsReachTheirReceiversInOrder_data();
    void signalsReachTheirReceiversInOrder();
    void threadSignalsArriveQueued_data();
    void threadSignalsArriveQueued();
    void closingEndsTheProcessAtOnce_data();
    void closingEndsTheProcessAtOnce();
    void typesOfThreadSignalsAreRegistered();

private:
    void addThreadSignals();

    QScopedPointer<BuiltWindow> m_window;
};

void TestAirlumeConnections::initTestCase()
{
    // By the window and by nobody before it.
    QCOMPARE(QMetaType::type("QList<QMap<QString,QString> >"), 0);
    QCOMPARE(QMetaType::type("QVector<WifiProperty>"), 0);
    m_window.reset(new BuiltWindow);
    m_window->rest();
}

void TestAirlumeConnections::typesOfThreadSignalsAreRegistered()
{
    QVERIFY(QMetaType::type("QList<QMap<QString,QString> >") != 0);
    QCOMPARE(QMetaType::type("QList<QMap<QString,QString> >"), qMetaTypeId<QList<ScanMap>>());
    QVERIFY(QMetaType::type("QVector<WifiProperty>") != 0);
    QCOMPARE(QMetaType::type("QVector<WifiProperty>"), qMetaTypeId<QVector<WifiProperty>>());
}

void TestAirlumeConnections::addThreadSignals()
{
    SignalScanThread *scan = m_window->scanThread();
    SignalNetworkScanThread *discovery = m_window->networkScanThread();
    QTest::newRow("nicReturned") << Emission([discovery] {
        emit discovery->nicReturned({});
    }) << QStringList({QStringLiteral("SignalScanThread::onNicChanged(QString)")});
    QTest::newRow("visiableNetworkMapListReturned")
        << Emission([discovery] { emit discovery->visiableNetworkMapListReturned({}); })
        << QStringList({QStringLiteral("SignalScanThread::onVisiableMapListReturned(QList<QMap<"
                                       "QString,QString> >)")});
    QTest::newRow("statusChange of the discovery thread")
        << Emission([discovery] { emit discovery->statusChange(QStringLiteral("a")); })
        << QStringList({QStringLiteral("Airlume::onStatusChange(QString)")});
    QTest::newRow("statusChange of the scan thread")
        << Emission([scan] { emit scan->statusChange(QStringLiteral("b")); })
        << QStringList({QStringLiteral("Airlume::onStatusChange(QString)")});
    QTest::newRow("networkReturned")
        << Emission([scan] { emit scan->networkReturned(QStringLiteral("Home")); })
        << QStringList({QStringLiteral("Airlume::onNetworkReturned(QString)"),
               QStringLiteral("SignalStrengthDashboard::onNetworkReturned(QString)"),
               QStringLiteral("ChannelInterfaceWgt::onNetworkReturned(QString)"),
               QStringLiteral("SignalHomeTestingWgt::onNetworkReturned(QString)"),
               QStringLiteral("SignalTreeView::onNetworkReturned(QString)")});
    QTest::newRow("networkLeft") << Emission([scan] { emit scan->networkLeft(); })
                                 << QStringList({QStringLiteral("Airlume::onNetworkLeft()")});
    // The list before the graphs: what it prunes is hidden before they see the new records.
    QTest::newRow("dataReturned")
        << Emission([scan] { emit scan->dataReturned(TestAir::networks(3)); })
        << QStringList({QStringLiteral("SignalTreeView::onDataReturned(QVector<WifiProperty>)"),
               QStringLiteral("ChannelInterfaceWgt::slotDataReturned(QVector<WifiProperty>)"),
               QStringLiteral("SignalTimePlot::onDataReturned(QVector<WifiProperty>)"),
               QStringLiteral("Signal2GPlot::onDataReturned(QVector<WifiProperty>)"),
               QStringLiteral("Signal5GPlot::onDataReturned(QVector<WifiProperty>)")});
    QTest::newRow("signalReturned")
        << Emission([scan] { emit scan->signalReturned(-50); })
        << QStringList({QStringLiteral("SignalStrengthDashboard::SetSignalValue(int)"),
               QStringLiteral("SignalHomeTestingWgt::SetSignalValue(int)")});
    QTest::newRow("speedReturned")
        << Emission([scan] { emit scan->speedReturned(144); })
        << QStringList({QStringLiteral("SignalHomeTestingWgt::SetSignalSpeedValue(int)")});
}

void TestAirlumeConnections::signalsReachTheirReceiversInOrder_data()
{
    QTest::addColumn<Emission>("emission");
    QTest::addColumn<QStringList>("called");

    Airlume *window = m_window->get();
    const auto click = [this](const char *name) {
        QPushButton *button = m_window->child<QPushButton>(name);
        return Emission([button] { emit button->clicked(); });
    };
    const QStringList toggle = {QStringLiteral("Airlume::onBtnRestoreClicked()")};
    QTest::newRow("minimize") << click("minimize")
                              << QStringList({QStringLiteral("Airlume::onBtnMinimizeClicked()")});
    QTest::newRow("restore") << click("restore") << toggle;
    QTest::newRow("maximize") << click("maximize") << toggle;

    QTabWidget *tabs = m_window->child<QTabWidget>("tabWidget");
    QTest::newRow("currentChanged")
        << Emission([tabs] { emit tabs->currentChanged(0); })
        << QStringList({QStringLiteral("SignalHomeTestingWgt::ClickedTab()")});
    QTest::newRow("startScan") << Emission([window] { emit window->startScan(); })
                               << QStringList({QStringLiteral("SignalTreeView::onStartScan()"),
                                      QStringLiteral("SignalTimePlot::onStartScan()"),
                                      QStringLiteral("Signal2GPlot::onStartScan()"),
                                      QStringLiteral("Signal5GPlot::onStartScan()")});
    // The list's stopScan() is a signal: it hands it on to its model.
    QTest::newRow("stopScan") << Emission([window] { emit window->stopScan(); })
                              << QStringList({QStringLiteral("SignalTreeView::stopScan()"),
                                     QStringLiteral("SignalTimePlot::onStopScan()"),
                                     QStringLiteral("Signal2GPlot::onStopScan()"),
                                     QStringLiteral("Signal5GPlot::onStopScan()")});
    SignalTreeView *list = m_window->child<SignalTreeView>();
    QTest::newRow("showCurve")
        << Emission([list] { emit list->showCurve(0, QStringLiteral("nobody"), true); })
        << QStringList({QStringLiteral("SignalTimePlot::onShowCurve(int,QString,bool)"),
               QStringLiteral("Signal2GPlot::onShowCurve(int,QString,bool)"),
               QStringLiteral("Signal5GPlot::onShowCurve(int,QString,bool)")});
    QTest::newRow("signalEmpty") << Emission([list] { emit list->signalEmpty(); })
                                 << QStringList({QStringLiteral("Airlume::slotEmpty()")});
    QTest::newRow("ChangeLanguage")
        << Emission([] { emit QtCommonTools::GetIpcUdpClient()->ChangeLanguage(); })
        << QStringList({QStringLiteral("Airlume::slotChangeLanguage()")});
    QTest::newRow("MaxWindow") << Emission([window] {
        emit window->MaxWindow();
    }) << QStringList({QStringLiteral("SignalHomeTestingWgt::ResMaxWindow()")});
    QTest::newRow("RestoreWindow")
        << Emission([window] { emit window->RestoreWindow(); })
        << QStringList({QStringLiteral("SignalHomeTestingWgt::ResRestoreWindow()")});
    QTest::newRow("signalUpdateWindowSize")
        << Emission([window] { emit window->signalUpdateWindowSize(); })
        << QStringList({QStringLiteral("ChannelInterfaceWgt::slotUpdateWindowSize()")});
    addThreadSignals();
}

void TestAirlumeConnections::signalsReachTheirReceiversInOrder()
{
    QFETCH(Emission, emission);
    QFETCH(QStringList, called);
    const MessageLog messages;
    const SlotLog log;
    emission();
    QCOMPARE(log.calls(), called);
}

void TestAirlumeConnections::threadSignalsArriveQueued_data()
{
    QTest::addColumn<Emission>("emission");
    QTest::addColumn<QStringList>("called");
    addThreadSignals();
}

void TestAirlumeConnections::threadSignalsArriveQueued()
{
    QFETCH(Emission, emission);
    QFETCH(QStringList, called);
    // What receivers queued to themselves before.
    QCoreApplication::processEvents();
    const MessageLog messages;
    const SlotLog log;
    QueuedCalls queued;
    const QObjectList receivers = {m_window->get(), m_window->scanThread(),
        m_window->child<SignalStrengthDashboard>(), m_window->child<ChannelInterfaceWgt>(),
        m_window->child<SignalHomeTestingWgt>(), m_window->child<SignalTreeView>(),
        m_window->child<SignalTimePlot>(), m_window->child<Signal2GPlot>(),
        m_window->child<Signal5GPlot>()};
    for (QObject *receiver : receivers) {
        QCOMPARE(receiver->thread(), qApp->thread());
        queued.watch(receiver);
    }

    std::thread(emission).join();
    QCOMPARE(log.calls(), QStringList());
    QCOMPARE(queued.receivers, QStringList());
    QCoreApplication::sendPostedEvents();
    QStringList classes;
    for (const QString &slot : qAsConst(called))
        classes.append(slot.section(QStringLiteral("::"), 0, 0));
    // Behind them stand the calls that receivers queue to themselves.
    QCOMPARE(queued.receivers.mid(0, classes.size()), classes);
    // Nothing was left out for want of a registered type.
    QCOMPARE(messages.messages(QtWarningMsg), QStringList());
}

void TestAirlumeConnections::closingEndsTheProcessAtOnce_data()
{
    QTest::addColumn<Emission>("closes");
    QTest::newRow("by the button")
        << Emission([this] { emit m_window->child<QPushButton>("close1")->clicked(); });
    QTest::newRow("by the desktop") << Emission([this] { m_window->get()->close(); });
}

void TestAirlumeConnections::closingEndsTheProcessAtOnce()
{
    QFETCH(Emission, closes);
    const pid_t child = fork();
    if (child == 0) {
        // What runs at an orderly end must not run.
        std::atexit([] { _exit(4); });
        closes();
        _exit(3);
    }
    int status = -1;
    QCOMPARE(waitpid(child, &status, 0), child);
    QVERIFY(WIFEXITED(status));
    QCOMPARE(WEXITSTATUS(status), 0);
}

QTEST_MAIN(TestAirlumeConnections)
#include "tst_airlumeconnections.moc"
