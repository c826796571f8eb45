#include "verdict.h"

#include "contract.h"

namespace PluginCheck
{

namespace
{

QString simulatedAir()
{
    return QStringLiteral("To try Airlume without Wi-Fi hardware, start it with the simulated back "
                          "end: `./run --plugin simulated`");
}

#ifdef Q_OS_MACOS

QStringList adviceWithoutInterface()
{
    return {
        QStringLiteral(
            "Open System Settings > Network: is Wi-Fi listed there? If not, macOS itself "
            "does not see an adapter."),
        simulatedAir(),
    };
}

QStringList adviceWithRadioOff()
{
    return {QStringLiteral("Turn Wi-Fi on in the menu bar or in System Settings > Wi-Fi.")};
}

QStringList adviceWithFailedQuery()
{
    return adviceWithRadioOff();
}

QStringList adviceWithEmptyAir()
{
    return {
        QStringLiteral("Wait a quarter of a minute for the first scan and look again: "
                       "`airlume-plugincheck --watch`"),
        QStringLiteral("Allow Airlume to use your location in System Settings > Privacy & Security "
                       "> Location Services: without it macOS hides the networks."),
    };
}

#else

QStringList adviceWithoutInterface()
{
    return {
        QStringLiteral("See whether the system knows a Wi-Fi interface: `iw dev` or `ls "
                       "/sys/class/net`. If none is listed there, Airlume cannot see one either."),
        QStringLiteral(
            "Plug the adapter in, or enable it in the firmware set-up. A virtual "
            "machine or container has no Wi-Fi unless a USB adapter is passed on to it."),
        QStringLiteral("If the adapter is there but not listed, its driver or firmware may be "
                       "missing. Look for the reason: `sudo dmesg | grep -i firmware`"),
        simulatedAir(),
    };
}

QStringList adviceWithRadioOff()
{
    return {
        QStringLiteral("Turn the radio on: leave flight mode, use the switch or key on the "
                       "computer, or type `nmcli radio wifi on`"),
        QStringLiteral("See whether the radio is blocked: `rfkill list`. Unblock it: `rfkill "
                       "unblock wifi`. \"Hard blocked: yes\" means a switch on the computer."),
        QStringLiteral("If the radio is on, the interface may be down. Bring it up (NAME is its "
                       "name in the list above): `sudo ip link set NAME up`"),
    };
}

QStringList adviceWithFailedQuery()
{
    return QStringList{
               QStringLiteral("Look again for a while, in case it fails only now and then: "
                              "`airlume-plugincheck --watch`"),
           } +
           adviceWithRadioOff();
}

QStringList adviceWithEmptyAir()
{
    return {
        QStringLiteral("Wait a quarter of a minute for the first scan and look again: "
                       "`airlume-plugincheck --watch`"),
        QStringLiteral("Ask for a scan by hand: `nmcli device wifi rescan`, or without "
                       "NetworkManager `sudo iw dev NAME scan` (NAME is the interface above). Over "
                       "ssh an ordinary user may not start one."),
        QStringLiteral("Check that the antenna is connected and that an access point is near: a "
                       "phone beside the computer should list networks."),
    };
}

#endif

QString shownInAirlume()
{
    return QStringLiteral(
        " Airlume shows \"Please make sure turn on the wireless radio.\" meanwhile.");
}

Verdict nothingHeard(const char *reason, const QString &text, const QStringList &advice)
{
    return {Outcome::NothingHeard, QLatin1String(reason), text, advice};
}

} // namespace

Verdict judge(const Answers &answers, const Deviations &deviations)
{
    if (!deviations.isEmpty()) {
        return {Outcome::Broken, QString(),
            QStringLiteral("The back end breaks the contract, so Airlume may show wrong values or "
                           "none."),
            {QStringLiteral("This cannot be set right from outside: send this report to whoever "
                            "wrote the back end, or use another one.")}};
    }
    if (answers.interfaces.isEmpty()) {
        return nothingHeard("no-interface",
            (answers.listed
                    ? QStringLiteral("The back end finds no Wi-Fi interface on this computer.")
                    : QStringLiteral("The back end could not list the Wi-Fi interfaces.")) +
                shownInAirlume(),
            adviceWithoutInterface());
    }
    if (answers.queried == true && !answers.networks.isEmpty()) {
        const int count = answers.networks.size();
        return {Outcome::Heard, QString(),
            QStringLiteral("The back end is sound and hears ") + QString::number(count) +
                (count == 1 ? QStringLiteral(" network.") : QStringLiteral(" networks.")),
            {}};
    }
    if (!answers.usable.contains(true)) {
        return nothingHeard("none-usable",
            QStringLiteral("There is a Wi-Fi interface, but none that can be used: its radio is "
                           "off, blocked or the interface is down.") +
                (answers.queried == true ? QString() : shownInAirlume()),
            adviceWithRadioOff());
    }
    if (answers.queried != true) {
        return nothingHeard("query-failed",
            QStringLiteral("The interface is there, but asking it for networks failed: mostly "
                           "because the radio was turned off or the adapter pulled out just now.") +
                shownInAirlume(),
            adviceWithFailedQuery());
    }
    return nothingHeard("empty-list",
        QStringLiteral("The interface works, but it has not heard any network yet."),
        adviceWithEmptyAir());
}

Outcome combined(Outcome sofar, Outcome round)
{
    if (sofar == Outcome::Broken || round == Outcome::Broken)
        return Outcome::Broken;
    return sofar == Outcome::Heard ? sofar : round;
}

} // namespace PluginCheck
