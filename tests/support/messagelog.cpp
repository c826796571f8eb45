#include "support/messagelog.h"

#include <QMutex>
#include <QMutexLocker>
#include <QPair>
#include <QVector>

namespace
{
QMutex mutex;
QVector<QPair<QtMsgType, QString>> collected;

void collect(QtMsgType type, const QMessageLogContext &, const QString &text)
{
    QMutexLocker lock(&mutex);
    collected.append({type, text});
}
} // namespace

MessageLog::MessageLog()
    : m_previous(qInstallMessageHandler(collect))
{
    clear();
}

MessageLog::~MessageLog()
{
    qInstallMessageHandler(m_previous);
}

QStringList MessageLog::messages(QtMsgType type) const
{
    QMutexLocker lock(&mutex);
    QStringList found;
    for (const auto &message : qAsConst(collected)) {
        if (message.first == type)
            found.append(message.second);
    }
    return found;
}

void MessageLog::clear()
{
    QMutexLocker lock(&mutex);
    collected.clear();
}
