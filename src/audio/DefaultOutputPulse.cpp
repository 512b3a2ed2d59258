#include "DefaultOutput.h"

#include <QByteArray>
#include <QDeadlineTimer>
#include <QMediaDevices>

#include <pulse/pulseaudio.h>

#include <algorithm>
#include <memory>
#include <optional>

namespace {

// A server that doesn't answer must not keep the music waiting.
constexpr int patienceMs = 250;

using Loop = std::unique_ptr<pa_mainloop, decltype(&pa_mainloop_free)>;
using Context = std::unique_ptr<pa_context, decltype(&pa_context_unref)>;
using Operation = std::unique_ptr<pa_operation, decltype(&pa_operation_unref)>;

// Runs the loop until isDone answers true; false when that takes too long.
template <typename Condition> bool runUntil(pa_mainloop *loop, Condition isDone)
{
    constexpr int microseconds = 1000;
    const QDeadlineTimer deadline(patienceMs);
    while (!isDone() && !deadline.hasExpired()) {
        const auto left = static_cast<int>(deadline.remainingTime()) * microseconds;
        if (pa_mainloop_prepare(loop, left) < 0 || pa_mainloop_poll(loop) < 0
            || pa_mainloop_dispatch(loop) < 0)
            return false;
    }
    return isDone();
}

void takeName(pa_context *, const pa_server_info *info, void *name)
{
    if (info && info->default_sink_name)
        *static_cast<QByteArray *>(name) = info->default_sink_name;
}

// Nothing when it doesn't come in time.
std::optional<QByteArray> askForName(pa_mainloop *loop, pa_context *context)
{
    QByteArray name;
    const Operation asking(pa_context_get_server_info(context, &takeName, &name),
                           &pa_operation_unref);
    const auto isAnswered
        = [&] { return pa_operation_get_state(asking.get()) != PA_OPERATION_RUNNING; };
    if (asking && runUntil(loop, isAnswered))
        return name;
    if (asking)
        pa_operation_cancel(asking.get());
    return std::nullopt;
}

// Empty when there is no server, nothing when it doesn't answer in time.
std::optional<QByteArray> defaultName()
{
    const Loop loop(pa_mainloop_new(), &pa_mainloop_free);
    if (!loop)
        return std::nullopt;
    const Context context(pa_context_new(pa_mainloop_get_api(loop.get()), "Tarvelo"),
                          &pa_context_unref);
    if (!context)
        return std::nullopt;
    if (pa_context_connect(context.get(), nullptr, PA_CONTEXT_NOAUTOSPAWN, nullptr) < 0)
        return QByteArray();
    const auto isRefused = [&] { return !PA_CONTEXT_IS_GOOD(pa_context_get_state(context.get())); };
    const auto isReady = [&] { return pa_context_get_state(context.get()) == PA_CONTEXT_READY; };
    if (!runUntil(loop.get(), [&] { return isReady() || isRefused(); }))
        return isRefused() ? std::optional(QByteArray()) : std::nullopt;
    std::optional<QByteArray> name;
    if (isReady())
        name = askForName(loop.get(), context.get());
    else
        name = QByteArray();
    pa_context_disconnect(context.get());
    return name;
}

} // namespace

// Qt marks the default when it hears of an output, and not when another one becomes it. It also
// shows the outputs of a server that is gone until it notices.
QAudioDevice defaultOutput(const QAudioDevice &present)
{
    const QList<QAudioDevice> outputs = QMediaDevices::audioOutputs();
    if (outputs.isEmpty())
        return {};
    const std::optional<QByteArray> name = defaultName();
    if (name && name->isEmpty())
        return {};
    const QByteArray wanted = name.value_or(present.id());
    const auto found = std::find_if(outputs.cbegin(), outputs.cend(),
                                    [&](const QAudioDevice &one) { return one.id() == wanted; });
    return found == outputs.cend() ? QMediaDevices::defaultAudioOutput() : *found;
}
