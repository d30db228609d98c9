// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>

namespace nubo::app {

// The Qt platform to ask for before the application starts: "xcb;wayland" (XWayland, or
// Wayland when it has none) in a Wayland session where QT_QPA_PLATFORM is not set and an X
// display is offered, since the skin's shape, the opening effect's overlay and the tray menu
// need X11; otherwise empty, and Qt chooses as usual.
QByteArray platformForSession(const QByteArray& qpaPlatform, const QByteArray& waylandDisplay,
                              const QByteArray& display);

} // namespace nubo::app
