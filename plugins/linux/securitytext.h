#ifndef AIRLUME_LINUX_SECURITYTEXT_H
#define AIRLUME_LINUX_SECURITYTEXT_H

#include <string>

namespace LinuxWifi
{

struct InformationElements;

/// The security of an access point in words, in ASCII: "Open", "WEP", "WPA2-PSK", "WPA2/WPA3", …
/// Several kinds are joined by ", ". A suite not known here is named by its number
/// ("Suite 00-0F-AC:99"). Elements that cannot be read give "Unknown", never "Open".
/// `privacy` is the privacy bit of the capability field. Pure, without Qt.
std::string securityText(const InformationElements &elements, bool privacy);

} // namespace LinuxWifi

#endif
