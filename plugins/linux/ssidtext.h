#ifndef AIRLUME_LINUX_SSIDTEXT_H
#define AIRLUME_LINUX_SSIDTEXT_H

#include <string>

namespace LinuxWifi
{

/// A network name as text in valid UTF-8, from the octets heard (which may be any).
/// UTF-8 stays as it is; each octet that is not part of it, and each NUL, becomes `\xNN`
/// (lower-case hexadecimal). A hidden name (empty or nothing but NUL) gives an empty text. Pure,
/// without Qt.
std::string ssidText(const std::string &octets);

} // namespace LinuxWifi

#endif
