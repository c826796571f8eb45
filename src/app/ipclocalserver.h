#ifndef AIRLUME_APP_IPCLOCALSERVER_H
#define AIRLUME_APP_IPCLOCALSERVER_H

#include <QObject>
#include <QString>

class QLocalServer;

/// The local server that a second copy of the program finds, and then ends. Only copies of the same
/// user find it. GUI thread only.
class IpcLocalServer : public QObject
{
    Q_OBJECT

public:
    /// Listens at once under `name`, clearing what a crashed copy left there. When listening fails
    /// the program runs on without this protection.
    explicit IpcLocalServer(const QString &name);
    ~IpcLocalServer() override;

    /// Stops listening. Harmless when it has stopped already.
    void Release();

signals:
    /// Another copy was started.
    void signalNewProcess();

public slots:
    /// Reports a new connection. It stays with the server: nothing is ever exchanged.
    void slotNewConnection();

private:
    QLocalServer *m_pServer;
    QString m_strServerName;
};

#endif
