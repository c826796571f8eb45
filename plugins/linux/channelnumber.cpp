#include "linux/channelnumber.h"

#include <algorithm>

namespace LinuxWifi
{

int channelOfFrequency(std::uint32_t megahertz)
{
    if (megahertz > 45000)
        return 0;
    const int frequency = static_cast<int>(megahertz);
    int channel = 0;
    if (frequency == 2484) // Japan's channel 14 lies off the grid
        channel = 14;
    else if (frequency < 2484)
        channel = (frequency - 2407) / 5;
    else if (frequency >= 4910 && frequency <= 4980)
        channel = (frequency - 4000) / 5;
    else if (frequency == 5935) // so does the lowest of 6 GHz
        channel = 2;
    else if (frequency < 5950)
        channel = (frequency - 5000) / 5;
    else
        channel = (frequency - 5950) / 5;
    return std::max(channel, 0);
}

} // namespace LinuxWifi
