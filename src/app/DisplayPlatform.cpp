// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/DisplayPlatform.h"

namespace nubo::app {

QByteArray platformForSession(const QByteArray& qpaPlatform, const QByteArray& waylandDisplay,
                              const QByteArray& display)
{
    if (!qpaPlatform.isEmpty() || waylandDisplay.isEmpty() || display.isEmpty())
        return {};
    return QByteArrayLiteral("xcb;wayland");
}

} // namespace nubo::app
