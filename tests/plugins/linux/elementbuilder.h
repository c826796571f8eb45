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

/// Capabilities of an RSN element: management frames can be, or must be, protected.
enum Protection { Unprotected = 0, ProtectionCapable = 0x80, ProtectionRequired = 0xC0 };

inline QByteArray rsnBody(const QVector<int> &types, int capabilities)
{
    QVector<std::uint32_t> suites;
    for (const int type : types)
        suites.append(0x000FAC00U | static_cast<std::uint32_t>(type));
    return securityBody(suites, 0x000FAC04) + number(capabilities);
}

/// An RSN element with key management suites of 00-0F-AC, capabilities at its end.
inline QByteArray rsn(const QVector<int> &types, int capabilities = Unprotected)
{
    return element(48, rsnBody(types, capabilities));
}

/// A vendor element, `vendorType` being its OUI and type.
inline QByteArray vendor(std::uint32_t vendorType, const QByteArray &body = {})
{
    return element(221, suite(vendorType) + body);
}

/// An RSN override, the second one with `which` 2.
inline QByteArray rsnOverride(
    const QVector<int> &types, int capabilities = ProtectionRequired, int which = 1)
{
    return vendor(which == 2 ? 0x506F9A2A : 0x506F9A29, rsnBody(types, capabilities));
}

/// A WPA element with key management suites of 00-50-F2.
inline QByteArray wpa(const QVector<int> &types)
{
    QVector<std::uint32_t> suites;
    for (const int type : types)
        suites.append(0x0050F200U | static_cast<std::uint32_t>(type));
    return vendor(0x0050F201, securityBody(suites, 0x0050F202));
}

/// A WAPI element with key management suites of 00-14-72, its ciphers and capabilities behind them.
inline QByteArray wapi(const QVector<int> &types)
{
    QByteArray body = number(1) + number(types.size());
    for (const int type : types)
        body += suite(0x00147200U | static_cast<std::uint32_t>(type));
    const QByteArray cipher = suite(0x00147201);
    return element(68, body + number(1) + cipher + cipher + number(0));
}

/// What an OWE network and its open twin say about each other: address and name of the other.
inline QByteArray oweTransition(const QByteArray &twin = "Twin")
{
    return vendor(
        0x506F9A1C, QByteArray(6, '\2') + QByteArray(1, static_cast<char>(twin.size())) + twin);
}

/// As an access point sends it for the sign-up to a hotspot: ciphers, one suite, capabilities.
inline QByteArray osen()
{
    return vendor(0x506F9A12, suite(0x000FAC07) + number(1) + suite(0x000FAC04) + number(1) +
                                  suite(0x506F9A01) + number(0));
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
