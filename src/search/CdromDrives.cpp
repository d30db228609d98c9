// SPDX-License-Identifier: GPL-3.0-or-later
#include "search/CdromDrives.h"

namespace nubo::search {

int CdromDrives::CountCdromDrives()
{
    m_chooser.clearDrives();
    for (const QString& text : m_window.driveTexts()) {
        if (m_drives.driveType(text) == platform::DriveType::CdRom)
            m_chooser.addDrive(text);
    }
    return qMax(m_chooser.driveCount(), 0);
}

bool CdromDrives::IsValidDrive(const QString& text)
{
    return m_window.selectDrive(text) == 0;
}

void CdromDrives::SearchWholeCd()
{
    CountCdromDrives();
    if (CountCdromDrives() == 0) {
        m_dialogs.messageBox(QStringLiteral("No hay unidades de CDROM instaladas"),
                             QStringLiteral("No se encuentra unidad de cdrom"));
        return;
    }
    // Kept: with two or more drives the command does nothing at all (no chooser is shown).
    if (CountCdromDrives() != 1)
        return;
    m_engine.StartSearch(m_chooser.driveAt(0));
    if (CountCdromDrives() > 1 && !m_chooser.alwaysUseDrive())
        m_chooser.showWithDrive(m_chooser.driveAt(0));
}

void CdromDrives::SearchChosenDrive()
{
    const QString text = m_chooser.typedDrive();
    if (!IsValidDrive(text)) {
        m_dialogs.messageBox(QStringLiteral("La unidad tipeada no es valida, por favor "
                                            "seleccione una de la lista"),
                             QStringLiteral("Path invalido"));
        return;
    }
    m_engine.StartSearch(text);
}

} // namespace nubo::search
