#include "companion.h"

#include "air.h"

#include <QJsonArray>
#include <QJsonDocument>

namespace
{
const int AnswerTimeoutMs = 60000;
const QString DataKey = QStringLiteral("data");
} // namespace

Companion::Companion(const QString &user, bool session)
    : m_user(user)
    , m_session(session)
    , m_name(user.isEmpty() ? QStringLiteral("root") : user)
{
    m_process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
}

Companion::~Companion()
{
    if (m_process.state() == QProcess::NotRunning || end())
        return;
    m_process.kill();
    m_process.waitForFinished();
}

bool Companion::end()
{
    m_process.closeWriteChannel();
    return m_process.waitForFinished(5000) && m_process.exitStatus() == QProcess::NormalExit;
}

bool Companion::start(const QString &program, const QStringList &arguments)
{
    if (m_user.isEmpty()) {
        m_process.start(program, arguments);
    } else {
        QStringList command{QStringLiteral("as")};
        if (m_session)
            command.append(QStringLiteral("--session"));
        m_process.start(QStringLiteral("hwsim"),
            command << m_user << QStringLiteral("env") << program << arguments);
    }
    return m_process.waitForStarted();
}

bool Companion::startListener()
{
    return start(Air::published(QStringLiteral(AIRLUME_LISTENER)),
        {Air::published(QStringLiteral(AIRLUME_PLUGIN))});
}

QJsonObject Companion::next()
{
    while (!m_process.canReadLine()) {
        if (!m_process.waitForReadyRead(AnswerTimeoutMs))
            return {};
    }
    return QJsonDocument::fromJson(m_process.readLine()).object();
}

QJsonObject Companion::ask(const QString &question)
{
    m_process.write(question.toUtf8() + '\n');
    const QJsonObject answer = next();
    const QJsonArray messages = answer.value(QStringLiteral("messages")).toArray();
    for (const QJsonValue &message : messages)
        m_messages.append(message.toString());
    m_times.append(answer.value(QStringLiteral("ms")).toDouble());
    return answer;
}

QJsonObject Companion::networks(const QString &interface)
{
    return ask(QStringLiteral("networks ") + interface);
}

QStringList Companion::takeMessages()
{
    QStringList messages;
    messages.swap(m_messages);
    return messages;
}

QVector<QJsonObject> networksOf(const QJsonObject &answer)
{
    QVector<QJsonObject> networks;
    const QJsonArray data = answer.value(DataKey).toArray();
    for (const QJsonValue &value : data)
        networks.append(value.toObject());
    return networks;
}

QJsonObject joinedOf(const QJsonObject &answer)
{
    QVector<QJsonObject> joined;
    for (const QJsonObject &network : networksOf(answer)) {
        if (network.value(QStringLiteral("current_connected")).toString() == QStringLiteral("1"))
            joined.append(network);
    }
    return joined.size() == 1 ? joined.first() : QJsonObject();
}

bool succeeded(const QJsonObject &answer)
{
    return answer.value(QStringLiteral("result")).toBool();
}
