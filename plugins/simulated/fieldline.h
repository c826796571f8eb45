#ifndef AIRLUME_SIMULATED_FIELDLINE_H
#define AIRLUME_SIMULATED_FIELDLINE_H

#include <QByteArray>
#include <QString>

/// The line, from 1, in which a field such as "networks[3].channel" begins, or where it is missing
/// the object that should hold it. 0 when there is neither. `json` must be valid.
int LineOfField(const QByteArray &json, const QString &field);

#endif
