#ifndef AIRLUME_SIMULATED_EVENTREADER_H
#define AIRLUME_SIMULATED_EVENTREADER_H

#include "simulated/jsonfields.h"
#include "simulated/scenario.h"

#include <QHash>

/// Reads one event of a scenario file. `scenario` has its interfaces, and `networkOfBssid` leads
/// from addresses in lower case to its networks; what an event brings for the first time is added.
/// `path` and `error` as for JsonFields.
ScenarioEvent ReadScenarioEvent(const QJsonValue &value, const QString &path, Scenario *scenario,
    QHash<QString, int> *networkOfBssid, ScenarioError *error);

/// A time in seconds, 0 when missing. One that never comes because the script starts over before is
/// reported.
double ReadScriptTime(const JsonFields &fields, QLatin1String key, const Scenario &scenario);

/// Hardware address of the interface number `index`, from 0, that has none of its own.
QString DefaultAddress(int index);

#endif
