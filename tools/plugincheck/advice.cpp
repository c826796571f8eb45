#include "advice.h"

#include "scan/wifiapicontract.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>

namespace PluginCheck
{

namespace Advice
{

namespace
{

/// `command` in backticks between the two texts, when its program is installed here.
QStringList ifInstalled(const char *before, const QString &command, const char *after = "")
{
    QString program = command.section(QLatin1Char(' '), 0, 0);
    if (program == QLatin1String("sudo"))
        program = command.section(QLatin1Char(' '), 1, 1);
    // The folders for administration are not in everybody's path.
    const QStringList folders{QStringLiteral("/usr/sbin"), QStringLiteral("/sbin")};
    if (QStandardPaths::findExecutable(program).isEmpty() &&
        QStandardPaths::findExecutable(program, folders).isEmpty())
        return {};
    return {QLatin1String(before) + QLatin1Char('`') + command + QLatin1Char('`') +
            QLatin1String(after)};
}

QStringList simulatedAir()
{
    const QDir own(QCoreApplication::applicationDirPath());
    const QString airlume = own.filePath(QStringLiteral("airlume"));
    // Installed, and in a build folder.
    for (const char *place : {"simulated", "../plugins/simulated"}) {
        const QDir folder(own.filePath(QLatin1String(place)));
        if (folder.exists(WiFiApiLibrary) && QFileInfo(airlume).isExecutable()) {
            return {QStringLiteral("To try Airlume without Wi-Fi hardware, start it with the "
                                   "simulated back end: `QT_PLUGIN_PATH=") +
                    QDir::cleanPath(folder.path()) + QLatin1Char(' ') + airlume + QLatin1Char('`')};
        }
    }
    return {};
}

QString lookAgain()
{
    return QStringLiteral("Look again for a while, in case that passes: add \"--watch\" to the "
                          "command.");
}

QString useAnAntenna()
{
    return QStringLiteral("Check that the antenna is connected and that an access point is near: a "
                          "phone beside the computer should list networks.");
}

} // namespace

#ifdef Q_OS_MACOS

QStringList withoutInterface()
{
    return QStringList{QStringLiteral("Open System Settings > Network: is Wi-Fi listed there? If "
                                      "not, macOS itself does not see an adapter.")} +
           simulatedAir();
}

QStringList withRadioOff()
{
    return {QStringLiteral("Turn Wi-Fi on in the menu bar or in System Settings > Wi-Fi.")};
}

QStringList withUnusableInterface()
{
    return simulatedAir();
}

QStringList withRefusedScan()
{
    return {
        QStringLiteral("Allow Airlume to use your location in System Settings > Privacy & Security "
                       "> Location Services: without it macOS hides the networks."),
        lookAgain(),
    };
}

QStringList withEmptyAir()
{
    return withRefusedScan() + QStringList{useAnAntenna()};
}

QStringList withOwnNetworkOnly()
{
    return withRefusedScan();
}

#else

namespace
{

QStringList managersScan()
{
    return ifInstalled("Ask for a scan by hand: ", QStringLiteral("nmcli device wifi rescan"));
}

QStringList interfacesOfTheSystem()
{
    return ifInstalled("See whether the system knows a Wi-Fi interface: ", QStringLiteral("iw dev"),
        ". If none is listed there, Airlume cannot see one either.");
}

} // namespace

QStringList withUnusableInterface()
{
    return interfacesOfTheSystem() + simulatedAir();
}

QStringList withoutInterface()
{
    return QStringList{
               QStringLiteral("Plug the adapter in, or enable it in the firmware set-up. A virtual "
                              "machine or container has no Wi-Fi unless an adapter is passed on "
                              "to it."),
           } +
           interfacesOfTheSystem() +
           ifInstalled("If the adapter is there but not listed, its driver or firmware may be "
                       "missing. Look for the reason: ",
               QStringLiteral("sudo dmesg")) +
           simulatedAir();
}

QStringList withRadioOff()
{
    return QStringList{QStringLiteral("Turn the radio on: leave flight mode, or use the switch or "
                                      "key on the computer.")} +
           ifInstalled("See whether it is off: ", QStringLiteral("nmcli radio"),
               "; `nmcli radio wifi on` turns it on.") +
           ifInstalled("See whether the radio is blocked: ", QStringLiteral("rfkill list"),
               ". `rfkill unblock wifi` unblocks it; \"Hard blocked: yes\" means a switch on the "
               "computer.") +
           ifInstalled("If the radio is on, the interface may be down. Bring it up (NAME is its "
                       "name in the list above): ",
               QStringLiteral("sudo ip link set NAME up"));
}

QStringList withRefusedScan()
{
    return ifInstalled("Ask for a scan by hand (NAME is the interface above): ",
               QStringLiteral("sudo iw dev NAME scan")) +
           QStringList{lookAgain()};
}

QStringList withEmptyAir()
{
    return QStringList{useAnAntenna()} + managersScan() + withRefusedScan();
}

QStringList withOwnNetworkOnly()
{
    return QStringList{QStringLiteral("Nobody seems to scan, so the system knows only the network "
                                      "that it is joined to: open the desktop's list of networks, "
                                      "and start Airlume in a desktop session of your own, not "
                                      "over ssh.")} +
           managersScan() + withRefusedScan();
}

#endif

QStringList withFailedQuery()
{
    return QStringList{lookAgain()} + withRadioOff();
}

QStringList withScenarioMistake()
{
    return {
        QStringLiteral("Correct the file at the place that the message names, or play the built-in "
                       "street instead: unset the environment variable AIRLUME_SCENARIO."),
    };
}

QStringList withBrokenBackend()
{
    return {QStringLiteral("This cannot be set right from outside: send this report to whoever "
                           "wrote the back end, or use another one.")};
}

} // namespace Advice

} // namespace PluginCheck
