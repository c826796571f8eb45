#include "channels/panelparts.h"

#include "channels/channelinterfacewgt.h"
#include "support/testair.h"

#include <QGridLayout>
#include <QScrollArea>

namespace PanelParts
{

void evaluate(ChannelInterfaceWgt &panel, const QVector<WifiProperty> &networks)
{
    for (int i = 0; i < 5; ++i)
        panel.slotDataReturned(networks);
}

QVector<WifiProperty> onChannels(const QList<int> &channels)
{
    QVector<WifiProperty> networks;
    for (int channel : channels) {
        networks.append(
            TestAir::network(QStringLiteral("Net %1").arg(networks.size()), -50, channel));
    }
    return networks;
}

QWidget *summary(const ChannelInterfaceWgt &panel, int row, int column)
{
    for (QGridLayout *grid : panel.findChildren<QGridLayout *>()) {
        if (grid->parentWidget()->size() == QSize(480, 160))
            return grid->itemAtPosition(row, column)->widget();
    }
    return nullptr;
}

QWidget *sheet(const ChannelInterfaceWgt &panel)
{
    return panel.findChild<QScrollArea *>()->widget();
}

QWidget *cell(const ChannelInterfaceWgt &panel, int channelRow, int column)
{
    QGridLayout *grid = qobject_cast<QGridLayout *>(sheet(panel)->layout());
    QLayoutItem *item = grid->itemAtPosition(1 + 2 * channelRow, column);
    return item ? item->widget() : nullptr;
}

} // namespace PanelParts
