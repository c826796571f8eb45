#include "fuzz/require.h"
#include "linux/elementparser.h"
#include "linux/securitytext.h"
#include "linux/ssidtext.h"

using namespace LinuxWifi;
using State = SecurityElement::State;

namespace
{
void checkSecurity(const InformationElements &elements, bool privacy)
{
    bool nothingSaid = !elements.osen && !elements.oweTransition && !elements.truncated;
    for (const SecurityElement *const element : {&elements.rsn, &elements.rsnOverride,
             &elements.rsnOverride2, &elements.wpa, &elements.wapi}) {
        require((element->state == State::Valid) == !element->suites.empty());
        require(element->state == State::Valid ||
                (!element->protectionCapable && !element->protectionRequired));
        nothingSaid = nothingSaid && element->state == State::Absent;
    }
    const std::string text = securityText(elements, privacy);
    require(!text.empty() && text.size() < 200);
    for (const char character : text)
        require(character >= ' ' && character <= '~');
    // Neither is ever guessed, and nothing else is said where nothing was.
    require(nothingSaid == (text == "Open" || text == "WEP"));
    require(text != "WEP" || privacy);
    require(text != "Open" || !privacy);
}

void checkName(const InformationElements &elements)
{
    require(elements.name.size() <= 32);
    require(elements.hasName || elements.name.empty());
    const std::string text = ssidText(elements.name);
    // Text already, so that it would stay as it is; and of at most four characters an octet.
    require(ssidText(text) == text);
    require(text.size() <= 4 * elements.name.size());
    require(text.empty() == (elements.name.find_first_not_of('\0') == std::string::npos));
}
} // namespace

/// Any octets as the elements of a beacon. The lowest bit of the first is the privacy bit.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    if (size == 0)
        return 0;
    const InformationElements elements = parseElements(data + 1, size - 1);
    checkName(elements);
    checkSecurity(elements, (data[0] & 1) != 0);
    return 0;
}
