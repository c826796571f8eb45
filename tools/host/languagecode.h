#ifndef AIRLUME_TOOLS_HOST_LANGUAGECODE_H
#define AIRLUME_TOOLS_HOST_LANGUAGECODE_H

#include <string>
#include <string_view>

namespace AirlumeHost
{

/// Airlume's default language.
inline constexpr std::string_view English = "enu";

/// One of the codes of Airlume's languages, such as "deu". Case counts.
bool isLanguageCode(std::string_view code);

/// All codes with blanks between, for a message.
std::string languageCodes();

/// The code for a locale, such as "de_AT.UTF-8", "zh_Hant_HK" or "nb"; English for one that Airlume
/// has no language for, and for none ("C", "POSIX"). Pure.
std::string_view languageOfLocale(std::string_view locale);

/// The code for the locale of messages that the environment names: the first of LC_ALL, LC_MESSAGES
/// and LANG that is not empty (POSIX, Base Definitions 8.2).
std::string_view languageOfEnvironment();

} // namespace AirlumeHost

#endif
