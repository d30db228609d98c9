// SPDX-License-Identifier: GPL-3.0-or-later
#include "frame/ui/Form6.h"

#include <QIcon>
#include <QLabel>
#include <QLinearGradient>
#include <QPainter>
#include <QPushButton>

namespace nubo::frame {

QString Form6::aboutText()
{
    return QStringLiteral(
        "El autor de Nubo es su equipo: un grupo pequeño de aficionados a la música y a la "
        "programación que quería saber en qué CD estaba cada canción sin abrir caja por caja. "
        "Lo escribimos en nuestro tiempo libre, lo probamos con nuestras propias colecciones y "
        "lo seguimos mejorando con lo que nos cuentan quienes lo usan.\n\n"
        "Nubo reúne en una lista los archivos de música de una carpeta o de un CD-ROM y la "
        "guarda como libro de Excel o como base de datos de Access.\n\n"
        "Es una versión beta: si algo falla, el archivo .log cuenta qué ocurrió.");
}

Form6::Form6(const platform::AppFolder& app, QWidget* parent) : QWidget(parent), m_app(app)
{
    setObjectName(QStringLiteral("Form6"));
    setWindowTitle(QStringLiteral("Sobre el autor"));
    setFixedSize(440, 360);
    Image1 = new QLabel(this);
    Image1->setObjectName(QStringLiteral("Image1"));
    Image1->setGeometry(24, 20, 48, 48);
    loadPictures();

    Label1 = new QLabel(QStringLiteral("Nubo 1.5 Beta"), this);
    Label1->setObjectName(QStringLiteral("Label1"));
    Label1->setGeometry(86, 22, 300, 44);
    Label1->setStyleSheet(QStringLiteral("color: white; font-size: 22px; font-weight: bold;"));

    Label2 = new QLabel(aboutText(), this);
    Label2->setObjectName(QStringLiteral("Label2"));
    Label2->setWordWrap(true);
    Label2->setAlignment(Qt::AlignTop | Qt::AlignLeft);
    Label2->setGeometry(24, 94, 392, 208);
    Label2->setStyleSheet(QStringLiteral("color: #1d2d52; font-size: 13px;"));

    Command1 = new QPushButton(QStringLiteral("&Cerrar"), this);
    Command1->setObjectName(QStringLiteral("Command1"));
    Command1->setGeometry(324, 314, 92, 30);
    Command1->setDefault(true);
    connect(Command1, &QPushButton::clicked, this, &QWidget::close);
}

void Form6::loadPictures()
{
    const QIcon logo(m_app.resolve(QStringLiteral("\\icons\\Nubologo.ico")));
    setWindowIcon(logo);
    Image1->setPixmap(logo.pixmap(48, 48));
}

// A sky band behind the name over a pale cloud-white page, as on the main window.
void Form6::paintEvent(QPaintEvent*)
{
    QPainter p(this);
    p.fillRect(rect(), QColor(244, 248, 255));
    QLinearGradient sky(0, 0, 0, 80);
    sky.setColorAt(0, QColor(74, 132, 214));
    sky.setColorAt(1, QColor(112, 166, 232));
    p.fillRect(QRect(0, 0, width(), 80), sky);
    p.setPen(QPen(QColor(196, 212, 236), 2));
    p.drawLine(0, 80, width(), 80);
}

void Form6::closeEvent(QCloseEvent* event)
{
    QWidget::closeEvent(event);
    emit closed();
}

} // namespace nubo::frame
