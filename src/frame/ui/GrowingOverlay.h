// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QRect>

class QWidget;

namespace nubo::frame {

// The growing-rectangle effect: a short-lived, frameless, click-through window over the
// target rectangle grows through the effect's rectangles, one per timer tick, and closes
// after the last. Returns at once; nothing is drawn when animations are off. The overlay
// belongs to owner, so it never outlives the window that started it.
void AnimarVentana(const QRect& windowRect, qint16 steps, bool permitirAnims, QWidget* owner);

} // namespace nubo::frame
