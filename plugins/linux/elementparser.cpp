#include "linux/elementparser.h"

namespace LinuxWifi
{

namespace
{
using State = SecurityElement::State;

const std::uint8_t NameId = 0;
const std::uint8_t RsnId = 48;
const std::uint8_t WapiId = 68;
const std::uint8_t VendorId = 221;
const std::size_t HeaderSize = 2;
const std::size_t MaximumNameSize = 32;
const std::size_t SuiteSize = 4;
const std::uint32_t WpaVendorType = 0x0050F201;
const std::uint32_t OsenVendorType = 0x506F9A12;
const std::uint32_t OweTransitionVendorType = 0x506F9A1C;
const std::uint32_t RsnOverrideVendorType = 0x506F9A29;
const std::uint32_t RsnOverride2VendorType = 0x506F9A2A;
// The same number is that of a list of four delays, which is no security.
const std::size_t AccessDelaySize = 4;
const std::uint16_t ProtectionRequiredBit = 1U << 6;
const std::uint16_t ProtectionCapableBit = 1U << 7;
// What a list that was left out stands for: 802.1X.
const std::uint32_t RsnDefaultSuite = 0x000FAC01;
const std::uint32_t WpaDefaultSuite = 0x0050F201;

/// A part of the octets that gives them out from the front and never more than it has.
class Reader
{
public:
    Reader(const std::uint8_t *octets, std::size_t size)
        : m_octets(octets)
        , m_left(size)
    {
    }

    std::size_t left() const { return m_left; }
    const std::uint8_t *here() const { return m_octets; }

    bool skip(std::size_t count)
    {
        if (count > m_left)
            return false;
        m_octets += count;
        m_left -= count;
        return true;
    }

    /// Two octets, the lower first, as all numbers of elements.
    bool readNumber(std::uint16_t &number)
    {
        if (m_left < 2)
            return false;
        number = static_cast<std::uint16_t>(m_octets[0] | (m_octets[1] << 8));
        return skip(2);
    }

    bool readSuite(std::uint32_t &suite)
    {
        if (m_left < SuiteSize)
            return false;
        suite = 0;
        for (std::size_t i = 0; i < SuiteSize; ++i)
            suite = (suite << 8) | m_octets[i];
        return skip(SuiteSize);
    }

    /// A count and so many suites. A count of none, or of more than there are, is an error, and
    /// leaves `suites` as they are.
    bool readSuites(std::vector<std::uint32_t> &suites)
    {
        std::uint16_t count = 0;
        if (!readNumber(count) || count == 0 || count > m_left / SuiteSize)
            return false;
        suites.resize(count);
        for (std::uint32_t &suite : suites) {
            if (!readSuite(suite))
                return false;
        }
        return true;
    }

private:
    const std::uint8_t *m_octets;
    std::size_t m_left;
};

/// The common body of RSN and WPA elements: version, group cipher, pairwise ciphers, key
/// management, capabilities. Everything after the version may be left out from some point on.
bool readSecurity(Reader body, std::uint32_t defaultSuite, SecurityElement &element)
{
    std::uint16_t version = 0;
    if (!body.readNumber(version) || version != 1)
        return false;
    std::uint32_t groupCipher = 0;
    std::vector<std::uint32_t> pairwiseCiphers;
    if (body.left() > 0 && !body.readSuite(groupCipher))
        return false;
    if (body.left() > 0 && !body.readSuites(pairwiseCiphers))
        return false;
    if (body.left() == 0) {
        element.suites.assign(1, defaultSuite);
        return true;
    }
    if (!body.readSuites(element.suites))
        return false;
    std::uint16_t capabilities = 0;
    body.readNumber(capabilities);
    element.protectionCapable = (capabilities & ProtectionCapableBit) != 0;
    element.protectionRequired = (capabilities & ProtectionRequiredBit) != 0;
    return true;
}

/// The beginning of a WAPI element: version, key management. Its ciphers follow.
bool readWapi(Reader body, SecurityElement &element)
{
    std::uint16_t version = 0;
    return body.readNumber(version) && version == 1 && body.readSuites(element.suites);
}

void takeSecurity(Reader body, std::uint32_t defaultSuite, SecurityElement &element)
{
    if (element.state != State::Absent)
        return;
    element.state = readSecurity(body, defaultSuite, element) ? State::Valid : State::Malformed;
}

void takeWapi(Reader body, SecurityElement &element)
{
    if (element.state == State::Absent)
        element.state = readWapi(body, element) ? State::Valid : State::Malformed;
}

void takeVendorElement(Reader body, InformationElements &elements)
{
    std::uint32_t vendorType = 0;
    if (!body.readSuite(vendorType))
        return;
    switch (vendorType) {
    case WpaVendorType:
        takeSecurity(body, WpaDefaultSuite, elements.wpa);
        break;
    case RsnOverrideVendorType:
        takeSecurity(body, RsnDefaultSuite, elements.rsnOverride);
        break;
    case RsnOverride2VendorType:
        takeSecurity(body, RsnDefaultSuite, elements.rsnOverride2);
        break;
    case OsenVendorType:
        elements.osen = true;
        break;
    case OweTransitionVendorType:
        elements.oweTransition = true;
        break;
    default:
        break;
    }
}

void takeElement(std::uint8_t id, Reader body, InformationElements &elements)
{
    if (id == NameId && !elements.hasName && body.left() <= MaximumNameSize) {
        elements.hasName = true;
        elements.name.assign(body.here(), body.here() + body.left());
    } else if (id == RsnId) {
        takeSecurity(body, RsnDefaultSuite, elements.rsn);
    } else if (id == WapiId && body.left() != AccessDelaySize) {
        takeWapi(body, elements.wapi);
    } else if (id == VendorId) {
        takeVendorElement(body, elements);
    }
}
} // namespace

InformationElements parseElements(const std::uint8_t *octets, std::size_t size)
{
    InformationElements elements;
    Reader reader(octets, size);
    while (reader.left() > 0) {
        if (reader.left() < HeaderSize) {
            elements.truncated = true;
            break;
        }
        const std::uint8_t id = reader.here()[0];
        const std::size_t length = reader.here()[1];
        if (HeaderSize + length > reader.left()) {
            elements.truncated = true;
            break;
        }
        takeElement(id, Reader(reader.here() + HeaderSize, length), elements);
        reader.skip(HeaderSize + length);
    }
    return elements;
}

} // namespace LinuxWifi
