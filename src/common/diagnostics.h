#ifndef AIRLUME_COMMON_DIAGNOSTICS_H
#define AIRLUME_COMMON_DIAGNOSTICS_H

#include <QString>

/// Messages that say where in the source they were reported. Use the macros below: they fill in the
/// place of the call.
namespace Diagnostics
{

/// "file:<name> function:<function> line:<line> ", where <name> is the last part of `file` without
/// its extension.
QString SourceLocation(const char *file, const char *function, int line);

/// Writes one critical message: `text` directly followed by the location. Any thread.
void ReportCritical(const QString &text, const char *file, const char *function, int line);

/// Writes one debug message of the same form. Any thread.
void ReportDebug(const QString &text, const char *file, const char *function, int line);

/// The text reported for a null pointer. The spelling is what log readers search for.
extern const QString NullPointText;

} // namespace Diagnostics

/// Reports `text` (a QString) at critical level with the place of the call.
#define AIRLUME_CRITICAL(text) Diagnostics::ReportCritical((text), __FILE__, __func__, __LINE__)
/// Reports a null pointer at critical level with the place of the call.
#define AIRLUME_NULL_POINT() AIRLUME_CRITICAL(Diagnostics::NullPointText)
/// Reports a null pointer at debug level with the place of the call.
#define AIRLUME_NULL_POINT_DEBUG()                                                                 \
    Diagnostics::ReportDebug(Diagnostics::NullPointText, __FILE__, __func__, __LINE__)

#endif
