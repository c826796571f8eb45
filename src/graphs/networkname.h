#ifndef AIRLUME_GRAPHS_NETWORKNAME_H
#define AIRLUME_GRAPHS_NETWORKNAME_H

#include <qwt_text.h>

class QString;

/// How a network's name is drawn in a graph. Names are chosen by strangers, so line breaks and
/// other control characters become blanks, characters that turn the reading direction of what
/// follows are left out, and a name of more than 64 characters ends in an ellipsis. Any other name
/// is unchanged.
QString displayName(const QString &ssid);

/// `text` as Qwt shall draw it: never taken for rich text.
QwtText plainText(const QString &text);

#endif
