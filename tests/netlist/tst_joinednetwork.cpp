#include "common/QtCommonTools.h"
#include "netlist/signaltreeview.h"
#include "support/testair.h"

#include <QAbstractItemModelTester>
#include <QtTest>

using TestAir::network;
using TestAir::networks;

/// What the list does about the joined network. Its memory lives as long as the process, so each
/// case runs in a process of its own.
class TestJoinedNetwork : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { QtCommonTools::Init(); }
    void cleanupTestCase() { QtCommonTools::Release(); }
    void ticksTheJoinedNetworkOnceForEachChange();
    void makesRoomForAJoinedNetworkThatIsNotListed();
    void emptiesItselfAtTheThirdEmptyName();
    void leavesATickedJoinedNetworkAlone();
    void waitsForRowsBeforeItMakesRoom();
    void leavingEndsTheBoldRowAndNothingElse();
};

void TestJoinedNetwork::ticksTheJoinedNetworkOnceForEachChange()
{
    const QString name = QStringLiteral("Network 001");
    SignalTreeView view;
    view.onDataReturned(networks(3));
    view.CancelAll();
    QSignalSpy shown(&view, &SignalTreeView::showCurve);
    view.onNetworkReturned(name);
    QCOMPARE(shown, QList<QVariantList>({{1, name, true}}));

    // Unticked by hand it stays so, also after a short loss: the name must change first.
    view.CancelAll();
    shown.clear();
    view.onNetworkReturned(name);
    view.onNetworkReturned(name);
    QCOMPARE(shown.size(), 0);

    view.onNetworkReturned(QStringLiteral("Network 002"));
    QCOMPARE(shown.size(), 1);
    view.onNetworkReturned(name);
    QCOMPARE(shown.last(), QVariantList({1, name, true}));
}

void TestJoinedNetwork::makesRoomForAJoinedNetworkThatIsNotListed()
{
    const QString name = QStringLiteral("Joined");
    SignalTreeView view;
    view.onDataReturned(networks(15));
    QSignalSpy shown(&view, &SignalTreeView::showCurve);
    view.onNetworkReturned(name);
    QCOMPARE(view.model()->rowCount(), 14);
    QCOMPARE(shown, QList<QVariantList>({{0, QStringLiteral("Network 014"), false}}));
    // Once only, until the name changes.
    view.onNetworkReturned(name);
    QCOMPARE(view.model()->rowCount(), 14);
    // The next scan lists it, and the next report ticks it.
    QVector<WifiProperty> scan = networks(14);
    scan.prepend(network(name, -40, 6, true));
    view.onDataReturned(scan);
    shown.clear();
    view.onNetworkReturned(name);
    QCOMPARE(shown, QList<QVariantList>({{14, name, true}}));
}

void TestJoinedNetwork::emptiesItselfAtTheThirdEmptyName()
{
    SignalTreeView view;
    QSignalSpy emptied(&view, &SignalTreeView::signalEmpty);
    QSignalSpy shown(&view, &SignalTreeView::showCurve);
    for (int round = 1; round <= 2; ++round) {
        view.onNetworkReturned(QStringLiteral("Somewhere"));
        view.onDataReturned(networks(2));
        shown.clear();
        view.onNetworkReturned(QString());
        view.onNetworkReturned(QString());
        QCOMPARE(view.model()->rowCount(), 2);
        QCOMPARE(emptied.size(), round - 1);
        view.onNetworkReturned(QString());
        QCOMPARE(view.model()->rowCount(), 0);
        QCOMPARE(emptied.size(), round);
        // The curves were hidden first.
        QCOMPARE(shown.size(), 2);
        QCOMPARE(shown.first().at(2).toBool(), false);

        view.onDataReturned(networks(2));
        for (int more = 0; more < 5; ++more)
            view.onNetworkReturned(QString());
        QCOMPARE(view.model()->rowCount(), 2);
        QCOMPARE(emptied.size(), round);
        view.EmptyWifiPropertyMap();
    }
    // A name in between starts the count anew.
    view.onNetworkReturned(QStringLiteral("Somewhere"));
    view.onNetworkReturned(QString());
    view.onNetworkReturned(QString());
    view.onNetworkReturned(QStringLiteral("Somewhere"));
    view.onNetworkReturned(QString());
    view.onNetworkReturned(QString());
    QCOMPARE(emptied.size(), 2);
}

void TestJoinedNetwork::leavesATickedJoinedNetworkAlone()
{
    SignalTreeView view;
    view.onDataReturned(networks(3));
    QSignalSpy shown(&view, &SignalTreeView::showCurve);
    view.onNetworkReturned(QStringLiteral("Network 001"));
    QCOMPARE(shown.size(), 0);
    // It was ticked already, so the change is still open: unticked, it is ticked again once.
    view.CancelAll();
    shown.clear();
    view.onNetworkReturned(QStringLiteral("Network 001"));
    QCOMPARE(shown, QList<QVariantList>({{1, QStringLiteral("Network 001"), true}}));
    view.CancelAll();
    shown.clear();
    view.onNetworkReturned(QStringLiteral("Network 001"));
    QCOMPARE(shown.size(), 0);
}

void TestJoinedNetwork::waitsForRowsBeforeItMakesRoom()
{
    SignalTreeView view;
    view.onNetworkReturned(QStringLiteral("Joined"));
    QCOMPARE(view.model()->rowCount(), 0);
    view.onDataReturned(networks(3));
    view.onNetworkReturned(QStringLiteral("Joined"));
    QCOMPARE(view.model()->rowCount(), 2);
}

void TestJoinedNetwork::leavingEndsTheBoldRowAndNothingElse()
{
    const QString name = QStringLiteral("Network 001");
    SignalTreeView view;
    const QAbstractItemModelTester tester(
        view.model(), QAbstractItemModelTester::FailureReportingMode::QtTest);
    view.onDataReturned(networks(3));
    const auto boldRows = [&view] {
        QStringList bold;
        for (int row = 0; row < view.model()->rowCount(); ++row) {
            const QModelIndex cell = view.model()->index(row, SignalMode::SsidColumn);
            if (cell.data(Qt::FontRole).value<QFont>().bold())
                bold.append(cell.data().toString());
        }
        return bold;
    };
    view.CancelAll();
    view.onNetworkReturned(name);
    QCOMPARE(boldRows(), QStringList(name));
    QSignalSpy shown(&view, &SignalTreeView::showCurve);
    QSignalSpy emptied(&view, &SignalTreeView::signalEmpty);
    for (int times = 0; times < 5; ++times)
        view.NetworkLeft();
    QCOMPARE(boldRows(), QStringList());
    QCOMPARE(view.model()->rowCount(), 3);

    // Back to the same network: bold, and not ticked again. Nothing has counted as a loss.
    view.CancelAll();
    shown.clear();
    view.onNetworkReturned(name);
    QCOMPARE(boldRows(), QStringList(name));
    QCOMPARE(shown.size(), 0);
    view.onNetworkReturned(QString());
    QCOMPARE(boldRows(), QStringList());
    view.NetworkLeft();
    view.onNetworkReturned(QString());
    QCOMPARE(emptied.size(), 0);
    view.onNetworkReturned(QString());
    QCOMPARE(emptied.size(), 1);

    // To another one by way of none: ticked as by any change.
    view.onDataReturned(networks(3));
    view.onNetworkReturned(name);
    view.CancelAll();
    view.NetworkLeft();
    shown.clear();
    view.onNetworkReturned(QStringLiteral("Network 002"));
    QCOMPARE(shown, QList<QVariantList>({{2, QStringLiteral("Network 002"), true}}));
    QCOMPARE(boldRows(), QStringList(QStringLiteral("Network 002")));
}

QTEST_MAIN(TestJoinedNetwork)
#include "tst_joinednetwork.moc"
