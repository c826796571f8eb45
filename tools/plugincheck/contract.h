#ifndef AIRLUME_PLUGINCHECK_CONTRACT_H
#define AIRLUME_PLUGINCHECK_CONTRACT_H

#include "answers.h"
#include "deviations.h"

/// The contract between Airlume and a back end, as pure functions: answers in, deviations out.
namespace PluginCheck
{

/// No call may take longer than this, in ms: Airlume's discovery never waits for a scan.
constexpr double LongestAnswer = 50;

/// Index of the interface that Airlume would use, or -1 without any. The first usable one among the
/// second and later entries wins; failing that the first entry is taken, usable or not. After a
/// failed listing usability is not asked and the first entry is taken.
int chosenInterface(bool listed, const QVector<bool> &usable);

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
