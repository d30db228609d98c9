// SPDX-License-Identifier: GPL-3.0-or-later
#include "tags/ui/PropertiesWindow.h"

#include <QFileInfo>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QImage>
#include <QLabel>
#include <QPixmap>
#include <QScrollArea>
#include <QVBoxLayout>

namespace nubo::tags::ui {

namespace {

constexpr int kPictureSide = 220;

// The caption of a tag field: the usual ones in Spanish, the rest under the library's key.
QString captionOf(const QString& key)
{
    static const QHash<QString, QString> captions{
        {QStringLiteral("TITLE"), QStringLiteral("Título")},
        {QStringLiteral("ARTIST"), QStringLiteral("Artista")},
        {QStringLiteral("ALBUM"), QStringLiteral("Álbum")},
        {QStringLiteral("ALBUMARTIST"), QStringLiteral("Artista del álbum")},
        {QStringLiteral("DATE"), QStringLiteral("Año")},
        {QStringLiteral("TRACKNUMBER"), QStringLiteral("Pista")},
        {QStringLiteral("DISCNUMBER"), QStringLiteral("Disco")},
        {QStringLiteral("GENRE"), QStringLiteral("Género")},
        {QStringLiteral("COMMENT"), QStringLiteral("Comentario")},
        {QStringLiteral("COMPOSER"), QStringLiteral("Compositor")},
    };
    return captions.value(key, key) + QLatin1Char(':');
}

QLabel* valueLabel(const QString& text)
{
    auto* label = new QLabel(text);
    label->setTextFormat(Qt::PlainText);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    label->setWordWrap(true);
    return label;
}

} // namespace

PropertiesWindow::PropertiesWindow(QWidget* parent) : QWidget(parent, Qt::Window)
{
    setObjectName(QStringLiteral("PropertiesWindow"));
    m_fields = new QScrollArea(this);
    m_fields->setWidgetResizable(true);
    m_fields->setFrameShape(QFrame::NoFrame);
    m_picture = new QLabel(this);
    m_picture->setObjectName(QStringLiteral("picture"));
    m_picture->setAlignment(Qt::AlignTop | Qt::AlignHCenter);
    m_picture->setFixedWidth(kPictureSide);
    auto* layout = new QHBoxLayout(this);
    layout->addWidget(m_fields, 1);
    layout->addWidget(m_picture);
    resize(620, 420);
}

void PropertiesWindow::showProperties(const FileProperties& properties)
{
    setWindowTitle(QStringLiteral("Propiedades de ") + QFileInfo(properties.path).fileName());
    m_fields->setWidget(buildFields(properties));
    showPicture(properties.picture);
}

QWidget* PropertiesWindow::buildFields(const FileProperties& p)
{
    auto* fields = new QWidget;
    fields->setObjectName(QStringLiteral("fields"));
    auto* form = new QFormLayout(fields);
    form->addRow(QStringLiteral("Archivo:"), valueLabel(p.path));
    form->addRow(QStringLiteral("Tamaño:"), valueLabel(QStringLiteral("%1 bytes").arg(p.size)));
    form->addRow(QStringLiteral("Tipo:"), valueLabel(p.typeName));
    if (!p.readable) {
        QLabel* message = valueLabel(unreadableText());
        message->setObjectName(QStringLiteral("message"));
        form->addRow(message);
        return fields;
    }
    for (const TagField& field : p.fields)
        form->addRow(captionOf(field.key), valueLabel(field.values.join(QLatin1Char('\n'))));
    form->addRow(QStringLiteral("Duración:"), valueLabel(formatLength(p.lengthSeconds)));
    form->addRow(QStringLiteral("Tasa de bits:"),
                 valueLabel(QStringLiteral("%1 kbit/s").arg(p.bitrate)));
    form->addRow(QStringLiteral("Frecuencia de muestreo:"),
                 valueLabel(QStringLiteral("%1 Hz").arg(p.sampleRate)));
    form->addRow(QStringLiteral("Canales:"), valueLabel(QString::number(p.channels)));
    return fields;
}

// The row's columns on the left, its disc's record on the right, so both fit in sight.
void PropertiesWindow::showKnownFields(const QString& fileName, const Fields& columns,
                                       const Fields& disc)
{
    setWindowTitle(QStringLiteral("Propiedades de ") + fileName);
    auto* fields = new QWidget;
    fields->setObjectName(QStringLiteral("fields"));
    auto* layout = new QVBoxLayout(fields);
    QLabel* message =
        valueLabel(QStringLiteral("El archivo no está al alcance (su disco no está en la unidad); "
                                  "esto es lo que guarda el catálogo."));
    message->setObjectName(QStringLiteral("message"));
    layout->addWidget(message);
    auto* sides = new QHBoxLayout;
    layout->addLayout(sides);
    layout->addStretch(1);
    auto* row = new QFormLayout;
    for (const auto& [caption, value] : columns)
        row->addRow(caption + QLatin1Char(':'), valueLabel(value));
    sides->addLayout(row, 1);
    auto* discForm = new QFormLayout;
    auto* heading = new QLabel(QStringLiteral("Disco"));
    heading->setObjectName(QStringLiteral("discHeading"));
    QFont bold = heading->font();
    bold.setBold(true);
    heading->setFont(bold);
    discForm->addRow(heading);
    if (disc.isEmpty())
        discForm->addRow(valueLabel(QStringLiteral("El catálogo no guarda datos de este disco.")));
    for (const auto& [caption, value] : disc)
        discForm->addRow(caption + QLatin1Char(':'), valueLabel(value));
    sides->addLayout(discForm, 1);
    m_fields->setWidget(fields);
    showPicture({});
}

// A picture that is not an image shows nothing.
void PropertiesWindow::showPicture(const QByteArray& bytes)
{
    const QImage image = QImage::fromData(bytes);
    m_picture->setVisible(!image.isNull());
    m_picture->setPixmap(image.isNull() ? QPixmap()
                                        : QPixmap::fromImage(image.scaled(
                                              kPictureSide, kPictureSide, Qt::KeepAspectRatio,
                                              Qt::SmoothTransformation)));
}

} // namespace nubo::tags::ui
