#ifndef AIRLUME_TESTS_LINUX_ELEMENTBUILDER_H
#define AIRLUME_TESTS_LINUX_ELEMENTBUILDER_H

#include "linux/elementparser.h"

#include <QByteArray>
#include <QVector>

/// Makes information elements octet by octet.
namespace ElementBuilder
{

/// Any element. Its length is that of `body`, unless `claimed` gives another.
inline QByteArray element(int id, const QByteArray &body, int claimed = -1)
{
    QByteArray octets;
    octets.append(static_cast<char>(id));
    octets.append(static_cast<char>(claimed < 0 ? body.size() : claimed));
    return octets + body;
}

inline QByteArray name(const QByteArray &octets)
{
    return element(0, octets);
}

inline QByteArray number(int value)
{
    QByteArray octets;
    octets.append(static_cast<char>(value & 0xFF));
    octets.append(static_cast<char>(value >> 8));
    return octets;
}

inline QByteArray suite(std::uint32_t value)
{
    QByteArray octets;
    for (int shift = 24; shift >= 0; shift -= 8)
        octets.append(static_cast<char>((value >> shift) & 0xFF));
    return octets;
}

/// Version, group cipher and one pairwise cipher (CCMP), then the key management suites.
inline QByteArray securityBody(const QVector<std::uint32_t> &suites, std::uint32_t cipher)
{
    QByteArray body = number(1) + suite(cipher) + number(1) + suite(cipher) + number(suites.size());
    for (const std::uint32_t value : suites)
        body += suite(value);
    return body;
}

/// An RSN element with key management suites of 00-0F-AC, capabilities at its end.
inline QByteArray rsn(const QVector<int> &types)
{
    QVector<std::uint32_t> suites;
    for (const int type : types)
        suites.append(0x000FAC00U | static_cast<std::uint32_t>(type));
    return element(48, securityBody(suites, 0x000FAC04) + number(0));
}

/// A WPA element with key management suites of 00-50-F2.
inline QByteArray wpa(const QVector<int> &types)
{
    QVector<std::uint32_t> suites;
    for (const int type : types)
        suites.append(0x0050F200U | static_cast<std::uint32_t>(type));
    return element(221, suite(0x0050F201) + securityBody(suites, 0x0050F202));
}

inline LinuxWifi::InformationElements parse(const QByteArray &octets)
{
    // A copy of exactly this size on the heap, so that AddressSanitizer sees the first octet too
    // many.
    const std::vector<std::uint8_t> exact(octets.begin(), octets.end());
    return LinuxWifi::parseElements(exact.data(), exact.size());
}

} // namespace ElementBuilder

#endif
