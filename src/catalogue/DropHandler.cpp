// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/DropHandler.h"

#include "catalogue/Catalogue.h"
#include "catalogue/ISearchLauncher.h"
#include "platform/IDialogs.h"

#include <QFileInfo>

#include <optional>

namespace nubo::catalogue {

void DropHandler::handleDrop(const QStringList& names)
{
    std::optional<QString> mask; // asked at the first folder, reused for the others
    for (const QString& name : names) {
        if (name.isEmpty())
            return;
        if (QFileInfo(name).isFile()) {
            QString path = name;
            m_catalogue.AddFileToList(path);
            continue;
        }
        if (!mask) {
            mask = m_dialogs
                       .inputBox(QStringLiteral("Ingrese la extencion de los arhivos que desea "
                                                "agregar a la lista "),
                                 QStringLiteral("Defina una extencion!"), QStringLiteral("*.*"))
                       .value_or(QString());
        }
        if (mask->isEmpty())
            return;
        if (m_search)
            m_search->searchFolder(name, *mask);
    }
}

} // namespace nubo::catalogue
