#ifndef AIRLUME_PLUGINCHECK_ANSWERS_H
#define AIRLUME_PLUGINCHECK_ANSWERS_H

#include "scan/wifiapiinterface.h"

#include <QMetaType>
#include <QVector>

#include <optional>

namespace PluginCheck
{

/// What a back end answered in one round, unjudged. A plain value; safe to copy across threads.
struct Answers {
    bool listed = false; ///< Result of getWiFiNicList().
    QStringList interfaces;
    QVector<bool> usable; ///< Result of isWiFiNicUsable(), one per entry of `interfaces`.

    /// Result of getVisiableNetworkMapList() with an empty interface name. Not asked when there is
    /// no interface: Airlume would not ask either.
    std::optional<bool> queried;
    QList<ScanMap> networks;

    /// A second query right after a successful first one.
    std::optional<QList<ScanMap>> networksAgain;
    /// The query failed with an empty name but works with the interface's own.
    bool needsName = false;

    // Time of the slowest call of each kind, in ms; negative when it was not called.
    double listTime = -1;
    double usableTime = -1;
    double queryTime = -1;
};

} // namespace PluginCheck

Q_DECLARE_METATYPE(PluginCheck::Answers)

#endif
