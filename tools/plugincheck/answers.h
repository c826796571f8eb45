#ifndef AIRLUME_PLUGINCHECK_ANSWERS_H
#define AIRLUME_PLUGINCHECK_ANSWERS_H

#include "scan/wifiapiinterface.h"

#include <QVector>

#include <optional>

namespace PluginCheck
{

/// What a back end answered in one round, unjudged. A plain value.
struct Answers {
    qint64 at = 0; ///< When the round began, in ms since the end of the back end's first call.

    bool listed = false; ///< Result of getWiFiNicList().
    QStringList interfaces;
    QVector<bool> usable; ///< Result of isWiFiNicUsable(), one per entry of `interfaces`.

    /// Result of getVisiableNetworkMapList() with an empty interface name. Not asked when there is
    /// no interface: Airlume would not ask either.
    std::optional<bool> queried;
    QList<ScanMap> networks;

    /// A second query and a second list, right after the successful first ones of the first round.
    std::optional<QList<ScanMap>> networksAgain;
    std::optional<QStringList> interfacesAgain;
    /// The query failed with an empty name but works with the interface's own.
    bool needsName = false;
    /// With several interfaces, for each: a query with its name gives what the one with an empty
    /// name gave. Empty where that was not found out.
    QVector<bool> alike;

    // Time of the slowest call of each kind, in ms; negative when it was not called.
    double listTime = -1;
    double usableTime = -1;
    double queryTime = -1;
};

} // namespace PluginCheck

#endif
