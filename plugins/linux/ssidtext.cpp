#include "linux/ssidtext.h"

#include <cstddef>

namespace LinuxWifi
{

namespace
{
/// Length of the well-formed UTF-8 sequence at `at`, or 0 when there is none: overlong forms,
/// surrogates and numbers above U+10FFFF are none (Unicode standard, table 3-7).
std::size_t sequenceLength(const std::string &octets, std::size_t at)
{
    const auto octet = [&octets](std::size_t i) { return static_cast<unsigned char>(octets[i]); };
    const unsigned char first = octet(at);
    if (first < 0x80)
        return 1;

    std::size_t length = 0;
    unsigned char lowest = 0x80; // of the second octet
    unsigned char highest = 0xBF;
    if (first >= 0xC2 && first <= 0xDF) {
        length = 2;
    } else if (first >= 0xE0 && first <= 0xEF) {
        length = 3;
        if (first == 0xE0)
            lowest = 0xA0;
        else if (first == 0xED)
            highest = 0x9F;
    } else if (first >= 0xF0 && first <= 0xF4) {
        length = 4;
        if (first == 0xF0)
            lowest = 0x90;
        else if (first == 0xF4)
            highest = 0x8F;
    }
    if (length == 0 || length > octets.size() - at)
        return 0;
    if (octet(at + 1) < lowest || octet(at + 1) > highest)
        return 0;
    for (std::size_t i = at + 2; i < at + length; ++i) {
        if (octet(i) < 0x80 || octet(i) > 0xBF)
            return 0;
    }
    return length;
}

void appendEscaped(std::string &text, unsigned char octet)
{
    const char *const digits = "0123456789abcdef";
    text += "\\x";
    text += digits[octet >> 4];
    text += digits[octet & 0x0F];
}
} // namespace

std::string ssidText(const std::string &octets)
{
    if (octets.find_first_not_of('\0') == std::string::npos)
        return {};
    std::string text;
    for (std::size_t at = 0; at < octets.size();) {
        const std::size_t length = octets[at] == '\0' ? 0 : sequenceLength(octets, at);
        if (length == 0) {
            appendEscaped(text, static_cast<unsigned char>(octets[at]));
            ++at;
        } else {
            text.append(octets, at, length);
            at += length;
        }
    }
    return text;
}

} // namespace LinuxWifi
