#include "support/busyhost.h"

#include <QDir>
#include <QFile>

#include <cerrno>
#include <cstring>
#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

namespace
{
const int MostFillers = 16;

sockaddr_un addressOf(const QByteArray &path)
{
    sockaddr_un address;
    std::memset(&address, 0, sizeof address);
    address.sun_family = AF_UNIX;
    std::strncpy(address.sun_path, path.constData(), sizeof address.sun_path - 1);
    return address;
}

bool readable(int fd, int timeoutMs)
{
    pollfd poller = {fd, POLLIN, 0};
    return poll(&poller, 1, timeoutMs) == 1;
}
} // namespace

BusyHost::BusyHost(const QByteArray &name)
    : m_path(QFile::encodeName(QDir::tempPath()) + '/' + name)
    , m_listener(socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0))
{
    const sockaddr_un address = addressOf(m_path);
    const sockaddr *generic = reinterpret_cast<const sockaddr *>(&address);
    if (bind(m_listener, generic, sizeof address) != 0 || listen(m_listener, 0) != 0)
        return;
    while (!m_full && m_fillers.size() < MostFillers) {
        const int filler = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0);
        m_fillers.append(filler);
        m_full = connect(filler, generic, sizeof address) != 0 && errno == EAGAIN;
    }
}

BusyHost::~BusyHost()
{
    for (int fd : qAsConst(m_fillers))
        close(fd);
    for (int fd : qAsConst(m_accepted))
        close(fd);
    hangUp();
    close(m_listener);
    unlink(m_path.constData());
}

bool BusyHost::accept(int timeoutMs)
{
    // All but the last filler are in the queue.
    while (m_accepted.size() < m_fillers.size() - 1)
        m_accepted.append(accept4(m_listener, nullptr, nullptr, SOCK_CLOEXEC));
    if (!readable(m_listener, timeoutMs))
        return false;
    hangUp();
    m_client = accept4(m_listener, nullptr, nullptr, SOCK_CLOEXEC);
    return m_client >= 0;
}

QByteArray BusyHost::read(int timeoutMs)
{
    if (!readable(m_client, timeoutMs))
        return {};
    QByteArray text(4096, '\0');
    const ssize_t size = ::read(m_client, text.data(), static_cast<size_t>(text.size()));
    text.truncate(size < 0 ? 0 : static_cast<int>(size));
    return text;
}

void BusyHost::say(const QByteArray &text)
{
    const ssize_t written = write(m_client, text.constData(), static_cast<size_t>(text.size()));
    Q_UNUSED(written)
}

void BusyHost::hangUp()
{
    if (m_client >= 0)
        close(m_client);
    m_client = -1;
}
