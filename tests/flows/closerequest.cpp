#include "flows/closerequest.h"

#include <xcb/xcb.h>

#include <cstdlib>
#include <cstring>

namespace
{
xcb_atom_t atom(xcb_connection_t *server, const char *name)
{
    xcb_intern_atom_reply_t *reply = xcb_intern_atom_reply(server,
        xcb_intern_atom(server, 0, static_cast<uint16_t>(std::strlen(name)), name), nullptr);
    const xcb_atom_t found = reply ? reply->atom : static_cast<xcb_atom_t>(XCB_ATOM_NONE);
    std::free(reply);
    return found;
}
} // namespace

bool SendCloseRequest(const QString &display, quint32 window)
{
    xcb_connection_t *server = xcb_connect(display.toLatin1().constData(), nullptr);
    bool sent = false;
    if (xcb_connection_has_error(server) == 0) {
        xcb_client_message_event_t message = {};
        message.response_type = XCB_CLIENT_MESSAGE;
        message.format = 32;
        message.window = window;
        message.type = atom(server, "WM_PROTOCOLS");
        message.data.data32[0] = atom(server, "WM_DELETE_WINDOW");
        message.data.data32[1] = XCB_CURRENT_TIME;
        char event[32];
        static_assert(sizeof event == sizeof message, "X events have 32 bytes");
        std::memcpy(event, &message, sizeof event);
        xcb_generic_error_t *error = xcb_request_check(
            server, xcb_send_event_checked(server, 0, window, XCB_EVENT_MASK_NO_EVENT, event));
        sent = !error;
        std::free(error);
    }
    xcb_disconnect(server);
    return sent;
}
