#include "simulated/eventreader.h"

#include "simulated/hearingreader.h"
#include "simulated/scenarioparser.h"

namespace
{
using Action = ScenarioEvent::Action;
using Query = ScenarioEvent::Query;

template <typename Value> struct NamedValue {
    QLatin1String name;
    Value value;
};

const NamedValue<Action> actions[] = {
    {QLatin1String("radio_off"), Action::RadioOff},
    {QLatin1String("radio_on"), Action::RadioOn},
    {QLatin1String("unplug"), Action::Unplug},
    {QLatin1String("plug"), Action::Plug},
    {QLatin1String("attach"), Action::Attach},
    {QLatin1String("join"), Action::Join},
    {QLatin1String("leave"), Action::Leave},
    {QLatin1String("hear"), Action::Hear},
    {QLatin1String("lose"), Action::Lose},
    {QLatin1String("order"), Action::Order},
    {QLatin1String("fail"), Action::Fail},
    {QLatin1String("recover"), Action::Recover},
};

const NamedValue<Query> queries[] = {
    {QLatin1String("all"), Query::All},
    {QLatin1String("interfaces"), Query::Interfaces},
    {QLatin1String("usable"), Query::Usable},
    {QLatin1String("networks"), Query::Networks},
};

/// The value named by the text member `key`; anything else is reported with the names it may have.
template <typename Value, size_t Count>
Value choose(const JsonFields &fields, QLatin1String key, const NamedValue<Value> (&choices)[Count],
    const QString &fallback)
{
    const QString text = fields.text(key, fallback);
    QStringList names;
    for (const auto &choice : choices) {
        if (text == choice.name)
            return choice.value;
        names.append(choice.name);
    }
    fields.report(key, QStringLiteral("must be one of ") + names.join(QLatin1String(", ")) +
                           QStringLiteral(", not ") + QuotedText(text));
    return choices[0].value;
}

int indexOfInterface(const Scenario &scenario, const QString &name)
{
    for (int i = 0; i < scenario.interfaces.size(); ++i) {
        if (scenario.interfaces.at(i).name == name)
            return i;
    }
    return -1;
}

/// The members that an event may have beside "at" and "do".
QStringList membersOf(Action action)
{
    switch (action) {
    case Action::RadioOff:
    case Action::RadioOn:
    case Action::Unplug:
    case Action::Plug:
    case Action::Attach:
        return {QStringLiteral("interface")};
    case Action::Join:
    case Action::Lose:
        return {QStringLiteral("bssid")};
    case Action::Hear:
        return {QStringLiteral("bssid"), QStringLiteral("ssid"), QStringLiteral("channel"),
            QStringLiteral("security"), QStringLiteral("signal"), QStringLiteral("raw")};
    case Action::Order:
        return {QStringLiteral("interfaces"), QStringLiteral("networks")};
    case Action::Fail:
    case Action::Recover:
        return {QStringLiteral("query")};
    case Action::Leave:
        break;
    }
    return {};
}

const QLatin1String interfaceKey("interface");
const QLatin1String interfacesKey("interfaces");
const QLatin1String bssidKey("bssid");
const QLatin1String networksKey("networks");
const QLatin1String queryKey("query");

/// Reads the members of one event that name something, or bring it.
class Reader
{
public:
    Reader(const JsonFields &fields, Scenario *scenario, QHash<QString, int> *networkOfBssid,
        ScenarioError *error)
        : m_fields(fields)
        , m_scenario(scenario)
        , m_networkOfBssid(networkOfBssid)
        , m_error(error)
    {
    }

    int knownInterface() const;
    int attachedInterface();
    int knownNetwork() const;
    int heardNetwork(const ScenarioHearing &hearing);
    QVector<int> order(QLatin1String key) const;

private:
    const JsonFields &m_fields;
    Scenario *m_scenario;
    QHash<QString, int> *m_networkOfBssid;
    ScenarioError *m_error;
};

int Reader::knownInterface() const
{
    if (!m_fields.has(interfaceKey))
        return -1;
    const QString name = m_fields.text(interfaceKey);
    const int index = indexOfInterface(*m_scenario, name);
    if (index < 0) {
        m_fields.report(
            interfaceKey, QuotedText(name) + QStringLiteral(" is no interface of this file"));
    }
    return index;
}

int Reader::attachedInterface()
{
    m_fields.require(interfaceKey);
    const QString name = m_fields.text(interfaceKey);
    if (name.isEmpty())
        m_fields.report(interfaceKey, QStringLiteral("must not be empty"));
    if (indexOfInterface(*m_scenario, name) >= 0) {
        m_fields.report(interfaceKey,
            QuotedText(name) + QStringLiteral(" is an interface of this file already"));
    }
    const int index = m_scenario->interfaces.size();
    if (index == ScenarioLimits::Interfaces) {
        m_fields.report(interfaceKey, QStringLiteral("is one interface too many: %1 is the most")
                                          .arg(ScenarioLimits::Interfaces));
    }
    m_scenario->interfaces.append({name, DefaultAddress(index), true, true});
    return index;
}

int Reader::knownNetwork() const
{
    m_fields.require(bssidKey);
    const QString bssid = m_fields.hardwareAddress(bssidKey);
    const int index = m_networkOfBssid->value(bssid.toLower(), -1);
    if (index < 0) {
        m_fields.report(
            bssidKey, QuotedText(bssid) + QStringLiteral(" is no network of this file"));
    }
    return index;
}

int Reader::heardNetwork(const ScenarioHearing &hearing)
{
    m_fields.require(bssidKey);
    const QString bssid = m_fields.hardwareAddress(bssidKey);
    const auto known = m_networkOfBssid->constFind(bssid.toLower());
    if (known != m_networkOfBssid->cend())
        return *known;
    // The first time it must be told whole, so that a typing error does not pass for a network.
    m_fields.require(QLatin1String("ssid"));
    m_fields.require(QLatin1String("channel"));
    const int index = m_scenario->networks.size();
    if (index == ScenarioLimits::Networks) {
        m_fields.report(bssidKey, QStringLiteral("is one network too many: %1 is the most")
                                      .arg(ScenarioLimits::Networks));
    }
    ScenarioNetwork network;
    network.ssid = hearing.ssid.value_or(QString());
    network.bssid = bssid;
    network.channel = hearing.channel.value_or(1);
    network.security = QStringLiteral("WPA2-PSK");
    network.from = network.until;
    m_networkOfBssid->insert(bssid.toLower(), index);
    m_scenario->networks.append(network);
    return index;
}

QVector<int> Reader::order(QLatin1String key) const
{
    const QJsonArray list = m_fields.list(key);
    QVector<int> order;
    for (int i = 0; i < list.size() && !m_error->isSet(); ++i) {
        const QString name = list.at(i).toString();
        const int index = key == interfacesKey ? indexOfInterface(*m_scenario, name)
                                               : m_networkOfBssid->value(name.toLower(), -1);
        if (index < 0 || order.contains(index)) {
            m_error->report(m_fields.path(QStringLiteral("%1[%2]").arg(key).arg(i)),
                ValueText(list.at(i)) + (index < 0 ? QStringLiteral(" is none of this file")
                                                   : QStringLiteral(" stands twice")));
        }
        order.append(index);
    }
    return order;
}
} // namespace

ScenarioEvent ReadScenarioEvent(const QJsonValue &value, const QString &path, Scenario *scenario,
    QHash<QString, int> *networkOfBssid, ScenarioError *error)
{
    static const QStringList known{QStringLiteral("at"), QStringLiteral("do"),
        QStringLiteral("interface"), QStringLiteral("bssid"), QStringLiteral("query"),
        QStringLiteral("ssid"), QStringLiteral("channel"), QStringLiteral("security"),
        QStringLiteral("signal"), QStringLiteral("raw"), QStringLiteral("interfaces"),
        QStringLiteral("networks")};
    const JsonFields fields(value, path, known, error);
    fields.require(QLatin1String("at"));
    fields.require(QLatin1String("do"));
    ScenarioEvent event;
    event.at = ReadScriptTime(fields, QLatin1String("at"), *scenario);
    event.action = choose(fields, QLatin1String("do"), actions, QStringLiteral("radio_off"));

    const QStringList members = membersOf(event.action);
    for (const QString &key : known.mid(2)) {
        const QByteArray name = key.toLatin1();
        if (fields.has(QLatin1String(name)) && !members.contains(key))
            fields.report(QLatin1String(name), QStringLiteral("does not belong to this event"));
    }
    Reader reader(fields, scenario, networkOfBssid, error);
    switch (event.action) {
    case Action::RadioOff:
    case Action::RadioOn:
    case Action::Unplug:
    case Action::Plug:
        event.interface = reader.knownInterface();
        break;
    case Action::Attach:
        event.interface = reader.attachedInterface();
        break;
    case Action::Join:
    case Action::Lose:
        event.network = reader.knownNetwork();
        break;
    case Action::Hear:
        event.hearing = ReadHearing(fields, error);
        event.network = reader.heardNetwork(event.hearing);
        break;
    case Action::Order:
        event.interfaceOrder = reader.order(interfacesKey);
        event.networkOrder = reader.order(networksKey);
        break;
    case Action::Fail:
    case Action::Recover:
        event.query = choose(fields, queryKey, queries, QStringLiteral("all"));
        break;
    case Action::Leave:
        break;
    }
    return event;
}

QString DefaultAddress(int index)
{
    return QStringLiteral("02:00:00:00:00:%1").arg(index + 1, 2, 16, QLatin1Char('0'));
}

double ReadScriptTime(const JsonFields &fields, QLatin1String key, const Scenario &scenario)
{
    const double at = fields.number(key, 0.0, ScenarioLimits::Seconds, 0.0);
    if (scenario.repeat > 0.0 && at >= scenario.repeat) {
        fields.report(key, QStringLiteral("never comes: the script starts over after ") +
                               NumberText(scenario.repeat) + QStringLiteral(" seconds"));
    }
    return at;
}
