#include "linux/netlinksocket.h"

#include "linux/netlinkerror.h"

#include <netlink/errno.h>
#include <netlink/genl/ctrl.h>
#include <netlink/genl/genl.h>
#include <netlink/handlers.h>
#include <netlink/msg.h>
#include <netlink/netlink.h>
#include <netlink/socket.h>

#include <sys/socket.h>

#include <cerrno>

namespace LinuxWifi
{

namespace
{
// The kernel answers while the request is being sent. This only keeps an answer that was lost from
// being waited for.
const timeval AnswerTimeout = {0, 200000};

struct FreeMessage {
    void operator()(nl_msg *message) const { nlmsg_free(message); }
};

struct FreeCallbacks {
    void operator()(nl_cb *callbacks) const { nl_cb_put(callbacks); }
};

/// What the callbacks of one exchange share.
struct Exchange {
    const NetlinkSocket::Handler &handler;
    int error = 0;
    bool finished = false;
};

int onMessage(nl_msg *message, void *exchange)
{
    static_cast<Exchange *>(exchange)->handler(nlmsg_hdr(message));
    return NL_OK;
}

int onEnd(nl_msg *, void *exchange)
{
    static_cast<Exchange *>(exchange)->finished = true;
    return NL_STOP;
}

int onError(sockaddr_nl *, nlmsgerr *error, void *exchange)
{
    static_cast<Exchange *>(exchange)->error = -error->error;
    static_cast<Exchange *>(exchange)->finished = true;
    return NL_STOP;
}
} // namespace

void FreeNetlinkSocket::operator()(nl_sock *socket) const
{
    nl_socket_free(socket);
}

NetlinkSocket::NetlinkSocket(std::string family)
    : m_family(std::move(family))
{
}

NetlinkSocket::~NetlinkSocket() = default;

int NetlinkSocket::request(std::uint8_t command, const Fill &fill, const Handler &handler)
{
    return exchange(command, NLM_F_ACK, fill, handler);
}

int NetlinkSocket::dump(std::uint8_t command, const Fill &fill, const Handler &handler)
{
    return exchange(command, NLM_F_DUMP, fill, handler);
}

void NetlinkSocket::close()
{
    m_socket.reset();
    m_familyId = -1;
}

int NetlinkSocket::open()
{
    if (m_socket)
        return 0;
    m_socket.reset(nl_socket_alloc());
    if (!m_socket)
        return ENOMEM;
    errno = 0;
    if (genl_connect(m_socket.get()) < 0) {
        const int error = errno;
        close();
        return error ? error : EIO;
    }
    setsockopt(nl_socket_get_fd(m_socket.get()), SOL_SOCKET, SO_RCVTIMEO, &AnswerTimeout,
        sizeof AnswerTimeout);
    m_familyId = genl_ctrl_resolve(m_socket.get(), m_family.c_str());
    if (m_familyId < 0) {
        const bool unknown = m_familyId == -NLE_OBJ_NOTFOUND;
        const int error = unknown ? EPROTONOSUPPORT : errnoOfNetlinkError(m_familyId);
        close();
        return error;
    }
    return 0;
}

int NetlinkSocket::exchange(
    std::uint8_t command, int flags, const Fill &fill, const Handler &handler)
{
    if (const int error = open())
        return error;
    const std::unique_ptr<nl_msg, FreeMessage> message(nlmsg_alloc());
    if (!message ||
        !genlmsg_put(message.get(), NL_AUTO_PORT, NL_AUTO_SEQ, m_familyId, 0, flags, command, 0) ||
        !fill(message.get()))
        return ENOMEM;

    bool inDoubt = true;
    errno = 0;
    int error = 0;
    if (nl_send_auto(m_socket.get(), message.get()) < 0)
        error = errno ? errno : EIO;
    else
        error = receive(handler, inDoubt);
    // The rest of an answer may still be under way, or the family's number may have changed with
    // its module.
    if (inDoubt || error == ENOENT)
        close();
    return error;
}

int NetlinkSocket::receive(const Handler &handler, bool &inDoubt)
{
    const std::unique_ptr<nl_cb, FreeCallbacks> callbacks(nl_cb_alloc(NL_CB_DEFAULT));
    if (!callbacks)
        return ENOMEM;
    Exchange exchange{handler};
    nl_cb_set(callbacks.get(), NL_CB_VALID, NL_CB_CUSTOM, onMessage, &exchange);
    nl_cb_set(callbacks.get(), NL_CB_FINISH, NL_CB_CUSTOM, onEnd, &exchange);
    nl_cb_set(callbacks.get(), NL_CB_ACK, NL_CB_CUSTOM, onEnd, &exchange);
    nl_cb_err(callbacks.get(), NL_CB_CUSTOM, onError, &exchange);

    int result = 0;
    while (!exchange.finished && result >= 0)
        result = nl_recvmsgs(m_socket.get(), callbacks.get());
    inDoubt = !exchange.finished;
    if (exchange.error)
        return exchange.error;
    return result < 0 ? errnoOfNetlinkError(result) : 0;
}

} // namespace LinuxWifi
