#ifndef AIRLUME_TOOLS_HOST_LOCALSERVER_H
#define AIRLUME_TOOLS_HOST_LOCALSERVER_H

#include <optional>
#include <string>

#include <sys/types.h>

namespace AirlumeHost
{

/// The user whose server listens at that path and lets us connect; nothing when none does. The
/// server is not connected to, and notices nothing.
std::optional<uid_t> listenerAt(const std::string &path);

/// A stream socket at a path, for connections of its own user alone. The file is removed with the
/// object, unless it has become another server's.
class LocalServer
{
public:
    LocalServer() = default;
    ~LocalServer() { close(); }
    LocalServer(const LocalServer &) = delete;
    LocalServer &operator=(const LocalServer &) = delete;

    /// Listens from now on, where nobody does. What a server of the same user left there when it
    /// crashed is cleared away, and nothing else. Returns an empty text, or why it cannot.
    std::string listen(const std::string &path);

    /// The next connection, which belongs to the caller; nothing when there is none, or when it is
    /// another user's, who is turned away.
    std::optional<int> accept();

    /// To be polled: readable when accept() has something to do.
    int handle() const { return m_handle; }

    /// Ends listening and removes the file. Harmless when it has ended already.
    void close();

    /// Leaves both to another process that has them by fork().
    void leave();

private:
    int m_handle = -1;
    std::string m_path;
    dev_t m_device = 0;
    ino_t m_inode = 0;
};

} // namespace AirlumeHost

#endif
