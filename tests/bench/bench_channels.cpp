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
const std::size_t MostRounds = 21;

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

void benchPanel(const char *what, int records, int channels, const SideBySide::Extent &extent)
{
    const QVector<WifiProperty> networks = networksOn(records, channels);
    ChannelInterfaceWgt panel;
    panel.resize(1080, 330);
    panel.show();
    panel.onNetworkReturned(QStringLiteral("Network 0"));
    QScrollArea area;
    area.resize(590, 330);
    area.show();
    // The rows are what takes time, not the networks.
    const int rows = qMin(channels, records);
    SideBySide::report(what, records,
        SideBySide::compareProcessor(
            extent.rounds(MostRounds, rows), [&] { evaluate(panel, networks); },
            [&] { fillBare(area, rows); }));
}

void benchCensus(int records, const SideBySide::Extent &extent)
{
    const QVector<WifiProperty> networks = networksOn(records, 40);
    const std::size_t rounds = extent.isQuick() ? MostRounds : 10 * MostRounds;
    int sum = 0;
    SideBySide::report("channels counted, beside a QHash", records,
        SideBySide::compareProcessor(
            rounds,
            [&] {
                ChannelCensus census;
                for (const WifiProperty &network : networks)
                    sum += census.Add(network.channel);
            },
            [&] {
                QHash<int, int> counts;
                for (const WifiProperty &network : networks)
                    sum += ++counts[network.channel];
            }));
    // Used, so that the compiler leaves the counting in.
    if (sum < 0)
        qFatal("negative channels");
}
} // namespace

int main(int argc, char **argv)
{
    const SideBySide::Extent extent(argc, argv);
    QApplication app(argc, argv);
    const MessageLog quiet;
    QtCommonTools::Init();
    const std::vector<int> counts = extent.networks();
    for (int records : counts)
        benchPanel("panel recomputed, at most 40 channels", records, 40, extent);
    for (int records : counts)
        benchPanel("panel recomputed, at most 200 channels", records, 200, extent);
    for (int records : counts)
        benchCensus(records, extent);
    QtCommonTools::Release();
    return 0;
}
