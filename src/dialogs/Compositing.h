#pragma once

// What the desktop does with windows that can be seen through: one source file a platform.
namespace Compositing {

// Whether it mixes them with what lies under them, at any opacity. Where it doesn't, they hide
// it. Asks the desktop anew each time; needs the application object.
bool isOn();

} // namespace Compositing
