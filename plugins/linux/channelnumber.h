#ifndef AIRLUME_LINUX_CHANNELNUMBER_H
#define AIRLUME_LINUX_CHANNELNUMBER_H

#include <cstdint>

namespace LinuxWifi
{

/// Added to the channel numbers of 6 GHz, which begin with 1 again: a number then stands for one
/// channel of one band, and a listener who knows numbers only cannot take channel 5 at 6 GHz (6005)
/// for channel 5 at 2.4 GHz.
constexpr int SixGigahertzOffset = 6000;

/// Channel number of a centre frequency in MHz: 2.4 GHz 1 to 14, 5 GHz (with Japan's 4.9 GHz) as
/// they are, 6 GHz 6001 to 6233. 0 when the frequency belongs to no channel. 5935 MHz is 6002:
/// channel 2 of operating class 136, which lies below channel 1. Pure, without Qt.
/// The formulas are those of IEEE 802.11, annex E (operating classes).
int channelOfFrequency(std::uint32_t megahertz);

} // namespace LinuxWifi

#endif
