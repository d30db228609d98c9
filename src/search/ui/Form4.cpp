// SPDX-License-Identifier: GPL-3.0-or-later
#include "search/ui/Form4.h"

#include "platform/ui/PictureFile.h"
#include "search/CdromDrives.h"

#include <QCheckBox>
#include <QComboBox>
#include <QEvent>
#include <QLabel>
#include <QMouseEvent>
#include <QPainter>

namespace nubo::search {

Form4::Form4(const platform::AppFolder& app, QWidget* parent) : QWidget(parent), m_app(app)
{
    setObjectName(QStringLiteral("Form4"));
    setWindowTitle(QStringLiteral("Se ha detectado más de una unidad de CD-ROM"));
    createControls();
    m_background = platform::loadPicture(m_app, QStringLiteral("\\bitmap\\mainform4.jpg"));
    // Kept: the name has no extension, so the load fails and the button keeps its own face.
    const QPixmap face = platform::loadPicture(m_app, QStringLiteral("\\bitmap\\form4bot1"));
    if (!face.isNull())
        Command1->setPixmap(face);
    m_pressedFace = platform::loadPicture(m_app, QStringLiteral("\\bitmap\\form4bot1on.jpg"));
    Command1->installEventFilter(this);
}

void Form4::createControls()
{
    setFixedSize(360, 170);
    Label1 =
        new QLabel(QStringLiteral("Por favor seleccione la unidad en la cual desea buscar"), this);
    Label1->setObjectName(QStringLiteral("Label1"));
    Label1->setGeometry(16, 12, 330, 22);
    Combo1 = new QComboBox(this);
    Combo1->setObjectName(QStringLiteral("Combo1"));
    Combo1->setEditable(true);
    Combo1->setInsertPolicy(QComboBox::NoInsert);
    Combo1->setEditText(QStringLiteral("Seleccione una unidad"));
    Combo1->setToolTip(QStringLiteral("Elija una de las compacteras"));
    Combo1->setGeometry(16, 44, 200, 26);
    Check1 = new QCheckBox(this);
    Check1->setObjectName(QStringLiteral("Check1"));
    Check1->setToolTip(QStringLiteral("Permite seleccionar esta compactera como predeterminada (al "
                                      "volver a ejecutar el programa habra que reestablecerla)"));
    Check1->setGeometry(16, 84, 20, 20);
    Label2 = new QLabel(QStringLiteral("Utilizare Siempre esta unidad"), this);
    Label2->setObjectName(QStringLiteral("Label2"));
    Label2->setGeometry(40, 84, 200, 20);
    Command1 = new QLabel(this);
    Command1->setObjectName(QStringLiteral("Command1"));
    Command1->setToolTip(QStringLiteral("Busca en la compactera seleccionada"));
    Command1->setCursor(Qt::PointingHandCursor);
    Command1->setAlignment(Qt::AlignCenter);
    Command1->setText(QStringLiteral("Buscar"));
    Command1->setStyleSheet(
        QStringLiteral("QLabel { background: #f4f8ff; border: 2px solid #263e6e;"
                       " border-radius: 10px; font-weight: bold; }"));
    Command1->setGeometry(240, 40, 100, 60);
}

bool Form4::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == Command1 && event->type() == QEvent::MouseButtonPress) {
        if (static_cast<QMouseEvent*>(event)->button() == Qt::LeftButton && !m_pressedFace.isNull())
            Command1->setPixmap(m_pressedFace);
        return true;
    }
    // A click is a press and a release on the button.
    if (watched == Command1 && event->type() == QEvent::MouseButtonRelease &&
        static_cast<QMouseEvent*>(event)->button() == Qt::LeftButton &&
        Command1->rect().contains(static_cast<QMouseEvent*>(event)->position().toPoint())) {
        if (m_cdrom)
            m_cdrom->SearchChosenDrive();
        return true;
    }
    return QWidget::eventFilter(watched, event);
}

void Form4::clearDrives()
{
    const QString typed = Combo1->currentText();
    Combo1->clear();
    Combo1->setEditText(typed);
}

void Form4::addDrive(const QString& text)
{
    const QString typed = Combo1->currentText();
    Combo1->addItem(text);
    Combo1->setEditText(typed);
}

int Form4::driveCount() const
{
    return Combo1->count();
}

QString Form4::driveAt(int index) const
{
    return Combo1->itemText(index);
}

QString Form4::typedDrive() const
{
    return Combo1->currentText();
}

bool Form4::alwaysUseDrive() const
{
    return Check1->isChecked();
}

void Form4::showWithDrive(const QString& text)
{
    show();
    Combo1->setEditText(text);
}

void Form4::paintEvent(QPaintEvent* event)
{
    QWidget::paintEvent(event);
    if (m_background.isNull())
        return;
    QPainter painter(this);
    painter.drawPixmap(rect(), m_background);
}

} // namespace nubo::search
