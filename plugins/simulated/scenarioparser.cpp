#include "simulated/scenarioparser.h"

#include "simulated/duplicatekey.h"
#include "simulated/eventreader.h"
#include "simulated/fieldline.h"
#include "simulated/hearingreader.h"
#include "simulated/signalmodel.h"

#include <QHash>
#include <QJsonDocument>

#include <algorithm>

namespace
{
QString indexed(const char *list, int index)
{
    return QStringLiteral("%1[%2]").arg(QLatin1String(list)).arg(index);
}

/// Builds one scenario, part after part; each part may refer to the ones before.
class Builder
{
public:
    ScenarioResult build(const QJsonObject &object);

private:
    void readInterfaces(const JsonFields &root);
    void readNetworks(const JsonFields &root);
    static int readChannel(const JsonFields &fields, const QJsonValue &value);
    void readWalk(const JsonFields &fields, ScenarioNetwork *network);
    void readPresence(const JsonFields &fields, ScenarioNetwork *network);
    void readGenerate(const QJsonValue &value, const QString &path);
    void readEvents(const JsonFields &root);
    void addNetwork(const ScenarioNetwork &network, const QString &path);

    Scenario m_scenario;
    ScenarioError m_error;
    QHash<QString, int> m_networkOfBssid;
};

ScenarioResult Builder::build(const QJsonObject &object)
{
    static const QStringList known{QStringLiteral("seed"), QStringLiteral("time_scale"),
        QStringLiteral("repeat"), QStringLiteral("interfaces"), QStringLiteral("networks"),
        QStringLiteral("generate"), QStringLiteral("events")};
    const JsonFields root(object, QString(), known, &m_error);
    // 2^53: the largest whole number that every JSON reader keeps exact.
    m_scenario.seed = static_cast<quint64>(root.whole(QLatin1String("seed"), 0, 1LL << 53, 1));
    m_scenario.timeScale = root.number(QLatin1String("time_scale"), 0.001, 100000.0, 1.0);
    if (root.has(QLatin1String("repeat")))
        m_scenario.repeat = root.number(QLatin1String("repeat"), 1.0, ScenarioLimits::Seconds, 1.0);
    readInterfaces(root);
    readNetworks(root);

    const QJsonValue generate = object.value(QLatin1String("generate"));
    if (generate.isArray()) {
        const QJsonArray blocks = generate.toArray();
        for (int i = 0; i < blocks.size() && !m_error.isSet(); ++i)
            readGenerate(blocks.at(i), indexed("generate", i));
    } else if (!generate.isUndefined()) {
        readGenerate(generate, QStringLiteral("generate"));
    }
    readEvents(root);
    return {m_scenario, m_error};
}

void Builder::readInterfaces(const JsonFields &root)
{
    static const QStringList known{
        QStringLiteral("name"), QStringLiteral("usable"), QStringLiteral("address")};
    if (!root.has(QLatin1String("interfaces"))) {
        m_scenario.interfaces.append({QStringLiteral("sim0"), DefaultAddress(0), true, false});
        return;
    }
    const QJsonArray list = root.list(QLatin1String("interfaces"));
    if (list.size() > ScenarioLimits::Interfaces) {
        root.report(QLatin1String("interfaces"),
            QStringLiteral("has more than %1 entries").arg(ScenarioLimits::Interfaces));
    }
    for (int i = 0; i < list.size() && !m_error.isSet(); ++i) {
        const JsonFields fields(list.at(i), indexed("interfaces", i), known, &m_error);
        ScenarioInterface interface;
        fields.require(QLatin1String("name"));
        interface.name = fields.text(QLatin1String("name"));
        interface.usable = fields.flag(QLatin1String("usable"), true);
        interface.address = fields.hardwareAddress(QLatin1String("address"), DefaultAddress(i));
        if (interface.name.isEmpty())
            fields.report(QLatin1String("name"), QStringLiteral("must not be empty"));
        for (const ScenarioInterface &earlier : qAsConst(m_scenario.interfaces)) {
            if (earlier.name == interface.name) {
                fields.report(QLatin1String("name"),
                    QuotedText(interface.name) + QStringLiteral(" is the name of two interfaces"));
            }
        }
        m_scenario.interfaces.append(interface);
    }
}

void Builder::readNetworks(const JsonFields &root)
{
    static const QStringList known{QStringLiteral("ssid"), QStringLiteral("bssid"),
        QStringLiteral("channel"), QStringLiteral("security"), QStringLiteral("signal"),
        QStringLiteral("wander"), QStringLiteral("walk"), QStringLiteral("joined"),
        QStringLiteral("link_rate"), QStringLiteral("from"), QStringLiteral("until"),
        QStringLiteral("raw")};
    const QJsonArray list = root.list(QLatin1String("networks"));
    for (int i = 0; i < list.size() && !m_error.isSet(); ++i) {
        const QString path = indexed("networks", i);
        const JsonFields fields(list.at(i), path, known, &m_error);
        fields.require(QLatin1String("ssid"));
        fields.require(QLatin1String("bssid"));
        fields.require(QLatin1String("channel"));
        ScenarioNetwork network;
        network.ssid = fields.text(QLatin1String("ssid"));
        network.bssid = fields.hardwareAddress(QLatin1String("bssid"));
        network.channel =
            readChannel(fields, list.at(i).toObject().value(QLatin1String("channel")));
        network.security = fields.text(QLatin1String("security"), QStringLiteral("WPA2-PSK"));
        network.signal = fields.number(QLatin1String("signal"), -100.0, 0.0, network.signal);
        network.wander = fields.number(QLatin1String("wander"), 0.0, 50.0, network.wander);
        network.linkRate = static_cast<int>(fields.whole(QLatin1String("link_rate"), 1, 100000, 0));
        readWalk(fields, &network);
        readPresence(fields, &network);
        ReadRawTexts(fields, &network.raw, &network.missing, &m_error);
        if (fields.flag(QLatin1String("joined"), false)) {
            if (m_scenario.joined >= 0) {
                fields.report(QLatin1String("joined"),
                    indexed("networks", m_scenario.joined) + QStringLiteral(" is joined already"));
            }
            m_scenario.joined = i;
        }
        addNetwork(network, path);
    }
}

/// 233 is the highest channel of any band. Those of 6 GHz may have 6000 added, which tells them
/// from the others. Odder ones are for "raw".
int Builder::readChannel(const JsonFields &fields, const QJsonValue &value)
{
    const qint64 added = value.toDouble() > 6000.0 ? 6000 : 0;
    return static_cast<int>(fields.whole(QLatin1String("channel"), added + 1, added + 233, 1));
}

void Builder::readWalk(const JsonFields &fields, ScenarioNetwork *network)
{
    const QLatin1String key("walk");
    if (!fields.has(key))
        return;
    if (fields.has(QLatin1String("signal")))
        fields.report(key, QStringLiteral("cannot stand beside \"signal\": it takes its place"));
    const QJsonArray list = fields.list(key);
    if (list.size() < 2 || list.size() > ScenarioLimits::WalkPoints) {
        fields.report(key, QStringLiteral("must have 2 to %1 points, not %2")
                               .arg(ScenarioLimits::WalkPoints)
                               .arg(list.size()));
    }
    for (int i = 0; i < list.size() && !m_error.isSet(); ++i) {
        const QString path = fields.path(indexed("walk", i));
        const QJsonArray point = list.at(i).toArray();
        if (point.size() != 2 || !point.at(0).isDouble() || !point.at(1).isDouble()) {
            m_error.report(path, QStringLiteral("must be a list of two numbers: [seconds, dBm]"));
            return;
        }
        const WalkPoint place{point.at(0).toDouble(), point.at(1).toDouble()};
        const double earliest = i == 0 ? 0.0 : network->walk.last().seconds;
        if (i == 0 && (place.seconds < 0.0 || place.seconds > 0.0))
            m_error.report(path, QStringLiteral("must be at 0 seconds, where every walk begins"));
        else if (i > 0 && !(place.seconds > earliest))
            m_error.report(path, QStringLiteral("must be later than the point before it"));
        else if (place.seconds > ScenarioLimits::Seconds)
            m_error.report(path, QStringLiteral("is too late"));
        else if (place.dbm < -100.0 || place.dbm > 0.0)
            m_error.report(path, QStringLiteral("must have a signal from -100 to 0 dBm"));
        network->walk.append(place);
    }
}

void Builder::readPresence(const JsonFields &fields, ScenarioNetwork *network)
{
    const QLatin1String until("until");
    network->from = ReadScriptTime(fields, QLatin1String("from"), m_scenario);
    network->until = fields.number(until, 0.0, ScenarioLimits::Seconds, network->until);
    if (network->until <= network->from)
        fields.report(until, QStringLiteral("must be later than \"from\""));
}

void Builder::readGenerate(const QJsonValue &value, const QString &path)
{
    static const QStringList known{QStringLiteral("count"), QStringLiteral("prefix"),
        QStringLiteral("security"), QStringLiteral("wander"), QStringLiteral("from"),
        QStringLiteral("until")};
    static const int channels[] = {1, 6, 11, 36, 40, 44, 48, 6, 1, 11, 100, 149, 153, 161, 11, 3};
    const JsonFields fields(value, path, known, &m_error);
    fields.require(QLatin1String("count"));
    const int count =
        static_cast<int>(fields.whole(QLatin1String("count"), 0, ScenarioLimits::Networks, 0));
    const QString prefix = fields.text(QLatin1String("prefix"), QStringLiteral("Network "));
    ScenarioNetwork network;
    network.security = fields.text(QLatin1String("security"), QStringLiteral("WPA2-PSK"));
    network.wander = fields.number(QLatin1String("wander"), 0.0, 50.0, network.wander);
    readPresence(fields, &network);
    for (int i = 0; i < count && !m_error.isSet(); ++i) {
        // Numbered through all blocks, so that no two of them make the same address.
        const int number = m_scenario.networks.size();
        network.ssid = prefix + QStringLiteral("%1").arg(i, 4, 10, QLatin1Char('0'));
        network.bssid = QStringLiteral("06:00:00:00:%1:%2")
                            .arg(number / 256, 2, 16, QLatin1Char('0'))
                            .arg(number % 256, 2, 16, QLatin1Char('0'));
        network.channel = channels[i % 16];
        network.signal = -40.0 - static_cast<double>(SignalModel::TextKey(network.bssid) % 51);
        addNetwork(network, path);
    }
}

void Builder::addNetwork(const ScenarioNetwork &network, const QString &path)
{
    if (m_scenario.networks.size() == ScenarioLimits::Networks) {
        m_error.report(path, QStringLiteral("is one network too many: %1 is the most")
                                 .arg(ScenarioLimits::Networks));
        return;
    }
    const QString key = network.bssid.toLower();
    if (m_networkOfBssid.contains(key)) {
        m_error.report(path + QStringLiteral(".bssid"),
            QuotedText(network.bssid) + QStringLiteral(" is the address of two networks"));
        return;
    }
    m_networkOfBssid.insert(key, m_scenario.networks.size());
    m_scenario.networks.append(network);
}

void Builder::readEvents(const JsonFields &root)
{
    const QJsonArray list = root.list(QLatin1String("events"));
    if (list.size() > ScenarioLimits::Events) {
        root.report(QLatin1String("events"),
            QStringLiteral("has more than %1 entries").arg(ScenarioLimits::Events));
    }
    for (int i = 0; i < list.size() && !m_error.isSet(); ++i) {
        m_scenario.events.append(ReadScenarioEvent(
            list.at(i), indexed("events", i), &m_scenario, &m_networkOfBssid, &m_error));
    }
    std::stable_sort(m_scenario.events.begin(), m_scenario.events.end(),
        [](const ScenarioEvent &a, const ScenarioEvent &b) { return a.at < b.at; });
}
} // namespace

ScenarioResult ParseScenario(const QByteArray &json)
{
    ScenarioResult result;
    if (json.size() > ScenarioLimits::Bytes) {
        result.error.report(
            QString(), QStringLiteral("is larger than %1 bytes").arg(ScenarioLimits::Bytes));
        return result;
    }
    // Before anything else, also because the JSON reader leaks the values of repeated keys.
    const DuplicateKey duplicate = FindDuplicateKey(json);
    if (duplicate.found) {
        result.error.report(duplicate.key.left(40),
            QStringLiteral("stands twice in one object; the second is in line %1")
                .arg(duplicate.line));
        return result;
    }
    QJsonParseError parseError;
    const QJsonDocument document = QJsonDocument::fromJson(json, &parseError);
    if (parseError.error != QJsonParseError::NoError) {
        result.error.report(QString(), QStringLiteral("is not JSON: %1 in line %2")
                                           .arg(parseError.errorString())
                                           .arg(LineOfOffset(json, parseError.offset)));
        return result;
    }
    if (!document.isObject()) {
        result.error.report(QString(), QStringLiteral("must hold an object: { ... }"));
        return result;
    }
    result = Builder().build(document.object());
    if (result.error.isSet())
        result.error.line = LineOfField(json, result.error.field);
    return result;
}
