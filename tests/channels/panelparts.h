#ifndef AIRLUME_TESTS_CHANNELS_PANELPARTS_H
#define AIRLUME_TESTS_CHANNELS_PANELPARTS_H

#include "scan/wifiproperty.h"

class ChannelInterfaceWgt;
class QWidget;

/// The interference panel's parts, found as they lie on it.
namespace PanelParts
{

/// Makes the panel evaluate `networks`: of any five vectors in a row exactly one is.
void evaluate(ChannelInterfaceWgt &panel, const QVector<WifiProperty> &networks);

/// Networks "Net 0", "Net 1", … on these channels.
QVector<WifiProperty> onChannels(const QList<int> &channels);

/// What lies in a cell of the current channel's area.
QWidget *summary(const ChannelInterfaceWgt &panel, int row, int column);

/// The sheet that holds the per-channel list.
QWidget *sheet(const ChannelInterfaceWgt &panel);

/// What lies in a cell of the list's `channelRow`-th channel; null beyond the last one.
QWidget *cell(const ChannelInterfaceWgt &panel, int channelRow, int column);

} // namespace PanelParts

#endif
