#include "linux/securitytext.h"

#include "linux/elementparser.h"

#include <algorithm>
#include <cstdio>

namespace LinuxWifi
{

namespace
{
const std::uint32_t RsnOui = 0x000FAC00;
const std::uint32_t Dot1xSuite = RsnOui | 1;
const std::uint32_t Dot1xSha256Suite = RsnOui | 5;
// A stranger's element has room for sixty suites; nobody reads a text of that length.
const std::size_t MaximumUnknownSuites = 3;

/// The kinds of key management that an access point offers.
struct Offer {
    bool wpaPsk = false;
    bool wpaEnterprise = false;
    bool psk = false;
    bool sae = false;
    bool wpa2Enterprise = false;
    bool wpa3Enterprise = false;
    bool enterprise192 = false;
    bool suiteB = false;
    bool fils = false;
    bool owe = false;
    bool dpp = false;
    bool wapiPsk = false;
    bool wapiCertificate = false;
    bool osen = false;
    bool pasn = false;
    bool cckm = false;
    std::vector<std::uint32_t> unknown;

    void addUnknown(std::uint32_t suite)
    {
        if (std::find(unknown.begin(), unknown.end(), suite) == unknown.end())
            unknown.push_back(suite);
    }
};

struct KnownSuite {
    std::uint32_t suite;
    bool Offer::*kind;
};
using KnownSuites = std::vector<KnownSuite>;

bool offers(const SecurityElement &element, std::uint32_t suite)
{
    return std::find(element.suites.begin(), element.suites.end(), suite) != element.suites.end();
}

/// Whether 802.1X with SHA-256 is of WPA3 here: with protected management frames for all, or, while
/// WPA2 is offered too, for those who can.
bool sha256IsWpa3(const SecurityElement &element)
{
    return offers(element, Dot1xSha256Suite) &&
           (element.protectionRequired ||
               (element.protectionCapable && offers(element, Dot1xSuite)));
}

KnownSuites rsnSuites(const SecurityElement &element)
{
    bool Offer::*const sha256 =
        sha256IsWpa3(element) ? &Offer::wpa3Enterprise : &Offer::wpa2Enterprise;
    return {
        {Dot1xSuite, &Offer::wpa2Enterprise},
        {RsnOui | 2, &Offer::psk},
        {RsnOui | 3, sha256},      // fast transition
        {RsnOui | 4, &Offer::psk}, // fast transition
        {Dot1xSha256Suite, sha256},
        {RsnOui | 6, &Offer::psk}, // SHA-256
        {RsnOui | 8, &Offer::sae},
        {RsnOui | 9, &Offer::sae}, // fast transition
        {RsnOui | 11, &Offer::suiteB},
        {RsnOui | 12, &Offer::enterprise192},
        {RsnOui | 13, &Offer::enterprise192}, // fast transition
        {RsnOui | 14, &Offer::fils},          // SHA-256, SHA-384, and both with fast transition
        {RsnOui | 15, &Offer::fils},
        {RsnOui | 16, &Offer::fils},
        {RsnOui | 17, &Offer::fils},
        {RsnOui | 18, &Offer::owe},
        {RsnOui | 19, &Offer::psk}, // fast transition, SHA-384
        {RsnOui | 20, &Offer::psk}, // SHA-384
        {RsnOui | 21, &Offer::pasn},
        {RsnOui | 22, &Offer::wpa3Enterprise}, // fast transition, SHA-384
        {RsnOui | 23, &Offer::wpa3Enterprise}, // SHA-384
        {RsnOui | 24, &Offer::sae},            // a hash that depends on the group
        {RsnOui | 25, &Offer::sae},            // the same with fast transition
        {0x506F9A01, &Offer::osen},
        {0x506F9A02, &Offer::dpp},
        {0x00409600, &Offer::cckm},
    };
}

const KnownSuites &wpaSuites()
{
    static const KnownSuites suites{
        {0x0050F201, &Offer::wpaEnterprise},
        {0x0050F202, &Offer::wpaPsk},
        {0x00409600, &Offer::cckm},
    };
    return suites;
}

const KnownSuites &wapiSuites()
{
    static const KnownSuites suites{
        {0x00147201, &Offer::wapiCertificate},
        {0x00147202, &Offer::wapiPsk},
    };
    return suites;
}

void addSuites(const SecurityElement &element, const KnownSuites &known, Offer &offer)
{
    for (const std::uint32_t suite : element.suites) {
        const auto found = std::find_if(known.begin(), known.end(),
            [suite](const KnownSuite &candidate) { return candidate.suite == suite; });
        if (found != known.end())
            offer.*found->kind = true;
        else
            offer.addUnknown(suite);
    }
}

Offer offerOf(const InformationElements &elements)
{
    Offer offer;
    offer.osen = elements.osen;
    // Who understands an override takes it, the others take the plain element: both are offered.
    for (const SecurityElement *const element :
        {&elements.rsn, &elements.rsnOverride, &elements.rsnOverride2})
        addSuites(*element, rsnSuites(*element), offer);
    addSuites(elements.wpa, wpaSuites(), offer);
    addSuites(elements.wapi, wapiSuites(), offer);
    return offer;
}

std::string suiteNumber(std::uint32_t suite)
{
    char text[32];
    std::snprintf(text, sizeof text, "Suite %02X-%02X-%02X:%u", (suite >> 24) & 0xFFU,
        (suite >> 16) & 0xFFU, (suite >> 8) & 0xFFU, suite & 0xFFU);
    return text;
}

void addPassphraseKinds(const Offer &offer, std::vector<std::string> &parts)
{
    if (offer.psk && offer.sae) {
        parts.push_back(offer.wpaPsk ? "WPA/WPA2/WPA3" : "WPA2/WPA3");
    } else if (offer.psk) {
        parts.push_back(offer.wpaPsk ? "WPA/WPA2-PSK" : "WPA2-PSK");
    } else {
        if (offer.wpaPsk)
            parts.push_back("WPA-PSK");
        if (offer.sae)
            parts.push_back("WPA3-SAE");
    }
}

void addEnterpriseKinds(const Offer &offer, std::vector<std::string> &parts)
{
    if (offer.wpa2Enterprise && offer.wpa3Enterprise) {
        parts.push_back(offer.wpaEnterprise ? "WPA/WPA2/WPA3-Enterprise" : "WPA2/WPA3-Enterprise");
    } else if (offer.wpa2Enterprise) {
        parts.push_back(offer.wpaEnterprise ? "WPA/WPA2-802.1X" : "WPA2-802.1X");
    } else {
        if (offer.wpaEnterprise)
            parts.push_back("WPA-802.1X");
        if (offer.wpa3Enterprise)
            parts.push_back("WPA3-Enterprise");
    }
    if (offer.enterprise192)
        parts.push_back(offer.wpa3Enterprise ? "192-bit" : "WPA3-Enterprise 192");
}

void addOtherKinds(const Offer &offer, std::vector<std::string> &parts)
{
    const struct {
        bool offered;
        const char *name;
    } kinds[] = {
        {offer.suiteB, "Suite B"},
        {offer.fils, "FILS"},
        {offer.owe, "OWE"},
        {offer.dpp, "DPP"},
        {offer.wapiPsk, "WAPI-PSK"},
        {offer.wapiCertificate, "WAPI-CERT"},
        {offer.osen, "OSEN"},
        {offer.pasn, "PASN"},
        {offer.cckm, "CCKM"},
    };
    for (const auto &kind : kinds) {
        if (kind.offered)
            parts.push_back(kind.name);
    }
    const std::vector<std::uint32_t> &unknown = offer.unknown;
    for (std::size_t i = 0; i < unknown.size() && i < MaximumUnknownSuites; ++i)
        parts.push_back(suiteNumber(unknown[i]));
    if (unknown.size() > MaximumUnknownSuites)
        parts.push_back("...");
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

bool isUnreadable(const InformationElements &elements)
{
    const SecurityElement *const all[] = {&elements.rsn, &elements.rsnOverride,
        &elements.rsnOverride2, &elements.wpa, &elements.wapi};
    return elements.truncated ||
           std::any_of(std::begin(all), std::end(all), [](const SecurityElement *element) {
               return element->state == SecurityElement::State::Malformed;
           });
}
} // namespace

std::string securityText(const InformationElements &elements, bool privacy)
{
    const Offer offer = offerOf(elements);
    std::vector<std::string> parts;
    addPassphraseKinds(offer, parts);
    addEnterpriseKinds(offer, parts);
    addOtherKinds(offer, parts);
    if (!parts.empty())
        return joined(parts);
    if (isUnreadable(elements))
        return "Unknown";
    if (elements.oweTransition)
        return "OWE transition";
    return privacy ? "WEP" : "Open";
}

} // namespace LinuxWifi
