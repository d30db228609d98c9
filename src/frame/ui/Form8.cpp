// SPDX-License-Identifier: GPL-3.0-or-later
#include "frame/ui/Form8.h"

#include "platform/ui/NamedChild.h"

#include <QLabel>
#include <QMenu>
#include <QPainter>
#include <QPainterPath>

namespace nubo::frame {

namespace {

const QColor kSky(70, 126, 204);
const QColor kInk(32, 52, 96);
const QColor kWarm(240, 160, 60);

enum class Glyph { Person, Gear, Door };

// The small menu pictures, drawn once: a person, a gear and an open door.
QPixmap menuPicture(Glyph glyph)
{
    QPixmap pixmap(16, 16);
    pixmap.fill(Qt::transparent);
    QPainter p(&pixmap);
    p.setRenderHint(QPainter::Antialiasing, true);
    p.setPen(Qt::NoPen);
    switch (glyph) {
    case Glyph::Person:
        p.setBrush(kSky);
        p.drawEllipse(QRectF(5, 1.5, 6, 6));
        p.drawRoundedRect(QRectF(2.5, 8.5, 11, 6.5), 3, 3);
        break;
    case Glyph::Gear:
        p.setBrush(kInk);
        for (int i = 0; i < 8; ++i) {
            p.save();
            p.translate(8, 8);
            p.rotate(i * 45);
            p.drawRect(QRectF(-1.5, -7.5, 3, 4));
            p.restore();
        }
        p.drawEllipse(QRectF(2.5, 2.5, 11, 11));
        p.setBrush(Qt::white);
        p.drawEllipse(QRectF(5.5, 5.5, 5, 5));
        break;
    case Glyph::Door:
        p.setBrush(kInk);
        p.drawRect(QRectF(3, 1.5, 8, 13));
        p.setBrush(kWarm);
        p.drawPolygon(QPolygonF({{4, 2.5}, {10, 4}, {10, 15}, {4, 13.5}}));
        p.setBrush(kInk);
        p.drawEllipse(QRectF(8, 8, 1.6, 1.6));
        p.setPen(QPen(kWarm, 1.6, Qt::SolidLine, Qt::RoundCap));
        p.drawLine(QPointF(12, 8), QPointF(15, 8));
        break;
    }
    return pixmap;
}

QLabel* imageBox(QWidget* parent, const QString& name, Glyph glyph)
{
    auto* box = platform::namedChild<QLabel>(parent, name);
    box->setPixmap(menuPicture(glyph));
    return box;
}

} // namespace

Form8::Form8(IFrameWindows& windows, QWidget* parent) : QWidget(parent), m_windows(windows)
{
    setObjectName(QStringLiteral("Form8"));
    Image1 = imageBox(this, QStringLiteral("Image1"), Glyph::Person);
    Image2 = imageBox(this, QStringLiteral("Image2"), Glyph::Gear);
    Image3 = imageBox(this, QStringLiteral("Image3"), Glyph::Door);
    menu = new QMenu(this);
    menu->setObjectName(QStringLiteral("menu"));
    Author = addEntry(QStringLiteral("Author"), QStringLiteral("&Sobre el autor"), Image1);
    options = addEntry(QStringLiteral("options"), QStringLiteral("&Opciones"), Image2);
    quit = addEntry(QStringLiteral("quit"), QStringLiteral("&Quitar"), Image3);
    connect(Author, &QAction::triggered, this,
            [this] { m_windows.showWindow(FrameWindow::Author); });
    connect(options, &QAction::triggered, this,
            [this] { m_windows.showWindow(FrameWindow::Options); });
    // The list window's own exit handling runs first, then the program ends, unless the list
    // window kept its rows because their save did not happen.
    connect(quit, &QAction::triggered, this, [this] {
        if (m_windows.runListExit())
            m_windows.endProgram();
    });
}

QAction* Form8::addEntry(const QString& name, const QString& caption, QLabel* image)
{
    QAction* action = menu->addAction(QIcon(image->pixmap()), caption);
    action->setObjectName(name);
    return action;
}

void Form8::popUpAt(const QPoint& globalPos)
{
    menu->popup(globalPos);
}

void Form8::hideMenu()
{
    menu->hide();
}

} // namespace nubo::frame
