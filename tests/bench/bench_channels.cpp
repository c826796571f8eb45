// What one evaluation of the interference panel costs, beside the least that Qt needs to put the
// same rows into a grid, and the counting beside a bare QHash.

#include "bench/sidebyside.h"
#include "channels/channelcensus.h"
#include "channels/channelinterfacewgt.h"
#include "common/QtCommonTools.h"
#include "support/messagelog.h"
#include "support/testair.h"

#include <QApplication>
#include <QGridLayout>
#include <QHash>
#include <QLabel>
#include <QProgressBar>
#include <QScrollArea>

namespace
{
const std::size_t Rounds = 21;

QVector<WifiProperty> networksOn(int records, int channels)
{
    QVector<WifiProperty> networks;
    for (int i = 0; i < records; ++i)
        networks.append(TestAir::network(QStringLiteral("Network %1").arg(i), -50, i % channels));
    return networks;
}

/// One vector out of five in a row is evaluated.
void evaluate(ChannelInterfaceWgt &panel, const QVector<WifiProperty> &networks)
{
    for (int i = 0; i < 5; ++i)
        panel.slotDataReturned(networks);
}

/// As many labels and bars as the panel's list has, without colours, words and sizes.
void fillBare(QScrollArea &area, int rows)
{
    QWidget *sheet = new QWidget;
    QGridLayout *grid = new QGridLayout(sheet);
    for (int row = 0; row < rows; ++row) {
        grid->addWidget(new QLabel(QStringLiteral("6")), 2 * row, 0);
        grid->addWidget(new QProgressBar, 2 * row, 1);
        grid->addWidget(new QLabel(QStringLiteral("6")), 2 * row, 2);
        grid->addWidget(new QLabel(QStringLiteral("GREAT")), 2 * row, 3);
        grid->addWidget(new QLabel, 2 * row + 1, 0, 1, 4);
    }
    area.setWidget(sheet);
}
} // namespace

int main(int argc, char **argv)
{
    QApplication app(argc, argv);
    const MessageLog quiet;
    QtCommonTools::Init();
    std::printf("%-52s %13s  %13s  %6s\n", "", "ours", "bare", "ratio");
    for (int channels : {1, 8, 40, 200}) {
        for (int records : {15, 300, 5000}) {
            const int occupied = qMin(channels, records);
            const QVector<WifiProperty> networks = networksOn(records, channels);
            ChannelInterfaceWgt panel;
            panel.resize(1080, 330);
            panel.show();
            panel.onNetworkReturned(QStringLiteral("Network 0"));
            QScrollArea area;
            area.resize(590, 330);
            area.show();
            const QString what =
                QStringLiteral("evaluate %1 records on %2 channels").arg(records, 4).arg(occupied);
            SideBySide::report(qPrintable(what),
                SideBySide::compare(
                    Rounds, [&] { evaluate(panel, networks); }, [&] { fillBare(area, occupied); }));

            int sink = 0;
            SideBySide::report("  counting alone, beside a QHash",
                SideBySide::compare(
                    Rounds,
                    [&] {
                        ChannelCensus census;
                        for (const WifiProperty &network : networks)
                            sink += census.Add(network.channel);
                    },
                    [&] {
                        QHash<int, int> counts;
                        for (const WifiProperty &network : networks)
                            sink += ++counts[network.channel];
                    }));
            if (sink == -1)
                return 1;
        }
    }
    QtCommonTools::Release();
    return 0;
}
