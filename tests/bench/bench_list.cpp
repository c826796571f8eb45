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
const std::size_t MostRounds = 201;
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

void benchList(int count, std::size_t rounds)
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
    const auto bench = [count, rounds](const char *what, const std::function<void()> &ours,
                           const std::function<void()> &floor) {
        SideBySide::report(what, count, SideBySide::compareProcessor(rounds, ours, floor));
    };

    bench(
        "list filled for the first time",
        [&] {
            list.EmptyWifiPropertyMap();
            list.onDataReturned(networks);
        },
        [&] {
            bare.clear();
            bare.fill(networks);
        });
    bench(
        "list updated", [&] { list.onDataReturned(next()); }, [&] { bare.update(next()); });
    bench(
        "list updated and painted",
        [&] {
            list.onDataReturned(next());
            QCoreApplication::processEvents();
        },
        [&] {
            bare.update(next());
            QCoreApplication::processEvents();
        });
}
} // namespace

int main(int argc, char *argv[])
{
    const SideBySide::Extent extent(argc, argv);
    const QApplication application(argc, argv);
    const MessageLog quiet;
    QtCommonTools::Init();
    for (int count : extent.networks())
        benchList(count, extent.isQuick() ? MostRounds / 4 : MostRounds);
    QtCommonTools::Release();
    return 0;
}
