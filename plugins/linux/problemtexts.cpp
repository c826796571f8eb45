#include "linux/problemtexts.h"

#include <cerrno>
#include <cstring>

namespace LinuxWifi
{

namespace
{
/// The kernel's words for an errno, and its number for those who search for it.
QString errorText(int error)
{
    return QStringLiteral("%1 (error %2)")
        .arg(QString::fromLocal8Bit(std::strerror(error)), QString::number(error));
}

/// What to do about an errno, whatever was tried.
QString advice(const QString &interface, int error)
{
    switch (error) {
    case ENODEV:
        return QStringLiteral("The adapter seems to have been pulled out; plug it in again.");
    case ENETDOWN:
        return QStringLiteral("Switch Wi-Fi on in the network settings, or run \"rfkill unblock "
                              "wifi\" and \"sudo ip link set %1 up\".")
            .arg(interface);
    case EOPNOTSUPP:
        return QStringLiteral("The adapter cannot do this in its present mode; run \"sudo iw dev "
                              "%1 set type managed\" or use another adapter.")
            .arg(interface);
    case EPERM:
    case EACCES:
        return QStringLiteral("Run Airlume outside of a container or sandbox, or as another user.");
    case EAGAIN:
    case EINTR:
    case ENOBUFS:
    case ENOMEM:
        return QStringLiteral("This passes by itself; if it stays, close other programs that scan "
                              "for Wi-Fi networks.");
    default:
        return QStringLiteral("Look for the driver's messages with \"sudo dmesg\", and unload and "
                              "load the driver or plug the adapter in again.");
    }
}

QString withoutScans(const QString &what, const QString &help)
{
    return QStringLiteral("%1 The networks that the system itself hears are still shown. %2")
        .arg(what, help);
}
} // namespace

namespace ProblemTexts
{

QString noInterface()
{
    return QStringLiteral(
        "This computer has no Wi-Fi interface. Plug in a Wi-Fi adapter; if one is "
        "there, check with \"sudo dmesg\" that its driver and firmware are "
        "installed.");
}

QString notAStation(const WifiInterface &interface)
{
    const QString help = QStringLiteral("or plug in a second adapter, which can listen meanwhile.");
    switch (interface.mode) {
    case WifiInterface::Mode::AccessPoint:
        return QStringLiteral("The Wi-Fi interface %1 is a hotspot and hears no networks. Switch "
                              "the hotspot off in the network settings, ")
                   .arg(interface.name) +
               help;
    case WifiInterface::Mode::Monitor:
        return QStringLiteral("The Wi-Fi interface %1 is a monitor and gives no list of networks. "
                              "Run \"sudo ip link set %1 down\" and \"sudo iw dev %1 set type "
                              "managed\", ")
                   .arg(interface.name) +
               help;
    case WifiInterface::Mode::Station:
    case WifiInterface::Mode::Other:
        break;
    }
    return QStringLiteral(
               "The Wi-Fi interface %1 is neither free nor joined to an access point: it "
               "belongs to an ad hoc or mesh network. Leave that, ")
               .arg(interface.name) +
           help;
}

QString interfacesUnreadable(int error)
{
    if (error == WifiKernel::NoWifiSupport) {
        return QStringLiteral("This computer has no Wi-Fi interface: the kernel's Wi-Fi support "
                              "(nl80211) is not loaded. Plug in a Wi-Fi adapter; if one is there, "
                              "check with \"sudo dmesg\" that its driver is installed.");
    }
    return QStringLiteral("The list of Wi-Fi interfaces could not be read: %1. %2")
        .arg(errorText(error), advice(QStringLiteral("wlan0"), error));
}

QString unknownInterface(const QString &interface)
{
    return QStringLiteral("There is no Wi-Fi interface called %1. Plug the adapter in again, or "
                          "choose another interface.")
        .arg(interface);
}

QString unusable(const QString &interface, const LinkState &state)
{
    if (state.hardBlocked) {
        return QStringLiteral(
            "Wi-Fi is switched off: the radio of %1 is blocked by a switch or key "
            "of the computer. Use it to switch Wi-Fi on, or leave airplane mode.")
            .arg(interface);
    }
    if (state.softBlocked) {
        return QStringLiteral(
            "Wi-Fi is switched off: the radio of %1 is blocked. Switch Wi-Fi on in "
            "the network settings, or run \"rfkill unblock wifi\".")
            .arg(interface);
    }
    return QStringLiteral(
        "The Wi-Fi interface %1 is down. Switch Wi-Fi on in the network settings, "
        "or run \"sudo ip link set %1 up\".")
        .arg(interface);
}

QString networksUnreadable(const QString &interface, int error)
{
    return QStringLiteral("The networks heard by %1 could not be read: %2. %3")
        .arg(interface, errorText(error), advice(interface, error));
}

QString linkUnreadable(const QString &interface, int error)
{
    if (error == EOPNOTSUPP) {
        return QStringLiteral("The driver of %1 does not tell the signal and link rate of the "
                              "joined network. The signal of the last scan is shown instead.")
            .arg(interface);
    }
    return QStringLiteral(
        "The signal and link rate of the network that %1 is joined to could not be "
        "read: %2. The signal of the last scan is shown instead. %3")
        .arg(interface, errorText(error), advice(interface, error));
}

QString scanRefused(const QString &interface, int error)
{
    return withoutScans(
        QStringLiteral("%1 did not start a scan: %2.").arg(interface, errorText(error)),
        advice(interface, error));
}

QString scanRefused(const QString &interface, const ScanAnswer &answer)
{
    // Whoever may scan without NetworkManager needs none of the other remedies.
    const QString allow = QStringLiteral("or allow Airlume to scan by itself with \"sudo setcap "
                                         "cap_net_admin+ep\" and the path of the program.");
    switch (answer.result) {
    case ScanAnswer::Result::Accepted:
        return {};
    case ScanAnswer::Result::NoBus:
        return withoutScans(
            QStringLiteral("No scan can be started: the system bus (D-Bus) cannot be "
                           "reached."),
            QStringLiteral("Start the D-Bus service and NetworkManager, ") + allow);
    case ScanAnswer::Result::NoService:
        return withoutScans(
            QStringLiteral("No scan can be started: NetworkManager is not running."),
            QStringLiteral("Start it with \"sudo systemctl start NetworkManager\", ") + allow);
    case ScanAnswer::Result::NotPermitted:
        return withoutScans(
            QStringLiteral(
                "No scan can be started: NetworkManager does not allow this user to scan."),
            QStringLiteral("Start Airlume in a local desktop session (not over ssh), ") + allow);
    case ScanAnswer::Result::NotAvailable:
        return withoutScans(
            QStringLiteral("NetworkManager does not scan with %1 at present.").arg(interface),
            QStringLiteral(
                "Check with \"nmcli device\" that it manages %1 and that Wi-Fi is switched "
                "on, ")
                    .arg(interface) +
                allow);
    case ScanAnswer::Result::NoInterface:
        return withoutScans(
            QStringLiteral("No scan can be started: NetworkManager does not know %1.")
                .arg(interface),
            QStringLiteral("Check with \"nmcli device\" that it manages %1, ").arg(interface) +
                allow);
    case ScanAnswer::Result::NoReply:
        return withoutScans(
            QStringLiteral("No scan can be started: NetworkManager does not answer."),
            QStringLiteral("Restart it with \"sudo systemctl restart NetworkManager\", ") + allow);
    case ScanAnswer::Result::Failed:
        break;
    }
    return withoutScans(QStringLiteral("NetworkManager did not start a scan with %1 (%2).")
                            .arg(interface, answer.detail),
        QStringLiteral("Look for the reason with \"journalctl -u NetworkManager\", ") + allow);
}

} // namespace ProblemTexts

} // namespace LinuxWifi
