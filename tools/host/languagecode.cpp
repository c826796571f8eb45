#include "host/languagecode.h"

#include <algorithm>
#include <cctype>
#include <cstdlib>

namespace AirlumeHost
{

namespace
{
/// A language of ISO 639 and Airlume's code for it.
struct Language {
    std::string_view name;
    std::string_view code;
};

// Where two names have one code the first is the usual one. Chinese is told by languageOfLocale().
constexpr Language Languages[] = {{"en", "enu"}, {"de", "deu"}, {"sv", "sve"}, {"fr", "fra"},
    {"nl", "nld"}, {"it", "ita"}, {"es", "esp"}, {"da", "dan"}, {"fi", "fin"}, {"nb", "nor"},
    {"nn", "nor"}, {"no", "nor"}, {"el", "ell"}, {"pt", "ptb"}, {"ru", "rus"}, {"pl", "plk"},
    {"hu", "hun"}, {"cs", "csy"}, {"sl", "slv"}, {"sk", "sky"}, {"ro", "rom"}, {"ko", "kor"},
    {"ja", "jpn"}, {"ar", "ara"}, {"tr", "tur"}};
constexpr std::string_view SimplifiedChinese = "chs";
constexpr std::string_view TraditionalChinese = "cht";

bool isOneOf(std::string_view text, std::initializer_list<std::string_view> texts)
{
    return std::find(texts.begin(), texts.end(), text) != texts.end();
}

/// Takes the part before the next "_" or "-" off the front of `locale`.
std::string_view takePart(std::string_view &locale)
{
    const std::size_t end = std::min(locale.find_first_of("_-"), locale.size());
    const std::string_view part = locale.substr(0, end);
    locale.remove_prefix(std::min(end + 1, locale.size()));
    return part;
}

/// By the script, where the locale names it, otherwise by what the country writes.
std::string_view chinese(std::string_view parts)
{
    std::string_view byCountry = SimplifiedChinese;
    while (!parts.empty()) {
        const std::string_view part = takePart(parts);
        if (part == "hans")
            return SimplifiedChinese;
        if (part == "hant")
            return TraditionalChinese;
        if (isOneOf(part, {"tw", "hk", "mo"}))
            byCountry = TraditionalChinese;
    }
    return byCountry;
}
} // namespace

bool isLanguageCode(std::string_view code)
{
    return isOneOf(code, {SimplifiedChinese, TraditionalChinese}) ||
           std::any_of(std::begin(Languages), std::end(Languages),
               [code](const Language &language) { return language.code == code; });
}

std::string languageCodes()
{
    std::string codes;
    std::string_view previous;
    for (const Language &language : Languages) {
        if (language.code != previous)
            codes.append(language.code).append(" ");
        previous = language.code;
    }
    return codes.append(SimplifiedChinese).append(" ").append(TraditionalChinese);
}

std::string_view languageOfLocale(std::string_view locale)
{
    // language[_script][_country][.encoding][@modifier]
    std::string name(locale.substr(0, locale.find_first_of(".@")));
    std::transform(name.begin(), name.end(), name.begin(),
        [](unsigned char letter) { return static_cast<char>(std::tolower(letter)); });
    std::string_view parts = name;
    const std::string_view language = takePart(parts);
    // Mandarin and Cantonese have locales of their own and are written in the same two ways.
    if (isOneOf(language, {"zh", "cmn", "yue"}))
        return chinese(parts);
    const Language *const found = std::find_if(std::begin(Languages), std::end(Languages),
        [language](const Language &known) { return known.name == language; });
    return found == std::end(Languages) ? English : found->code;
}

std::string_view languageOfEnvironment()
{
    for (const char *variable : {"LC_ALL", "LC_MESSAGES", "LANG"}) {
        const char *const locale = std::getenv(variable);
        if (locale && *locale != '\0')
            return languageOfLocale(locale);
    }
    return English;
}

} // namespace AirlumeHost
