// SPDX-License-Identifier: GPL-3.0-or-later
#include "frame/WindowPlacement.h"

namespace nubo::frame {

namespace {
constexpr int kGap = 6;
}

QPoint besideWindow(const QRect& anchor, const QSize& size, const QRect& screen)
{
    int x = anchor.right() + 1 + kGap;
    if (x + size.width() > screen.right() + 1)
        x = anchor.left() - kGap - size.width();
    x = qBound(screen.left(), x, qMax(screen.left(), screen.right() + 1 - size.width()));
    const int y =
        qBound(screen.top(), anchor.top(), qMax(screen.top(), screen.bottom() + 1 - size.height()));
    return {x, y};
}

} // namespace nubo::frame
