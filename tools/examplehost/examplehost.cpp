#include "examplehost.h"

#include <QCoreApplication>
#include <QLocalSocket>

#include <cstdio>

namespace
{
const QString ServerName = QStringLiteral("HarborWindowLocalProcess");
const QByteArray LanguageRequest("IpcRequestLanguage");

void print(const QByteArray &line)
{
    std::printf("%s\n", line.constData());
    std::fflush(stdout);
}

QByteArray languageMessage(const QString &code)
{
    return "IpcResponseLanguage:" + code.toUtf8();
}
} // namespace

ExampleHost::ExampleHost(const QString &language)
    : m_language(language)
{
    connect(&m_server, &QLocalServer::newConnection, this, [this] {
        while (QLocalSocket *client = m_server.nextPendingConnection())
            welcome(client);
    });
}

bool ExampleHost::listen()
{
    if (!m_server.listen(ServerName)) {
        // Left behind by a host that crashed, or in use: only the former may be cleared away.
        QLocalSocket probe;
        probe.connectToServer(ServerName);
        if (!probe.waitForConnected(1000)) {
            QLocalServer::removeServer(ServerName);
            m_server.listen(ServerName);
        }
    }
    print(m_server.isListening() ? QByteArray("listening")
                                 : "cannot listen: " + m_server.errorString().toUtf8());
    return m_server.isListening();
}

void ExampleHost::welcome(QLocalSocket *client)
{
    print("connected");
    m_clients.append(client);
    connect(client, &QLocalSocket::disconnected, this, [this, client] {
        print("disconnected");
        m_clients.removeOne(client);
        client->deleteLater();
    });
    const auto read = [this, client] {
        const QByteArray text = client->readAll();
        if (text.isEmpty())
            return;
        print("received " + text);
        if (text.startsWith(LanguageRequest) && !m_language.isEmpty())
            send(client, languageMessage(m_language));
    };
    connect(client, &QLocalSocket::readyRead, this, read);
    // The request may have come before the connection was taken.
    read();
}

void ExampleHost::send(QLocalSocket *client, const QByteArray &message)
{
    client->write(message);
    // At once: a message that is joined with the next one is not understood.
    client->flush();
    print("sent " + message);
}

void ExampleHost::sendToAll(const QByteArray &message)
{
    if (m_clients.isEmpty())
        print("nobody is connected");
    for (QLocalSocket *client : qAsConst(m_clients))
        send(client, message);
}

void ExampleHost::obey(const QString &command)
{
    const QString verb = command.section(QLatin1Char(' '), 0, 0);
    const QString object = command.section(QLatin1Char(' '), 1);
    if (verb == QLatin1String("language")) {
        m_language = object;
        sendToAll(languageMessage(m_language));
    } else if (verb == QLatin1String("raw")) {
        sendToAll(Unescaped(object).toUtf8());
    } else if (verb == QLatin1String("exit")) {
        sendToAll("IpcResponseExit");
    } else if (verb == QLatin1String("quit")) {
        QCoreApplication::quit();
    } else if (!verb.isEmpty()) {
        print("commands: language CODE | raw TEXT | exit | quit");
    }
}

QString Unescaped(const QString &text)
{
    static const QString letters = QStringLiteral("nrt\\");
    static const QString meanings = QStringLiteral("\n\r\t\\");
    QString result;
    for (int i = 0; i < text.size(); ++i) {
        const int letter = text.at(i) == QLatin1Char('\\') && i + 1 < text.size()
                               ? letters.indexOf(text.at(i + 1))
                               : -1;
        result += letter < 0 ? text.at(i) : meanings.at(letter);
        if (letter >= 0)
            ++i;
    }
    return result;
}
