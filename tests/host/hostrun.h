#ifndef AIRLUME_TESTS_HOST_HOSTRUN_H
#define AIRLUME_TESTS_HOST_HOSTRUN_H

#include <QLocalSocket>
#include <QProcess>
#include <QStringList>

/// airlume-host as a process, in the surroundings of the test.
class HostRun
{
public:
    explicit HostRun(const QStringList &arguments, const QString &locale = QStringLiteral("C"));
    /// Ends the input, and with it the host if it still runs.
    ~HostRun();

    /// Waits until it has printed this line. False when it did not in 60 s, or ended without.
    bool prints(const QByteArray &line);
    /// What it had printed before that line, and after the one waited for last.
    QByteArray skipped() const { return m_skipped; }
    /// Types a line.
    bool type(const QByteArray &line);
    /// Waits for the end; the exit status, or -1 after a crash or after 60 s.
    int status();
    /// What it has complained of. After the end.
    QByteArray errors() { return m_process.readAllStandardError(); }
    QProcess &process() { return m_process; }

    /// Where it listens.
    static QString socketPath();

private:
    QProcess m_process;
    QByteArray m_output;
    QByteArray m_skipped;
};

/// What a copy of Airlume says and hears, without the program.
class Client
{
public:
    Client();
    bool isConnected() const { return m_socket.state() == QLocalSocket::ConnectedState; }
    /// Sends the text; the request unless another one is given.
    bool say(const QByteArray &text = "IpcRequestLanguage:Airlume");
    /// Waits for this text, and no more. False when it did not come in 60 s.
    bool hears(const QByteArray &text);

private:
    QLocalSocket m_socket;
};

#endif
