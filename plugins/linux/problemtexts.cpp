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

/// What to say about one of the managers. "%1" in a remedy is the interface.
struct ManagerTexts {
    Manager manager;
    const char *name;
    const char *unit; ///< As systemd knows it.
    const char *notPermitted;
    const char *notAvailable;
    const char *noInterface;
};

const ManagerTexts &textsOf(Manager manager)
{
    static const char *const joinGroup = "Run \"sudo usermod -aG netdev $USER\" and log in again.";
    static const ManagerTexts all[] = {
        {Manager::Nobody, "nobody", "NetworkManager", "", "", ""},
        {Manager::NetworkManager, "NetworkManager", "NetworkManager",
            "Start Airlume in a local desktop session (not over ssh), or allow it with the polkit "
            "rule that \"man airlume\" shows.",
            "Switch Wi-Fi on with \"nmcli radio wifi on\", and see with \"nmcli device\" what "
            "becomes of %1.",
            "Have it do so with \"sudo nmcli device set %1 managed yes\"."},
        {Manager::Iwd, "iwd", "iwd", joinGroup,
            "Switch it on with \"iwctl device %1 set-property Powered on\"; if it is an access "
            "point, with \"iwctl device %1 set-property Mode station\".",
            "See with \"iwctl device list\" what it manages, and restart it with \"sudo systemctl "
            "restart iwd\"."},
        {Manager::WpaSupplicant, "wpa_supplicant", "wpa_supplicant", joinGroup,
            "See with \"sudo wpa_cli -i %1 status\" what it is doing.",
            "Start a program that has it do so, for example with \"sudo systemctl start "
            "NetworkManager\"."},
        {Manager::ConnMan, "ConnMan", "connman",
            "Start Airlume in a local desktop session (not over ssh).",
            "Switch Wi-Fi on with \"connmanctl enable wifi\".",
            "See with \"connmanctl technologies\" whether it knows Wi-Fi, and restart it with "
            "\"sudo systemctl restart connman\"."},
    };
    for (const ManagerTexts &texts : all) {
        if (texts.manager == manager)
            return texts;
    }
    return all[0];
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
    const ManagerTexts &texts = textsOf(answer.manager);
    const QString name = QLatin1String(texts.name);
    const QString unit = QLatin1String(texts.unit);
    const auto remedy = [&interface](const char *text) {
        return QString::fromLatin1(text).replace(QStringLiteral("%1"), interface);
    };
    switch (answer.result) {
    case ScanAnswer::Result::Accepted:
        return {};
    case ScanAnswer::Result::NoBus:
        return withoutScans(
            QStringLiteral("No scan can be started: the system bus (D-Bus) cannot be "
                           "reached."),
            QStringLiteral("Start the D-Bus service and a program that manages Wi-Fi, for example "
                           "NetworkManager; if both run, restart the computer."));
    case ScanAnswer::Result::NoService:
        return withoutScans(
            QStringLiteral("No scan can be started: no program that manages Wi-Fi is running."),
            QStringLiteral("Start one, for example with \"sudo systemctl start NetworkManager\"."));
    case ScanAnswer::Result::NotPermitted:
        return withoutScans(
            QStringLiteral("No scan can be started: %1 does not allow this user to scan.")
                .arg(name),
            remedy(texts.notPermitted));
    case ScanAnswer::Result::NotAvailable:
        return withoutScans(
            QStringLiteral("%1 does not scan with %2 at present.").arg(name, interface),
            remedy(texts.notAvailable));
    case ScanAnswer::Result::NoInterface:
        return withoutScans(
            QStringLiteral("No scan can be started: %1 does not manage %2.").arg(name, interface),
            remedy(texts.noInterface));
    case ScanAnswer::Result::NoReply:
        return withoutScans(QStringLiteral("No scan can be started: %1 does not answer.").arg(name),
            QStringLiteral("Restart it with \"sudo systemctl restart %1\".").arg(unit));
    case ScanAnswer::Result::Failed:
        break;
    }
    return withoutScans(
        QStringLiteral("%1 did not start a scan with %2 (%3).").arg(name, interface, answer.detail),
        QStringLiteral("Look for the reason with \"journalctl -u %1\".").arg(unit));
}

} // namespace ProblemTexts

} // namespace LinuxWifi
