// What the network list costs for one scan result, beside a plain sorted list that sets as many
// rows.

#include "bench/sidebyside.h"
#include "common/QtCommonTools.h"
#include "netlist/signaltreeview.h"
#include "support/messagelog.h"
#include "support/testair.h"

#include <QApplication>
#include <QSortFilterProxyModel>
#include <QStandardItemModel>
#include <QTreeView>

namespace
{
const std::size_t Rounds = 201;
const QSize ListSize(740, 300);
const int ShownRows = 15;

/// A sorted view of a standard model that knows which row to set.
class BareList : public QTreeView
{
public:
    BareList()
    {
        m_proxy.setSourceModel(&m_model);
        setModel(&m_proxy);
        setSortingEnabled(true);
        sortByColumn(1, Qt::AscendingOrder);
    }

    void clear() { m_model.removeRows(0, m_model.rowCount()); }

    void fill(const QVector<WifiProperty> &networks)
    {
        for (int row = 0; row < qMin(networks.size(), ShownRows); ++row) {
            const WifiProperty &network = networks.at(row);
            m_model.appendRow({new QStandardItem, new QStandardItem(network.ssid),
                new QStandardItem(QString::number(network.rssi)),
                new QStandardItem(QString::number(network.channel)),
                new QStandardItem(network.security), new QStandardItem(network.bssid)});
        }
    }

    void update(const QVector<WifiProperty> &networks)
    {
        for (int row = 0; row < m_model.rowCount(); ++row)
            m_model.item(row, 2)->setText(QString::number(networks.at(row).rssi));
    }

private:
    QStandardItemModel m_model;
    QSortFilterProxyModel m_proxy;
};

/// The same networks, each with a signal one dB weaker.
QVector<WifiProperty> weaker(QVector<WifiProperty> networks)
{
    for (WifiProperty &network : networks)
        --network.rssi;
    return networks;
}

void benchList(int count)
{
    const QVector<WifiProperty> networks = TestAir::networks(count);
    const QVector<WifiProperty> later = weaker(networks);
    int updates = 0;
    const auto next = [&]() -> const QVector<WifiProperty> & {
        return ++updates / 2 % 2 == 0 ? networks : later;
    };
    SignalTreeView list;
    BareList bare;
    for (QWidget *view : {static_cast<QWidget *>(&list), static_cast<QWidget *>(&bare)}) {
        view->resize(ListSize);
        view->show();
    }
    const auto report = [count](const char *what, std::pair<double, double> us) {
        SideBySide::report(qPrintable(QString::fromLatin1(what).arg(count)), us);
    };

    report("list: first fill of %1 networks", SideBySide::compareProcessor(
                                                  Rounds,
                                                  [&] {
                                                      list.EmptyWifiPropertyMap();
                                                      list.onDataReturned(networks);
                                                  },
                                                  [&] {
                                                      bare.clear();
                                                      bare.fill(networks);
                                                  }));
    report("list: update of %1 networks",
        SideBySide::compareProcessor(
            Rounds, [&] { list.onDataReturned(next()); }, [&] { bare.update(next()); }));
    report("list: update of %1 networks, painted", SideBySide::compareProcessor(
                                                       Rounds,
                                                       [&] {
                                                           list.onDataReturned(next());
                                                           QCoreApplication::processEvents();
                                                       },
                                                       [&] {
                                                           bare.update(next());
                                                           QCoreApplication::processEvents();
                                                       }));
}
} // namespace

int main(int argc, char *argv[])
{
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    const MessageLog quiet;
    QtCommonTools::Init();
    std::printf("%-52s %13s  %13s  %6s\n", "", "ours", "bare", "ratio");
    for (int count : {15, 60, 300, 1000, 5000})
        benchList(count);
    QtCommonTools::Release();
    return 0;
}
