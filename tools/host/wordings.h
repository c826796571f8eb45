#ifndef AIRLUME_TOOLS_HOST_WORDINGS_H
#define AIRLUME_TOOLS_HOST_WORDINGS_H

#include <string>
#include <string_view>

namespace AirlumeHost
{

/// Replaces \n, \r, \t and \\ by what they stand for; every other backslash stays. Pure.
std::string unescaped(std::string_view text);

/// For a terminal: control characters as \xNN, everything else as it stands. Pure.
std::string printable(std::string_view text);

/// Prints a line on the standard output, at once: whoever started the host waits for it.
void print(std::string_view line);

/// Prints "airlume-host: " and the sentence on the standard error output.
void complain(std::string_view sentence);

/// `what`, ": " and what the system says of the error number, in plain words.
std::string withReason(std::string_view what, int error);

} // namespace AirlumeHost

#endif
