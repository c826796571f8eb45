#include "contract.h"

#include <QRegularExpression>

#include <array>

namespace PluginCheck
{

namespace
{

/// What is wrong with the value of one key; nothing when the code is empty.
struct Finding {
    Weight weight = Weight::Odd;
    QString code;
    QString rule;
};

Finding bad(const QString &key, Weight weight, const char *rule)
{
    return {weight, QStringLiteral("bad-") + key, QLatin1String(rule)};
}

bool isHardwareAddress(const QString &text)
{
    static const QRegularExpression form(
        QStringLiteral("\\A[0-9a-fA-F]{2}([:-])[0-9a-fA-F]{2}(\\1[0-9a-fA-F]{2}){4}\\z"));
    return form.match(text).hasMatch();
}

Finding checkName(const QString &text)
{
    if (text.isValidUtf16())
        return {};
    return bad(ScanKey::Ssid, Weight::Odd,
        "\"ssid\" should be valid Unicode text; Airlume shows the halves of characters as "
        "replacement marks.");
}

Finding checkAddress(const QString &text)
{
    if (isHardwareAddress(text))
        return {};
    return bad(ScanKey::Bssid, Weight::Odd,
        "\"bssid\" should be six pairs of hexadecimal digits, such as 02:00:5e:10:00:01; Airlume "
        "shows it as it stands, and tells access points of one name apart by it.");
}

Finding checkChannel(const QString &text)
{
    bool isNumber = false;
    const int channel = text.toInt(&isNumber);
    if (!isNumber && !text.isEmpty()) {
        return bad(ScanKey::Channel, Weight::Broken,
            "\"channel\" must be a whole decimal number, and nothing else; Airlume reads anything "
            "else as channel 0.");
    }
    if (isNumber && channel >= 0 && channel <= 65535)
        return {};
    return {Weight::Odd, QStringLiteral("odd-channel"),
        QStringLiteral("\"channel\" should be from 0 to 65535; Airlume shows 0.")};
}

Finding checkJoined(const QString &text)
{
    static const std::array<QLatin1String, 4> plain{
        QLatin1String("0"), QLatin1String(""), QLatin1String("no"), QLatin1String("false")};
    if (text == ScanJoined)
        return {};
    for (const QLatin1String &no : plain) {
        if (text.compare(no, Qt::CaseInsensitive) == 0)
            return {};
    }
    return bad(ScanKey::Connected, Weight::Broken,
        "\"current_connected\" must be 1 for the network that the computer is joined to and 0 for "
        "every other; Airlume takes any other text as not joined.");
}

Finding checkSecurity(const QString &text)
{
    if (!text.trimmed().isEmpty() && text.isValidUtf16())
        return {};
    return bad(ScanKey::Security, Weight::Odd,
        "\"security_mode\" should be a text to show, such as WPA2-PSK or Open; Airlume shows it as "
        "it stands.");
}

Finding checkSignal(const QString &text)
{
    bool isNumber = false;
    const int signal = text.toInt(&isNumber);
    if (!isNumber && !text.isEmpty()) {
        return bad(ScanKey::Signal, Weight::Broken,
            "\"WLAN_NETWORK_SIGNAL\" must be a whole decimal number of dBm without a unit; Airlume "
            "reads anything else as 0, which is no signal.");
    }
    if (isNumber && signal >= -100 && signal <= 0)
        return {};
    return {Weight::Odd, QStringLiteral("odd-WLAN_NETWORK_SIGNAL"),
        QStringLiteral("\"WLAN_NETWORK_SIGNAL\" should be from -100 to 0 dBm; Airlume shows 0, "
                       "which is no signal.")};
}

Finding checkRate(const QString &text)
{
    bool isNumber = false;
    const int rate = text.toInt(&isNumber);
    if (!isNumber && !text.isEmpty()) {
        return bad(ScanKey::LinkRate, Weight::Broken,
            "\"link_rate\" must be a whole decimal number of Mbps; Airlume reads anything else as "
            "an unknown rate.");
    }
    if (rate >= 0)
        return {};
    return {Weight::Odd, QStringLiteral("odd-link_rate"),
        QStringLiteral("\"link_rate\" should be 0 or more; Airlume takes it as an unknown rate.")};
}

struct KeyRule {
    const QString &key;
    Finding (*check)(const QString &value);
    /// What Airlume makes of a network without it; null where that is as good.
    const char *missing;
};

const KeyRule KeyRules[] = {
    {ScanKey::Ssid, checkName, "Airlume lists it as a network that hides its name."},
    {ScanKey::Bssid, checkAddress,
        "Airlume shows no address, and drops the second network of one name."},
    {ScanKey::Channel, checkChannel, "Airlume shows channel 0 and draws it in no channel graph."},
    {ScanKey::Connected, checkJoined, "Airlume takes the network as not joined."},
    {ScanKey::Security, checkSecurity, "Airlume shows nothing in that column."},
    {ScanKey::Signal, checkSignal, "Airlume shows 0, which is no signal."},
    {ScanKey::LinkRate, checkRate, nullptr},
};

/// "network 3 "Cafe" (02:00:00:00:00:01)", counted from 1 as in the table that people see.
QString nameOf(int index, const ScanMap &network)
{
    return QStringLiteral("network ") + QString::number(index + 1) + QLatin1Char(' ') +
           quoted(network.value(ScanKey::Ssid)) + QStringLiteral(" (") +
           network.value(ScanKey::Bssid).left(24) + QLatin1Char(')');
}

/// A key's letters and digits in lower case: what is left of it when somebody misspells it.
QString skeleton(const QString &key)
{
    QString letters;
    for (const QChar &c : key) {
        if (c.isLetterOrNumber())
            letters += c.toLower();
    }
    return letters;
}

QString misspelling(const QString &key, const ScanMap &network)
{
    for (auto entry = network.cbegin(); entry != network.cend(); ++entry) {
        if (entry.key() != key && skeleton(entry.key()) == skeleton(key))
            return entry.key();
    }
    return QString();
}

void checkMissing(int index, const ScanMap &network, const KeyRule &rule, Deviations &deviations)
{
    const QString other = misspelling(rule.key, network);
    if (!other.isEmpty()) {
        deviations.add(Weight::Broken, QStringLiteral("misspelt-") + rule.key,
            QStringLiteral("The key must be written \"%1\"; Airlume does not see any other.")
                .arg(rule.key),
            nameOf(index, network) + QStringLiteral(" has ") + quoted(other));
    } else if (rule.missing) {
        deviations.add(Weight::Odd, QStringLiteral("missing-") + rule.key,
            QStringLiteral("Every network should have the key \"%1\". Without it ").arg(rule.key) +
                QLatin1String(rule.missing),
            nameOf(index, network));
    }
}

void checkKeys(int index, const ScanMap &network, Deviations &deviations)
{
    for (const KeyRule &rule : KeyRules) {
        const auto value = network.constFind(rule.key);
        if (value == network.cend()) {
            checkMissing(index, network, rule, deviations);
            continue;
        }
        const Finding finding = rule.check(*value);
        if (!finding.code.isEmpty()) {
            deviations.add(finding.weight, finding.code, finding.rule,
                nameOf(index, network) + QStringLiteral(" has ") + quoted(*value));
        }
    }
}

} // namespace

Identity identityOf(const ScanMap &network)
{
    return {network.value(ScanKey::Ssid), network.value(ScanKey::Bssid)};
}

QSet<Identity> identitiesOf(const QList<ScanMap> &networks)
{
    QSet<Identity> identities;
    for (const ScanMap &network : networks)
        identities.insert(identityOf(network));
    return identities;
}

bool isJoined(const ScanMap &network)
{
    return network.value(ScanKey::Connected) == ScanJoined;
}

Deviations checkNetworks(const QList<ScanMap> &networks)
{
    Deviations deviations;
    QSet<Identity> seen;
    int joined = -1;
    for (int i = 0; i < networks.size(); ++i) {
        const ScanMap &network = networks.at(i);
        checkKeys(i, network, deviations);

        if (seen.contains(identityOf(network))) {
            deviations.add(Weight::Odd, QStringLiteral("repeated-network"),
                QStringLiteral("Every access point should be listed once; of those with the same "
                               "\"ssid\" and the same \"bssid\" Airlume shows the first."),
                nameOf(i, network));
        }
        seen.insert(identityOf(network));

        if (isJoined(network) && joined >= 0) {
            deviations.add(Weight::Broken, QStringLiteral("several-joined"),
                QStringLiteral("At most one network may have \"current_connected\" 1; Airlume's "
                               "gauge shows the last one."),
                nameOf(i, network) + QStringLiteral(" is joined, and so is network ") +
                    QString::number(joined + 1));
        } else if (isJoined(network)) {
            joined = i;
        }
    }
    return deviations;
}

} // namespace PluginCheck
