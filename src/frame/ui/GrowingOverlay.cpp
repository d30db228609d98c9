// SPDX-License-Identifier: GPL-3.0-or-later
#include "frame/ui/GrowingOverlay.h"

#include "frame/GrowingRectangles.h"

#include <QPainter>
#include <QTimer>
#include <QWidget>

namespace nubo::frame {

namespace {

constexpr int kStepMs = 14;

// One overlay window; it deletes itself after its last step.
class Overlay final : public QWidget
{
public:
    Overlay(QList<QRect> steps, QWidget* owner)
        : QWidget(owner, Qt::Tool | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint |
                             Qt::WindowTransparentForInput | Qt::X11BypassWindowManagerHint),
          m_steps(std::move(steps))
    {
        setObjectName(QStringLiteral("AnimarVentanaOverlay"));
        setAttribute(Qt::WA_DeleteOnClose);
        setAttribute(Qt::WA_ShowWithoutActivating);
        connect(&m_timer, &QTimer::timeout, this, &Overlay::next);
        m_timer.start(kStepMs);
        next();
    }

protected:
    // The screen's default pen and brush: a black outline around a white rectangle.
    void paintEvent(QPaintEvent*) override
    {
        QPainter p(this);
        p.fillRect(rect(), Qt::white);
        p.setPen(Qt::black);
        p.drawRect(rect().adjusted(0, 0, -1, -1));
    }

private:
    void next()
    {
        if (m_index >= m_steps.size()) {
            m_timer.stop();
            close();
            return;
        }
        setGeometry(m_steps[m_index++]);
        if (!isVisible())
            show();
        update();
    }

    QList<QRect> m_steps;
    qsizetype m_index = 0;
    QTimer m_timer;
};

} // namespace

void AnimarVentana(const QRect& windowRect, qint16 steps, bool permitirAnims, QWidget* owner)
{
    if (!permitirAnims)
        return;
    QList<QRect> rectangles = growingRectangles(windowRect, steps);
    rectangles.removeIf([](const QRect& r) { return r.isEmpty(); });
    if (!rectangles.isEmpty())
        new Overlay(std::move(rectangles), owner);
}

} // namespace nubo::frame
