#ifndef AIRLUME_TOOLS_EXAMPLEHOST_H
#define AIRLUME_TOOLS_EXAMPLEHOST_H

#include <QList>
#include <QLocalServer>
#include <QObject>

class QLocalSocket;

/// Plays the host suite: answers each request for the language, and sends what its commands say to
/// every Airlume that is connected. Prints what comes and goes.
class ExampleHost : public QObject
{
    Q_OBJECT

public:
    /// `language`: the code to answer a request with; empty: requests stay unanswered.
    explicit ExampleHost(const QString &language);

    /// Takes the host suite's server name. False when it cannot be had, for instance because
    /// another host is running.
    bool listen();

    /// Carries out one line of input: "language CODE", "raw TEXT", "exit" or "quit".
    void obey(const QString &command);

private:
    void welcome(QLocalSocket *client);
    void send(QLocalSocket *client, const QByteArray &message);
    void sendToAll(const QByteArray &message);

    QLocalServer m_server;
    QList<QLocalSocket *> m_clients;
    QString m_language;
};

/// Replaces \n, \r, \t and \\ by what they stand for; every other backslash stays. Pure.
QString Unescaped(const QString &text);

#endif
