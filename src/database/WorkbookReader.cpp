// SPDX-License-Identifier: GPL-3.0-or-later
#include "database/WorkbookReader.h"

#include "database/CompoundFile.h"
#include "database/SourceFile.h"

namespace nubo::database {

void WorkbookReader::close()
{
    m_sheet = {};
}

Failure WorkbookReader::fail(const QString& message)
{
    close();
    return {message};
}

Outcome<> WorkbookReader::open(const QString& path)
{
    close();
    Outcome<QByteArray> source = readSourceFile(path);
    if (!source)
        return fail(source.reason());
    return read(source.value(), path);
}

namespace {

// The workbook stream: "Workbook" since Excel 97, "Book" before, in any case; a file that is not
// a compound file is taken as a bare stream, as Excel 2 to 4 wrote them.
std::optional<QByteArray> workbookStream(const QByteArray& file)
{
    if (!looksLikeCompoundFile(file))
        return file;
    if (auto stream = compoundFileStream(file, QStringLiteral("Workbook")))
        return stream;
    return compoundFileStream(file, QStringLiteral("Book"));
}

QString problemText(BiffProblem problem, const QString& name)
{
    const QString older = QStringLiteral("%1 es un libro de Excel %2, anterior a Excel 5: guárdelo "
                                         "como libro de Excel 97-2003.");
    switch (problem) {
    case BiffProblem::Excel2:
        return older.arg(name, QStringLiteral("2"));
    case BiffProblem::Excel3:
        return older.arg(name, QStringLiteral("3"));
    case BiffProblem::Excel4:
        return older.arg(name, QStringLiteral("4"));
    case BiffProblem::NotWorkbook:
        break;
    }
    return QStringLiteral("%1 no es un libro de Excel.").arg(name);
}

bool holdsText(const CatalogueRecord& record)
{
    for (int c = 0; c < 4; ++c) {
        if (!record.field(c).isEmpty())
            return true;
    }
    return false;
}

} // namespace

Outcome<> WorkbookReader::read(const QByteArray& file, const QString& name)
{
    close();
    const std::optional<QByteArray> stream = workbookStream(file);
    if (!stream)
        return fail(problemText(BiffProblem::NotWorkbook, name));
    auto parsed = parseWorkbookStream(*stream);
    if (const auto* problem = std::get_if<BiffProblem>(&parsed))
        return fail(problemText(*problem, name));
    m_sheet = std::move(std::get<BiffSheetContent>(parsed));
    // Catalogues leave row 2 empty and start their data at row 3; a sheet from another program
    // with data in row 2 has its rows from 2 on moved down one, so that row is read too.
    if (m_sheet.rows.size() > 1 && holdsText(m_sheet.rows.at(1))) {
        m_sheet.rows.insert(1, CatalogueRecord{});
        ++m_sheet.lastRow;
        if (m_sheet.declaredLastRow > 0)
            ++m_sheet.declaredLastRow;
    }
    return {};
}

CatalogueRecord WorkbookReader::record(quint32 row) const
{
    if (row == 0 || row > quint32(m_sheet.rows.size()))
        return {};
    return m_sheet.rows.at(row - 1);
}

} // namespace nubo::database
