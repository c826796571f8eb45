#ifndef AIRLUME_PLUGINCHECK_CONTRACT_H
#define AIRLUME_PLUGINCHECK_CONTRACT_H

#include "answers.h"
#include "deviations.h"

#include <QPair>
#include <QSet>

/// The contract between Airlume and a back end, as pure functions: answers in, deviations out.
namespace PluginCheck
{

/// No call should take longer than this, in ms: Airlume's discovery never waits for a scan.
constexpr double LongestAnswer = 50;
/// A call that takes this long, in ms, waits for something: no busy computer explains it.
constexpr double HopelesslySlow = 1000;

/// Index of the interface that Airlume's rule takes, or -1 without any.
int chosenInterface(bool listed, const QVector<bool> &usable);

/// Index of the interface whose networks Airlume shows: the one that it takes, unless the answers
/// show that the back end reads another one. -1 without any.
int readInterface(const Answers &answers);

/// What tells one access point from another in Airlume: "ssid" and "bssid".
using Identity = QPair<QString, QString>;
Identity identityOf(const ScanMap &network);
QSet<Identity> identitiesOf(const QList<ScanMap> &networks);

/// As Airlume sees it.
bool isJoined(const ScanMap &network);

/// The list of interface names.
Deviations checkInterfaces(const QStringList &interfaces);

/// Keys and form of the values of each network, and what must hold between them.
Deviations checkNetworks(const QList<ScanMap> &networks);

/// Everything above, the times, and what the repeated queries showed.
Deviations checkAnswers(const Answers &answers);

/// The text in double quotes, cut to `longest` characters with a remark on its whole length.
QString quoted(const QString &text, int longest = 48);

} // namespace PluginCheck

#endif
