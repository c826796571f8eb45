#ifndef AIRLUME_CHANNELS_CHANNELCENSUS_H
#define AIRLUME_CHANNELS_CHANNELCENSUS_H

#include <QMap>
#include <QString>

/// Counts the access points on each channel, rates the channels and recommends some.
/// Pure: no widgets, no clock; safe on any thread.
///
/// Only the exact channel counts: neighbouring channels are not added in, and the bands are treated
/// alike.
class ChannelCensus
{
public:
    /// How clear a channel is.
    enum class Clarity { Poor, Average, Great, Best };

    /// The channel under which `channel` is counted: 0 for everything outside 0..65535.
    static int CountedAs(int channel);
    /// Rates a channel by the number of access points on it: 1 is Best, 2 and 3 are Great, 4 to 6
    /// are Average, everything else is Poor.
    static Clarity Rate(int networks);

    /// Forgets everything counted.
    void Clear();
    /// Adds one access point and returns the channel it was counted under.
    int Add(int channel);

    /// Occupied channels in ascending order, with their number of access points.
    const QMap<int, int> &Counts() const { return m_counts; }
    /// The occupied channels with fewer than four access points, ascending: "1,11".
    QString Recommended() const;

private:
    QMap<int, int> m_counts;
};

#endif
