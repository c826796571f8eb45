#ifndef AIRLUME_LINUX_CHANNELNUMBER_H
#define AIRLUME_LINUX_CHANNELNUMBER_H

#include <cstdint>

namespace LinuxWifi
{

/// Channel number of a centre frequency in MHz: 2.4 GHz 1 to 14, 5 GHz, 6 GHz (whose numbers start
/// again at 1). 0 when the frequency belongs to no channel. Pure, without Qt.
/// The formulas are those of IEEE 802.11, annex E (operating classes).
int channelOfFrequency(std::uint32_t megahertz);

} // namespace LinuxWifi

#endif
