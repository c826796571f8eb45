#include "app/ipclocalserver.h"

#include <QLocalServer>

#include <limits>

IpcLocalServer::IpcLocalServer(const QString &name)
    : m_pServer(new QLocalServer)
    , m_strServerName(name)
{
    // Connections are never taken from the queue, and a full one would turn copies away unseen.
    m_pServer->setMaxPendingConnections(std::numeric_limits<int>::max());
    // The temporary folder may be shared: another user's start is none of this copy's business.
    m_pServer->setSocketOptions(QLocalServer::UserAccessOption);
    QLocalServer::removeServer(m_strServerName);
    m_pServer->listen(m_strServerName);
    connect(m_pServer, SIGNAL(newConnection()), this, SLOT(slotNewConnection()));
}

IpcLocalServer::~IpcLocalServer()
{
    Release();
}

void IpcLocalServer::Release()
{
    delete m_pServer;
    m_pServer = nullptr;
}

void IpcLocalServer::slotNewConnection()
{
    emit signalNewProcess();
}
