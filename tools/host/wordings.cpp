#include "host/wordings.h"

#include <cstdio>
#include <system_error>

namespace AirlumeHost
{

std::string unescaped(std::string_view text)
{
    constexpr std::string_view letters = "nrt\\";
    constexpr std::string_view meanings = "\n\r\t\\";
    std::string result;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const std::size_t letter = text[i] == '\\' && i + 1 < text.size()
                                       ? letters.find(text[i + 1])
                                       : std::string_view::npos;
        if (letter == std::string_view::npos) {
            result += text[i];
        } else {
            result += meanings[letter];
            ++i;
        }
    }
    return result;
}

std::string printable(std::string_view text)
{
    constexpr std::string_view digits = "0123456789abcdef";
    std::string result;
    for (const char character : text) {
        const unsigned value = static_cast<unsigned char>(character);
        if (value >= 0x20 && value != 0x7f)
            result += character;
        else
            result.append("\\x").append({digits[value / 16], digits[value % 16]});
    }
    return result;
}

void print(std::string_view line)
{
    std::fwrite(line.data(), 1, line.size(), stdout);
    std::fputc('\n', stdout);
    std::fflush(stdout);
}

void complain(std::string_view sentence)
{
    const std::string line = "airlume-host: " + std::string(sentence) + '\n';
    std::fputs(line.c_str(), stderr);
}

std::string withReason(std::string_view what, int error)
{
    return std::string(what) + ": " + std::generic_category().message(error);
}

} // namespace AirlumeHost
