#include "transcript.h"

#include "contract.h"

#include <QJsonArray>
#include <QRegularExpression>

namespace PluginCheck
{

namespace
{

/// True when `text` is the number as the replay writes it.
bool isPlain(const QString &text, int lowest, int highest)
{
    const int number = text.toInt();
    return number >= lowest && number <= highest && QString::number(number) == text;
}

bool isChannel(const QString &text)
{
    return isPlain(text, 1, 233) || isPlain(text, ScanChannel6GHz + 1, ScanChannel6GHz + 233);
}

/// What the replay must be told to give `map` again. What the fields cannot say stands in "raw".
QJsonObject fieldsOf(const ScanMap &map, const QString &bssid, bool isJoined)
{
    QJsonObject raw;
    const QString joined = isJoined ? ScanJoined : QStringLiteral("0");
    QJsonObject fields{
        {QStringLiteral("ssid"), map.value(ScanKey::Ssid)},
        {QStringLiteral("channel"), 1},
        {QStringLiteral("security"), map.value(ScanKey::Security)},
        {QStringLiteral("signal"), 0},
    };
    for (auto entry = map.cbegin(); entry != map.cend(); ++entry) {
        const QString &key = entry.key();
        const QString &value = entry.value();
        if (key == ScanKey::Channel && isChannel(value))
            fields.insert(QStringLiteral("channel"), value.toInt());
        else if (key == ScanKey::Signal && isPlain(value, -100, 0))
            fields.insert(QStringLiteral("signal"), value.toInt());
        else if (key != ScanKey::Ssid && key != ScanKey::Security &&
                 !(key == ScanKey::Bssid && value == bssid) &&
                 !(key == ScanKey::Connected && value == joined))
            raw.insert(key, value);
    }
    for (const QString &key : {ScanKey::Ssid, ScanKey::Bssid, ScanKey::Channel, ScanKey::Connected,
             ScanKey::Security, ScanKey::Signal}) {
        if (!map.contains(key))
            raw.insert(key, QJsonValue());
    }
    fields.insert(QStringLiteral("raw"), raw);
    return fields;
}

} // namespace

QVector<QJsonObject> Transcript::add(const Answers &answers, double seconds)
{
    m_seconds = seconds;
    addInterfaces(answers);
    addFailures(answers);
    if (answers.queried == true)
        addNetworks(answers.networks);
    QVector<QJsonObject> events;
    events.swap(m_events);
    return events;
}

void Transcript::addInterfaces(const Answers &answers)
{
    // A query that succeeds although nothing is usable is not for want of a radio.
    const bool allOn = answers.queried == true && !answers.usable.contains(true);
    QStringList listed;
    for (int i = 0; i < answers.interfaces.size(); ++i) {
        const QString &name = answers.interfaces.at(i);
        if (name.isEmpty() || listed.contains(name))
            continue;
        listed.append(name);
        const QJsonObject which{{QStringLiteral("interface"), name}};
        if (!m_interfaces.contains(name)) {
            m_interfaces.append(name);
            tell("attach", which);
        } else if (!m_plugged.contains(name)) {
            tell("plug", which);
        }
        m_plugged.insert(name);
        const bool isOff = !allOn && !answers.usable.value(i);
        if (isOff != m_off.contains(name))
            tell(isOff ? "radio_off" : "radio_on", which);
        if (isOff)
            m_off.insert(name);
        else
            m_off.remove(name);
    }
    QStringList order = listed;
    for (const QString &name : qAsConst(m_interfaces)) {
        if (listed.contains(name))
            continue;
        order.append(name);
        if (m_plugged.remove(name))
            tell("unplug", {{QStringLiteral("interface"), name}});
    }
    QStringList replayed = m_interfaces;
    replayed.erase(std::remove_if(replayed.begin(), replayed.end(),
                       [&](const QString &name) { return !listed.contains(name); }),
        replayed.end());
    if (replayed != listed) {
        tell("order", {{QStringLiteral("interfaces"), QJsonArray::fromStringList(listed)}});
        m_interfaces = order;
    }
}

void Transcript::addFailures(const Answers &answers)
{
    const bool anyUsable = answers.usable.contains(true);
    tellState(m_failingInterfaces, !answers.listed, "interfaces");
    if (!answers.queried)
        return;
    tellState(m_failingUsable, *answers.queried && !anyUsable, "usable");
    tellState(m_failingNetworks, !*answers.queried && anyUsable, "networks");
}

void Transcript::addNetworks(const QList<ScanMap> &maps)
{
    QHash<QString, int> occurrences;
    QVector<int> heard;
    int joined = -1;
    for (const ScanMap &map : maps) {
        const QString bssid = map.value(ScanKey::Bssid);
        const int index = indexOf(bssid, occurrences[bssid]++);
        if (joined < 0 && isJoined(map))
            joined = index;
        Network &network = m_networks[index];
        const QJsonObject fields = fieldsOf(map, network.bssid, joined == index);
        QJsonObject news{{QStringLiteral("bssid"), network.bssid}};
        for (auto field = fields.begin(); field != fields.end(); ++field) {
            const bool isUsual =
                !network.fields.contains(field.key()) && field.value() == QJsonObject();
            if (network.fields.value(field.key()) != field.value() && !isUsual)
                news.insert(field.key(), field.value());
        }
        if (!network.isOnAir || news.size() > 1)
            tell("hear", news);
        network.fields = fields;
        network.isOnAir = true;
        heard.append(index);
    }
    const QSet<int> present(heard.cbegin(), heard.cend());
    for (int i = 0; i < m_networks.size(); ++i) {
        if (m_networks.at(i).isOnAir && !present.contains(i)) {
            tell("lose", {{QStringLiteral("bssid"), m_networks.at(i).bssid}});
            m_networks[i].isOnAir = false;
        }
    }
    addOrder(heard);
    if (joined != m_joined && joined >= 0)
        tell("join", {{QStringLiteral("bssid"), m_networks.at(joined).bssid}});
    else if (joined != m_joined)
        tell("leave");
    m_joined = joined;
}

/// The network with that address; with several of it in one answer, that occurrence.
int Transcript::indexOf(const QString &bssid, int occurrence)
{
    static const QRegularExpression form(
        QStringLiteral("\\A[0-9A-Fa-f]{2}(:[0-9A-Fa-f]{2}){5}\\z"));
    const auto known = m_indexes.constFind({bssid, occurrence});
    if (known != m_indexes.cend())
        return *known;
    const int index = m_networks.size();
    QString name = bssid;
    for (int i = index; !form.match(name).hasMatch() || m_addresses.contains(name.toLower()); ++i) {
        // Anything that no other network of the file has; the true text stands in "raw".
        name = QStringLiteral("0a:00:00:%1:%2:%3")
                   .arg(i >> 16 & 0xff, 2, 16, QLatin1Char('0'))
                   .arg(i >> 8 & 0xff, 2, 16, QLatin1Char('0'))
                   .arg(i & 0xff, 2, 16, QLatin1Char('0'));
    }
    m_addresses.insert(name.toLower());
    m_indexes.insert({bssid, occurrence}, index);
    m_networks.append({name, {}, false});
    m_order.append(index);
    return index;
}

void Transcript::addOrder(const QVector<int> &heard)
{
    const QSet<int> present(heard.cbegin(), heard.cend());
    QVector<int> replayed;
    QVector<int> absent;
    for (const int index : qAsConst(m_order)) {
        if (present.contains(index))
            replayed.append(index);
        else
            absent.append(index);
    }
    if (replayed == heard)
        return;
    QJsonArray bssids;
    for (const int index : heard)
        bssids.append(m_networks.at(index).bssid);
    tell("order", {{QStringLiteral("networks"), bssids}});
    m_order = heard + absent;
}

void Transcript::tell(const char *what, QJsonObject event)
{
    event.insert(QStringLiteral("at"), m_seconds);
    event.insert(QStringLiteral("do"), QLatin1String(what));
    m_events.append(event);
}

void Transcript::tellState(bool &state, bool wanted, const char *query)
{
    if (state != wanted)
        tell(wanted ? "fail" : "recover", {{QStringLiteral("query"), QLatin1String(query)}});
    state = wanted;
}

} // namespace PluginCheck
