#ifndef AIRLUME_PLUGINCHECK_CRASHGUARD_H
#define AIRLUME_PLUGINCHECK_CRASHGUARD_H

#include "callwatch.h"

#include <QByteArray>

#include <array>

namespace PluginCheck
{

/// Turns a crash of the back end into a report: the process then writes a prepared text to the
/// standard output and ends with status 2.
namespace CrashGuard
{

/// What to write when the crash happens in the operation with that number.
using LastWords = std::array<QByteArray, CallWatch::OperationCount>;

/// Replaces the last words; the first call also puts the signal handlers in place. Not while
/// another thread runs something of the back end.
void arm(const LastWords &words);

} // namespace CrashGuard

} // namespace PluginCheck

#endif
