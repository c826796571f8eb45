#ifndef AIRLUME_LINUX_ELEMENTPARSER_H
#define AIRLUME_LINUX_ELEMENTPARSER_H

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace LinuxWifi
{

/// What an access point says about its security in one element (RSN, its overrides, WPA or WAPI).
struct SecurityElement {
    enum class State {
        Absent,
        Valid,
        Malformed, ///< There, but it cannot be read: never to be taken for "no security".
    };
    State state = State::Absent;
    /// Key management suites in the order heard: OUI in the upper three octets, type in the lowest
    /// (0x000FAC02 is PSK). Filled only when Valid, and then never empty.
    std::vector<std::uint32_t> suites;
    bool protectionCapable = false;  ///< Management frames can be protected; RSN only.
    bool protectionRequired = false; ///< They must be.
};

/// The information elements of one access point, as far as they matter here.
struct InformationElements {
    bool hasName = false; ///< There was a network name, be it an empty one.
    std::string name;     ///< 0 to 32 octets exactly as heard: any octets, NUL included.
    SecurityElement rsn;  ///< WPA2 and later.
    /// What newer stations are to take in the place of `rsn`, which then speaks to old ones only.
    SecurityElement rsnOverride;
    SecurityElement rsnOverride2; ///< For stations newer still.
    SecurityElement wpa;          ///< The first WPA.
    SecurityElement wapi;         ///< WAPI, of China's standards.
    bool osen = false;            ///< Encrypted for the sign-up to a hotspot only.
    bool oweTransition = false;   ///< It names a twin: one of the two is open, the other OWE.
    bool truncated = false; ///< An element claims more octets than there are: the rest is unknown.
};

/// Reads the element list of a beacon or probe response. The octets come from strangers: any are
/// allowed, none is looked at before its place has been checked. The first element of a kind
/// counts. Pure, without Qt; `octets` may be null when `size` is 0.
/// Forms and numbers are those of IEEE 802.11, 9.4.2, of the Wi-Fi Alliance's WPA3 and OWE
/// (overrides, OSEN, transition), and of GB 15629.11 (WAPI).
InformationElements parseElements(const std::uint8_t *octets, std::size_t size);

} // namespace LinuxWifi

#endif
