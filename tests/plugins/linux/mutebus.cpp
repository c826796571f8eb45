#include "mutebus.h"

#include <QByteArray>
#include <QFile>

#include <cstring>

#include <fcntl.h>
#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

namespace
{
sockaddr_un addressOf(const QString &path)
{
    sockaddr_un address = {};
    address.sun_family = AF_UNIX;
    std::strncpy(
        address.sun_path, QFile::encodeName(path).constData(), sizeof address.sun_path - 1);
    return address;
}
} // namespace

MuteBus::MuteBus(Kind kind)
    : m_kind(kind)
{
    const sockaddr_un address = addressOf(m_folder.filePath(QStringLiteral("bus")));
    const auto *const generic = reinterpret_cast<const sockaddr *>(&address);
    m_socket = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    const bool full = kind == Kind::TakesNoConnections;
    if (::bind(m_socket, generic, sizeof address) != 0 || ::listen(m_socket, full ? 0 : 100) != 0)
        qFatal("no socket for a mute bus");
    if (full) {
        for (int client = 0; client >= 0;) {
            client = ::socket(AF_UNIX, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0);
            m_waiting.append(client);
            if (::connect(client, generic, sizeof address) != 0)
                break;
        }
        return;
    }
    if (::pipe2(m_ends, O_CLOEXEC) != 0)
        qFatal("no pipe for a mute bus");
    m_thread = std::make_unique<std::thread>([this] { serve(); });
}

MuteBus::~MuteBus()
{
    if (m_thread) {
        ::close(m_ends[1]);
        m_thread->join();
        ::close(m_ends[0]);
    }
    for (const int client : qAsConst(m_waiting))
        ::close(client);
    ::close(m_socket);
}

QString MuteBus::address() const
{
    return QStringLiteral("unix:path=") + m_folder.filePath(QStringLiteral("bus"));
}

void MuteBus::serve()
{
    for (;;) {
        QVector<pollfd> sockets{{m_ends[0], POLLIN, 0}, {m_socket, POLLIN, 0}};
        for (const int client : qAsConst(m_waiting))
            sockets.append({client, POLLIN, 0});
        ::poll(sockets.data(), nfds_t(sockets.size()), -1);
        if (sockets.at(0).revents)
            return;
        for (int i = 2; i < sockets.size(); ++i) {
            const int client = sockets.at(i).fd;
            if (sockets.at(i).revents && !answer(client)) {
                ::close(client);
                m_waiting.removeOne(client);
            }
        }
        if (!sockets.at(1).revents)
            continue;
        const int client = ::accept4(m_socket, nullptr, nullptr, SOCK_CLOEXEC);
        if (m_kind == Kind::HangsUp)
            ::close(client);
        else
            m_waiting.append(client);
    }
}

bool MuteBus::answer(int client) const
{
    char data[4096];
    const ssize_t size = ::recv(client, data, sizeof data, MSG_DONTWAIT);
    if (size <= 0)
        return false;
    const QByteArray said(data, int(size));
    QByteArray answer;
    if (m_kind == Kind::Babbles)
        answer = QByteArray(3000, '\xff') + "\r\n";
    else if (m_kind == Kind::Authenticates && said.contains("AUTH EXTERNAL"))
        answer = "OK 0123456789abcdef0123456789abcdef\r\n";
    else if (m_kind == Kind::Authenticates && said.contains("NEGOTIATE_UNIX_FD"))
        answer = "AGREE_UNIX_FD\r\n";
    if (!answer.isEmpty())
        ::send(client, answer.constData(), size_t(answer.size()), MSG_NOSIGNAL | MSG_DONTWAIT);
    return true;
}
