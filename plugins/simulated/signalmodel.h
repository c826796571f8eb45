#ifndef AIRLUME_SIMULATED_SIGNALMODEL_H
#define AIRLUME_SIMULATED_SIGNALMODEL_H

#include "simulated/scenario.h"

/// The arithmetic of simulated signals. Pure: the same arguments always give the same result, on
/// every machine.
namespace SignalModel
{

/// A number that tells texts apart (FNV-1a over the UTF-16 units). Unlike qHash() it is the same
/// in every version of Qt, so that a seed keeps its meaning.
quint64 TextKey(const QString &text);

/// A slow random change between -1 and 1 at `seconds` (0 or later), different for each seed and
/// key. It changes by less than 0.13 a second.
double Wander(quint64 seed, quint64 key, double seconds);

/// Mean signal in dBm on a walk, which starts over at the time of its last point. `walk` has two or
/// more points, in ascending order of time, the first at 0.
double WalkSignal(const QVector<WalkPoint> &walk, double seconds);

/// Signal of a network in whole dBm, -100 to 0. `key` is the TextKey() of its BSSID.
int Signal(const ScenarioNetwork &network, quint64 seed, quint64 key, double seconds);

/// Link rate in Mbps, at least 1, at a signal of `dbm` of a link that reaches `top` Mbps when the
/// signal is strong. The steps are those of the modulation and coding schemes of IEEE 802.11ac at
/// 80 MHz with the receiver sensitivities the standard asks for.
int LinkRate(int top, int dbm);

} // namespace SignalModel

#endif
