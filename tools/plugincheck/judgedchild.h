#ifndef AIRLUME_PLUGINCHECK_JUDGEDCHILD_H
#define AIRLUME_PLUGINCHECK_JUDGEDCHILD_H

class QString;

namespace PluginCheck
{

/// First argument of the process that runs the back end; the descriptor of its results and the
/// path of the back end follow. Not for people.
constexpr char ChildOption[] = "--judged-child";

/// What that process does: loads the back end, asks it one round for each octet of the standard
/// input, tells the results, and ends in order with the input. Needs the application object; to be
/// called first of all, with the descriptors as they were handed over. Returns the exit status.
int runJudgedChild(int results, const QString &path);

} // namespace PluginCheck

#endif
