#ifndef AIRLUME_TESTS_FLOWS_HOSTSUITE_H
#define AIRLUME_TESTS_FLOWS_HOSTSUITE_H

#include <QJsonArray>
#include <QJsonObject>
#include <QLocalServer>
#include <QLocalSocket>
#include <QScopedPointer>

#include <functional>

/// Plays the host suite for one program, step by step: no event loop is needed.
class HostSuite
{
public:
    /// Listens at once, for programs with that temporary folder; empty: the test's own.
    explicit HostSuite(const QString &temporaryFolder = {});

    /// Waits for the program's connection.
    bool waitForConnection();
    /// Waits for the program's request and tells whether it is the one and only.
    bool waitForRequest();
    /// Waits for both.
    bool isAsked() { return waitForConnection() && waitForRequest(); }
    /// Sends a message, whole.
    bool say(const QByteArray &message);
    bool sayLanguage(const QByteArray &code) { return say("IpcResponseLanguage:" + code); }
    /// What is said can also be written here; nothing is waited for.
    int handle() const;
    /// Says no more, and goes on reading.
    bool closeHalf();
    /// Dies: the connection and the server are gone.
    void die();

private:
    QScopedPointer<QLocalServer> m_server;
    QLocalSocket *m_connection = nullptr;
};

/// The text of a label key in one of the language files of the source tree.
QString textIn(const QString &code, const QString &key);

/// The tabs' titles in that language.
QJsonArray tabsIn(const QString &code);

/// The tabs' titles are in that language.
bool speaks(const QJsonObject &state, const QString &code);

/// The same for AirlumeProcess::waitFor().
std::function<bool(const QJsonObject &)> speaking(const QString &code);

#endif
