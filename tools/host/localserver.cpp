#include "host/localserver.h"

#include "host/wordings.h"

#include <cerrno>
#include <cstring>

#include <fcntl.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

namespace AirlumeHost
{

namespace
{
/// False when the path is too long for the address of a socket.
bool setAddress(sockaddr_un &address, const std::string &path)
{
    std::memset(&address, 0, sizeof address);
    address.sun_family = AF_UNIX;
    if (path.size() >= sizeof address.sun_path)
        return false;
    std::memcpy(address.sun_path, path.c_str(), path.size());
    return true;
}

const sockaddr *generic(const sockaddr_un &address)
{
    return reinterpret_cast<const sockaddr *>(&address);
}

/// Opens a socket that no program started from here inherits; -1 on failure.
int openSocket(int type)
{
    const int handle = socket(AF_UNIX, type, 0);
    if (handle >= 0)
        fcntl(handle, F_SETFD, FD_CLOEXEC);
    return handle;
}

std::optional<uid_t> userBehind(int connection)
{
#ifdef SO_PEERCRED
    ucred peer = {};
    socklen_t size = sizeof peer;
    if (getsockopt(connection, SOL_SOCKET, SO_PEERCRED, &peer, &size) == 0)
        return peer.uid;
#else
    uid_t user = 0;
    gid_t group = 0;
    if (getpeereid(connection, &user, &group) == 0)
        return user;
#endif
    return std::nullopt;
}
} // namespace

std::optional<uid_t> listenerAt(const std::string &path)
{
    sockaddr_un address;
    if (!setAddress(address, path))
        return std::nullopt;
    // Of another type than servers have, so that it cannot become a connection: where one listens
    // the system only says that the types differ.
    const int handle = openSocket(SOCK_DGRAM);
    const int result = connect(handle, generic(address), sizeof address);
    const int error = errno;
    ::close(handle);
    struct stat status = {};
    if (result == 0 || error != EPROTOTYPE || stat(path.c_str(), &status) != 0)
        return std::nullopt;
    return status.st_uid;
}

std::string LocalServer::listen(const std::string &path)
{
    sockaddr_un address;
    if (!setAddress(address, path))
        return "this name is too long for a socket: " + path;
    if (listenerAt(path) == geteuid())
        return "a host listens already: " + path;
    struct stat status = {};
    if (lstat(path.c_str(), &status) == 0) {
        if (status.st_uid != geteuid())
            return "another user has taken this name: " + path +
                   " (set TMPDIR to a folder of your own)";
        if (!S_ISSOCK(status.st_mode))
            return "this is in the way: " + path;
        unlink(path.c_str());
    }
    const int handle = openSocket(SOCK_STREAM);
    const mode_t mask = umask(S_IRWXG | S_IRWXO);
    const bool bound = bind(handle, generic(address), sizeof address) == 0;
    const int error = errno;
    umask(mask);
    if (!bound || ::listen(handle, SOMAXCONN) != 0 || stat(path.c_str(), &status) != 0) {
        ::close(handle);
        return withReason("cannot listen at " + path, bound ? errno : error);
    }
    m_handle = handle;
    m_path = path;
    m_device = status.st_dev;
    m_inode = status.st_ino;
    return {};
}

std::optional<int> LocalServer::accept()
{
    const int connection = ::accept(m_handle, nullptr, nullptr);
    if (connection < 0)
        return std::nullopt;
    // Root gets past the file's permissions; what it starts is not this user's copy either.
    if (userBehind(connection) != geteuid()) {
        ::close(connection);
        return std::nullopt;
    }
    return connection;
}

void LocalServer::close()
{
    if (m_handle < 0)
        return;
    struct stat status = {};
    if (lstat(m_path.c_str(), &status) == 0 && status.st_dev == m_device &&
        status.st_ino == m_inode)
        unlink(m_path.c_str());
    leave();
}

void LocalServer::leave()
{
    ::close(m_handle);
    m_handle = -1;
}

} // namespace AirlumeHost
