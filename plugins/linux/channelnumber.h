#ifndef AIRLUME_LINUX_CHANNELNUMBER_H
#define AIRLUME_LINUX_CHANNELNUMBER_H

#include <cstdint>

namespace LinuxWifi
{

/// Channel number of a centre frequency in MHz: 2.4 GHz 1 to 14, 5 GHz (with Japan's 4.9 GHz) as
/// they are, 6 GHz 6001 to 6233. 0 when the frequency belongs to no channel. 5935 MHz is 6002:
/// channel 2 of operating class 136, which lies below channel 1. Pure.
/// The formulas are those of IEEE 802.11, annex E (operating classes).
int channelOfFrequency(std::uint32_t megahertz);

} // namespace LinuxWifi

#endif
