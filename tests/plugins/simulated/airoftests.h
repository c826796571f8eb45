#ifndef AIRLUME_TESTS_SIMULATED_AIROFTESTS_H
#define AIRLUME_TESTS_SIMULATED_AIROFTESTS_H

#include "simulated/scenarioparser.h"
#include "simulated/simulatedair.h"

/// Two networks of scenario files, and the names of two interfaces.
inline const QByteArray home = R"({ "ssid": "Home", "bssid": "02:00:00:00:00:01", "channel": 44,
    "security": "WPA3-SAE", "signal": -50, "wander": 0, "joined": true, "link_rate": 866 })";
inline const QByteArray other = R"({ "ssid": "Other", "bssid": "02:00:00:00:00:02", "channel": 6,
    "signal": -70, "wander": 0 })";
inline const QString homeBssid = QStringLiteral("02:00:00:00:00:01");
inline const QString otherBssid = QStringLiteral("02:00:00:00:00:02");
inline const QString a = QStringLiteral("a");
inline const QString b = QStringLiteral("b");

/// The air of a scenario; a mistake in it ends the test.
SimulatedAir airOf(const QByteArray &json);

/// Two interfaces "a" and "b", the networks above and some events.
SimulatedAir airWithEvents(const QByteArray &events);

QStringList interfacesOf(const SimulatedAir &air);
QList<ScanMap> networksOf(const SimulatedAir &air, const QString &interface = QString());
/// Whether the query for networks succeeds.
bool hears(const SimulatedAir &air, const QString &interface = QString());
/// BSSIDs of the networks marked as joined.
QStringList joinedOf(const SimulatedAir &air);

#endif
