#ifndef AIRLUME_LINUX_SECURITYTEXT_H
#define AIRLUME_LINUX_SECURITYTEXT_H

#include <string>

namespace LinuxWifi
{

struct InformationElements;

/// The security of an access point in words, in ASCII: "Open", "WEP", "WPA2-PSK", "WPA2/WPA3",
/// "WPA3-Enterprise", … Several kinds are joined by ", ". A suite not known here is named by its
/// number ("Suite 00-0F-AC:99"). Elements that cannot be read give "Unknown", never "Open".
/// "OWE transition" is the open twin of an OWE network, which new stations join in its place.
/// `privacy` is the privacy bit of the capability field. Pure, without Qt.
///
/// The suites are those of IEEE 802.11, table 9-188; what makes one of them WPA3 is the Wi-Fi
/// Alliance's: 802.1X with SHA-256 and protected frames required, or SHA-384 ("192-bit" with the
/// CNSA set).
std::string securityText(const InformationElements &elements, bool privacy);

} // namespace LinuxWifi

#endif
