#include "messagecollector.h"

#include "plaintext.h"

#include <QMutex>
#include <QMutexLocker>

#include <cstdio>

namespace PluginCheck
{

namespace
{

QMutex mutex;
QVector<Message> collected;

QString levelName(QtMsgType type)
{
    switch (type) {
    case QtDebugMsg:
        return QStringLiteral("debug");
    case QtInfoMsg:
        return QStringLiteral("info");
    case QtWarningMsg:
        return QStringLiteral("warning");
    default:
        return QStringLiteral("critical");
    }
}

void collect(QtMsgType type, const QMessageLogContext &, const QString &text)
{
    if (type == QtFatalMsg) {
        // The process ends now: nobody will take this message.
        const QByteArray line = terminalBytes(
            escaped(QStringLiteral("The back end gave up: ") + text), terminalIsUtf8());
        std::fprintf(stderr, "%s\n", line.constData());
        return;
    }
    QMutexLocker lock(&mutex);
    if (collected.size() < MessageCollector::MaximumMessages)
        collected.append({levelName(type), text});
}

} // namespace

MessageCollector::MessageCollector()
    : m_previous(qInstallMessageHandler(collect))
{
}

MessageCollector::~MessageCollector()
{
    qInstallMessageHandler(m_previous);
}

QVector<Message> MessageCollector::take()
{
    QMutexLocker lock(&mutex);
    QVector<Message> taken;
    taken.swap(collected);
    return taken;
}

} // namespace PluginCheck
