#ifndef AIRLUME_TOOLS_HOST_PROGRAMSTART_H
#define AIRLUME_TOOLS_HOST_PROGRAMSTART_H

#include <string_view>

namespace AirlumeHost
{

/// Becomes the program `command` (with its arguments, ended by null), which will speak `language`.
///
/// Where Airlume would stay in English although another language is wanted, a host is left behind
/// that answers it once and ends: in a temporary folder of the user's own, which the program gets
/// for its own one, so that neither other users nor a host suite are met. A copy that runs already
/// is met in any case. What is in the way of all this is told in plain words, and the program
/// starts in English.
///
/// Returns only when the program cannot be started, with the exit status: 127 when it is missing,
/// otherwise 126.
int becomeProgram(std::string_view language, char *const *command);

} // namespace AirlumeHost

#endif
