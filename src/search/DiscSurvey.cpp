// SPDX-License-Identifier: GPL-3.0-or-later
#include "search/DiscSurvey.h"

namespace nubo::search {

core::DiscRecord surveyDisc(const platform::IVolumes& volumes, const platform::IDrives& drives,
                            const QString& folder, const QString& mask, qint64 now)
{
    const QString prefix = drives.drivePrefixOf(folder);
    const QString root = prefix.isEmpty() ? QStringLiteral("/") : prefix;
    core::DiscRecord record;
    if (const std::optional<platform::VolumeDetails> details = volumes.details(root)) {
        record.etiqueta = details->label;
        record.serie = core::serialText(details->serial);
        record.sistema = details->fileSystem;
    }
    if (const std::optional<platform::VolumeSpace> space = volumes.space(root)) {
        record.capacidad = qint64(space->totalBytes);
        record.libre = qint64(space->freeBytes);
    }
    record.fecha = now;
    QString carpeta = folder.startsWith(prefix) ? folder.mid(prefix.size()) : folder;
    if (!carpeta.startsWith(QLatin1Char('/')))
        carpeta.prepend(QLatin1Char('/'));
    if (!carpeta.endsWith(QLatin1Char('/')))
        carpeta.append(QLatin1Char('/'));
    record.carpeta = carpeta;
    record.mascara = mask;
    return record;
}

} // namespace nubo::search
