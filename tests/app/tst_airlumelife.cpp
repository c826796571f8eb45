#include "app/builtwindow.h"

#include "common/QtCommonTools.h"
#include "graphs/signalstrengthdashboard.h"
#include "hometest/signalhometestingwgt.h"
#include "i18n/ipclocalsocket.h"
#include "netlist/signaltreeview.h"
#include "scan/signalnetworkscanthread.h"
#include "scan/signalscanthread.h"
#include "scan/wifiapi.h"
#include "support/messagelog.h"

#include <QApplication>
#include <QFile>
#include <QLabel>
#include <QPointer>
#include <QtTest>

#include <functional>

namespace
{
/// Notes that a child leaves the window.
class Leavers : public QObject
{
public:
    explicit Leavers(const std::function<void(QObject *)> &left)
        : m_left(left)
    {
    }

    bool eventFilter(QObject *, QEvent *event) override
    {
        if (event->type() == QEvent::ChildRemoved)
            m_left(static_cast<QChildEvent *>(event)->child());
        return false;
    }

private:
    std::function<void(QObject *)> m_left;
};

/// Names each widget that is shown as a window of its own.
class ShownWindows : public QObject
{
public:
    ShownWindows() { qApp->installEventFilter(this); }

    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() == QEvent::Show && watched->isWidgetType() &&
            static_cast<QWidget *>(watched)->isWindow())
            names.append(watched->objectName());
        return false;
    }

    QStringList names;
};

} // namespace

/// The window from its opening to its end.
class TestAirlumeLife : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();

    void opensAsOneWindow();
    void opensWithoutABackEnd();
    void saysThatTheStyleSheetWasFound();
    void secondCopyLeavesTheWindowAsItIs();
    void startButtonDoesNothing();
    void endsInOrder();

private:
    QScopedPointer<BuiltWindow> m_window;
    QStringList m_openingDebugs;
    QStringList m_openingCriticals;
    QStringList m_shownWindows;
};

void TestAirlumeLife::initTestCase()
{
    {
        const MessageLog log;
        const ShownWindows shown;
        m_window.reset(new BuiltWindow);
        m_shownWindows = shown.names;
        m_openingDebugs = log.debugs();
        m_openingCriticals = log.criticals();
    }
    QVERIFY(QTest::qWaitForWindowExposed(m_window->get()));
}

void TestAirlumeLife::opensAsOneWindow()
{
    QCOMPARE(m_shownWindows, QStringList(QStringLiteral("Airlume")));
}

void TestAirlumeLife::opensWithoutABackEnd()
{
    QVERIFY(!_wifiApi_inf);
    QVERIFY(m_window->get()->isVisible());
    QCOMPARE(m_openingCriticals, QStringList());
    QTRY_COMPARE(m_window->child<QLabel>("statuslabel")->text(),
        QStringLiteral("Please make sure turn on the wireless radio."));
    QTRY_COMPARE(
        m_window->child<QLabel>("label_connectedto")->text(), QStringLiteral("Not Connected"));
}

void TestAirlumeLife::saysThatTheStyleSheetWasFound()
{
    QCOMPARE(m_openingDebugs.count(QStringLiteral("open qss success")), 1);
    QFile file(QStringLiteral(":/qss/Airlume.qss"));
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(m_window->get()->styleSheet(), QString::fromUtf8(file.readAll()));
}

void TestAirlumeLife::secondCopyLeavesTheWindowAsItIs()
{
    Airlume *window = m_window->get();
    QWidget other;
    other.show();
    QApplication::setActiveWindow(&other);
    const QRect geometry = window->geometry();
    const MessageLog log;
    // On purpose: the second copy simply ends.
    QVERIFY(QMetaObject::invokeMethod(window, "slotNewProcess"));
    QCoreApplication::processEvents();
    QCOMPARE(window->geometry(), geometry);
    QVERIFY(!window->isActiveWindow());
    QCOMPARE(QApplication::activeWindow(), &other);
    QCOMPARE(log.debugs(), QStringList());
    QCOMPARE(log.criticals(), QStringList());
    QApplication::setActiveWindow(window);
}

void TestAirlumeLife::startButtonDoesNothing()
{
    QSignalSpy started(m_window->get(), &Airlume::startScan);
    QSignalSpy stopped(m_window->get(), &Airlume::stopScan);
    QVERIFY(QMetaObject::invokeMethod(m_window->get(), "onStartBtnClicked"));
    QCOMPARE(started.size(), 0);
    QCOMPARE(stopped.size(), 0);
}

void TestAirlumeLife::endsInOrder()
{
    const MessageLog log;
    const QPointer<SignalNetworkScanThread> discovery = m_window->networkScanThread();
    const QPointer<SignalScanThread> scan = m_window->scanThread();
    const QPointer<SignalHomeTestingWgt> rooms = m_window->child<SignalHomeTestingWgt>();
    const QPointer<SignalStrengthDashboard> gauge = m_window->child<SignalStrengthDashboard>();
    const QPointer<IpcLocalSocket> host = QtCommonTools::GetIpcUdpClient();
    QVERIFY(scan->isRunning());
    QVERIFY(discovery->isRunning());

    // Its connections are cut first, so neither thread tells anybody that it is gone.
    QSignalSpy threadsTold(discovery.data(), &QObject::destroyed);
    QSignalSpy scanTold(scan.data(), &QObject::destroyed);
    QStringList left;
    QObject listener;
    Leavers leavers([&](QObject *child) {
        if (!discovery && left.isEmpty()) {
            left.append(QStringLiteral("discovery thread"));
            QVERIFY(scan && scan->isRunning() && !scan->isInterruptionRequested());
        } else if (!scan && left.size() == 1) {
            left.append(QStringLiteral("scan thread"));
        }
        Q_UNUSED(child)
    });
    m_window->get()->installEventFilter(&leavers);
    const auto leaves = [&](QObject *object, const char *name) {
        connect(object, &QObject::destroyed, &listener,
            [&left, name] { left.append(QLatin1String(name)); });
    };
    leaves(rooms, "rooms");
    leaves(gauge, "gauge");
    leaves(host, "host's channel");
    leaves(m_window->child<SignalTreeView>(), "list");

    m_window->close();
    QCOMPARE(left, QStringList({QStringLiteral("discovery thread"), QStringLiteral("scan thread"),
                       QStringLiteral("rooms"), QStringLiteral("gauge"),
                       QStringLiteral("host's channel"), QStringLiteral("list")}));
    QCOMPARE(threadsTold.size(), 0);
    QCOMPARE(scanTold.size(), 0);
    QVERIFY(!SignalHomeTestingWgt::m_pInstance);
    QVERIFY(!QtCommonTools::m_piniHomeTestInstance);
    QVERIFY(!QtCommonTools::m_pLocalSocket);
    QVERIFY(!QtCommonTools::m_pLangFileOperate);
    QCOMPARE(log.criticals(), QStringList());
    QCOMPARE(log.messages(QtWarningMsg), QStringList());
}

QTEST_MAIN(TestAirlumeLife)
#include "tst_airlumelife.moc"
