#include "linux/channelnumber.h"

#include "scan/wifiapicontract.h"

#include <algorithm>

namespace LinuxWifi
{

namespace
{
const std::uint32_t LowestSixGigahertz = 5955;
const std::uint32_t HighestSixGigahertz = 7115;
} // namespace

int channelOfFrequency(std::uint32_t megahertz)
{
    if (megahertz > HighestSixGigahertz)
        return 0;
    const int frequency = static_cast<int>(megahertz);
    if (frequency == 2484) // Japan's channel 14 lies off the grid
        return 14;
    if (frequency == 5935) // so does the lowest of 6 GHz
        return ScanChannel6GHz + 2;
    if (megahertz >= LowestSixGigahertz)
        return ScanChannel6GHz + (frequency - 5950) / 5;
    int channel = 0;
    if (frequency < 2484)
        channel = (frequency - 2407) / 5;
    else if (frequency >= 4910 && frequency <= 4980)
        channel = (frequency - 4000) / 5;
    else if (frequency < 5950)
        channel = (frequency - 5000) / 5;
    return std::max(channel, 0);
}

} // namespace LinuxWifi
