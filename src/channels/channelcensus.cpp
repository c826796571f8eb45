#include "channels/channelcensus.h"

namespace
{
const unsigned HighestChannel = 65535;
const int CrowdedFrom = 4;
} // namespace

int ChannelCensus::CountedAs(int channel)
{
    return static_cast<unsigned>(channel) > HighestChannel ? 0 : channel;
}

ChannelCensus::Clarity ChannelCensus::Rate(int networks)
{
    switch (networks) {
    case 1:
        return Clarity::Best;
    case 2:
    case 3:
        return Clarity::Great;
    case 4:
    case 5:
    case 6:
        return Clarity::Average;
    default:
        // Deliberate: a channel without any network is rated like a crowded one.
        return Clarity::Poor;
    }
}

void ChannelCensus::Clear()
{
    m_counts.clear();
}

int ChannelCensus::Add(int channel)
{
    const int counted = CountedAs(channel);
    ++m_counts[counted];
    return counted;
}

QString ChannelCensus::Recommended() const
{
    // Deliberate: only channels on which something was heard; free ones are never recommended.
    QString recommended;
    for (auto it = m_counts.cbegin(); it != m_counts.cend(); ++it) {
        if (it.value() >= CrowdedFrom)
            continue;
        if (!recommended.isEmpty())
            recommended += QLatin1Char(',');
        recommended += QString::number(it.key());
    }
    return recommended;
}
