#include "database/WorkbookReader.h"

#include "database/CompoundFile.h"

#include <QFile>
#include <QFileInfo>

namespace nubo::database {

void WorkbookReader::close()
{
    m_sheet = {};
}

bool WorkbookReader::fail(const QString& message)
{
    close();
    m_error = message;
    return false;
}

bool WorkbookReader::open(const QString& path)
{
    close();
    m_error.clear();
    if (!QFileInfo(path).isFile())
        return fail(QStringLiteral("No se encuentra el archivo %1.").arg(path));
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return fail(QStringLiteral("No se puede abrir el archivo %1.").arg(path));
    return read(file.readAll(), path);
}

bool WorkbookReader::read(const QByteArray& file, const QString& name)
{
    close();
    m_error.clear();
    const QString notWorkbook = QStringLiteral("%1 no es un libro de Excel.").arg(name);
    std::optional<QByteArray> stream = compoundFileStream(file, QStringLiteral("Workbook"));
    if (!stream) {
        if (compoundFileStream(file, QStringLiteral("Book")))
            return fail(QStringLiteral("%1 es un libro de Excel 95 o anterior: guárdelo como "
                                       "libro de Excel 97-2003.")
                            .arg(name));
        return fail(notWorkbook);
    }
    auto parsed = parseWorkbookStream(*stream);
    if (const auto* problem = std::get_if<BiffProblem>(&parsed)) {
        return fail(*problem == BiffProblem::OlderFormat
                        ? QStringLiteral("%1 es un libro de una versión de Excel anterior a la 97.")
                              .arg(name)
                        : notWorkbook);
    }
    m_sheet = std::move(std::get<BiffSheetContent>(parsed));
    return true;
}

CatalogueRecord WorkbookReader::record(quint32 row) const
{
    if (row == 0 || row > quint32(m_sheet.rows.size()))
        return {};
    return m_sheet.rows.at(row - 1);
}

} // namespace nubo::database
