#include "common/outputmessage.h"

#include "common/QtCommonTools.h"

#include <QDateTime>
#include <QMessageLogContext>
#include <QTextStream>

void outputMessage(QtMsgType type, const QMessageLogContext &, const QString &text)
{
    QString word;
    switch (type) {
    case QtDebugMsg:
    case QtWarningMsg:
        // On purpose: only critical, fatal and informational messages reach the log.
        return;
    case QtCriticalMsg:
        word = QStringLiteral("Critical:");
        break;
    case QtFatalMsg:
        word = QStringLiteral("Fatal:");
        break;
    default:
        break;
    }
    if (!QtCommonTools::m_fileLog)
        return;
    // A stream for each line: destroying it flushes the line.
    QTextStream stream(QtCommonTools::m_fileLog);
    stream << word << QLatin1Char(' ')
           << QDateTime::currentDateTime().toString(QStringLiteral("yyyy-MM-dd hh:mm:ss zzz"))
           << QLatin1Char(' ') << text << QLatin1String("\r\n");
}
