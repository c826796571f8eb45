#include "linux/busprobe.h"

#include <cerrno>
#include <cstring>

#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

namespace LinuxWifi
{

namespace
{
QString errorText(int error)
{
    return QString::fromLocal8Bit(std::strerror(error));
}

/// A socket that is connected to the path and never waits; otherwise -1, with errno set.
int connectedSocket(const QByteArray &path)
{
    sockaddr_un address = {};
    address.sun_family = AF_UNIX;
    // A path ends with a zero byte, which must fit too; an abstract name is as long as is said.
    if (path.size() >= int(sizeof address.sun_path)) {
        errno = ENAMETOOLONG;
        return -1;
    }
    std::memcpy(address.sun_path, path.constData(), size_t(path.size()));
    const size_t length =
        offsetof(sockaddr_un, sun_path) + size_t(path.size()) + (path.startsWith('\0') ? 0 : 1);
    const int socket = ::socket(AF_UNIX, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0);
    if (socket < 0)
        return -1;
    // EAGAIN: as many as the bus lets wait are waiting already.
    if (::connect(socket, reinterpret_cast<const sockaddr *>(&address), socklen_t(length)) != 0) {
        const int error = errno;
        ::close(socket);
        errno = error;
        return -1;
    }
    return socket;
}
} // namespace

BusProbe::BusProbe(QObject *parent)
    : QObject(parent)
{
    m_timer.setSingleShot(true);
    connect(&m_timer, &QTimer::timeout, this, [this] { giveUp(errorText(ETIMEDOUT)); });
}

BusProbe::~BusProbe()
{
    close();
}

void BusProbe::start(const QVector<BusAddress> &addresses, int timeoutMs)
{
    close();
    m_addresses = addresses;
    m_reason = errorText(EADDRNOTAVAIL);
    m_timer.setInterval(timeoutMs);
    QMetaObject::invokeMethod(this, &BusProbe::tryNext, Qt::QueuedConnection);
}

void BusProbe::tryNext()
{
    if (m_addresses.isEmpty()) {
        emit failed(m_reason);
        return;
    }
    m_socket = connectedSocket(m_addresses.first().socket);
    if (m_socket < 0) {
        giveUp(errorText(errno));
        return;
    }
    // What every client of a bus says first; whatever the answer, somebody gives it.
    const QByteArray question =
        '\0' + QByteArray("AUTH EXTERNAL ") + QByteArray::number(::getuid()).toHex() + "\r\n";
    if (::send(m_socket, question.constData(), size_t(question.size()), MSG_NOSIGNAL) !=
        question.size()) {
        giveUp(errorText(errno));
        return;
    }
    m_notifier = std::make_unique<QSocketNotifier>(m_socket, QSocketNotifier::Read);
    connect(m_notifier.get(), &QSocketNotifier::activated, this, &BusProbe::read);
    m_timer.start();
}

void BusProbe::read()
{
    char answer[64];
    const ssize_t size = ::recv(m_socket, answer, sizeof answer, 0);
    if (size < 0 && (errno == EAGAIN || errno == EINTR))
        return;
    if (size <= 0) {
        giveUp(errorText(size == 0 ? ECONNRESET : errno));
        return;
    }
    const QString address = m_addresses.first().text;
    close();
    emit answered(address);
}

void BusProbe::giveUp(const QString &reason)
{
    m_reason = reason;
    close();
    m_addresses.removeFirst();
    tryNext();
}

void BusProbe::close()
{
    m_timer.stop();
    // Not deleted here, since it may be the one that calls.
    if (m_notifier) {
        m_notifier->setEnabled(false);
        m_notifier.release()->deleteLater();
    }
    if (m_socket >= 0)
        ::close(m_socket);
    m_socket = -1;
}

} // namespace LinuxWifi
