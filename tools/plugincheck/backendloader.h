#ifndef AIRLUME_PLUGINCHECK_BACKENDLOADER_H
#define AIRLUME_PLUGINCHECK_BACKENDLOADER_H

#include "deviations.h"

#include <functional>

class WiFiApiInterface;

namespace PluginCheck
{

/// Why there are no answers: a stable name for programs, one or two sentences, and what to do.
struct Problem {
    QString code; ///< Empty: no problem.
    QString text;
    QStringList advice;
};

/// A back end as far as it could be loaded.
struct Backend {
    QString path; ///< Absolute; empty when no file was found.
    QString interfaceId;
    QString className;
    QString qtVersion;    ///< The Qt it was built with, "5.15"; empty when unknown.
    bool isWhole = false; ///< All that can be known is known: it was loaded, or has a problem.
    WiFiApiInterface *api = nullptr; ///< Null with a problem. Lives as long as the process.
    Deviations deviations;
    Problem problem;
};

/// Loads the back end in `path` (a file, or a folder that holds WiFiApiLibrary), or with an empty
/// path the one that Airlume itself would load. What is known of it goes to `report` before any of
/// its code runs. GUI thread, once per process: the library is not unloaded.
Backend loadBackend(const QString &path, const std::function<void(const Backend &)> &report = {});

/// "5.15" from the number 0x050f08: a plug-in's metadata do not hold the patch level.
QString versionText(int version);

/// What is wrong with a library that was built with Qt `version`, when `running` is the Qt in use;
/// nothing when the two go together.
Problem incompatibleQt(int version, int running);

} // namespace PluginCheck

#endif
