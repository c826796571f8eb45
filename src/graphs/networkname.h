#ifndef AIRLUME_GRAPHS_NETWORKNAME_H
#define AIRLUME_GRAPHS_NETWORKNAME_H

#include <qwt_text.h>

class QString;

/// How a network's name is drawn in a graph: as AirText::ForDisplay() shows it, and with an
/// ellipsis after 63 characters where it has more than 64.
QString displayName(const QString &ssid);

/// `text` as Qwt shall draw it: never taken for rich text.
QwtText plainText(const QString &text);

#endif
