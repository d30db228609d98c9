// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/DiscRecord.h"
#include "database/CatalogueRecord.h"

#include <QFile>
#include <QList>
#include <QStringList>

#include <utility>

// A catalogue's rows and disc records as the texts a spreadsheet shows, and a reader of the CSV
// files Gnumeric makes of a sheet, for comparing what other readers see with what we wrote.
namespace nubo::database::test {

// Row 1 of a catalogue sheet with the default captions.
inline QStringList captionRow()
{
    const CatalogueHeader header = defaultCatalogueHeader();
    return QStringList(header.begin(), header.end()) + core::detailCaptions();
}

inline QStringList rowTexts(const CatalogueRecord& r)
{
    QStringList texts{r.nombre, r.direccion, r.origen, r.formato};
    for (int f = 0; f < core::kDetailFieldCount; ++f)
        texts.append(r.details.text(core::DetailField(f)));
    return texts;
}

inline QStringList discTexts(const core::DiscRecord& disc)
{
    QStringList texts;
    for (int f = 0; f < core::kDiscFieldCount; ++f)
        texts.append(disc.text(core::DiscField(f)));
    return texts;
}

inline QList<QStringList> textTable(const QList<CatalogueRecord>& rows)
{
    QList<QStringList> table;
    for (const CatalogueRecord& r : rows)
        table.append(rowTexts(r));
    return table;
}

inline QList<QStringList> textTable(const QList<core::DiscRecord>& discs)
{
    QList<QStringList> table;
    for (const core::DiscRecord& d : discs)
        table.append(discTexts(d));
    return table;
}

// The rows of a CSV file as Gnumeric writes it: fields quoted when they hold a comma, a quote
// or a line break, quotes doubled.
inline QList<QStringList> csvRows(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    const QString text = QString::fromUtf8(file.readAll());
    QList<QStringList> rows{{}};
    QString field;
    bool quoted = false;
    for (qsizetype i = 0; i < text.size(); ++i) {
        const QChar c = text.at(i);
        if (quoted && c == u'"' && i + 1 < text.size() && text.at(i + 1) == u'"') {
            field += c;
            ++i;
        } else if (c == u'"') {
            quoted = !quoted;
        } else if (!quoted && c == u'\r') {
            continue;
        } else if (!quoted && (c == u',' || c == u'\n')) {
            rows.last().append(std::exchange(field, QString()));
            if (c == u'\n')
                rows.append(QStringList());
        } else {
            field += c;
        }
    }
    if (rows.last().isEmpty())
        rows.removeLast();
    return rows;
}

} // namespace nubo::database::test
