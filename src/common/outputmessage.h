#ifndef AIRLUME_COMMON_OUTPUTMESSAGE_H
#define AIRLUME_COMMON_OUTPUTMESSAGE_H

#include <QtGlobal>

class QMessageLogContext;
class QString;

/// A Qt message handler for builds that want a log file: open one, store it in
/// QtCommonTools::m_fileLog and install this function. Airlume itself does not install it.
///
/// Debug messages and warnings are dropped. The others become one line: type word, blank, local
/// time, blank, text, carriage return and line feed. Writes nothing when m_fileLog is null.
void outputMessage(QtMsgType type, const QMessageLogContext &context, const QString &text);

#endif
