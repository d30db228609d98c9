// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/FileDetails.h"

#include <QDateTime>
#include <QRegularExpression>

#include <optional>

namespace nubo::core {

namespace {

const QString kDateFormat = QStringLiteral("yyyy-MM-dd hh:mm");

// A whole number of at most 5 digits within [1, max], as a year or a track number is typed;
// a track may be followed by "/total".
std::optional<quint16> smallNumber(const QString& text, bool allowTotal)
{
    QString digits = text.trimmed();
    if (allowTotal)
        digits = digits.section(QLatin1Char('/'), 0, 0).trimmed();
    bool ok = false;
    const uint value = digits.toUInt(&ok);
    if (!ok || value == 0 || value > 65535)
        return std::nullopt;
    return quint16(value);
}

// "m:ss" or "h:mm:ss", or a bare number of seconds.
std::optional<qint32> durationFromText(const QString& text)
{
    static const QRegularExpression pattern(
        QStringLiteral(R"(^\s*(?:(\d{1,6}):)?(\d{1,6}):(\d{2})\s*$|^\s*(\d{1,9})\s*$)"));
    const QRegularExpressionMatch match = pattern.match(text);
    if (!match.hasMatch())
        return std::nullopt;
    if (match.hasCaptured(4))
        return qint32(match.captured(4).toInt());
    const qint64 seconds = match.captured(1).toLongLong() * 3600 +
                           match.captured(2).toLongLong() * 60 + match.captured(3).toLongLong();
    if (match.captured(3).toInt() > 59 || seconds > std::numeric_limits<qint32>::max())
        return std::nullopt;
    return qint32(seconds);
}

} // namespace

std::optional<qint64> dateFromText(const QString& text)
{
    QDateTime date = QDateTime::fromString(text.trimmed(), kDateFormat);
    if (!date.isValid())
        date = QDateTime::fromString(text.trimmed(), Qt::ISODate);
    if (!date.isValid())
        return std::nullopt;
    return date.toSecsSinceEpoch();
}

std::optional<qint64> sizeFromText(const QString& text)
{
    bool ok = false;
    const qint64 value = text.trimmed().toLongLong(&ok);
    if (ok && value >= 0)
        return value;
    // A spreadsheet may hand a size back as a number with a fraction part of zero.
    const double number = text.trimmed().toDouble(&ok);
    if (!ok || number < 0 || number > 9.0e15 || number != double(qint64(number)))
        return std::nullopt;
    return qint64(number);
}

QStringList detailCaptions()
{
    return {QStringLiteral("TAMAÑO"),  QStringLiteral("FECHA"),  QStringLiteral("TITULO"),
            QStringLiteral("ARTISTA"), QStringLiteral("ALBUM"),  QStringLiteral("AÑO"),
            QStringLiteral("PISTA"),   QStringLiteral("GENERO"), QStringLiteral("DURACION")};
}

QString dateText(qint64 secondsSinceEpoch)
{
    return QDateTime::fromSecsSinceEpoch(secondsSinceEpoch).toString(kDateFormat);
}

QString durationText(qint32 seconds)
{
    const qint32 hours = seconds / 3600;
    const QString minutesAndSeconds = QStringLiteral("%1:%2")
                                          .arg(hours > 0 ? (seconds / 60) % 60 : seconds / 60,
                                               hours > 0 ? 2 : 1, 10, QLatin1Char('0'))
                                          .arg(seconds % 60, 2, 10, QLatin1Char('0'));
    return hours > 0 ? QString::number(hours) + QLatin1Char(':') + minutesAndSeconds
                     : minutesAndSeconds;
}

QString FileDetails::text(DetailField field) const
{
    switch (field) {
    case DetailField::Tamano:
        return size == kNoSize ? QString() : QString::number(size);
    case DetailField::Fecha:
        return modified == kNoDate ? QString() : dateText(modified);
    case DetailField::Titulo:
        return title;
    case DetailField::Artista:
        return artist;
    case DetailField::Album:
        return album;
    case DetailField::Ano:
        return year == 0 ? QString() : QString::number(year);
    case DetailField::Pista:
        return track == 0 ? QString() : QString::number(track);
    case DetailField::Genero:
        return genre;
    case DetailField::Duracion:
        break;
    }
    return duration == kNoDuration ? QString() : durationText(duration);
}

bool FileDetails::setText(DetailField field, const QString& text)
{
    const bool blank = text.trimmed().isEmpty();
    switch (field) {
    case DetailField::Tamano: {
        const auto value = blank ? std::nullopt : sizeFromText(text);
        size = value.value_or(kNoSize);
        return blank || value;
    }
    case DetailField::Fecha: {
        const auto value = blank ? std::nullopt : dateFromText(text);
        modified = value.value_or(kNoDate);
        return blank || value;
    }
    case DetailField::Titulo:
        title = text;
        return true;
    case DetailField::Artista:
        artist = text;
        return true;
    case DetailField::Album:
        album = text;
        return true;
    case DetailField::Ano:
    case DetailField::Pista: {
        const auto value = blank ? std::nullopt : smallNumber(text, field == DetailField::Pista);
        (field == DetailField::Ano ? year : track) = value.value_or(0);
        return blank || value;
    }
    case DetailField::Genero:
        genre = text;
        return true;
    case DetailField::Duracion:
        break;
    }
    const auto value = blank ? std::nullopt : durationFromText(text);
    duration = value.value_or(kNoDuration);
    return blank || value;
}

bool FileDetails::isEmpty() const
{
    return *this == FileDetails{};
}

} // namespace nubo::core
