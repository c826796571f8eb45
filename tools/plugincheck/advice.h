#ifndef AIRLUME_PLUGINCHECK_ADVICE_H
#define AIRLUME_PLUGINCHECK_ADVICE_H

#include <QStringList>

/// What a user can do whose list is empty, the most likely help first. Commands stand in backticks,
/// and only those that this computer has.
namespace PluginCheck
{

namespace Advice
{

QStringList withoutInterface();
/// There is one that the back end cannot use, as it says itself.
QStringList withUnusableInterface();
QStringList withRadioOff();
QStringList withFailedQuery();
/// The back end has said itself why nobody scans.
QStringList withRefusedScan();
QStringList withEmptyAir();
QStringList withOwnNetworkOnly();
QStringList withScenarioMistake();
QStringList withBrokenBackend();

} // namespace Advice

} // namespace PluginCheck

#endif
