#include "linux/securitytext.h"

#include "linux/elementparser.h"

#include <algorithm>
#include <cstdio>

namespace LinuxWifi
{

namespace
{
const std::uint32_t RsnOui = 0x000FAC00;
const std::uint32_t WpaOui = 0x0050F200;
const std::uint32_t OuiMask = 0xFFFFFF00;
// A stranger's element has room for sixty suites; nobody reads a text of that length.
const std::size_t MaximumUnknownSuites = 3;

/// The kinds of key management that one element offers.
struct Kinds {
    bool enterprise = false;
    bool psk = false;
    bool sae = false;
    bool suiteB = false;
    bool fils = false;
    bool owe = false;
    std::vector<std::uint32_t> unknown;

    void addUnknown(std::uint32_t suite)
    {
        if (std::find(unknown.begin(), unknown.end(), suite) == unknown.end())
            unknown.push_back(suite);
    }
};

Kinds rsnKinds(const SecurityElement &element)
{
    Kinds kinds;
    for (const std::uint32_t suite : element.suites) {
        switch ((suite & OuiMask) == RsnOui ? suite & ~OuiMask : 0) {
        case 1: // plain, with fast transition, with SHA-256
        case 3:
        case 5:
            kinds.enterprise = true;
            break;
        case 2: // plain, with fast transition, with SHA-256, with SHA-384 (two)
        case 4:
        case 6:
        case 19:
        case 20:
            kinds.psk = true;
            break;
        case 8: // plain, with fast transition, and both with a group-dependent hash
        case 9:
        case 24:
        case 25:
            kinds.sae = true;
            break;
        case 11:
        case 12:
        case 13:
            kinds.suiteB = true;
            break;
        case 14:
        case 15:
        case 16:
        case 17:
            kinds.fils = true;
            break;
        case 18:
            kinds.owe = true;
            break;
        default:
            kinds.addUnknown(suite);
        }
    }
    return kinds;
}

Kinds wpaKinds(const SecurityElement &element)
{
    Kinds kinds;
    for (const std::uint32_t suite : element.suites) {
        if (suite == (WpaOui | 1))
            kinds.enterprise = true;
        else if (suite == (WpaOui | 2))
            kinds.psk = true;
        else
            kinds.addUnknown(suite);
    }
    return kinds;
}

std::string suiteNumber(std::uint32_t suite)
{
    char text[32];
    std::snprintf(text, sizeof text, "Suite %02X-%02X-%02X:%u", (suite >> 24) & 0xFFU,
        (suite >> 16) & 0xFFU, (suite >> 8) & 0xFFU, suite & 0xFFU);
    return text;
}

void addPassphraseKinds(const Kinds &rsn, const Kinds &wpa, std::vector<std::string> &parts)
{
    if (rsn.psk && rsn.sae) {
        parts.push_back(wpa.psk ? "WPA/WPA2/WPA3" : "WPA2/WPA3");
    } else if (rsn.psk) {
        parts.push_back(wpa.psk ? "WPA/WPA2-PSK" : "WPA2-PSK");
    } else {
        if (wpa.psk)
            parts.push_back("WPA-PSK");
        if (rsn.sae)
            parts.push_back("WPA3-SAE");
    }
}

void addEnterpriseKinds(const Kinds &rsn, const Kinds &wpa, std::vector<std::string> &parts)
{
    if (rsn.enterprise)
        parts.push_back(wpa.enterprise ? "WPA/WPA2-802.1X" : "WPA2-802.1X");
    else if (wpa.enterprise)
        parts.push_back("WPA-802.1X");
}

std::string joined(const std::vector<std::string> &parts)
{
    std::string text;
    for (const std::string &part : parts) {
        if (!text.empty())
            text += ", ";
        text += part;
    }
    return text;
}
} // namespace

std::string securityText(const InformationElements &elements, bool privacy)
{
    using State = SecurityElement::State;
    if (elements.rsn.state != State::Valid && elements.wpa.state != State::Valid) {
        if (elements.rsn.state == State::Malformed || elements.wpa.state == State::Malformed ||
            elements.truncated)
            return "Unknown";
        return privacy ? "WEP" : "Open";
    }

    const Kinds rsn = rsnKinds(elements.rsn);
    const Kinds wpa = wpaKinds(elements.wpa);
    std::vector<std::string> parts;
    addPassphraseKinds(rsn, wpa, parts);
    addEnterpriseKinds(rsn, wpa, parts);
    if (rsn.suiteB)
        parts.push_back("Suite B");
    if (rsn.fils)
        parts.push_back("FILS");
    if (rsn.owe)
        parts.push_back("OWE");
    std::vector<std::uint32_t> unknown = rsn.unknown;
    unknown.insert(unknown.end(), wpa.unknown.begin(), wpa.unknown.end());
    for (std::size_t i = 0; i < unknown.size() && i < MaximumUnknownSuites; ++i)
        parts.push_back(suiteNumber(unknown[i]));
    if (unknown.size() > MaximumUnknownSuites)
        parts.push_back("...");
    return joined(parts);
}

} // namespace LinuxWifi
