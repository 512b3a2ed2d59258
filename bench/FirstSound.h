#pragma once

#include <functional>

// When the first sound of a play leaves this process: seen where Qt hands what it has pulled to
// the audio server, so that neither the player nor its device is touched.
namespace FirstSound {

// Calls start() and runs the event loop until a sample that isn't silent was handed over. The
// answer is the time between, in milliseconds; below 0 when nothing came for ten seconds.
double after(const std::function<void()> &start);

} // namespace FirstSound
