// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/EntryOpener.h"

#include "catalogue/Catalogue.h"
#include "catalogue/Colours.h"
#include "catalogue/EntryPathResolver.h"
#include "core/Options.h"
#include "platform/IShell.h"
#include "platform/Windows1252.h"

#include <QFileInfo>

#include <algorithm>

namespace nubo::catalogue {

namespace {

constexpr qint16 kMissingDelayMs = 10000;

} // namespace

QString EntryOpener::foundPath(int position)
{
    const CatalogueList& list = m_catalogue.list();
    const QString path = m_resolver.ResolveEntryPath(list, position);
    if (QFileInfo(path).isFile() || position < 0 || position >= list.count())
        return path;
    if (refuseNotUtf8Name(path))
        return {};
    // A renamed or deleted file, or a disc that is not in any drive: the user is told which.
    const CatalogueRow& row = list.row(position);
    const QString text = row.unidad == unknownDriveText()
                             ? QStringLiteral("No se encuentra %1: inserte el disco del grupo %2")
                                   .arg(EntryPathResolver::fileBelowDrive(row), row.origen)
                             : QStringLiteral("No se encuentra el archivo %1").arg(path);
    m_catalogue.ShowInfoMessage(text, kMissingDelayMs, colours::kYellow);
    return {};
}

bool EntryOpener::refuseNotUtf8Name(const QString& path)
{
    if (path.isEmpty() || !platform::isWindows1252OnlyName(path))
        return false;
    m_catalogue.ShowInfoMessage(QStringLiteral("No se puede abrir %1: su nombre en el disco no "
                                               "está en UTF-8 y se muestra como Windows-1252")
                                    .arg(path),
                                kMissingDelayMs, colours::kYellow);
    return true;
}

void EntryOpener::PlaySelectedEntry(int focusedPosition)
{
    if (m_catalogue.list().isEmpty())
        return;
    const QString path = foundPath(focusedPosition);
    if (!path.isEmpty())
        m_shell.open(path);
}

void EntryOpener::EnqueueSelectedEntries(std::vector<int> positions)
{
    std::sort(positions.begin(), positions.end());
    positions.erase(std::unique(positions.begin(), positions.end()), positions.end());
    for (const int p : positions) {
        if (p < 0 || p >= m_catalogue.list().count())
            continue;
        const QString path = foundPath(p);
        if (!path.isEmpty())
            m_shell.enqueue(path);
    }
}

void EntryOpener::ExecuteOnDoubleClick(int focusedPosition)
{
    const CatalogueList& list = m_catalogue.list();
    if (!m_options.isOn(core::Option::DblClkExecute) || list.isEmpty())
        return;
    const QString path = foundPath(focusedPosition);
    if (path.isEmpty() || m_shell.open(path) != platform::IShell::Result::NoAssociation)
        return;
    // Kept from Windows: a file type without an application gets the "open with" chooser.
    if (!m_shell.openWith(path)) {
        m_catalogue.ShowInfoMessage(
            QStringLiteral(
                "El archivo no existe o la extencion no esta asociada a ninguna aplicacion"),
            5000, colours::kYellow);
    }
}

} // namespace nubo::catalogue
