#ifndef AIRLUME_PLUGINCHECK_OPTIONS_H
#define AIRLUME_PLUGINCHECK_OPTIONS_H

#include <QStringList>

namespace PluginCheck
{

/// What the command line asks for. A plain value.
struct Options {
    enum Action { Check, ShowHelp, ShowVersion, Refuse };
    Action action = Check;
    QString text;    ///< What to print for any action but Check.
    QString backend; ///< Path; empty for the one that Airlume would load.
    bool json = false;
    int rounds = 1;      ///< 0: until interrupted.
    int interval = 4000; ///< Between two rounds, in ms.
    int timeout = 10000; ///< Longest time one call may take before it is given up, in ms.
    int wait = 20000;    ///< Longest time that a single round waits for the first scan, in ms.
    QString record;      ///< File to record to; empty: none.
    int recordFor = 0;   ///< In ms; 0: until interrupted.
    bool anonymous = false;
};

/// Reads the command line. `arguments` begins with the program's name.
Options parseOptions(const QStringList &arguments);

} // namespace PluginCheck

#endif
