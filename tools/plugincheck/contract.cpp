#include "contract.h"

#include <QRegularExpression>
#include <QSet>

#include <limits>

namespace PluginCheck
{

namespace
{

/// A whole number in plain decimal digits, as Airlume can read it; nothing for anything else.
std::optional<int> wholeNumber(const QString &text)
{
    static const QRegularExpression form(QStringLiteral("\\A-?[0-9]{1,10}\\z"));
    if (!form.match(text).hasMatch())
        return std::nullopt;
    bool ok = false;
    const int number = text.toInt(&ok);
    return ok ? std::optional<int>(number) : std::nullopt;
}

bool isNumberBetween(const QString &text, int lowest, int highest)
{
    const std::optional<int> number = wholeNumber(text);
    return number && *number >= lowest && *number <= highest;
}

bool isHardwareAddress(const QString &text)
{
    static const QRegularExpression form(
        QStringLiteral("\\A[0-9a-fA-F]{2}([:-])[0-9a-fA-F]{2}(\\1[0-9a-fA-F]{2}){4}\\z"));
    return form.match(text).hasMatch();
}

bool isText(const QString &text)
{
    return text.isValidUtf16();
}

bool isYesOrNo(const QString &text)
{
    return text == QLatin1String("0") || text == QLatin1String("1");
}

bool isChannel(const QString &text)
{
    return isNumberBetween(text, 0, 65535);
}

bool isSecurity(const QString &text)
{
    return !text.trimmed().isEmpty() && text.isValidUtf16();
}

bool isSignal(const QString &text)
{
    return isNumberBetween(text, -100, 0);
}

bool isLinkRate(const QString &text)
{
    return isNumberBetween(text, 0, std::numeric_limits<int>::max());
}

struct KeyRule {
    const char *key;
    bool required;
    bool (*holds)(const QString &value);
    const char *code;
    const char *rule;
};

constexpr KeyRule KeyRules[] = {
    {"ssid", true, isText, "bad-ssid",
        "\"ssid\" must be the network's name as valid Unicode text (empty for a hidden network)."},
    {"bssid", true, isHardwareAddress, "bad-bssid",
        "\"bssid\" must be six pairs of hexadecimal digits, such as 02:00:5e:10:00:01."},
    {"channel", true, isChannel, "bad-channel",
        "\"channel\" must be a whole decimal number from 0 to 65535, and nothing else."},
    {"current_connected", true, isYesOrNo, "bad-current_connected",
        "\"current_connected\" must be 1 for the network that the computer is joined to and 0 for "
        "every other; Airlume takes any other text as 0."},
    {"security_mode", true, isSecurity, "bad-security_mode",
        "\"security_mode\" must be a text to show, such as WPA2-PSK or Open; it may not be empty."},
    {"WLAN_NETWORK_SIGNAL", true, isSignal, "bad-WLAN_NETWORK_SIGNAL",
        "\"WLAN_NETWORK_SIGNAL\" must be a whole decimal number of dBm from -100 to 0, without a "
        "unit."},
    {"link_rate", false, isLinkRate, "bad-link_rate",
        "\"link_rate\" may be missing; if there, it must be a whole decimal number of Mbps, 0 or "
        "more."},
};

/// "network 3 "Cafe" (02:00:00:00:00:01)", counted from 1 as in the table that people see.
QString nameOf(int index, const ScanMap &network)
{
    return QStringLiteral("network ") + QString::number(index + 1) + QLatin1Char(' ') +
           quoted(network.value(QStringLiteral("ssid"))) + QStringLiteral(" (") +
           network.value(QStringLiteral("bssid")).left(24) + QLatin1Char(')');
}

void checkKeys(int index, const ScanMap &network, Deviations &deviations)
{
    for (const KeyRule &rule : KeyRules) {
        const QString key = QLatin1String(rule.key);
        const auto value = network.constFind(key);
        if (value == network.cend()) {
            if (rule.required) {
                deviations.add(QStringLiteral("missing-") + key,
                    QStringLiteral("Every network must have the key \"%1\".").arg(key),
                    nameOf(index, network));
            }
        } else if (!rule.holds(*value)) {
            deviations.add(QLatin1String(rule.code), QLatin1String(rule.rule),
                nameOf(index, network) + QStringLiteral(" has ") + quoted(*value));
        }
    }
}

bool isJoined(const ScanMap &network)
{
    return network.value(QStringLiteral("current_connected")) == QLatin1String("1");
}

using Identity = QPair<QString, QString>;

Identity identity(const ScanMap &network)
{
    return {network.value(QStringLiteral("ssid")), network.value(QStringLiteral("bssid"))};
}

int repeatedNetworks(const QList<ScanMap> &networks)
{
    QSet<Identity> seen;
    for (const ScanMap &network : networks)
        seen.insert(identity(network));
    return networks.size() - seen.size();
}

void checkTime(const char *operation, double took, Deviations &deviations)
{
    if (took <= LongestAnswer)
        return;
    deviations.add(QStringLiteral("slow-answer"),
        QStringLiteral("Every call must answer within 50 ms; a scan is never waited for."),
        QLatin1String(operation) + QStringLiteral("() took ") + QString::number(took, 'f', 0) +
            QStringLiteral(" ms"));
}

} // namespace

int chosenInterface(bool listed, const QVector<bool> &usable)
{
    if (usable.isEmpty())
        return -1;
    return listed ? qMax(0, usable.indexOf(true, 1)) : 0;
}

Deviations checkInterfaces(const QStringList &interfaces)
{
    Deviations deviations;
    QSet<QString> seen;
    for (int i = 0; i < interfaces.size(); ++i) {
        const QString &name = interfaces.at(i);
        const QString which =
            QStringLiteral("interface ") + QString::number(i + 1) + QLatin1Char(' ') + quoted(name);
        if (name.isEmpty()) {
            deviations.add(QStringLiteral("empty-interface-name"),
                QStringLiteral("Every interface must have a name; Airlume takes an empty one as "
                               "\"no interface\"."),
                which);
        } else if (seen.contains(name)) {
            deviations.add(QStringLiteral("repeated-interface"),
                QStringLiteral("Every interface must be listed once."), which);
        }
        seen.insert(name);
    }
    return deviations;
}

Deviations checkNetworks(const QList<ScanMap> &networks)
{
    Deviations deviations;
    QSet<Identity> seen;
    int joined = -1;
    for (int i = 0; i < networks.size(); ++i) {
        const ScanMap &network = networks.at(i);
        checkKeys(i, network, deviations);

        if (seen.contains(identity(network))) {
            deviations.add(QStringLiteral("repeated-network"),
                QStringLiteral("Every access point must be listed once: no two networks may have "
                               "both the same \"ssid\" and the same \"bssid\"."),
                nameOf(i, network));
        }
        seen.insert(identity(network));

        if (isJoined(network)) {
            if (joined >= 0) {
                deviations.add(QStringLiteral("several-joined"),
                    QStringLiteral("At most one network may have \"current_connected\" 1."),
                    nameOf(i, network) + QStringLiteral(" is joined, and so is network ") +
                        QString::number(joined + 1));
            } else {
                joined = i;
            }
        }
    }
    return deviations;
}

Deviations checkAnswers(const Answers &answers)
{
    Deviations deviations = checkInterfaces(answers.interfaces);
    if (answers.queried == true)
        deviations.add(checkNetworks(answers.networks));

    if (answers.networksAgain &&
        repeatedNetworks(*answers.networksAgain) > repeatedNetworks(answers.networks)) {
        deviations.add(QStringLiteral("growing-list"),
            QStringLiteral("Each query must give the networks of that moment only; those of "
                           "earlier queries must not be given again."),
            QStringLiteral("the first query gave ") + QString::number(answers.networks.size()) +
                QStringLiteral(" networks, the next one ") +
                QString::number(answers.networksAgain->size()) +
                QStringLiteral(", repeating earlier ones"));
    }
    if (answers.needsName) {
        deviations.add(QStringLiteral("needs-interface-name"),
            QStringLiteral("getVisiableNetworkMapList() must work with an empty interface name: "
                           "Airlume never gives one."),
            QStringLiteral("the query failed with an empty name and worked with the chosen "
                           "interface's name"));
    }

    checkTime("getWiFiNicList", answers.listTime, deviations);
    checkTime("isWiFiNicUsable", answers.usableTime, deviations);
    checkTime("getVisiableNetworkMapList", answers.queryTime, deviations);
    return deviations;
}

QString quoted(const QString &text, int longest)
{
    const QLatin1Char quote('"');
    if (text.size() <= longest)
        return quote + text + quote;
    int end = longest;
    if (text.at(end - 1).isHighSurrogate())
        --end;
    return quote + text.left(end) + QStringLiteral("...\" [") + QString::number(text.size()) +
           QStringLiteral(" characters]");
}

} // namespace PluginCheck
