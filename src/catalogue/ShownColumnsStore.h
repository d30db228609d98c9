// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "catalogue/CatalogueRow.h"
#include "platform/AppFolder.h"

#include <QList>

namespace nubo::catalogue {

// Keeps between runs which of the file's detail columns (TAMAÑO to DURACION) the list window
// shows, in "\ini\Columnas.nbo", a file of its own beside the options file: section
// "COLUMNAS", one KEY=1 or KEY=0 line per column, the key being its caption without accents.
class ShownColumnsStore final
{
public:
    explicit ShownColumnsStore(platform::AppFolder app) : m_app(std::move(app)) {}

    QString path() const;
    // The detail columns shown, in column order; a missing, unreadable or foreign file shows
    // none, as a first run does. Lines it does not know are passed over.
    QList<Column> load() const;
    // Replaces the file as a whole; false, with the old file kept, when that fails.
    [[nodiscard]] bool save(const QList<Column>& shown) const;

    // The key of a detail column in the file: "TAMANO", "ANO", ...
    static QString keyOf(Column column);

private:
    platform::AppFolder m_app;
};

} // namespace nubo::catalogue
