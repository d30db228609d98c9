// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/DiscRecord.h"

#include "core/FileDetails.h"

namespace nubo::core {

QStringList discCaptions()
{
    return {QStringLiteral("ORIGEN"),    QStringLiteral("ETIQUETA"),  QStringLiteral("SERIE"),
            QStringLiteral("SISTEMA"),   QStringLiteral("CAPACIDAD"), QStringLiteral("LIBRE"),
            QStringLiteral("FECHA"),     QStringLiteral("CARPETA"),   QStringLiteral("MASCARA"),
            QStringLiteral("UBICACION"), QStringLiteral("NOTAS")};
}

QString discsTableName()
{
    return QStringLiteral("Discos");
}

// Kept: the panel shows the serial as a signed number, negative past 2^31.
QString serialText(quint32 serial)
{
    return QString::number(qint32(serial));
}

const DiscRecord* findDisc(const QList<DiscRecord>& records, const QString& origen)
{
    for (const DiscRecord& record : records) {
        if (record.origen == origen)
            return &record;
    }
    return nullptr;
}

namespace {

QString* textField(DiscRecord& record, DiscField field)
{
    switch (field) {
    case DiscField::Origen:
        return &record.origen;
    case DiscField::Etiqueta:
        return &record.etiqueta;
    case DiscField::Serie:
        return &record.serie;
    case DiscField::Sistema:
        return &record.sistema;
    case DiscField::Carpeta:
        return &record.carpeta;
    case DiscField::Mascara:
        return &record.mascara;
    case DiscField::Ubicacion:
        return &record.ubicacion;
    case DiscField::Notas:
        return &record.notas;
    case DiscField::Capacidad:
    case DiscField::Libre:
    case DiscField::Fecha:
        break;
    }
    return nullptr;
}

} // namespace

QString DiscRecord::text(DiscField field) const
{
    if (const QString* plain = textField(const_cast<DiscRecord&>(*this), field))
        return *plain;
    if (field == DiscField::Fecha)
        return fecha == kNoDate ? QString() : dateText(fecha);
    const qint64 bytes = field == DiscField::Capacidad ? capacidad : libre;
    return bytes == kNoSize ? QString() : QString::number(bytes);
}

bool DiscRecord::setText(DiscField field, const QString& text)
{
    if (QString* plain = textField(*this, field)) {
        *plain = text;
        return true;
    }
    const bool blank = text.trimmed().isEmpty();
    if (field == DiscField::Fecha) {
        const auto value = blank ? std::nullopt : dateFromText(text);
        fecha = value.value_or(kNoDate);
        return blank || value;
    }
    const auto value = blank ? std::nullopt : sizeFromText(text);
    (field == DiscField::Capacidad ? capacidad : libre) = value.value_or(kNoSize);
    return blank || value;
}

} // namespace nubo::core
