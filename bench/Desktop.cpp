#include "Desktop.h"

#include "Bench.h"

#include <QSet>

#include <cstdlib>
#include <cstring>
#include <memory>

#include <xcb/xcb.h>

namespace {

// A window that nobody has painted yet has one.
constexpr int coloursOfContent = 3;

template <typename Reply> using ReplyPtr = std::unique_ptr<Reply, decltype(&std::free)>;
template <typename Reply> ReplyPtr<Reply> owned(Reply *reply)
{
    return {reply, &std::free};
}

xcb_connection_t *display()
{
    static xcb_connection_t *connection = xcb_connect(nullptr, nullptr);
    Bench::check(xcb_connection_has_error(connection) == 0, "There is no screen.");
    return connection;
}

xcb_atom_t atom(const QByteArray &name)
{
    const auto size = static_cast<std::uint16_t>(name.size());
    const auto reply = owned(xcb_intern_atom_reply(
        display(), xcb_intern_atom(display(), 0, size, name.constData()), nullptr));
    return reply ? reply->atom : xcb_atom_t(XCB_ATOM_NONE);
}

QByteArray property(xcb_window_t window, const QByteArray &name)
{
    constexpr std::uint32_t mostWords = 1024;
    const auto reply = owned(xcb_get_property_reply(
        display(),
        xcb_get_property(display(), 0, window, atom(name), XCB_GET_PROPERTY_TYPE_ANY, 0, mostWords),
        nullptr));
    if (!reply)
        return {};
    return {static_cast<const char *>(xcb_get_property_value(reply.get())),
            xcb_get_property_value_length(reply.get())};
}

QList<std::uint32_t> numbers(const QByteArray &bytes)
{
    QList<std::uint32_t> values(bytes.size() / qsizetype(sizeof(std::uint32_t)));
    std::memcpy(values.data(), bytes.constData(),
                static_cast<std::size_t>(values.size()) * sizeof(std::uint32_t));
    return values;
}

// One column of pixels, from the top to the bottom; none where the window is not on the screen.
QList<std::uint32_t> pixels(xcb_window_t window)
{
    const auto size
        = owned(xcb_get_geometry_reply(display(), xcb_get_geometry(display(), window), nullptr));
    if (!size)
        return {};
    const auto middle = static_cast<std::int16_t>(size->width / 2);
    const auto image
        = owned(xcb_get_image_reply(display(),
                                    xcb_get_image(display(), XCB_IMAGE_FORMAT_Z_PIXMAP, window,
                                                  middle, 0, 1, size->height, ~0U),
                                    nullptr));
    if (!image)
        return {};
    return numbers({reinterpret_cast<const char *>(xcb_get_image_data(image.get())),
                    xcb_get_image_data_length(image.get())});
}

bool isPainted(xcb_window_t window)
{
    const QList<std::uint32_t> column = pixels(window);
    return QSet<std::uint32_t>(column.cbegin(), column.cend()).size() >= coloursOfContent;
}

} // namespace

bool Desktop::shows(qint64 pid, const QByteArray &title)
{
    const xcb_window_t root = xcb_setup_roots_iterator(xcb_get_setup(display())).data->root;
    const QList<std::uint32_t> windows = numbers(property(root, "_NET_CLIENT_LIST"));
    return std::any_of(windows.cbegin(), windows.cend(), [&](xcb_window_t window) {
        return numbers(property(window, "_NET_WM_PID")).value(0) == pid
               && property(window, "_NET_WM_NAME") == title && isPainted(window);
    });
}
