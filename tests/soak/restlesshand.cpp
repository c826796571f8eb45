#include "soak/restlesshand.h"

#include "flows/airlumeprocess.h"
#include "flows/hostsuite.h"
#include "support/languagecodes.h"

namespace
{
const int TabCount = 4;
const int RoomTab = 3;
const int ColumnCount = 6;
/// Rooms the program starts with; they stay.
const int FirstRooms = 5;
const int MostRooms = 40;

QString number(const char *verb, int value)
{
    return QStringLiteral("%1 %2").arg(QLatin1String(verb)).arg(value);
}
} // namespace

RestlessHand::RestlessHand(AirlumeProcess &airlume, HostSuite &host, quint32 seed)
    : m_airlume(airlume)
    , m_host(host)
    , m_random(seed)
{
}

bool RestlessHand::act()
{
    struct Kind {
        const char *name;
        bool (RestlessHand::*act)();
        int weight;
    };
    static const Kind Kinds[] = {
        {"tab changed", &RestlessHand::changeTab, 6},
        {"row ticked", &RestlessHand::tickRow, 8},
        {"list sorted", &RestlessHand::sortList, 2},
        {"window maximised or restored", &RestlessHand::resizeWindow, 2},
        {"language changed", &RestlessHand::changeLanguage, 2},
        {"room tested", &RestlessHand::testRoom, 4},
        {"room added", &RestlessHand::addRoom, 1},
        {"room deleted", &RestlessHand::deleteRoom, 1},
    };
    int weights = 0;
    for (const Kind &kind : Kinds)
        weights += kind.weight;
    int chosen = below(weights);
    const Kind *kind = Kinds;
    for (; chosen >= kind->weight; ++kind)
        chosen -= kind->weight;
    ++m_actions[QString::fromLatin1(kind->name)];
    return (this->*kind->act)();
}

bool RestlessHand::changeTab()
{
    return m_airlume.command(number("tab", below(TabCount)));
}

bool RestlessHand::tickRow()
{
    const int rows = m_airlume.state()[QStringLiteral("rows")].toArray().size();
    return rows == 0 || m_airlume.command(number("tick", below(rows)));
}

bool RestlessHand::sortList()
{
    return m_airlume.command(number("sort", 1 + below(ColumnCount - 1)));
}

bool RestlessHand::resizeWindow()
{
    const bool done = m_airlume.command(
        m_maximised ? QStringLiteral("click restore") : QStringLiteral("click maximize"));
    m_maximised = !m_maximised;
    return done;
}

bool RestlessHand::changeLanguage()
{
    const QString code = QLatin1String(LanguageCodes[below(LanguageCount)]);
    return m_host.sayLanguage(code.toLatin1()) && m_airlume.waitFor(speaking(code));
}

bool RestlessHand::testRoom()
{
    if (!m_airlume.command(number("tab", RoomTab)) ||
        !m_airlume.command(number("room", below(roomCount()))))
        return false;
    // The click is queued, and shows the button.
    if (!m_airlume.waitFor([this](const QJsonObject &) {
            return m_airlume.command(QStringLiteral("click HomeTesting_btn_Test"));
        }))
        return false;
    // While no network is joined there is a notice.
    m_airlume.state();
    m_airlume.command(QStringLiteral("dismiss"));
    return waitForDialog(false);
}

bool RestlessHand::addRoom()
{
    const int before = roomCount();
    if (before >= MostRooms)
        return deleteRoom();
    return m_airlume.command(number("tab", RoomTab)) &&
           m_airlume.command(QStringLiteral("click HomeTesting_btn_Add")) && waitForDialog(true) &&
           m_airlume.command(QStringLiteral("type Room %1").arg(++m_madeRooms)) &&
           m_airlume.command(QStringLiteral("click HomeTestingPopup_btn_Ok")) &&
           waitForDialog(false) && roomCount() == before + 1;
}

bool RestlessHand::deleteRoom()
{
    const int before = roomCount();
    if (before <= FirstRooms)
        return true;
    return m_airlume.command(number("tab", RoomTab)) &&
           m_airlume.command(number("room", before - 1)) && m_airlume.waitFor([this](const auto &) {
               return m_airlume.command(QStringLiteral("click HomeTesting_btn_Del"));
           }) &&
           waitForDialog(true) &&
           m_airlume.command(QStringLiteral("click HomeTestingPopup_btn_Ok")) &&
           waitForDialog(false) && roomCount() == before - 1;
}

bool RestlessHand::waitForDialog(bool open)
{
    return m_airlume.waitFor([open](const QJsonObject &state) {
        return state[QStringLiteral("modal")].toString().isEmpty() != open;
    });
}

int RestlessHand::roomCount()
{
    return m_airlume.state()[QStringLiteral("rooms")].toArray().size();
}
