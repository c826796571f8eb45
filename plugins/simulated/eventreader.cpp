#include "simulated/eventreader.h"

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
    {QLatin1String("join"), Action::Join},
    {QLatin1String("leave"), Action::Leave},
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

/// Which of the members that name something an event may have.
struct Members {
    bool interface = false;
    bool bssid = false;
    bool query = false;
};

Members membersOf(Action action)
{
    switch (action) {
    case Action::RadioOff:
    case Action::RadioOn:
    case Action::Unplug:
    case Action::Plug:
        return {true, false, false};
    case Action::Join:
        return {false, true, false};
    case Action::Fail:
    case Action::Recover:
        return {false, false, true};
    case Action::Leave:
        break;
    }
    return {};
}

const QLatin1String interfaceKey("interface");
const QLatin1String bssidKey("bssid");
const QLatin1String queryKey("query");
} // namespace

ScenarioEvent ReadScenarioEvent(const QJsonValue &value, const QString &path,
    const Scenario &scenario, const QHash<QString, int> &networkOfBssid, ScenarioError *error)
{
    static const QStringList known{QStringLiteral("at"), QStringLiteral("do"),
        QStringLiteral("interface"), QStringLiteral("bssid"), QStringLiteral("query")};
    const JsonFields fields(value, path, known, error);
    fields.require(QLatin1String("at"));
    fields.require(QLatin1String("do"));
    ScenarioEvent event;
    event.at = ReadScriptTime(fields, QLatin1String("at"), scenario);
    event.action = choose(fields, QLatin1String("do"), actions, QStringLiteral("radio_off"));

    const Members members = membersOf(event.action);
    const auto refuse = [&fields](QLatin1String key, bool allowed) {
        if (!allowed && fields.has(key))
            fields.report(key, QStringLiteral("does not belong to this event"));
    };
    refuse(interfaceKey, members.interface);
    refuse(bssidKey, members.bssid);
    refuse(queryKey, members.query);

    if (members.interface && fields.has(interfaceKey)) {
        const QString name = fields.text(interfaceKey);
        event.interface = indexOfInterface(scenario, name);
        if (event.interface < 0) {
            fields.report(
                interfaceKey, QuotedText(name) + QStringLiteral(" is no interface of this file"));
        }
    }
    if (members.bssid) {
        fields.require(bssidKey);
        const QString bssid = fields.hardwareAddress(bssidKey);
        event.network = networkOfBssid.value(bssid.toLower(), -1);
        if (event.network < 0) {
            fields.report(
                bssidKey, QuotedText(bssid) + QStringLiteral(" is no network of this file"));
        }
    }
    if (members.query)
        event.query = choose(fields, queryKey, queries, QStringLiteral("all"));
    return event;
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
