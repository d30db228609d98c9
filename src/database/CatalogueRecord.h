// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/FileDetails.h"

#include <QString>
#include <QStringList>

#include <array>

namespace nubo::database {

// One catalogue row as the catalogue files store it: the four stored columns, then the file's
// details (all unknown in a file written before they were kept).
struct CatalogueRecord
{
    QString nombre;
    QString direccion;
    QString origen;
    QString formato;
    core::FileDetails details = {};

    const QString& field(int index) const
    {
        switch (index) {
        case 0:
            return nombre;
        case 1:
            return direccion;
        case 2:
            return origen;
        default:
            return formato;
        }
    }
    QString& field(int index) { return const_cast<QString&>(std::as_const(*this).field(index)); }
    bool operator==(const CatalogueRecord&) const = default;
};

// The values a load could not take (a date that is no date, a size that is no number): how
// many, and the captions of their columns.
struct SkippedValues
{
    qsizetype count = 0;
    QStringList columns;

    void add(const QString& caption)
    {
        ++count;
        if (!columns.contains(caption))
            columns.append(caption);
    }
    void merge(const SkippedValues& other)
    {
        count += other.count - other.columns.size();
        for (const QString& caption : other.columns)
            add(caption);
    }
};

// The captions of the four stored list columns: row 1 of a workbook, field names of a database.
using CatalogueHeader = std::array<QString, 4>;

inline CatalogueHeader defaultCatalogueHeader()
{
    return {QStringLiteral("NOMBRE"), QStringLiteral("DIRECCION"), QStringLiteral("ORIGEN"),
            QStringLiteral("FORMATO")};
}

// What a loaded row's hidden drive column holds.
inline QString loadedRowDrive()
{
    return QStringLiteral("NN");
}

} // namespace nubo::database
