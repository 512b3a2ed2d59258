#include "Compositing.h"

#include <QByteArray>
#include <QGuiApplication>

#include <cstdlib>
#include <memory>

#include <xcb/xcb.h>

namespace {

template <typename Reply> using ReplyPtr = std::unique_ptr<Reply, decltype(&std::free)>;

int screenNumber()
{
    int number = 0;
    char *host = nullptr;
    int display = 0;
    if (xcb_parse_display(nullptr, &host, &display, &number) != 0)
        std::free(host);
    return number;
}

xcb_atom_t atom(xcb_connection_t *connection, const QByteArray &name)
{
    const ReplyPtr<xcb_intern_atom_reply_t> reply(
        xcb_intern_atom_reply(connection,
                              xcb_intern_atom(connection, 1,
                                              static_cast<std::uint16_t>(name.size()),
                                              name.constData()),
                              nullptr),
        &std::free);
    return reply ? reply->atom : xcb_atom_t(XCB_ATOM_NONE);
}

} // namespace

// Whoever composites owns the selection of that name. Under Wayland, where all is composited, no
// program may change the opacity of its windows.
bool Compositing::isOn()
{
    const auto *x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    xcb_connection_t *connection = x11 ? x11->connection() : nullptr;
    if (!connection)
        return false;
    const xcb_atom_t selection
        = atom(connection, "_NET_WM_CM_S" + QByteArray::number(screenNumber()));
    if (selection == XCB_ATOM_NONE)
        return false;
    const ReplyPtr<xcb_get_selection_owner_reply_t> reply(
        xcb_get_selection_owner_reply(connection, xcb_get_selection_owner(connection, selection),
                                      nullptr),
        &std::free);
    return reply && reply->owner != XCB_WINDOW_NONE;
}
