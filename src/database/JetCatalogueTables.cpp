// SPDX-License-Identifier: GPL-3.0-or-later
#include "database/JetCatalogueTables.h"

#include "database/JetSystemTables.h"

namespace nubo::database::jet {
namespace {

using core::DetailField;
using core::DiscField;

Column column(const QString& name, quint8 type, int number)
{
    Column c;
    c.name = name;
    c.type = type;
    c.number = quint16(number);
    c.flags = kUpdatableColumn;
    if (type == kText) {
        c.length = quint16(2 * kMaxFieldText);
        c.extFlags = kCompressedText;
    } else {
        c.length = type == kDouble ? 8 : 4;
        c.flags |= kFixedColumn;
    }
    return c;
}

quint8 detailType(DetailField field)
{
    switch (field) {
    case DetailField::Tamano:
        return kDouble;
    case DetailField::Ano:
    case DetailField::Pista:
        return kLong;
    default:
        return kText;
    }
}

// Text as a field holds it: whole, or cut before the limit without splitting a character.
Value fieldText(const QString& text, qsizetype& shortened)
{
    if (text.isEmpty())
        return {};
    if (text.size() <= kMaxFieldText)
        return text;
    ++shortened;
    qsizetype length = kMaxFieldText;
    if (text.at(length - 1).isHighSurrogate())
        --length;
    return text.left(length);
}

Value sizeValue(qint64 bytes)
{
    return bytes < 0 ? Value{} : Value{double(bytes)};
}

Value detailValue(const core::FileDetails& details, DetailField field, LocalDateTexts& dates,
                  qsizetype& shortened)
{
    switch (field) {
    case DetailField::Tamano:
        return sizeValue(details.size);
    case DetailField::Fecha:
        return details.modified == core::FileDetails::kNoDate ? Value{}
                                                              : Value{dates.text(details.modified)};
    case DetailField::Ano:
        return details.year == 0 ? Value{} : Value{qint64(details.year)};
    case DetailField::Pista:
        return details.track == 0 ? Value{} : Value{qint64(details.track)};
    default:
        return fieldText(details.text(field), shortened);
    }
}

} // namespace

Table catalogueTable(const QString& name, const CatalogueHeader& header)
{
    Table table;
    table.name = name;
    for (int i = 0; i < 4; ++i)
        table.columns.append(column(header[i], kText, i));
    const QStringList captions = core::detailCaptions();
    for (int f = 0; f < core::kDetailFieldCount; ++f)
        table.columns.append(column(captions[f], detailType(DetailField(f)), 4 + f));
    table.usedPages = {page::kUsageMaps, maprow::kUserTableUsed};
    table.freePages = {page::kUsageMaps, maprow::kUserTableFree};
    return table;
}

Table discsTable(const QString& name)
{
    Table table;
    table.name = name;
    const QStringList captions = core::discCaptions();
    for (int f = 0; f < core::kDiscFieldCount; ++f) {
        const bool bytes = DiscField(f) == DiscField::Capacidad || DiscField(f) == DiscField::Libre;
        table.columns.append(column(captions[f], bytes ? kDouble : kText, f));
    }
    table.usedPages = {page::kUsageMaps, maprow::kDiscsTableUsed};
    table.freePages = {page::kUsageMaps, maprow::kDiscsTableFree};
    return table;
}

QList<Value> catalogueValues(const CatalogueRecord& record, LocalDateTexts& dates,
                             qsizetype& shortened)
{
    QList<Value> values(4 + core::kDetailFieldCount);
    for (int i = 0; i < 4; ++i) {
        if (!record.field(i).isEmpty())
            values[i] = record.field(i);
    }
    for (int f = 0; f < core::kDetailFieldCount; ++f)
        values[4 + f] = detailValue(record.details, DetailField(f), dates, shortened);
    return values;
}

QList<Value> discValues(const core::DiscRecord& disc, qsizetype& shortened)
{
    QList<Value> values(core::kDiscFieldCount);
    for (int f = 0; f < core::kDiscFieldCount; ++f) {
        const auto field = DiscField(f);
        if (field == DiscField::Capacidad || field == DiscField::Libre)
            values[f] = sizeValue(field == DiscField::Capacidad ? disc.capacidad : disc.libre);
        else
            values[f] = fieldText(disc.text(field), shortened);
    }
    return values;
}

} // namespace nubo::database::jet
