#include "app/builtwindow.h"

#include "channels/channelinterfacewgt.h"
#include "graphs/signal2gplot.h"
#include "graphs/signal5gplot.h"
#include "graphs/signalstrengthdashboard.h"
#include "graphs/signaltimeplot.h"
#include "hometest/signalhometestingwgt.h"
#include "netlist/signaltreeview.h"
#include "scan/signalnetworkscanthread.h"
#include "scan/signalscanthread.h"
#include "support/messagelog.h"
#include "support/testair.h"

#include <QGridLayout>
#include <QLabel>
#include <QMessageBox>
#include <QScrollArea>
#include <QTabWidget>
#include <QTableWidget>
#include <QTimer>
#include <QtTest>
#include <qwt_legend.h>
#include <qwt_plot_curve.h>

#include <functional>
#include <thread>

namespace
{
/// One pass of the scan thread's loop can be had without the loop.
struct ScanPass : SignalScanThread {
    using SignalScanThread::pass;
};

int curves(const QwtPlot *graph, bool visibleOnly)
{
    const QwtPlotItemList items = graph->itemList(QwtPlotItem::Rtti_PlotCurve);
    return static_cast<int>(std::count_if(items.begin(), items.end(),
        [visibleOnly](const QwtPlotItem *item) { return !visibleOnly || item->isVisible(); }));
}
} // namespace

/// The data's way through the built window, told from what the views show in the end. The threads'
/// loops rest; what they send comes from other threads at the test's word.
class TestAirlumeData : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();

    void testingARoomNeedsAJoinedNetwork();
    void discoveredNetworksReachEveryView();
    void roomIsTestedWithSignalAndSpeed();
    void tickedNetworkIsDrawnInItsGraphs();
    void joinedNetworkIsTickedAndDrawn();
    void leavingTheNetworkEndsItsValuesAndKeepsTheList();
    void lostInterfaceTurnsEverythingOff();
    void stoppingFreezesTheListAndClearsTheGraphs();
    void startingClearsTheList();
    void pictureOfTheRoomsFollowsTabAndSize();
    void channelListIsBuiltAnewForANewSize();

private:
    /// Runs `sends` in another thread, and then what it has queued.
    void fromElsewhere(const std::function<void()> &sends);
    /// As the discovery thread does when it hears `networks`.
    void discover(const QList<ScanMap> &networks);
    /// One pass of the scan thread.
    void pass();
    /// Clicks the tick of the row of `ssid`.
    void clickTick(const QString &ssid);
    QStringList listed() const;
    bool isBold(const QString &ssid) const;
    QString channelShown() const;
    QString roomText() const;
    QLabel *picture() const;

    QScopedPointer<BuiltWindow> m_window;
    SignalScanThread *m_scan = nullptr;
    SignalTreeView *m_list = nullptr;
    SignalTimePlot *m_time = nullptr;
    Signal2GPlot *m_2g = nullptr;
    Signal5GPlot *m_5g = nullptr;
    SignalStrengthDashboard *m_gauge = nullptr;
    SignalHomeTestingWgt *m_rooms = nullptr;
};

void TestAirlumeData::initTestCase()
{
    m_window.reset(new BuiltWindow);
    QVERIFY(QTest::qWaitForWindowExposed(m_window->get()));
    m_window->rest();
    m_scan = m_window->scanThread();
    m_list = m_window->child<SignalTreeView>();
    m_time = m_window->child<SignalTimePlot>();
    m_2g = m_window->child<Signal2GPlot>();
    m_5g = m_window->child<Signal5GPlot>();
    m_gauge = m_window->child<SignalStrengthDashboard>();
    m_rooms = m_window->child<SignalHomeTestingWgt>();
    QVERIFY(m_scan && m_list && m_time && m_2g && m_5g && m_gauge && m_rooms);
    m_rooms->SetTestBtnVisible(0, 0);
}

void TestAirlumeData::fromElsewhere(const std::function<void()> &sends)
{
    std::thread(sends).join();
    QCoreApplication::processEvents();
}

void TestAirlumeData::discover(const QList<ScanMap> &networks)
{
    SignalNetworkScanThread *discovery = m_window->networkScanThread();
    fromElsewhere([&] {
        emit discovery->statusChange(QStringLiteral("Scanning..."));
        emit discovery->nicReturned(QStringLiteral("wlan0"));
        emit discovery->visiableNetworkMapListReturned(networks);
    });
}

void TestAirlumeData::pass()
{
    fromElsewhere([this] { (m_scan->*&ScanPass::pass)(); });
}

void TestAirlumeData::clickTick(const QString &ssid)
{
    const QAbstractItemModel *model = m_list->model();
    for (int row = 0; row < model->rowCount(); ++row) {
        if (model->index(row, SignalMode::SsidColumn).data().toString() == ssid) {
            const QRect cell = m_list->visualRect(model->index(row, SignalMode::TickColumn));
            QTest::mouseClick(m_list->viewport(), Qt::LeftButton, {}, cell.center());
            return;
        }
    }
    QFAIL("no such row");
}

QStringList TestAirlumeData::listed() const
{
    QStringList names;
    for (int row = 0; row < m_list->model()->rowCount(); ++row)
        names.append(m_list->model()->index(row, SignalMode::SsidColumn).data().toString());
    return names;
}

bool TestAirlumeData::isBold(const QString &ssid) const
{
    const QModelIndex row = m_list->model()->index(listed().indexOf(ssid), SignalMode::SsidColumn);
    return row.data(Qt::FontRole).value<QFont>().bold();
}

/// What the channel panel shows as the joined network's channel.
QString TestAirlumeData::channelShown() const
{
    for (QGridLayout *grid :
        m_window->child<ChannelInterfaceWgt>()->findChildren<QGridLayout *>()) {
        if (grid->parentWidget()->size() == QSize(480, 160))
            return qobject_cast<QLabel *>(grid->itemAtPosition(0, 1)->widget())->text();
    }
    return QStringLiteral("no summary");
}

/// The cell of the first room.
QString TestAirlumeData::roomText() const
{
    return m_rooms->findChild<QTableWidget *>()->item(0, 0)->text();
}

QLabel *TestAirlumeData::picture() const
{
    for (QLabel *label : m_rooms->findChildren<QLabel *>(QString(), Qt::FindDirectChildrenOnly)) {
        if (label->autoFillBackground())
            return label;
    }
    return nullptr;
}

void TestAirlumeData::testingARoomNeedsAJoinedNetwork()
{
    const QString before = roomText();
    QString notice;
    QTimer::singleShot(0, this, [&notice] {
        auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
        notice = box ? box->text() : QStringLiteral("no box");
        if (box)
            box->close();
    });
    m_rooms->ClickedTestBtn();
    QCOMPARE(notice, QStringLiteral("No Network Connected!"));
    QCOMPARE(roomText(), before);
}

void TestAirlumeData::discoveredNetworksReachEveryView()
{
    ScanMap joined = TestAir::scanMap(
        QStringLiteral("Home"), QStringLiteral("02:00:00:00:00:01"), -38, 11, true);
    joined.insert(QStringLiteral("link_rate"), QStringLiteral("144"));
    const ScanMap other =
        TestAir::scanMap(QStringLiteral("Attic"), QStringLiteral("02:00:00:00:00:02"), -70, 40);
    QLabel *status = m_window->child<QLabel>("statuslabel");
    QVERIFY(status->text() != QStringLiteral("Scanning..."));
    discover({joined, other});
    QCOMPARE(status->text(), QStringLiteral("Scanning..."));
    QCOMPARE(listed(), QStringList());

    pass();
    QCOMPARE(
        m_window->child<QLabel>("label_connectedto")->text(), QStringLiteral("Connected to Home"));
    QVERIFY(m_gauge->IsConnected());
    QCOMPARE(m_gauge->NetworkName(), QStringLiteral("Home"));
    QCOMPARE(m_gauge->SignalValue(), -38);
    QCOMPARE(listed(), QStringList({QStringLiteral("Attic"), QStringLiteral("Home")}));
    QCOMPARE(channelShown(), QStringLiteral("11"));
    QCOMPARE(m_time->NetworkCount(), 2);
    QCOMPARE(m_2g->NetworkCount(), 2);
    QCOMPARE(m_5g->NetworkCount(), 2);
    QCOMPARE(curves(m_time, true) + curves(m_2g, true) + curves(m_5g, true), 0);

    // The scan thread's own status reaches the same line.
    fromElsewhere([this] { emit m_scan->statusChange(QStringLiteral("scan")); });
    QCOMPARE(status->text(), QStringLiteral("scan"));
}

void TestAirlumeData::roomIsTestedWithSignalAndSpeed()
{
    m_rooms->ClickedTestBtn();
    QVERIFY2(
        roomText().contains(QStringLiteral("Now:62% signal and 144 Mbps")), qPrintable(roomText()));
}

void TestAirlumeData::tickedNetworkIsDrawnInItsGraphs()
{
    const MessageLog log;
    // The rows of the first fill show ticked without a curve: off, and on again.
    clickTick(QStringLiteral("Home"));
    clickTick(QStringLiteral("Home"));
    QCOMPARE(curves(m_time, true), 1);
    QCOMPARE(curves(m_2g, true), 1);
    QCOMPARE(curves(m_5g, true), 0);
    clickTick(QStringLiteral("Attic"));
    clickTick(QStringLiteral("Attic"));
    QCOMPARE(curves(m_time, true), 2);
    QCOMPARE(curves(m_2g, true), 1);
    QCOMPARE(curves(m_5g, true), 1);
    clickTick(QStringLiteral("Home"));
    QCOMPARE(curves(m_time, true), 1);
    QCOMPARE(curves(m_2g, true), 0);
    QCOMPARE(curves(m_5g, true), 1);
}

void TestAirlumeData::joinedNetworkIsTickedAndDrawn()
{
    const MessageLog log;
    // The name must change; "Home" is unticked by now.
    fromElsewhere([this] { emit m_scan->networkReturned(QStringLiteral("Attic")); });
    fromElsewhere([this] { emit m_scan->networkReturned(QStringLiteral("Home")); });
    QCOMPARE(curves(m_2g, true), 1);
    QCOMPARE(curves(m_time, true), 2);
}

void TestAirlumeData::leavingTheNetworkEndsItsValuesAndKeepsTheList()
{
    const MessageLog log;
    const QStringList before = listed();
    const int drawn = curves(m_time, true);
    const QString result = roomText();
    QVERIFY(m_gauge->IsConnected());
    QVERIFY(isBold(QStringLiteral("Home")));
    fromElsewhere([this] { emit m_scan->networkLeft(); });

    QCOMPARE(m_window->child<QLabel>("label_connectedto")->text(), QStringLiteral("Not Connected"));
    QVERIFY(!m_gauge->IsConnected());
    QCOMPARE(m_gauge->SignalValue(), 0);
    QCOMPARE(channelShown(), QString());
    QVERIFY(!isBold(QStringLiteral("Home")));
    testingARoomNeedsAJoinedNetwork();
    QCOMPARE(roomText(), result);
    // However often: the list and the curves stay.
    for (int times = 0; times < 5; ++times)
        fromElsewhere([this] { emit m_scan->networkLeft(); });
    QCOMPARE(listed(), before);
    QCOMPARE(curves(m_time, true), drawn);

    // Neither signal nor speed are those of the link before.
    fromElsewhere([this] { emit m_scan->networkReturned(QStringLiteral("Home")); });
    m_rooms->ClickedTestBtn();
    QVERIFY2(
        roomText().contains(QStringLiteral("Now:0% signal and 0 Mbps")), qPrintable(roomText()));
    fromElsewhere([this] { emit m_scan->signalReturned(-60); });
    QCOMPARE(
        m_window->child<QLabel>("label_connectedto")->text(), QStringLiteral("Connected to Home"));
    QCOMPARE(m_gauge->SignalValue(), -60);
    QVERIFY(isBold(QStringLiteral("Home")));
}

void TestAirlumeData::lostInterfaceTurnsEverythingOff()
{
    const MessageLog log;
    QVERIFY(curves(m_2g, false) + curves(m_5g, false) > 0);
    SignalNetworkScanThread *discovery = m_window->networkScanThread();
    fromElsewhere([discovery] { emit discovery->nicReturned(QString()); });
    pass();
    QCOMPARE(m_window->child<QLabel>("label_connectedto")->text(), QStringLiteral("Not Connected"));
    QVERIFY(!m_gauge->IsConnected());
    QCOMPARE(m_gauge->SignalValue(), 0);
    QCOMPARE(channelShown(), QString());
    pass();
    QCOMPARE(listed().size(), 2);
    // The list empties itself, and the graphs with it.
    pass();
    QCOMPARE(listed(), QStringList());
    QCOMPARE(curves(m_time, false), 0);
    QCOMPARE(curves(m_2g, false), 0);
    QCOMPARE(curves(m_5g, false), 0);
}

void TestAirlumeData::stoppingFreezesTheListAndClearsTheGraphs()
{
    const MessageLog log;
    const QVector<WifiProperty> networks = {TestAir::network(QStringLiteral("A"), -50, 1),
        TestAir::network(QStringLiteral("B"), -60, 44)};
    fromElsewhere([&] {
        emit m_scan->dataReturned(networks);
        emit m_scan->dataReturned(networks);
    });
    clickTick(QStringLiteral("A"));
    clickTick(QStringLiteral("A"));
    QCOMPARE(curves(m_time, true), 1);
    QVERIFY(m_time->findChild<QwtLegend *>());

    emit m_window->get()->stopScan();
    QCOMPARE(curves(m_time, false), 0);
    QVERIFY(!m_time->findChild<QwtLegend *>());
    QCOMPARE(curves(m_2g, false), 0);
    QCOMPARE(m_2g->NetworkCount(), 0);
    QCOMPARE(curves(m_5g, false), 0);
    QCOMPARE(m_5g->NetworkCount(), 0);
    const auto ticks = [this] {
        QList<bool> found;
        for (int row = 0; row < m_list->model()->rowCount(); ++row)
            found.append(m_list->model()->index(row, SignalMode::TickColumn).data().toBool());
        return found;
    };
    const QList<bool> before = ticks();
    clickTick(QStringLiteral("A"));
    QCOMPARE(ticks(), before);
}

void TestAirlumeData::startingClearsTheList()
{
    QVERIFY(!listed().isEmpty());
    emit m_window->get()->startScan();
    QCOMPARE(listed(), QStringList());
    // And it can be ticked again.
    fromElsewhere([this] {
        emit m_scan->dataReturned({TestAir::network(QStringLiteral("A"), -50, 1)});
        emit m_scan->dataReturned({TestAir::network(QStringLiteral("A"), -50, 1)});
    });
    const MessageLog log;
    clickTick(QStringLiteral("A"));
    clickTick(QStringLiteral("A"));
    QCOMPARE(curves(m_time, true), 1);
    QCOMPARE(curves(m_2g, true), 1);
}

void TestAirlumeData::pictureOfTheRoomsFollowsTabAndSize()
{
    QTabWidget *tabs = m_window->child<QTabWidget>();
    tabs->setCurrentWidget(m_rooms);
    QCoreApplication::processEvents();
    const QWidget *container = m_rooms->findChild<QTableWidget *>()->parentWidget();

    emit m_window->get()->MaxWindow();
    QCOMPARE(picture()->minimumHeight(), container->height() - 10);
    emit m_window->get()->RestoreWindow();
    QCOMPARE(picture()->minimumHeight(), container->height() - 1);
    QCOMPARE(picture()->maximumHeight(), container->height() - 1);

    picture()->setFixedSize(7, 7);
    tabs->setCurrentIndex(0);
    QCOMPARE(picture()->minimumHeight(), container->height() - 1);
}

void TestAirlumeData::channelListIsBuiltAnewForANewSize()
{
    QScrollArea *area = m_window->child<ChannelInterfaceWgt>()->findChild<QScrollArea *>();
    QVERIFY(area->widget());
    area->widget()->setObjectName(QStringLiteral("old"));
    emit m_window->get()->signalUpdateWindowSize();
    QVERIFY(area->widget()->objectName() != QStringLiteral("old"));
}

QTEST_MAIN(TestAirlumeData)
#include "tst_airlumedata.moc"
